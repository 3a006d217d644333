"""The three pictures of the About window, on a grid of 48."""

from .paint import circle, flat, line, moved, polygon, rect, shine, solid
from .shapes import gem, sparkle


def smith():
    """The smith: a mole with a miner's helmet, holding up what was found."""
    body = "M10 47.5c0-9 5.5-14 14-14s14 5 14 14z"
    face = "M11.5 25c0-8.5 5.3-14 12.5-14s12.5 5.5 12.5 14c0 6.8-5.4 11-12.5 11s-12.5-4.2-12.5-11z"
    helmet = "M9.5 18.5C10.5 10 16 5 24 5s13.5 5 14.5 13.5c-4.4-2-9.2-3-14.5-3s-10.1 1-14.5 3z"
    arm = "M33 42.5c4-1.8 6.6-5.6 7.3-10.5"
    return (solid(body, "sapphire", 1.2) + flat("M18 36.5h12v11H18z", "sapphire_pale", .7)
            + line("M19.5 36v-2.5M28.5 36v-2.5", "sapphire_deep", 1.2)
            + solid(face, "bronze", 1.2) + solid("M17 29.5c0-3.6 3-5.5 7-5.5s7 1.9 7 5.5-3 5-7 5-7-1.4-7-5z", "bronze", 1)
            + flat(circle(24, 26.4, 2.4), "rose_deep") + flat(circle(23.3, 25.7, .7), "white", .8)
            + flat(circle(18.4, 21.6, 1.7), "ink") + flat(circle(29.6, 21.6, 1.7), "ink")
            + flat(circle(19, 21, .6), "white") + flat(circle(30.2, 21, .6), "white")
            + line("M21 30.6c1.8 1.6 4.2 1.6 6 0", "bronze_deep", 1.2)
            + solid(helmet, "amber", 1.2) + solid(circle(24, 10.5, 3.6), "paper", 1.1)
            + flat(circle(24, 10.5, 1.9), "amber_pale")
            + line(arm, "bronze_deep", 4.6) + line(arm, "bronze", 3)
            + moved(gem("aqua", 0, 0, 9), 40.5, 26.5) + sparkle(45, 20, 2.4) + sparkle(36.5, 20.5, 1.5, "rose"))


def letter():
    """A letter on its way, sealed with a gem."""
    flap = "M5 14l18.2 13.4a1.4 1.4 0 0 0 1.6 0L43 14"
    lines = "M1.5 22h4M.8 28h6M1.8 34h4.4"
    return (solid(rect(5, 12.5, 38, 26, 2.2), "paper", 1.2) + line("M6 37.6l13.5-12.4M42 37.6L28.5 25.2", "paper_deep", 1)
            + solid("M5.8 13.4h36.4L24.8 27.4a1.4 1.4 0 0 1-1.6 0z", "paper", 1.1) + line(flap, "paper_deep", 1)
            + line(lines, "aqua", 1.6) + solid(circle(24, 28, 5.2), "ruby", 1.1) + moved(gem("rose", 0, 0, 5.6), 24, 28)
            + sparkle(42.5, 9, 3) + sparkle(36.5, 6.5, 1.6, "aqua"))


def broken():
    """A stone that did not stand the last blow."""
    left = polygon((21, 9), (11, 9), (3, 19), (20.5, 41), (17.5, 30), (22, 23), (17, 17))
    right = polygon((27, 9), (37, 9), (45, 19), (24.5, 43), (21.5, 31), (26.5, 23.5), (21.5, 17))
    return (moved(solid(left, "ruby", 1.3) + line("M4 19h12.5M11 9l4 10 3.5 11", "ruby_deep", 1), -1, 1)
            + moved(solid(right, "ruby", 1.3) + line("M44 19H23M37 9l-5 10-7.5 23", "ruby_deep", 1), 1.5, 0)
            + flat(polygon((12, 11.5), (18, 11.5), (14.5, 16.5), (8, 17)), "white", .45)
            + shine(polygon((20, 45), (22, 43.4), (23.4, 45.6)), "ruby") + shine(polygon((29, 44), (31.4, 43), (31, 46)), "ruby")
            + line("M22.5 2.5v3.6M13 3.5l1.6 2.8M32 3.5l-1.6 2.8", "amber", 1.8))
