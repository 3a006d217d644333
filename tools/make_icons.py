#!/usr/bin/env python3
"""Draws every icon of the program into resources/icons/ and lists them in resources/icons.qrc.

Without arguments it writes the files and removes icons that the table no longer has. With --check it
writes nothing and ends with 1 if a file on disk differs from its drawing.
"""

import sys
from pathlib import Path

from icons.paint import document
from icons.table import icons

RESOURCES = Path(__file__).resolve().parent.parent / "resources"


def drawings():
    """{path below resources/: text} of every file this tool makes."""
    texts = {}
    for icon in icons():
        path = f"icons/{icon.name}.svg"
        if path in texts:
            raise SystemExit(f"two icons are called {icon.name}")
        texts[path] = document(icon.draw(*icon.arguments), icon.grid, icon.size)
    entries = "".join(f'    <file alias="{Path(path).name}">{path}</file>\n' for path in sorted(texts))
    texts["icons.qrc"] = (f'<!DOCTYPE RCC>\n<RCC version="1.0">\n  <qresource prefix="/icons">\n{entries}'
                          "  </qresource>\n</RCC>\n")
    return texts


def stale(texts):
    """Icons on disk that the table doesn't have."""
    return [path for path in (RESOURCES / "icons").glob("*.svg") if f"icons/{path.name}" not in texts]


def check(texts):
    """Names of the files that are not what they should be."""
    wrong = [path for path, text in texts.items()
             if not (RESOURCES / path).is_file() or (RESOURCES / path).read_text(encoding="utf-8") != text]
    return wrong + [f"icons/{path.name}" for path in stale(texts)]


def write(texts):
    (RESOURCES / "icons").mkdir(parents=True, exist_ok=True)
    for path in stale(texts):
        path.unlink()
    for path, text in texts.items():
        (RESOURCES / path).write_text(text, encoding="utf-8", newline="\n")


def main(arguments):
    texts = drawings()
    if arguments == ["--check"]:
        wrong = check(texts)
        for path in wrong:
            print(f"not as drawn: {path}")
        return 1 if wrong else 0
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    write(texts)
    print(f"{len(texts) - 1} icons")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
