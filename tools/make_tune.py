#!/usr/bin/env python3
"""Writes the tune of the About window, resources/TOON: a module of four channels, notes and instruments made here.

    make_tune.py OUT      OUT: the file
"""

import math
import pathlib
import sys

from module_file import ROWS, assemble, bell, cell, drum, shaker, wave


def square(share):
    """One turn of a pulse wave that is up for `share` of it, its edges a little round."""
    return wave(lambda t: 0.8 * math.tanh(9 * math.sin(2 * math.pi * (t + share / 2)) + 9 * (share - 0.5)))


def plucked(length=3600):
    """A string that is struck and dies away: overtones fade first."""
    def at(place):
        turn = 2 * math.pi * place / 32
        return sum(math.sin(k * turn) / k * math.exp(-place * k / 1900) for k in range(1, 7)) / 1.6
    return bytes(max(-127, min(127, round(110 * at(place)))) & 0xFF for place in range(length))


INSTRUMENTS = [
    ("bright pipe", square(0.28), 30, True),
    ("anvil string", plucked(), 50, False),
    ("deep pipe", square(0.5), 40, True),
    ("hammer", drum(), 58, False),
    ("bellows", shaker(), 26, False),
    ("gem", bell(), 40, False),
]
PIPE, STRING, DEEP, HAMMER, BELLOWS, GEM = range(1, 7)
OFF = (None, 0, 0xC, 0)

# Root in the bass octave; the string plays it broken up by the arpeggio effect: third and fifth in half tones.
CHORDS = {"C": ("C-1", 0x47), "G": ("G-1", 0x47), "Am": ("A-1", 0x37), "F": ("F-1", 0x47), "Em": ("E-1", 0x37),
          "Dm": ("D-1", 0x37)}

# Four chords of 16 rows, and the melody: row, note ("" ends the one before).
VERSE = (["C", "Am", "F", "G"], "0 E-2, 3 G-2, 6 C-3, 10 G-2, 12 E-2, 16 E-2, 19 A-2, 22 C-3, 26 A-2, 30 , 32 F-2, 35 A-2, "
         "38 C-3, 42 D-3, 44 C-3, 48 B-2, 51 G-2, 54 D-3, 60 B-2, 63 ")
TURN = (["Am", "Em", "F", "G"], "0 C-3, 4 B-2, 6 A-2, 10 E-2, 16 G-2, 20 B-2, 22 E-3, 26 B-2, 32 A-2, 36 C-3, 38 F-3, 42 E-3, "
        "44 D-3, 48 D-3, 52 E-3, 54 D-3, 56 B-2, 58 G-2, 62 ")
REST = (["F", "C", "Dm", "G"], "0 A-2, 8 C-3, 14 , 16 G-2, 24 E-2, 30 , 32 F-2, 36 A-2, 40 D-3, 46 , 48 D-3, 56 B-2, 60 ")
ORDER = [2, 0, 0, 1, 0, 1, 2]


def backing(rows, start, name):
    """Bass, broken chord and beat of one chord."""
    root, thirds = CHORDS[name]
    high = root[:2] + "2"
    for row in range(0, 16, 4):
        rows[start + row][1] = cell(high, STRING, 0, thirds)
        rows[start + row + 2][1] = cell(high, STRING, 0, thirds) if row in (4, 12) else cell(None, 0, 0xC, 18)
    for row, note in ((0, root), (3, None), (6, root), (8, high), (11, None), (12, root)):
        rows[start + row][2] = cell(note, DEEP) if note else cell(*OFF)
    for row, note, instrument, volume in ((0, "C-2", HAMMER, 58), (4, "C-3", BELLOWS, 26), (6, "C-3", BELLOWS, 12),
                                          (8, "C-2", HAMMER, 46), (10, "C-2", HAMMER, 30), (12, "C-3", BELLOWS, 26),
                                          (14, "E-3", GEM, 16)):
        rows[start + row][3] = cell(note, instrument, 0xC, volume)


def pattern(chords, melody):
    rows = [[cell()] * 4 for _ in range(ROWS)]
    for number, name in enumerate(chords):
        backing(rows, number * 16, name)
    for step in melody.split(","):
        row, note = (step.strip() + " ").split(" ", 1)
        rows[int(row)][0] = cell(note.strip(), PIPE, 0x4, 0x53) if note.strip() else cell(*OFF)
    return b"".join(one for row in rows for one in row)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    tune = assemble("the smith at work", INSTRUMENTS, ORDER, [pattern(*part) for part in (VERSE, TURN, REST)])
    pathlib.Path(sys.argv[1]).write_bytes(tune)


if __name__ == "__main__":
    main()
