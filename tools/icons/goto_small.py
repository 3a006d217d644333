"""Signs of comment separators for the codes a to z; each begins with its letter."""

from .paint import circle, flat, line, moved, polygon, rect, shine, solid
from .shapes import bolt, gem, pencil, star


def _spokes(count, track, colour, width):
    return "".join(moved(line(track, colour, width), turn=360 // count * i) for i in range(count))


def apple():
    return (solid("M8 5C6.5 3.8 2 3.8 2 8.5c0 3.5 2.5 6 4.3 6 .8 0 1.1-.4 1.7-.4s.9.4 1.7.4c1.8 0 4.3-2.5 4.3-6"
                  "C14 3.8 9.5 3.8 8 5z", "ruby")
            + line("M8 5c0-1.5.5-2.5 1.5-3.5", "bronze_deep", 1.4)
            + shine("M9 3.8C9.5 2 11 1 13 1.2c0 2-1.7 3.2-4 2.6z", "emerald")
            + line("M4 8.5c0-1 .4-1.7 1-2.1", "white", 1.2))


def bomb():
    return (solid(circle(7, 9.5, 5), "steel") + solid("M9 3.6l3.4 3.4-1.4 1.2-3.3-3.3z", "slate", 1, "steel_deep")
            + line("M11 4.8c.5-1.6 1.6-2 2.6-1.4", "bronze", 1.3) + flat(circle(14, 3, 1.6), "amber")
            + flat(circle(14, 3, .8), "ruby") + line("M4.3 9.5a2.7 2.7 0 0 1 1.7-2.5", "white", 1.2))


def cherry():
    return (line("M4.8 10C5 6.5 7 3.5 11 2M11.2 10c.3-3 .3-5.5-.2-8", "emerald_deep", 1.3)
            + solid(circle(4.6, 11.4, 3.1), "ruby") + solid(circle(11.4, 11.4, 3.1), "ruby")
            + shine("M11 2c1.5-1.2 3.5-1 4.3.3-1 1.3-3 1.3-4.3-.3z", "emerald")
            + flat(circle(3.6, 10.4, .8) + circle(10.4, 10.4, .8), "white"))


def diamond():
    return gem("aqua", 8, 8, 14)


def egg():
    return (solid("M8 1.5c2.8 0 5 4.2 5 7.7 0 3.2-2.2 5.3-5 5.3s-5-2.1-5-5.3"
                  "c0-3.5 2.2-7.7 5-7.7z", "paper", 1, "amber_deep")
            + flat(circle(6, 6, 1) + circle(10.3, 8, 1.3) + circle(6.5, 11, 1.1), "amber"))


def flame():
    return (solid("M8.5 1c.5 2.5 4.5 4.5 4.5 9a5 5 0 0 1-10 .2C3 7.8 4.3 6.5 5 5c.8.6 1.2 1.3 1.3 2.2"
                  "C7.5 5.5 8.5 3.5 8.5 1z", "ruby")
            + flat("M8.3 8c.4 1.2 2.2 2 2.2 4a2.5 2.5 0 0 1-5 0"
                   "c0-1.2.6-1.8 1-2.5.5.3.7.7.8 1 .5-.6 1-1.5 1-2.5z", "amber_pale"))


def ghost():
    cloth = ("M8 1.5c3.2 0 5 2.3 5 5.2 0 1.2.6 1.8 1.6 1.6.3 1.7-.6 2.6-1.8 2.7-.7 2.3-3 3.6-6 3.4-2 0-3.8-.6-5.3-1.6"
             " 1-.3 1.7-1 1.9-1.9-1.2 0-2-1-1.8-2.6C2.5 8.5 3 7.9 3 6.7 3 3.8 4.8 1.5 8 1.5z")
    hole = "M6.2 5.2c.7 0 1 .8 1 1.7s-.4 1.5-1 1.5-1-.6-1-1.5.4-1.7 1-1.7z"
    return (solid(cloth, "amethyst") + flat(hole, "ink") + moved(flat(hole, "ink"), 3.6)
            + flat(circle(8, 10.2, 1), "ink"))


def heart():
    return (solid("M8 14L2.6 8.4C.6 6.3 1.3 2.5 4.5 2.5 6.3 2.5 7.4 3.6 8 4.7"
                  "c.6-1.1 1.7-2.2 3.5-2.2 3.2 0 3.9 3.8 1.9 5.9z", "rose")
            + line("M3.6 6c0-.9.4-1.5 1.1-1.7", "white", 1.2))


def ice():
    arms = "M0 0v-6M-1.8-5L0-3.4 1.8-5"
    return moved(_spokes(6, arms, "aqua_deep", 2) + _spokes(6, arms, "aqua_pale", .8), 8, 8)


def jar():
    return (solid("M5.5 3h5v2.5c2 .9 3 2.5 3 4.5a5.5 4.8 0 0 1-11 0c0-2 1-3.6 3-4.5z", "paper")
            + shine("M3.2 9h9.6c.4 3.5-2.3 5.2-4.8 5.2S2.8 12.5 3.2 9z", "amethyst")
            + flat(circle(6.5, 11, .9) + circle(9.4, 12, .6), "white") + solid(rect(5, 1, 6, 2.2, .6), "bronze"))


def key():
    return (line("M7.5 8.5L13.5 2.5M11 5l2.2 2.2M13 3l1.7 1.7", "amber_deep", 2.8)
            + line("M7.5 8.5L13.5 2.5M11 5l2.2 2.2M13 3l1.7 1.7", "amber", 1.3)
            + line(circle(5, 11, 3), "amber_deep", 3) + line(circle(5, 11, 3), "amber", 1.5))


def leaf():
    return (solid("M13.8 2.2c.8 6.3-1.3 10.8-5.6 11.3C5 13.9 2.8 12 2.8 9.3c0-4.8 5.5-4.3 11-7.1z", "emerald")
            + line("M2 15c1.5-4.5 4.5-7 8-8.5", "emerald_deep", 1.2))


def mushroom():
    return (solid("M5.5 9h5l.8 4.3a1 1 0 0 1-1 1.2H5.7a1 1 0 0 1-1-1.2z", "paper")
            + solid("M1.5 8.5a6.5 6.5 0 0 1 13 0 1 1 0 0 1-1 1h-11a1 1 0 0 1-1-1z", "ruby")
            + flat(circle(5, 6.2, 1.2) + circle(9, 4.4, 1.2) + circle(11.6, 7.4, 1), "white"))


def note():
    return (line("M7 11.5V2.5c.5 2.5 5 2.5 4.5 6", "sapphire_deep", 1.8)
            + solid("M2.5 12c0-1.5 1.2-2.3 2.4-2.3S7 10.4 7 11.6c0 1.4-1.2 2.4-2.4 2.4S2.5 13.4 2.5 12z", "sapphire"))


def orbit():
    ring = "M3.3 11.8C1.5 13 .6 13.9 1 14.4c.8 1 5-1 9.5-4.5S15.8 2.6 15 1.6c-.4-.5-1.6-.2-3.5.8"
    return (solid(circle(8, 8, 4.7), "bronze") + line("M4.8 6c1.5.8 4 .6 6-.5", "amber_pale", 1)
            + line(ring, "aqua_deep", 2) + line(ring, "aqua_pale", .9))


def pen():
    return pencil(1.4, 14.6, 1.55)


def quartz():
    return (solid(polygon((2.5, 14.5), (1.5, 8.5), (3.8, 5.5), (6, 8.5), (6, 14.5)), "rose")
            + solid(polygon((10, 14.5), (10.5, 7), (12.6, 4.5), (14.5, 7.5), (13.5, 14.5)), "rose")
            + solid(polygon((5, 14.5), (5, 5), (8, 1.5), (11, 5), (11, 14.5)), "amethyst")
            + flat(polygon((5.5, 5.2), (8, 2.2), (8, 14), (5.5, 14)), "white", .35))


def rock():
    return (solid("M1.8 11.5L3 6.5 6.5 3l5 .5 3 4.5-.8 5-2.2 1.5H4z", "slate")
            + line("M3.5 7L7 8.5 6 12M7 8.5l4-1.5", "slate_deep", 1) + flat("M3.7 6.5L6.7 3.7l1.5 3.6z", "white", .4))


def shining_star():
    return star(8, 8.2, 1.08)


def tree():
    return (solid(rect(6.8, 11.5, 2.4, 3, .4), "bronze")
            + solid("M8 1l3.3 4H10l3 3.5h-1.5L14.5 12h-13l3-3.5H3L6 5H4.7z", "emerald"))


def umbrella():
    return (line("M8 2v10.7a1.7 1.7 0 0 0 3.4 0", "bronze_deep", 1.4)
            + solid("M1.5 8.5a6.5 6.5 0 0 1 13 0c-1-1.3-3-1.3-4.3 0"
                    "C9.5 7.2 6.5 7.2 5.8 8.5 4.5 7.2 2.5 7.2 1.5 8.5z", "sapphire")
            + flat("M5.8 8.5C5.8 5.5 6.6 3.3 8 2.3c1.4 1 2.2 3.2 2.2 6.2C9.5 7.2 6.5 7.2 5.8 8.5z", "white", .6))


def volcano():
    return (flat(circle(5.5, 3, 1.5) + circle(8.3, 2.2, 1.8) + circle(10.8, 3.4, 1.3), "slate")
            + solid("M1 14.5L5.8 6h4.4l4.8 8.5z", "bronze")
            + shine("M5.8 6h4.4l1.3 2.4-1.2 1.5-1-1-1.3 2.6-1.5-2.5-1.2.9-.7-1.6z", "ruby"))


def water():
    return (solid("M8 1.2c2 3 5 5.5 5 8.6a5 4.8 0 0 1-10 0c0-3.1 3-5.6 5-8.6z", "aqua")
            + line("M5.3 9.8c0 1.3.8 2.2 1.8 2.5", "white", 1.3))


def crossed():
    blade = "M2 2l1-.2L11 9.5 9.5 11 1.8 3z"
    grip = line("M8.3 11.8l3.5-3.5M10.8 10.8l2.7 2.7", "bronze_deep", 2)
    one = solid(blade, "slate") + grip
    return one + f'<g transform="translate(16 0) scale(-1 1)">{one}</g>'


def yelling_monster():
    teeth = "M4 9.5h8L11 11.5 10 9.5 9 11.5 8 9.5 7 11.5 6 9.5 5 11.5z"
    return (solid("M3.5 5L2 1.2 5.5 3.3zM12.5 5L14 1.2 10.5 3.3z", "amber")
            + solid("M8 2.5c4 0 6.5 2.8 6.5 6.2 0 3.6-2.7 5.8-6.5 5.8s-6.5-2.2-6.5-5.8C1.5 5.3 4 2.5 8 2.5z", "emerald")
            + flat("M3.7 9.5h8.6c0 2.2-1.8 3.7-4.3 3.7s-4.3-1.5-4.3-3.7z", "ink") + flat(teeth, "white")
            + flat(circle(5.6, 6.4, 1.6) + circle(10.4, 6.4, 1.6), "white")
            + flat(circle(6, 6.6, .8) + circle(10, 6.6, .8), "ink"))


def zap():
    return bolt(8, 8, 1.3)


MOTIFS = (apple, bomb, cherry, diamond, egg, flame, ghost, heart, ice, jar, key, leaf, mushroom, note, orbit, pen,
          quartz,
          rock, shining_star, tree, umbrella, volcano, water, crossed, yelling_monster, zap)


def motif(index):
    """The sign of the small letter `index` (0 for a)."""
    return MOTIFS[index]()
