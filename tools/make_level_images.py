#!/usr/bin/env python3
"""make_level_images.py OUT: writes BLANKLEVEL, the level a new one starts from, and LEVEL, the wizard's example."""

import sys
from pathlib import Path

from level_bytes import level

# The chunk CUS4 that describes custom element 1 of the example.
CUSTOM_ELEMENT = bytes.fromhex("""
    43555334000000c00168637573746f6d20656c656d656e742031202867656d66
    6f726765290000000000280001b0000000000200000000000000000a01000800
    0800000000000f0004000000000000000000006b000000000000000000000000
    0000000f10080000000800200168000000000001000000000000640000000000
    0000000000000000000000000000010f0fff0000000000000008008000000000
    000000010000010000006400000000000000000000000000000000000000010f
    0fff000000000000""")

CUSTOM_1, ROCK, PLAYER_1 = 360, 4, 80


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    out = Path(sys.argv[1])
    out.mkdir(parents=True, exist_ok=True)
    (out / "BLANKLEVEL").write_bytes(level(64, 32, [0] * 64 * 32, "nameless level", "nobody", time=100))
    cells = [0] * 15 * 15
    for x, y, element in ((0, 0, CUSTOM_1), (7, 6, ROCK), (7, 7, PLAYER_1)):
        cells[y * 15 + x] = element
    (out / "LEVEL").write_bytes(level(15, 15, cells, "gemforge example level", "the gemforge authors",
                                      tail=CUSTOM_ELEMENT))


if __name__ == "__main__":
    main()
