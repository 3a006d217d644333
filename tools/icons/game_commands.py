"""Commands on the game, its levels, sheets, films and macros, and the help."""

from .kinds import level_map
from .paint import circle, flat, line, moved, polygon, rect, shine, solid
from .shapes import (arrow, badge, bolt, film, folder, gem, magnifier, open_folder, page, picture, question, sparkle,
                     text,
                     tiles, window)


def run_game():
    return gem("sapphire", 7, 7, 13) + badge("play")


def run_fast():
    return gem("sapphire", 7, 7, 13) + bolt(11.6, 10.6, .92)


def test_set():
    return moved(folder(), 0, -1) + moved(gem("sapphire", 7, 7, 13), 6.6, 6, .62) + moved(badge("play"), .6, .6)


def check_with_game():
    return gem("sapphire", 7, 7, 13) + badge("check")


def game_words():
    bubble = "M2.5 2.5h11a1 1 0 0 1 1 1v6a1 1 0 0 1-1 1h-6l-3.5 3.5v-3.5h-1.5a1 1 0 0 1-1-1v-6a1 1 0 0 1 1-1z"
    return solid(bubble, "amber") + text((4, 5, 8), (4, 7.5, 6))


def games():
    return moved(gem("ruby", 7, 7, 13), 4.6, -.6, .68) + moved(gem("sapphire", 7, 7, 13), -.4, 5, .68)


def level_manager():
    return folder() + moved(level_map(), 6.2, 6.2, .62)


def check_errors():
    return page() + text((4, 5, 4), (4, 7, 6), (4, 9, 3)) + badge("check")


def error_log():
    return page() + text((4, 5, 4), (4, 7, 6), (4, 9, 3)) + badge("alert", "ruby")


def extract():
    crate = "M1.5 8.5h13v5a1 1 0 0 1-1 1h-11a1 1 0 0 1-1-1z"
    return (solid(crate, "bronze") + line("M1.5 11.5h13", "bronze_deep", 1) + flat(rect(2, 9, 12, .8), "amber_pale")
            + arrow("emerald", 180, 8, 5.6, .86))


def wand():
    return (line("M2.5 13.5l7-7", "amethyst_deep", 3.4) + line("M2.5 13.5l7-7", "amethyst", 1.8)
            + line("M8 8l1.5-1.5", "white", 1.8) + sparkle(11.5, 4.5, 4.3) + sparkle(4, 4, 2.4, "aqua")
            + sparkle(13, 12, 2.4, "rose"))


def level_palette():
    return tiles(["ruby", "amber", "emerald", "sapphire", "slate", "aqua", "amethyst", "rose", "bronze"])


def headline():
    return (solid("M1.5 3.5h13v6h-13z", "amber") + line("M4 5v3M7 5v3M4 6.5h3", "white", 1.2)
            + line("M9 5.5h3.5M9 7.5h2.5", "white", 1.1) + text((1, 11, 13), (1, 13, 9)))


def lab():
    flask = "M6 1.5h4M6.5 1.5v4.2L2.3 12.6a1.3 1.3 0 0 0 1.1 1.9h9.2a1.3 1.3 0 0 0 1.1-1.9L9.5 5.7V1.5"
    flask = flask
    glass = "M6.5 1.5v4.2L2.3 12.6a1.3 1.3 0 0 0 1.1 1.9h9.2a1.3 1.3 0 0 0 1.1-1.9L9.5 5.7V1.5z"
    return (shine(glass, "paper") + shine("M4.9 9h6.2l2.2 3.7a.9.9 0 0 1-.8 1.3h-9a.9.9 0 0 1-.8-1.3z", "rose")
            + flat(circle(6.5, 11.8, 1), "amber_pale") + flat(circle(9.6, 12.2, .8), "aqua_pale")
            + flat(circle(8.3, 10, .7), "white") + line(flask, "slate_deep", 1.1))


def film_sheet():
    return film(0, 1, 13, 9) + picture(5, 7, 11, 9)


def terminal(sign="aqua"):
    return (solid(rect(.5, 2.5, 15, 11, 1.5), "night") + line("M3.5 5.5L6 8l-2.5 2.5", sign, 1.5)
            + line("M8 10.5h4", "amber", 1.5))


def basic():
    return terminal() + gem("emerald", 11.9, 5.4, 5.4)


def record_macro():
    return terminal() + solid(circle(11.6, 11.2, 3.6), "ruby")


