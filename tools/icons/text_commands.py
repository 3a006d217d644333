"""Commands on the text: selecting, elements, comments, finding, going somewhere, views."""

from .paint import circle, flat, line, moved, polygon, rect, shine, solid
from .shapes import arrow, badge, bolt, film, gem, hash_sign, magnifier, page, pencil, picture, sheet, sparkle, text, tiles


def band(y, height, colour="sapphire", x=.5, width=15):
    """A selected stretch of lines."""
    return shine(rect(x, y, width, height, 1), colour) + line(rect(x, y, width, height, 1), colour + "_deep", 1)


def select_line():
    return (sheet() + text((3, 3, 7), (3, 11, 9), (3, 13, 5)) + band(5.5, 4)
            + text((3, 7, 8, "white")))


def select_block():
    return (sheet() + text((3, 2, 6), (3, 13, 7)) + band(3.5, 8)
            + text((3, 5, 9, "white"), (5, 7, 7, "white"), (5, 9, 5, "white")))


def select_between():
    rule = (flat(rect(2, 1, 12, 2, 1), "emerald") + flat(rect(2, 13, 12, 2, 1), "emerald"))
    return band(4.5, 7) + text((3, 6, 9, "white"), (3, 9, 6, "white")) + rule


def select_all():
    corners = ("M1.5 4V2.5a1 1 0 0 1 1-1H4M12 1.5h1.5a1 1 0 0 1 1 1V4"
               "M14.5 12v1.5a1 1 0 0 1-1 1H12M4 14.5H2.5a1 1 0 0 1-1-1V12")
    sides = "M6.5 1.5h3M6.5 14.5h3M1.5 6.5v3M14.5 6.5v3"
    return (shine(rect(1.5, 1.5, 13, 13, 1), "sapphire")
            + text((4, 4, 6, "white"), (4, 6, 8, "white"), (4, 9, 7, "white"), (4, 11, 4, "white"))
            + line(corners + sides, "sapphire_deep", 1))


def quick_element():
    return sheet(1, 1, 12, 13) + text((3, 3, 7), (4, 5, 4), (4, 7, 3), (4, 9, 3)) + bolt(10.8, 9.6, .98)


def edit_element():
    return gem("emerald", 7, 6.6, 12.6) + pencil(7.4, 15.4, .92)


def eye(x=8, y=8, scale=1, colour="sapphire"):
    """An open eye."""
    return moved(solid("M-7 0C-5.2-3-2.7-4.5 0-4.5S5.2-3 7 0C5.2 3 2.7 4.5 0 4.5S-5.2 3-7 0z", "paper", 1 / scale,
                       colour + "_deep")
                 + solid(circle(0, 0, 2.9), colour, 1 / scale) + flat(circle(0, 0, 1.2), "ink")
                 + flat(circle(1.1, -1.1, .8), "white"), x, y, scale)


def quick_preview():
    return tiles(["emerald", "ruby", "amber", None, None, None, None, None, None], 1, 1) + eye(8, 10.3, 1, "sapphire")


def edit_animation():
    return film(0, 2, 15, 11, "amethyst") + gem("sapphire", 5.5, 7.8, 5.6) + pencil(7.6, 15.6, .92)


def insert_separator():
    return (text((1, 1, 8), (1, 3, 11), (1, 12, 5), (1, 14, 4)) + hash_sign(3.2, 7.6, .5, width=1.2)
            + flat(rect(7, 6.5, 8, 2.2, 1), "emerald") + badge("plus", "sapphire"))


def comment_selected():
    return hash_sign(5.2, 8, .82) + text((11, 3, 4), (10.6, 6, 5), (10.3, 9, 4), (10, 12, 5), colour="emerald")


def uncomment_selected():
    return hash_sign(5.2, 7, .82, "slate") + text((11, 2, 4), (10.6, 5, 4), (10.3, 8, 2)) + badge("cross", "ruby")


def tidy_up():
    rows = ((3, 4), (6, 3), (9, 5), (12, 3))
    keys = text(*((1, y, length) for y, length in rows), colour="slate")
    values = text((9, 3, 3), (9, 6, 5), (9, 9, 4), (9, 12, 6), colour="sapphire")
    return (keys + values + line("M7.5 1.5v1M7.5 4.5v1M7.5 7.5v1M7.5 10.5v1M7.5 13.5v1", "emerald", 1)
            + sparkle(13, 3, 3))


def find():
    return magnifier(6.6, 6.6, 4.8)


def find_further(direction):
    return magnifier(6, 6, 4.2) + badge(direction)


def replace():
    old = solid(rect(1.5, 1.5, 6, 6, 1), "ruby") + line("M3.2 6l1.3-3 1.3 3M3.7 5h1.6", "white", 1)
    fresh = (solid(rect(8.5, 8.5, 6, 6, 1), "emerald")
             + line("M10.5 10v3h1.2a.8.8 0 0 0 0-1.6h-1.2 1a.7.7 0 0 0 0-1.4z", "white", 1))
    turns = ("M10 3.5h1a2 2 0 0 1 2 2V7M11.7 5.6L13 7l1.3-1.4",
             "M6 12.5H5a2 2 0 0 1-2-2V9M1.7 10.4L3 9l1.3 1.4")
    return old + fresh + "".join(line(turn, "slate", 1.3) for turn in turns)


