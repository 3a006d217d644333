"""Conf texts: entries with their value in one column, separators with an icon code, element blocks."""

from grotto_sheets import PLACES

COLUMN = 43  # where values begin, counted from 1; a key as long as that is followed directly by its value
SEPARATOR = "#~-"  # comment, search character, line character


class ConfText:
    def __init__(self):
        self.lines = []

    def line(self, text=""):
        self.lines.append(text)

    def entry(self, key, value):
        self.line(f"{key}:{' ' * max(0, COLUMN - len(key) - 2)}{value}")

    def note(self, *texts):
        for text in texts:
            self.line("# " + text)

    def separator(self, title, icon=""):
        """A chapter heading as the separator command writes it: the title centred in a line, the icon code behind."""
        width, title = COLUMN + 15, f" {title} "
        at = width // 2 - len(title) // 2 + 1
        line = SEPARATOR[:2] + SEPARATOR[2] * (width - 1)
        self.line()
        self.line(line[:at] + title + line[at + len(title):] + icon)
        self.line()

    def header(self, name):
        self.entry("name", name)
        self.entry("sort_priority", 100)

    def block(self, key, animation, ending="pcx", first=0, frames=None, **fields):
        """The lines of one picture; `first` and `frames` take a part of the animation. Fields follow in order."""
        place = PLACES[animation]
        self.entry(key, f"{place.sheet}.{ending}")
        self.entry(f"{key}.xpos", place.column + first)
        self.entry(f"{key}.ypos", place.row)
        self.entry(f"{key}.frames", place.count - first if frames is None else frames)
        for field, value in fields.items():
            self.entry(f"{key}.{field}", value)

    def group(self, key, word, animation, first=0, ending="pcx"):
        """A sub group EDITOR or PREVIEW: file and place of one still picture."""
        place = PLACES[animation]
        self.entry(f"{key}.{word}", f"{place.sheet}.{ending}")
        self.entry(f"{key}.{word}.xpos", place.column + first)
        self.entry(f"{key}.{word}.ypos", place.row)

    def text(self):
        return "\r\n".join(self.lines) + "\r\n"
