"""Signs of comment separators for the codes A to Z; each begins with its letter where it can."""

from .paint import circle, flat, line, moved, polygon, rect, shine, solid
from .shapes import picture, question


def _ring(count, drawing):
    return "".join(moved(drawing, turn=360 / count * i) for i in range(count))


def anchor():
    track = "M8 4.5v9.5M4.8 6.8h6.4M2 9.5c.3 3 2.8 4.7 6 4.7s5.7-1.7 6-4.7M2 9.5l2 1.2M14 9.5l-2 1.2"
    return "".join(line(track, colour, width) + line(circle(8, 2.8, 1.5), colour, width)
                   for colour, width in (("sapphire_deep", 2.4), ("sapphire_pale", .9)))


def bell():
    return (solid("M8 2c3 0 4.5 2.2 4.5 5 0 3 .8 3.8 1.7 4.8.3.4.1.7-.3.7H2.1c-.4 0-.6-.3-.3-.7.9-1 1.7-1.8 1.7-4.8"
                  "C3.5 4.2 5 2 8 2z", "amber")
            + solid("M6.2 12.5h3.6a1.8 1.8 0 0 1-3.6 0z", "bronze") + line("M8 1.2V2", "amber_deep", 1.6)
            + line("M5.7 7c0-1.4.5-2.2 1.3-2.6", "white", 1.1))


def crown():
    return (solid("M2.5 12.5L1.5 4.5l3.7 3L8 2.5l2.8 5 3.7-3-1 8z", "amber") + flat(circle(5, 10.2, 1), "ruby")
            + flat(circle(8, 9.8, 1.2), "aqua_deep") + flat(circle(11, 10.2, 1), "emerald_deep")
            + line("M2.8 14.3h10.4", "amber_deep", 1.4))


def door():
    return (solid("M3.5 14.5V5a4.5 4.5 0 0 1 9 0v9.5z", "bronze") + line("M8 1v13", "bronze_deep", 1)
            + flat(circle(10, 8.5, 1), "amber_pale") + line("M5.7 6v6.5M10.5 11v1.5", "bronze_deep", .8)
            + line("M2 14.5h12", "slate_deep", 1.3))


def eye():
    return (solid("M.8 8C2.5 5 5 3.5 8 3.5S13.5 5 15.2 8C13.5 11 11 12.5 8 12.5"
                  "S2.5 11 .8 8z", "paper", 1, "emerald_deep")
            + solid(circle(8, 8, 3), "emerald") + flat(circle(8, 8, 1.3), "ink") + flat(circle(9.1, 6.9, .8), "white"))


def flag():
    return (solid("M4.5 2.5c2.5-1.5 4 1.2 6.5.5 1-.3 1.8-.7 2.5-1v7c-3 2-4.5-.8-7 0-.8.3-1.5.6-2 1z", "ruby")
            + line("M3.5 1.5V15", "bronze_deep", 1.7))


def gear():
    teeth = _ring(8, flat(rect(-1.5, -7.2, 3, 3, .6), "slate_deep"))
    return moved(teeth + solid(circle(0, 0, 4.9), "slate") + solid(circle(0, 0, 1.9), "paper", edge="slate_deep"), 8, 8)


def house():
    return (solid("M3.5 7.5h9v7h-9z", "paper") + solid("M8 1.5l6.7 6a.5.5 0 0 1-.4.9H1.7a.5.5 0 0 1-.4-.9z", "ruby")
            + solid("M6.5 14.5v-4h3v4z", "sapphire"))


def iron():
    arch = "M4 13.5V7.5a4 4 0 0 1 8 0v6"
    return (line(arch, "ruby_deep", 4) + line(arch, "ruby", 2.2) + line("M4 13.3v-1M12 13.3v-1", "slate_deep", 4)
            + line("M4 13.3v-1M12 13.3v-1", "paper", 2.2) + line("M1 2l1.3 1M15 2l-1.3 1", "amber", 1.2))


def joystick():
    return (line("M8 10V5.5", "slate_deep", 2.2) + solid(circle(8, 4, 2.7), "ruby")
            + solid("M2.5 13.5c0-2.5 2-4 5.5-4s5.5 1.5 5.5 4a1 1 0 0 1-1 1h-9a1 1 0 0 1-1-1z", "slate")
            + flat(circle(7.2, 3.2, .8), "white") + flat(circle(11, 12.3, .9), "amber"))


def knight():
    return (solid("M8 1.5c1.8 1.3 3.7 1.8 5.5 1.8v4.5c0 3.5-2.3 5.5-5.5 6.9-3.2-1.4-5.5-3.4-5.5-6.9V3.3"
                  "C4.3 3.3 6.2 2.8 8 1.5z", "sapphire")
            + flat("M8 2.2v11.9c-2.9-1.4-5-3.2-5-6.3V3.7c1.7-.1 3.4-.5 5-1.5z", "white", .3)
            + line("M8 4.5v7M5 7h6", "white", 1.5))


def lock():
    return (line("M5 7.5V5a3 3 0 0 1 6 0v2.5", "slate_deep", 2.6)
            + line("M5 7.5V5a3 3 0 0 1 6 0v2.5", "slate_pale", 1) + solid(rect(2.5, 7, 11, 7.5, 1.2), "amber")
            + line("M8 10v1.8", "bronze_deep", 1.8))


def moon():
    return (solid("M10.5 1.8A6.5 6.5 0 1 0 14.3 10.3 5.6 5.6 0 0 1 10.5 1.8z", "amber")
            + flat(circle(12.8, 4.5, .9), "slate"))