def help_sign():
    return solid(circle(8, 8, 6.5), "sapphire") + question(8, 7.2, .95)


def about():
    return gem("sapphire", 7.4, 8.8, 14) + sparkle(13, 3.2, 3.1)


def play(colour="emerald"):
    return solid("M3.5 2.4a.9.9 0 0 1 1.4-.8l9 5.6a.9.9 0 0 1 0 1.6l-9 5.6a.9.9 0 0 1-1.4-.8z", colour)


def stop():
    return solid(rect(2.5, 2.5, 11, 11, 1.5), "ruby")


def step():
    return moved(play(), -1.5, 1.2, .85) + solid(rect(12, 2.5, 2.5, 11, .8), "emerald")


def watch():
    return (window("amethyst") + text((4, 7, 3, "amethyst"), (8, 7, 4), (4, 9, 3, "amethyst"), (8, 9, 3),
                                      (4, 11, 3, "amethyst"), (8, 11, 4)))


def test_macro():
    return terminal() + badge("play")


def macro_page(colour="bronze"):
    """A macro: a page with a prompt."""
    return page() + shine(rect(3, 6, 9, 6, 1), "night") + line("M4.5 7.7L6 9l-1.5 1.3M7.5 10.5h2.5", "aqua", 1)


def hot_macro():
    """A macro that a key runs."""
    return macro_page() + bolt(11.6, 10.6, .9)


def scan():
    return folder() + magnifier(8.2, 8.2, 2.9)


def set_folder(glyph="check", colour="emerald"):
    return folder() + badge(glyph, colour)


def tape():
    return (solid(rect(.5, 3.5, 15, 10, 1), "steel") + solid(rect(3, 5.5, 10, 4.5, 1.5), "paper", edge="steel_deep")
            + flat(circle(5.3, 7.8, 1.5) + circle(10.7, 7.8, 1.5), "rose")
            + flat(circle(5.3, 7.8, .5) + circle(10.7, 7.8, .5), "white") + solid("M4 13.5l1-2h6l1 2z", "slate"))


def contents():
    """What lies in an archive, as a tree."""
    return (text((6, 2, 8), (8, 7, 7), (8, 12, 6)) + line("M2.5 3v9.5M2.5 7.5H5M2.5 12.5H5", "slate_deep", 1)
            + solid(rect(.7, .7, 3.6, 3.6, .8), "amber") + solid(circle(5.2, 7.5, 1.5), "emerald")
            + solid(circle(5.2, 12.5, 1.5), "sapphire"))


def image_with(glyph, colour="emerald"):
    return picture() + badge(glyph, colour)


def film_with(glyph, colour="emerald"):
    return film() + gem("sapphire", 8, 8.4, 5) + badge(glyph, colour)


def pictures():
    """Several images, one behind the other."""
    return picture(3, 1, 13, 10) + picture(0, 4, 13, 11)


def load(base):
    """A folder with something to load: "image" or "film"."""
    inside = picture(4, 0, 11, 9) if base == "image" else film(4, 0, 11, 9)
    return open_folder("amber", inside)


def map_view():
    return moved(level_map(), -1, -1, .98) + magnifier(8.4, 8.4, 3.2)


def zoom(glyph):
    sign = {"in": "M4.6 6.6h4M6.6 4.6v4", "out": "M4.6 6.6h4"}[glyph]
    return magnifier(6.6, 6.6, 4.8) + line(sign, "sapphire_deep", 1.3)


def page_arrow(turn):
    return arrow("sapphire", turn, 8, 8, 1.1)


def mark(glyph, colour):
    signs = {"ok": "M2.5 8.5l3.7 3.8L13.5 4", "cancel": "M3.5 3.5l9 9M12.5 3.5l-9 9"}
    return line(signs[glyph], colour + "_deep", 3.2) + line(signs[glyph], colour, 1.6)


def wheel(x=8, y=8):
    """The colours to choose from."""
    parts = zip(range(0, 360, 60), ("ruby", "amber", "emerald", "aqua", "sapphire", "amethyst"))
    wedge = polygon((0, 0), (-3.75, -6.5), (3.75, -6.5))
    return moved("".join(moved(flat(wedge, colour), turn=turn) for turn, colour in parts)
                 + line(polygon((-3.75, -6.5), (3.75, -6.5), (7.5, 0), (3.75, 6.5), (-3.75, 6.5), (-7.5, 0)),
                        "slate_deep", 1)
                 + solid(circle(0, 0, 2.2), "paper"), x, y)
