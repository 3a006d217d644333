"""Protracker modules of four channels with instruments made here; the tune of the example set is one."""

import math
import struct

from pixel_art import noise

# Periods of three octaves from C-1 to B-3, in half tones.
PERIODS = [856, 808, 762, 720, 678, 640, 604, 570, 538, 508, 480, 453, 428, 404, 381, 360, 339, 320, 302, 285, 269, 254,
           240, 226, 214, 202, 190, 180, 170, 160, 151, 143, 135, 127, 120, 113]
NOTES = {name: number for number, name in enumerate("C- C# D- D# E- F- F# G- G# A- A# B-".split())}
ROWS = 64
CYCLE = 32  # samples of one wave: C-2 is then the middle C


def signed(values):
    return bytes(max(-127, min(127, round(value))) & 0xFF for value in values)


def wave(shape, length=CYCLE):
    return signed(100 * shape(place / length) for place in range(length))


def bell(length=4800):
    def at(place):
        turn = 2 * math.pi * place / CYCLE
        ring = math.sin(turn) + 0.5 * math.sin(4 * turn) * math.exp(-place / 700)
        ring += 0.25 * math.sin(7 * turn) * math.exp(-place / 300)
        return 78 * ring * math.exp(-4.2 * place / length) * min(1, place / 24)
    return signed(at(place) for place in range(length))


def shaker(length=900):
    return signed(70 * (2 * noise(place, 1) - 1) * math.exp(-6 * place / length) for place in range(length))


def drum(length=2200):
    def at(place):
        return 115 * math.sin(34 * (1 - math.exp(-place / 700))) * math.exp(-3.6 * place / length)
    return signed(at(place) for place in range(length))


# Name, bytes, volume, does it loop. Numbered from 1 in the patterns.
INSTRUMENTS = [
    ("soft reed", wave(lambda t: math.sin(2 * math.pi * t) + 0.3 * math.sin(6 * math.pi * t)), 34, True),
    ("cave bass", wave(lambda t: 4 * abs(t - 0.5) - 1), 52, True),
    ("crystal bell", bell(), 44, False),
    ("gravel", shaker(), 18, False),
    ("drip drum", drum(), 46, False),
]
REED, BASS, BELL, GRAVEL, DRUM = range(1, 6)

# Chords of two bars a pattern half: root in the bass octave, three tones of the bells.
CHORDS = {
    "Am": ("A-1", "A-2 C-3 E-3"), "F": ("F-1", "A-2 C-3 F-3"), "C": ("C-1", "G-2 C-3 E-3"),
    "G": ("G-1", "G-2 B-2 D-3"), "Dm": ("D-1", "A-2 D-3 F-3"), "E": ("E-1", "G#2 B-2 E-3"),
}

# A pattern: four chords of 16 rows, and the melody as (row, note or "" for silence).
TUNE_A = (["Am", "F", "C", "G"],
          "0 A-2, 6 C-3, 8 E-3, 14 D-3, 16 C-3, 24 A-2, 28 , 32 G-2, 38 C-3, 40 E-3, 46 G-3, 48 D-3, 60 ")
TUNE_B = (["Am", "F", "Dm", "E"],
          "0 E-3, 4 D-3, 6 C-3, 8 A-2, 16 F-3, 20 E-3, 22 C-3, 24 A-2, 32 D-3, 36 F-3, 40 A-3, 48 G#3, 56 E-3, 62 ")
REST = (["Am", "F", "C", "E"], "0 , 32 E-2, 40 G-2, 48 B-2, 60 ")
ORDER = [2, 0, 1, 0, 2, 1]


def _period(note):
    return PERIODS[NOTES[note[:2]] + 12 * (int(note[2]) - 1)]


def cell(note=None, instrument=0, effect=0, value=0):
    period = _period(note) if note else 0
    return bytes([(instrument & 0xF0) | period >> 8, period & 0xFF, (instrument & 0x0F) << 4 | effect, value])


def _pattern(chords, melody):
    cells = [[cell()] * 4 for _ in range(ROWS)]
    for number, name in enumerate(chords):
        root, tones = CHORDS[name]
        tones = tones.split()
        for row in range(0, 16, 2):
            at = cells[number * 16 + row]
            if row in (0, 6, 10):
                at[1] = cell(root, BASS)
            elif row in (4, 8, 14):
                at[1] = cell(None, 0, 0xC, 0)
            at[2] = cell((tones + [tones[1]])[row // 2 % 4], BELL, 0xC, 40 if row % 8 == 0 else 26)
        cells[number * 16][3] = cell("C-2", DRUM)
        cells[number * 16 + 4][3] = cell("A-2", GRAVEL)
        cells[number * 16 + 8][3] = cell("G-1", DRUM, 0xC, 30)
        cells[number * 16 + 12][3] = cell("A-2", GRAVEL)
        cells[number * 16 + 14][3] = cell("C-3", GRAVEL, 0xC, 9)
    for step in melody.split(","):
        row, note = (step.strip() + " ").split(" ", 1)
        # A held note trembles a little; an empty one ends the note before it.
        cells[int(row)][0] = cell(note.strip(), REED, 0x4, 0x42) if note.strip() else cell(None, 0, 0xC, 0)
    return b"".join(one for row in cells for one in row)


def assemble(title, instruments, order, patterns):
    """The whole file. `instruments`: rows (name, bytes, volume, does it loop); `patterns`: bytes each."""
    head = title.encode("ascii").ljust(20, b"\0")
    for name, data, volume, loops in instruments:
        words = len(data) // 2
        head += struct.pack(">22sHBBHH", name.encode("ascii"), words, 0, volume, 0, words if loops else 1)
    head += struct.pack(">22sHBBHH", b"", 0, 0, 0, 0, 1) * (31 - len(instruments))
    head += bytes([len(order), 127]) + bytes(order).ljust(128, b"\0") + b"M.K."
    return head + b"".join(patterns) + b"".join(data for _, data, _, _ in instruments)


def module(title):
    """The example set's tune."""
    return assemble(title, INSTRUMENTS, ORDER, [_pattern(*tune) for tune in (TUNE_A, TUNE_B, REST)])
