"""Sounds of the example set as 8-bit mono waves: tones with an envelope, and noise."""

import math
import struct

from pixel_art import noise

RATE = 22050  # samples a second


def riff(samples):
    """A RIFF wave of samples from -1 to 1."""
    data = bytes(max(0, min(255, round(128 + 127 * sample))) for sample in samples)
    form = struct.pack("<HHIIHH", 1, 1, RATE, RATE, 1, 8)
    chunks = b"WAVE" + b"fmt " + struct.pack("<I", len(form)) + form + b"data" + struct.pack("<I", len(data)) + data
    return b"RIFF" + struct.pack("<I", len(chunks) + len(data) % 2) + chunks + b"\0" * (len(data) % 2)


def envelope(t, length, attack=0.005, fall=4.0):
    """Quick rise, then a fall that is over at `length` seconds."""
    return min(1.0, t / attack) * math.exp(-fall * t / length) * min(1.0, (length - t) / 0.02)


def seconds(length):
    return [sample / RATE for sample in range(round(length * RATE))]


def chime(notes, step=0.07, length=0.45):
    """Bell tones one after the other, ringing on; `notes` in Hz."""
    whole = seconds(step * (len(notes) - 1) + length)

    def at(t):
        total = 0.0
        for number, pitch in enumerate(notes):
            since = t - number * step
            if 0 <= since < length:
                ring = math.sin(2 * math.pi * pitch * since) + 0.4 * math.sin(2 * math.pi * 2.76 * pitch * since)
                total += ring * envelope(since, length)
        return 0.42 * total
    return [at(t) for t in whole]


def scrape(length=0.22, tone=900):
    """A spade in gravel: noise that gets duller."""
    samples, level = [], 0.0
    for number, t in enumerate(seconds(length)):
        dull = math.exp(-tone * (1 - 0.7 * t / length) / RATE)
        level = dull * level + (1 - dull) * (2 * noise(number, 3) - 1)
        samples.append(5.2 * level * envelope(t, length, 0.01, 3.0) * (0.6 + 0.4 * math.sin(2 * math.pi * 31 * t)))
    return samples


def thud(length=0.3, pitch=110):
    """A stone that lands: a low tone that falls, with a click at its start."""
    samples = []
    for number, t in enumerate(seconds(length)):
        swing = math.sin(2 * math.pi * pitch * (t - 0.9 * t * t / length * 0.5))
        click = (2 * noise(number, 5) - 1) * math.exp(-t * 160)
        samples.append((0.85 * swing + 0.5 * click) * envelope(t, length, 0.002, 4.5) * 0.85)
    return samples


def creak(length=0.7):
    """A heavy door: a slow rattle whose pitch wanders upward."""
    samples = []
    for t in seconds(length):
        pitch = 70 + 55 * t / length + 9 * math.sin(2 * math.pi * 5 * t)
        saw = 2 * ((pitch * t) % 1.0) - 1
        body = math.sin(2 * math.pi * 3.1 * pitch * t)
        samples.append((0.55 * saw + 0.45 * saw * body) * envelope(t, length, 0.08, 1.6))
    return samples


SOUNDS = {
    "gem_chime.wav": lambda: chime([1046.5, 1318.5, 1568.0]),
    "key_chime.wav": lambda: chime([784.0, 1174.7], 0.09, 0.5),
    "dig_scrape.wav": scrape,
    "stone_thud.wav": thud,
    "door_creak.wav": creak,
}
