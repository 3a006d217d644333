"""The kinds of document: their signs on tabs, and pages with the sign for the recent list and new files."""

from .paint import line, moved, rect, shine, solid
from .shapes import film, gem, page, pencil, picture, question, text, tiles


def speaker(colour="amber"):
    """A loudspeaker with sound waves."""
    return (solid("M1.5 6a.5.5 0 0 1 .5-.5h2.5l3.6-3a.5.5 0 0 1 .9.4v10.2a.5.5 0 0 1-.9.4l-3.6-3H2"
                  "a.5.5 0 0 1-.5-.5z", colour)
            + line("M11 5.8a3.2 3.2 0 0 1 0 4.4", colour + "_deep", 1.6)
            + line("M13 3.6a6.2 6.2 0 0 1 0 8.8", colour, 1.6))


def notes(colour="amethyst"):
    """Two quavers under one beam."""
    return (line("M5.5 12V3.8l8-2v8.4", colour + "_deep", 1.6) + solid("M5.5 3.5l8-2V4l-8 2z", colour)
            + solid("M2 12.6c0-1.4 1.2-2.1 2.2-2.1s1.8.6 1.8 1.7c0 1.3-1.2 2.2-2.3 2.2S2 13.7 2 12.6z"
                    "M10 10.6c0-1.4 1.2-2.1 2.2-2.1s1.8.6 1.8 1.7c0 1.3-1.2 2.2-2.3 2.2S10 11.7 10 10.6z", colour))


def level_map():
    """A small level: walls round a corner and a stone to collect."""
    walls = ["slate", "slate", "slate", "slate", None, None, "slate", None, None]
    return (solid(rect(1.5, 1.5, 13, 13, 1.2), "night") + tiles(walls, 2.3, 2.3, 3.6, .3)
            + gem("emerald", 9.9, 10.3, 7.2))


def book(colour="aqua"):
    """An open help book."""
    cover = "M1.5 3.5h13v10h-13z"
    leaf = "M8 4C6.5 2.6 4.5 2.2 2.5 2.5v9.3c2-.3 4 .2 5.5 1.5z"
    other = "M8 4c1.5-1.4 3.5-1.8 5.5-1.5v9.3c-2-.3-4 .2-5.5 1.5z"
    return (solid(cover, colour) + solid(leaf, "paper", edge=colour + "_deep")
            + solid(other, "paper", edge=colour + "_deep")
            + line("M4 5.5c.9 0 1.7.2 2.5.6M4 8c.9 0 1.7.2 2.5.6", "slate", 1)
            + question(10.8, 7.3, .6, colour, 1.3))


def help_film(colour="rose"):
    """A film with the sign of help on it."""
    return film(1, 2, 14, 12, colour) + question(8, 7.4, .58, colour + "_deep", 1.4)


def editor_tiles():
    """The palette of the level editor with a pencil."""
    return (tiles(["ruby", "emerald", "sapphire", "amethyst", "aqua", "slate", "rose", "slate", None], 1, 1)
            + pencil(8.6, 14.8, .85))


def lines(colour="slate"):
    """Plain text."""
    return page() + text((4, 5, 4), (4, 7, 7), (4, 9, 7), (4, 11, 5), colour=colour)


def unknown():
    """A document of no known kind."""
    frame = rect(2.5, 1.5, 11, 13, 1)
    return shine(frame, "paper") + line(frame, "slate", 1) + question(8, 7.6, .9, "slate", 1.6)


SIGNS = {
    "text": lines, "graphics": picture, "sound": speaker, "music": notes, "level": level_map,
    "helptext": book, "helpanim": help_film, "editor": editor_tiles, "unknown": unknown,
}


def sign(kind):
    """The sign of a kind by itself."""
    return SIGNS[kind]()


def file_of(kind):
    """A page that carries the sign of a kind."""
    sized = {"sound": .56, "music": .58, "helptext": .58}.get(kind, .6)
    return page(1, 0, 12, 15) + text((3, 3, 4), (3, 5, 6)) + moved(SIGNS[kind](), 5.6, 6, sized * 1.06)


def any_file():
    """A page of no particular kind."""
    return page() + text((4, 6, 7, "slate_pale"), (4, 8, 7, "slate_pale"), (4, 10, 4, "slate_pale"))


def text_file():
    """A page of plain text."""
    return lines("steel")
