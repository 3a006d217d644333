#!/usr/bin/env python3
"""make_tables.py FACTS OUT: writes the nine ini tables to OUT from the lists of the game's names in FACTS."""

import sys
from pathlib import Path

from program_tables import make_basic, make_compat, make_levelheader, make_links, make_user
from vocabulary_tables import Facts, make_vocabulary


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    facts, out = Facts(Path(sys.argv[1])), Path(sys.argv[2])
    out.mkdir(parents=True, exist_ok=True)
    make_vocabulary(facts, out)
    for make in (make_basic, make_compat, make_levelheader, make_links, make_user):
        make(out)


if __name__ == "__main__":
    main()
