#!/usr/bin/env python3
"""make_examples.py DATA OUT: writes the example level set to OUT. DATA is the folder with mapele.ini."""

import sys
from pathlib import Path

import grotto_confs as confs
import ini_text
from grotto_graphics import graphicsinfo
from grotto_level import first_level
from grotto_sheets import SHEETS, draw
from image_files import pcx_of_palette, pcx_of_planes, png
from module_file import module
from wave_files import SOUNDS, riff

TUNE = "glowworm_lullaby.mod"
PCX_KINDS = {"grotto_tiles": pcx_of_palette, "grotto_creatures": pcx_of_planes}


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    pairs = ini_text.read(Path(sys.argv[1]) / "mapele.ini")["MapElements"]
    numbers = {name: int(number) for name, number in pairs[1:]}
    files = {
        "levelinfo.conf": confs.levelinfo(1),
        "helptext.conf": confs.helptext(),
        "helpanim.conf": confs.helpanim(),
        "editorsetup.conf": confs.editorsetup(),
        "graphics/graphicsinfo.conf": graphicsinfo(),
        "sounds/soundsinfo.conf": confs.soundsinfo(),
        "music/musicinfo.conf": confs.musicinfo(TUNE),
        "001.level": first_level(numbers),
        f"music/{TUNE}": module("glowworm lullaby"),
        **{f"sounds/{name}": riff(samples()) for name, samples in SOUNDS.items()},
    }
    for name in SHEETS:
        sheet = draw(name)
        files[f"graphics/{name}.pcx"] = PCX_KINDS[name](sheet)
        files[f"graphics/{name}.png"] = png(sheet)
    for name, content in files.items():
        path = Path(sys.argv[2]) / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content.encode("utf-8") if isinstance(content, str) else content)


if __name__ == "__main__":
    main()
