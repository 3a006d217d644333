"""The pictures of the message window, on a grid of 24 units: they are shown at 48 pixels."""

from .paint import circle, flat, line, moved, polygon, rect, shine, solid
from .shapes import badge, gem, magnifier, picture, question, sparkle, text


def disc(colour):
    """A polished round stone for a sign."""
    return (solid(circle(12, 12, 10), colour, 1.2)
            + flat("M3.6 11a8.5 8.5 0 0 1 16.8 0c-4-1.8-12.8-1.8-16.8 0z", "white", .22))


def letter(x=4, y=2, width=14, height=19):
    """A page with a few lines."""
    outline = (f"M{x + 1} {y}h{width - 6}l5 5v{height - 6}a1 1 0 0 1-1 1H{x + 1}a1 1 0 0 1-1-1V{y + 1}"
               "a1 1 0 0 1 1-1z")
    return (solid(outline, "paper", 1.2)
            + solid(f"M{x + width - 5} {y}v4a1 1 0 0 0 1 1h4z", "slate", 1.2, "paper_deep"))


def information():
    return disc("sapphire") + flat(circle(12, 7, 1.6), "white") + line("M10.3 11H12v6.2M10 17.3h4", "white", 2.2)


def doubt():
    return (solid("M8 2.2h8a1.5 1.5 0 0 1 1.3.75l4.1 7.7a2.5 2.5 0 0 1 0 2.6L17.3 21a1.5 1.5 0 0 1-1.3.75H8"
                  "A1.5 1.5 0 0 1 6.7 21L2.6 13.3a2.5 2.5 0 0 1 0-2.6L6.7 3A1.5 1.5 0 0 1 8 2.2z", "amber", 1.2)
            + flat("M7.5 3.5h9L20.6 11H3.4z", "white", .25) + question(12, 10.9, 1.45, "white", 2.5))


def failure():
    octagon = ("M8.3 2.5h7.4a1 1 0 0 1 .7.3l4.8 4.8a1 1 0 0 1 .3.7v7.4a1 1 0 0 1-.3.7l-4.8 4.8a1 1 0 0 1-.7.3H8.3"
               "a1 1 0 0 1-.7-.3l-4.8-4.8a1 1 0 0 1-.3-.7V8.3a1 1 0 0 1 .3-.7l4.8-4.8a1 1 0 0 1 .7-.3z")
    return (solid(octagon, "ruby", 1.2)
            + flat("M8.3 3.5h7.4l4.8 4.8v2.5c-5-1.6-12-1.6-17 0V8.3z", "white", .2)
            + line("M8.5 8.5l7 7M15.5 8.5l-7 7", "white", 2.6))


def missing():
    ghost = "M5 2.5h8l5 5V20.5H5a1 1 0 0 1-1-1v-16a1 1 0 0 1 1-1z"
    dashes = ("M4 6V3.5a1 1 0 0 1 1-1h2.5M10 2.5h3l2 2M16.5 6L18 7.5V10M4 9v3M4 15v3M4.6 20.9H7")
    return (flat(ghost, "slate_pale", .45) + line(dashes, "slate", 1.5) + text((7, 8, 4), (7, 11, 8), (7, 14, 4))
            + moved(badge("cross", "ruby", 0, 0), 16.5, 16.5, 1.4))


def tools():
    head = "M8.5-5.5L5.5-2.5 3-3 2.5-5.5 5.5-8.5C2.5-9.5-.5-7.5-.5-4.5S2 1 4.5.5 9.5-2.5 8.5-5.5z"
    handle = "M-6 6L3-3"
    return (moved(line(handle, "slate_deep", 4.4) + line(handle, "slate", 2.6) + solid(head, "slate", 1.2), 11, 13.5)
            + moved(badge("alert", "amber", 0, 0), 17, 17.5, 1.2))


def selection():
    caret = "M17.5 6.5c1.3 0 2 .6 2 1.5v8c0 .9-.7 1.5-2 1.5M21.5 6.5c-1.3 0-2 .6-2 1.5v8c0 .9.7 1.5 2 1.5"
    return (letter() + text((7, 6, 4), (7, 17, 7)) + shine(rect(2, 9, 17, 5.5, 1.2), "sapphire")
            + line(rect(2, 9, 17, 5.5, 1.2), "sapphire_deep", 1.2) + flat(rect(5, 11.2, 9, 1.2, .5), "white")
            + line(caret, "white", 3) + line(caret, "ink", 1.4))


def painting():
    return moved(picture(0, 0, 20, 17), 1.5, 2.5) + moved(badge("alert", "amethyst", 0, 0), 18, 18, 1.25)


def happy():
    points = ((12, 1.6), (15.1, 8.2), (22.4, 9.1), (17, 14), (18.4, 21.2),
              (12, 17.7), (5.6, 21.2), (7, 14), (1.6, 9.1), (8.9, 8.2))
    return (solid(polygon(*points), "amber", 1.4) + flat(circle(9.9, 10.8, 1), "bronze_deep")
            + flat(circle(14.1, 10.8, 1), "bronze_deep") + line("M9.3 13.3c.9 2 4.5 2 5.4 0", "bronze_deep", 1.3))


def lost_file():
    return (letter(3, 2, 13, 18) + text((6, 7, 4), (6, 10, 3)) + moved(magnifier(0, 0, 5, "aqua"), 14, 13.5)
            + question(14, 13, .78, "aqua_deep", 1.6))


def game():
    """A boulder at rest beside a stone worth digging for."""
    rock = ("M2 17.5c-.6-3 .6-6 3-7.6 2.3-1.5 5.5-1.3 7.6.3 2 1.7 2.8 5 1.6 7.8-.5 1.2-1.4 1.6-2.6 1.6H4.5"
            "C3 19.6 2.3 18.8 2 17.5z")
    return (solid(rect(1, 19.2, 22, 3.3, 1), "bronze", 1.2) + solid(rock, "slate", 1.2)
            + line("M5 12.5l2.5 2 3-1.5M7.5 14.5l-.5 2.8", "slate_deep", 1.1)
            + gem("aqua", 16.4, 14, 10.5) + sparkle(18.8, 5, 3.6) + sparkle(12.8, 4.5, 1.8, "rose"))


def locked():
    return (line("M7.5 11V7.5a4.5 4.5 0 0 1 9 0V11", "slate_deep", 4)
            + line("M7.5 11V7.5a4.5 4.5 0 0 1 9 0V11", "slate_pale", 1.8)
            + solid(rect(4, 10.5, 16, 11, 1.8), "amber", 1.2) + flat(circle(12, 15, 1.8), "bronze_deep")
            + line("M12 15.5v3", "bronze_deep", 1.8))


def program():
    return (solid(rect(1.6, 3.6, 20.8, 16.8, 2), "night", 1.2)
            + shine("M2.2 7.6v-2a1.4 1.4 0 0 1 1.4-1.4h16.8a1.4 1.4 0 0 1 1.4 1.4v2z" , "bronze")
            + flat(circle(4.8, 5.9, .7) + circle(7.2, 5.9, .7) + circle(9.6, 5.9, .7), "white")
            + line("M5.5 10.5l2.8 2.5-2.8 2.5", "aqua", 1.8) + line("M10.5 16h5", "amber", 1.8)
            + moved(gem("emerald", 0, 0, 5), 17.3, 12))