def nut():
    return (solid(polygon((4.6, 2), (11.4, 2), (14.8, 8), (11.4, 14), (4.6, 14), (1.2, 8)), "steel")
            + solid(circle(8, 8, 3), "paper", edge="steel_deep"))


def target():
    return (solid(circle(8, 8, 6.5), "ruby") + flat(circle(8, 8, 4.6), "white") + flat(circle(8, 8, 2.7), "ruby")
            + flat(circle(8, 8, 1), "white"))


def painting():
    return picture(0, 1, 16, 14)


def riddle():
    return (solid("M2.5 1.5h11a1 1 0 0 1 1 1v8a1 1 0 0 1-1 1H8.5L5 14.7v-3.2H2.5a1 1 0 0 1-1-1v-8"
                  "a1 1 0 0 1 1-1z", "aqua")
            + question(8, 6, .68, "white", 1.6))


def rocket():
    return (solid("M4.5 8L1.8 10.5v3l3.7-2zM11.5 8l2.7 2.5v3l-3.7-2z", "ruby") + shine("M6.3 12h3.4L8 15.5z", "amber")
            + solid("M8 .8c2.5 2 3.5 4.7 3.5 7.2 0 1.5-.4 2.8-1 4h-5c-.6-1.2-1-2.5-1-4"
                    "C4.5 5.5 5.5 2.8 8 .8z", "paper", 1, "slate_deep")
            + solid(circle(8, 6.3, 1.6), "sapphire"))


def sun():
    rays = _ring(8, line("M0-5.9v-1.2", "amber", 1.7))
    return moved(rays + solid(circle(0, 0, 3.9), "amber"), 8, 8)


def trophy():
    return (line("M4.5 3.5H2c0 3 1 4.5 3 5M11.5 3.5H14c0 3-1 4.5-3 5", "amber_deep", 1.3)
            + solid("M4.5 1.5h7V6c0 2.5-1.3 4-3.5 4S4.5 8.5 4.5 6z", "amber") + line("M8 10v2", "amber_deep", 1.8)
            + solid(rect(4.5, 12, 7, 2.5, .6), "bronze") + line("M6.2 3.3v2.5", "white", 1.1))


def saucer():
    return (solid("M4.5 8a3.5 4.5 0 0 1 7 0z", "aqua")
            + solid("M1 9.5C1 8 4 7.2 8 7.2S15 8 15 9.5 12 12 8 12 1 11 1 9.5z", "steel")
            + flat(circle(4, 9.7, .9), "amber_pale") + flat(circle(8, 10.2, .9), "rose")
            + flat(circle(12, 9.7, .9), "emerald_pale") + line("M5.5 13l-1 1.8M10.5 13l1 1.8", "steel_deep", 1.1))


def volume():
    return (solid("M2.5 6.5a.5.5 0 0 1 .5-.5h2l3.2-2.8a.5.5 0 0 1 .8.4v8.8a.5.5 0 0 1-.8.4L5 10H3"
                  "a.5.5 0 0 1-.5-.5z", "emerald")
            + line("M11.2 5.6a3.5 3.5 0 0 1 0 4.8", "emerald", 1.6)
            + line("M13.3 3.7a6.3 6.3 0 0 1 0 8.6", "emerald_deep", 1.3))


def wrench():
    return solid("M14.2 4.3l-2.5 2.2-2.2-2.2 2.2-2.5c-2-.7-4 .2-4.7 2-.3.9-.3 1.7 0 2.5L1.7 11.6"
                 "a1.9 1.9 0 0 0 2.7 2.7l5.3-5.3c.8.3 1.6.3 2.5 0 1.8-.7 2.7-2.7 2-4.7z", "slate")


def explosion():
    points = [(8, .8), (9.6, 4.6), (13, 2.4), (12, 6.2), (15.4, 7.4), (12.2, 9.2), (14, 13), (10, 11.6), (8.6, 15.2),
              (6.4, 11.8), (2.6, 13.8), (3.8, 9.8), (.6, 8.4), (4, 6.4), (2.4, 2.8), (6.2, 4.6)]
    return solid(polygon(*points), "ruby") + flat(circle(8, 8.1, 2.9), "amber_pale")


def yes():
    return solid(circle(8, 8, 6.5), "emerald") + line("M4.8 8.4l2.3 2.3 4.2-5", "white", 2)


def skull():
    return (solid("M8 1.5c3.6 0 6 2.4 6 5.6 0 2-.8 3.5-2.3 4.5v1.9a1 1 0 0 1-1 1H5.3a1 1 0 0 1-1-1v-1.9"
                  "C2.8 10.6 2 9.1 2 7.1c0-3.2 2.4-5.6 6-5.6z", "paper", 1, "slate_deep")
            + flat(circle(5.5, 7.4, 1.6) + circle(10.5, 7.4, 1.6), "ink")
            + flat(polygon((8, 9), (7.1, 10.7), (8.9, 10.7)), "ink") + line("M6.7 12.7v1M9.3 12.7v1", "slate_deep", 1))


MOTIFS = (anchor, bell, crown, door, eye, flag, gear, house, iron, joystick, knight, lock, moon, nut, target, painting,
          riddle, rocket, sun, trophy, saucer, volume, wrench, explosion, yes, skull)


def motif(index):
    """The sign of the capital letter `index` (0 for A)."""
    return MOTIFS[index]()