def goto_comment():
    return ("".join(hash_sign(3, y, .4, colour, 1) for y, colour in ((3, "emerald"), (8, "amber"), (13, "rose")))
            + text((7, 2.5, 7), (7, 7.5, 8), (7, 12.5, 5), colour="slate")
            + arrow("sapphire", 90, 12, 11.5, .6))


def goto_block():
    return ("".join(gem(colour, 3, y, 4.6) for y, colour in ((3, "emerald"), (8, "amber"), (13, "ruby")))
            + text((7, 2.5, 7), (7, 7.5, 8), (7, 12.5, 5), colour="slate")
            + arrow("sapphire", 90, 12, 11.5, .6))


def goto_further_comment(direction):
    return hash_sign(6, 6, .92) + badge(direction, "sapphire")


def marked_lines():
    return (sheet() + text((6, 3, 7), (6, 7, 5), (6, 11, 6)) + solid(circle(3.4, 3.5, 1.6), "amber")
            + solid(circle(3.4, 11.5, 1.6), "ruby"))


def further_mark(direction):
    return sheet() + text((6, 3, 7), (6, 7, 5)) + solid(circle(3.4, 5.5, 1.9), "amber") + badge(direction, "sapphire")


def toggle_comment():
    return hash_sign(5.2, 7, .82) + text((11, 2, 4), (10.6, 5, 4)) + badge("down", "emerald")


def goto_line():
    return (sheet() + text((3, 3, 2, "aqua"), (3, 6, 2, "aqua"), (3, 9, 2, "aqua"), (3, 12, 2, "aqua"))
            + text((7, 3, 5), (7, 12, 4)) + band(5.5, 5, "amber", 5.5, 10) + text((8, 7.5, 5, "white"))
            + arrow("sapphire", -90, 3.6, 8, .62))


def goto_end(turn):
    edge = shine(rect(2, 1, 12, 2, 1), "slate") + line(rect(2, 1, 12, 2, 1), "slate_deep", .6)
    drawing = edge + arrow("sapphire", 180, 8, 9.6, .98)
    return f'<g transform="rotate({turn} 8 8)">{drawing}</g>' if turn else drawing


def line_numbers():
    digits = ("M2.7 3.2l.8-.7v3M2.6 5.5h1.8", "M2.5 7.6a1 1 0 1 1 1.7.7L2.5 10.2h2",
              "M2.5 11.7h1.9l-1 1.1a.9.9 0 1 1-1 1.3")
    return (sheet() + shine("M2 2h4v12H2z", "aqua")
            + "".join(line(digit, "white", .9) for digit in digits)
            + text((8, 4, 5), (8, 8, 4), (8, 12, 5)))


def spaces_tabs():
    sign = "M8 1.5H6.2a3.6 3.6 0 0 0 0 7.2H7v5.8h1.5V3H10v11.5h1.5V3h1.5V1.5z"
    return (solid(sign, "amethyst", .8) + flat(circle(2, 13, 1), "amber") + flat(circle(14.2, 8, 1), "amber")
            + line("M12.8 12h2.4M14.2 11l1 1-1 1", "amber", 1))


def syntax_colours():
    return (sheet() + text((3, 3, 4, "ruby"), (8, 3, 4, "sapphire"), (3, 6, 3, "emerald"), (7, 6, 6, "amber"),
                           (3, 9, 6, "amethyst"), (10, 9, 3, "aqua"), (3, 12, 2, "rose"), (6, 12, 5, "sapphire")))


def line_hints():
    return (sheet() + text((6, 3, 7), (6, 7, 5), (6, 11, 6)) + solid(circle(3.4, 7.5, 1.9), "ruby")
            + flat(circle(3.4, 12, 1.5), "amber"))


def thumbnails():
    return (picture(0, 0, 7, 7) + picture(0, 8, 7, 7)
            + text((9, 2, 6, "ink"), (9, 4, 4, "ink"), (9, 10, 6, "ink"), (9, 12, 4, "ink")))


def super_tab():
    key = rect(.5, 2.5, 15, 11, 2)
    return (solid(key, "slate") + flat(rect(2, 3.5, 12, 7.5, 1), "paper_pale")
            + line("M4 7.2h5.5M7.5 5.2l2 2-2 2M11.8 5v4.5", "amethyst_deep", 1.4))


def new_element():
    return tiles(["emerald", None, None, None, None, None, None, None, None], 1, 1, 10) + badge("plus", "sapphire")


def tile_element(glyph, colour):
    return gem("emerald", 7, 6.8, 13) + badge(glyph, colour)


def inject_path():
    return page(1, 1, 9, 13) + text((3, 5, 3), (3, 7, 5), (3, 9, 3)) + arrow("amber", 90, 10.6, 8, .86)


def eraser():
    return (solid("M5.6 13.5L1.8 9.7a1 1 0 0 1 0-1.4L8.3 1.8a1 1 0 0 1 1.4 0l4.5 4.5a1 1 0 0 1 0 1.4L8.4 13.5z", "rose")
            + flat("M5.6 13.5L1.8 9.7a1 1 0 0 1 0-1.4l2.8-2.8 6.2 6.2L9 13.5z", "white", .75)
            + line("M4.8 5.3l6 6M3 14.5h11.5", "rose_deep", 1))


def font():
    return (line("M3 13L7 3l4 10M4.5 9.5h5", "sapphire_deep", 2.2)
            + line("M3 13L7 3l4 10M4.5 9.5h5", "sapphire", 1)
            + flat(polygon((11, 12), (15.6, 12), (13.3, 15)), "amber"))
