#!/usr/bin/env python3
"""make_palette.py FACTS OUT: writes the level palette gfx_classic.gif to OUT.

FACTS is the folder with level-elements.tsv: number, name and class of each element. The cell of element n stands in
column n % 25 and row n / 25. The drawings are in palette_cells.py.
"""

import sys
from pathlib import Path

from image_files import Sheet, gif
from palette_cells import SIDE, cell_of
from pixel_art import PALETTE

COLUMNS = 25


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    table = (Path(sys.argv[1]) / "level-elements.tsv").read_text(encoding="utf-8").splitlines()[1:]
    elements = [line.split("\t") for line in table]
    rows = -(-len(elements) // COLUMNS)
    sheet = Sheet(COLUMNS * SIDE, rows * SIDE, PALETTE, SIDE)
    for number, name, kind in elements:
        place = int(number)
        sheet.put(place % COLUMNS, place // COLUMNS, cell_of(name, kind))
    Path(sys.argv[2], "gfx_classic.gif").write_bytes(gif(sheet))


if __name__ == "__main__":
    main()
