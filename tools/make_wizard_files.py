#!/usr/bin/env python3
"""make_wizard_files.py OUT: writes the wizard's examples but for its level: PCX, WAV, MOD, MODTXT and README."""

import math
import struct
import sys
from pathlib import Path

from image_files import run_lengths
from module_file import ROWS, assemble, bell, cell, drum, shaker, wave
from wave_files import RATE, riff

TILE, FRAMES = 32, 3

# Black is see-through in the game.
PALETTE = [(0, 0, 0), (24, 30, 58), (20, 52, 110), (24, 84, 156), (36, 122, 196), (72, 162, 224), (128, 200, 242),
           (190, 230, 252), (255, 255, 255), (70, 40, 16), (124, 76, 28), (184, 124, 44), (232, 184, 84), (250, 226, 150),
           (60, 60, 66), (112, 112, 120)]
RIM, WATER, SHINE, BAND = 1, range(2, 8), 8, (10, 12, 11)


def ball(x, y, width, height):
    """Colour of a pixel of a glass ball with a brass band; it stands on the tile's floor."""
    across = (x - TILE / 2 + 0.5) / (width / 2)
    down = (y - (TILE - 1 - height / 2) + 0.5) / (height / 2)
    out = across * across + down * down
    if out > 1:
        return 0
    if out > 0.84:
        return RIM
    bend = down - 0.22 * (1 - across * across)
    if abs(bend) < 0.2:
        return BAND[min(2, int((bend + 0.2) / 0.4 * 3))]
    from_light = math.hypot(across + 0.38, down + 0.42)
    if from_light < 0.2:
        return SHINE
    return WATER[max(0, 5 - int(from_light * 4.2))]


def sheet_rows():
    """A ball that falls, lands and is pressed flat: played to and fro it bounces."""
    sizes = ((27, 30), (29, 26), (30, 21))
    return [[ball(x, y, *size) for size in sizes for x in range(TILE)] for y in range(TILE)]


def pcx_of_four_planes(rows):
    """Version 3.0, four planes of one bit; the 16 colours stand in the header."""
    width, height = len(rows[0]), len(rows)
    colours = b"".join(bytes(colour) for colour in PALETTE)
    header = struct.pack("<BBBBHHHHHH48sxBHHHH", 10, 5, 1, 1, 0, 0, width - 1, height - 1, 72, 72, colours, 4,
                         width // 8, 1, 0, 0).ljust(128, b"\0")
    body = b""
    for row in rows:
        for plane in range(4):
            bits = "".join(str(pixel >> plane & 1) for pixel in row)
            body += run_lengths(int(bits, 2).to_bytes(width // 8, "big"))
    return header + body


def bounce(length=0.26):
    """A rubbery knock: a tone that swings up while it dies away."""
    samples, turn = [], 0.0
    for number in range(round(length * RATE)):
        t = number / RATE
        turn += (190 + 240 * t / length + 18 * math.sin(2 * math.pi * 24 * t)) / RATE
        tone = math.sin(2 * math.pi * turn) + 0.3 * math.sin(4 * math.pi * turn) + 0.12 * math.sin(6 * math.pi * turn)
        samples.append(0.6 * tone * min(1, t / 0.004) * math.exp(-4.2 * t / length) * min(1, (length - t) / 0.02))
    return samples


INSTRUMENTS = [
    ("music box", bell(3200), 46, False),
    ("round pipe", wave(lambda t: math.sin(2 * math.pi * t) + 0.22 * math.sin(4 * math.pi * t)), 30, True),
    ("wooden bass", wave(lambda t: 0.9 * math.sin(2 * math.pi * t) + 0.3 * math.sin(10 * math.pi * t)), 50, True),
    ("tin pan", shaker(700), 20, False),
    ("log", drum(1500), 44, False),
]
BOX, PIPE, BASS, PAN, LOG = range(1, 6)

# A waltz: each bar has 12 rows of a pattern's 60, the last row breaks off. Root of the bass, then two tones for the pipe.
BARS = {"D": ("D-1", "F#2", "A-2"), "A": ("A-1", "E-2", "G-2"), "G": ("G-1", "B-2", "D-2"), "Bm": ("B-1", "D-2", "F#2"),
        "Em": ("E-1", "G-2", "B-2")}
WALTZ = [
    (["D", "G", "A", "D", "Bm"], "0 D-3, 4 F#3, 8 A-3, 12 B-3, 20 A-3, 24 G-3, 28 E-3, 32 C#3, 36 D-3, 44 A-2, 48 B-2, 52 D-3, 56 F#3"),
    (["Em", "A", "D", "G", "A"], "0 G-3, 4 F#3, 8 E-3, 12 A-3, 20 C#3, 24 D-3, 28 F#3, 32 A-3, 36 B-3, 44 G-3, 48 A-3, 52 G-3, 56 E-3"),
    (["D", "Bm", "Em", "A", "D"], "0 F#3, 8 D-3, 12 D-3, 20 B-2, 24 E-3, 28 G-3, 32 B-3, 36 A-3, 44 C#3, 48 D-3"),
]
ORDER = [0, 1, 0, 1, 2]
BAR_ROWS, BARS_A_PATTERN = 12, 5


def waltz_pattern(names, melody):
    rows = [[cell()] * 4 for _ in range(ROWS)]
    for number, name in enumerate(names):
        root, low, high = BARS[name]
        at = number * BAR_ROWS
        rows[at][2] = cell(root, BASS)
        rows[at + 4][2] = cell(None, 0, 0xC, 0)
        for beat in (4, 8):
            rows[at + beat][1] = cell(low if beat == 4 else high, PIPE, 0xC, 26)
            rows[at + beat + 3][1] = cell(None, 0, 0xC, 0)
            rows[at + beat][3] = cell("A-2", PAN)
        rows[at][3] = cell("C-2", LOG)
    for step in melody.split(","):
        row, note = step.split()
        rows[int(row)][0] = cell(note, BOX)
    rows[BAR_ROWS * BARS_A_PATTERN - 1][3] = cell(None, 0, 0xD, 0)  # on to the next pattern
    return b"".join(one for row in rows for one in row)


def tune():
    return assemble("gemforge example", INSTRUMENTS, ORDER, [waltz_pattern(*part) for part in WALTZ])


VALUE_COLUMN = 60
TUNE_LINES = [("title_header", "Title"), ("title", "Gemforge Example Tune"), ("artist_header", "by"),
              ("artist", "The Gemforge Authors"), ("album_header", "from the album"), ("album", "Gemforge Examples"),
              ("year_header", "from the year"), ("year", "2026")]
README = ["Gemforge ReadMe", "-" * 15, "", "This text is seen in the Info Screen\\Level Set Info page."]


def text(lines):
    return "".join(line + "\r\n" for line in lines).encode("ascii")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    files = {
        "PCX": pcx_of_four_planes(sheet_rows()),
        "WAV": riff(bounce()),
        "MOD": tune(),
        "MODTXT": text((key + ":").ljust(VALUE_COLUMN - 1) + value for key, value in TUNE_LINES),
        "README": text(README),
    }
    out = Path(sys.argv[1])
    out.mkdir(parents=True, exist_ok=True)
    for name, content in files.items():
        (out / name).write_bytes(content)


if __name__ == "__main__":
    main()
