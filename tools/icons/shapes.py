"""Things that many icons share: page, folder, disk, gem, pencil, badges and arrows, on the 16 grid."""

from .paint import circle, flat, line, moved, number, polygon, rect, shine, solid


def page(x=2, y=1, width=11, height=14, fold=3):
    """A sheet of paper with a folded corner; outer edges on whole units."""
    n = number
    left, top, across, down = x + .5, y + .5, width - 1, height - 1
    outline = (f"M{n(left + 1)} {n(top)}h{n(across - fold - 1)}l{fold} {fold}v{n(down - fold - 1)}"
               f"a1 1 0 0 1-1 1h{n(2 - across)}a1 1 0 0 1-1-1v{n(2 - down)}a1 1 0 0 1 1-1z")
    corner = f"M{n(left + across - fold)} {n(top)}v{n(fold - 1)}a1 1 0 0 0 1 1h{n(fold - 1)}z"
    return solid(outline, "paper") + solid(corner, "slate", edge="paper_deep")


def sheet(x=1, y=1, width=14, height=14):
    """A sheet without a fold, for icons about lines of text."""
    return solid(rect(x + .5, y + .5, width - 1, height - 1, 1), "paper")


def text(*rows, colour="slate"):
    """Lines of text, each (x, y, length) or (x, y, length, colour), one unit high."""
    return "".join(flat(rect(row[0], row[1], row[2], 1, .4), row[3] if len(row) > 3 else colour) for row in rows)


def folder(gem="amber"):
    """A closed folder."""
    back = "M1.5 12.5v-9a1 1 0 0 1 1-1h3.2a1 1 0 0 1 .8.4l1.2 1.6h5.8a1 1 0 0 1 1 1v7a1 1 0 0 1-1 1h-11a1 1 0 0 1-1-1z"
    return flat(back, gem + "_deep") + line(back, gem + "_deep", 1) + solid(rect(1.5, 5.5, 13, 8, 1), gem)


def open_folder(gem="amber", inside=""):
    """An open folder; `inside` is drawn between its back and its front."""
    back = "M1.5 12.5v-9a1 1 0 0 1 1-1h3.2a1 1 0 0 1 .8.4l1.2 1.6h4.8a1 1 0 0 1 1 1v7.5z"
    front = "M1.7 12.7L4 7.2a1 1 0 0 1 .9-.7h9.4a.8.8 0 0 1 .8 1.1l-2.1 5.2a1 1 0 0 1-.9.7H2.3a.6.6 0 0 1-.6-.8z"
    return flat(back, gem + "_deep") + line(back, gem + "_deep", 1) + inside + solid(front, gem)


def disk(gem="sapphire"):
    """A floppy disk."""
    body = "M2.5 1.5h9l3 3v9a1 1 0 0 1-1 1h-11a1 1 0 0 1-1-1v-11a1 1 0 0 1 1-1z"
    return (solid(body, gem) + solid("M4.5 14.5v-5a.5.5 0 0 1 .5-.5h6a.5.5 0 0 1 .5.5v5z", "paper", edge=gem + "_deep")
            + solid("M4.5 1.5h6v3a.5.5 0 0 1-.5.5h-5a.5.5 0 0 1-.5-.5z", "slate", edge=gem + "_deep")
            + flat(rect(8, 2, 1.5, 2), "white") + text((6, 11, 4), (6, 13, 4)))


def gem(colour="sapphire", x=8, y=8, size=14):
    """A cut stone with facets, `size` units wide, its middle at x, y."""
    half = size / 2
    drawing = (solid("M-3.8-5.5h7.6L6.5-1.8 0 6.2-6.5-1.8z", colour, 14 / size)
               + flat("M-3.8-5.5L-2.6-1.8H-6.5z", "white", .45) + flat("M-3.8-5.5L0-5.5-2.6-1.8z", "white", .2)
               + flat("M2.6-1.8L6.5-1.8 0 6.2z", colour + "_deep", .35)
               + flat("M-6.5-1.8h3.9L0 6.2z", "white", .15)
               + line("M-6.5-1.8h13M-3.8-5.5l1.2 3.7L0-5.5l2.6 3.7 1.2-3.7M-2.6-1.8L0 6.2 2.6-1.8",
                      colour + "_deep", 9 / size))
    return moved(drawing, x, y, half / 7)


def sparkle(x, y, radius, colour="amber"):
    """A star of four points with hollow sides."""
    r, s = number(radius), number(radius * .28)
    near, far = number(radius - radius * .28), number(radius * .28)
    outline = (f"M{number(x)} {number(y - radius)}q{s} {near} {r} {r}q-{near} {far}-{r} {r}"
               f"q-{far}-{near}-{r}-{r}q{near}-{far} {r}-{r}z")
    return flat(outline, colour)


def pencil(x=0, y=0, scale=1):
    """A pencil pointing down left; its tip at x, y."""
    drawing = (solid("M.2-.2l.8-2.8L6.2-8.2a1 1 0 0 1 1.4 0l.6.6a1 1 0 0 1 0 1.4L3-1z", "amber", .9)
               + flat("M5.2-7.2l2 2 1-1a1 1 0 0 0 0-1.4l-.6-.6a1 1 0 0 0-1.4 0z", "rose")
               + flat("M1-3L3-1 .2-.2z", "white") + flat("M.2-.2L.6-1.5 1.5-.6z", "ink")
               + line("M.2-.2l.8-2.8L6.2-8.2a1 1 0 0 1 1.4 0l.6.6a1 1 0 0 1 0 1.4L3-1z", "amber_deep", .9))
    return moved(drawing, x, y, scale)


def magnifier(x=6.5, y=6.5, radius=4.5, gem_name="sapphire"):
    """A magnifying glass; x, y is the middle of the lens, the handle goes down right."""
    start, end = radius * .71 + .5, radius * .71 + 4
    handle = f"M{number(x + start)} {number(y + start)}L{number(x + end)} {number(y + end)}"
    glass = circle(x, y, radius)
    return (line(handle, "bronze_deep", 3) + line(handle, "bronze", 1.6)
            + shine(glass, "paper") + flat(glass, gem_name + "_pale", .35) + line(glass, gem_name + "_deep", 2.2)
            + line(glass, gem_name, 1.1)
            + line(f"M{number(x - radius * .5)} {number(y - .2)}a{number(radius * .5)} {number(radius * .5)} 0 0 1 "
                   f"{number(radius * .5)}-{number(radius * .5)}", "white", .9))


def bolt(x=8, y=8, scale=1, colour="amber"):
    """A flash of lightning, its middle at x, y."""
    return moved(solid("M1.2-5.5L-3.6.9h3L-1.4 5.5 3.6-1.6H.6z", colour, 1 / scale), x, y, scale)


GLYPHS = {
    "plus": "M0-2v4M-2 0h4",
    "minus": "M-2 0h4",
    "cross": "M-1.6-1.6l3.2 3.2M1.6-1.6l-3.2 3.2",
    "check": "M-2 .2l1.4 1.5L2-1.5",
    "down": "M0-2v3.8M-1.8.2L0 2 1.8.2",
    "up": "M0 2v-3.8M-1.8-.2L0-2 1.8-.2",
    "right": "M-2 0h3.8M.2-1.8L2 0 .2 1.8",
    "left": "M2 0h-3.8M-.2-1.8L-2 0l1.8 1.8",
    "alert": "M0-2.1V.3M0 2v.05",
    "question": "M-1.3-1.1a1.3 1.3 0 1 1 2 1.1c-.5.3-.7.5-.7.9M0 2.2v.05",
    "back": "M1.8 1.8V.9a1.6 1.6 0 0 0-1.6-1.6h-2M-.6-2.2l-1.5 1.5 1.5 1.5",
    "again": "M2-.4A2.05 2.05 0 1 0 1.7 1.2M2.2-2.2v1.9H.4",
}
FILLED_GLYPHS = {"play": "M-1.2-2.2L2.3 0-1.2 2.2z", "stop": rect(-1.5, -1.5, 3, 3, .4)}


def badge(glyph, colour="emerald", x=12, y=12):
    """A round badge with a white sign, eight units across."""
    sign = (flat(FILLED_GLYPHS[glyph], "white") if glyph in FILLED_GLYPHS else line(GLYPHS[glyph], "white", 1.3))
    disc = circle(x, y, 3.5)
    return flat(disc, colour) + line(disc, colour + "_deep", 1) + moved(sign, x, y)


def arrow(colour, turn=0, x=8, y=8, scale=1):
    """A block arrow pointing down (before the turn), its middle at x, y."""
    return moved(solid("M-1.5-5.5h3a.5.5 0 0 1 .5.5v4.5h2.6a.5.5 0 0 1 .4.8L.5 5.4a.6.6 0 0 1-1 0L-5 .3"
                       "a.5.5 0 0 1 .4-.8H-2V-5a.5.5 0 0 1 .5-.5z", colour, 1 / scale), x, y, scale, turn)


def hash_sign(x=8, y=8, scale=1, colour="emerald", width=1.8):
    """The sign that begins a comment."""
    return moved(line("M-1-5l-2 10M3-5L1 5M-4.8-2h9.8M-5.2 2h9.8", colour, width / scale), x, y, scale)


def window(header="sapphire", body="paper"):
    """A window with a title strip."""
    frame = rect(1.5, 2.5, 13, 11, 1)
    return (solid(frame, body, edge=header + "_deep") + shine("M2 6V3.5a.6.6 0 0 1 .5-.5h11a.6.6 0 0 1 .5.5V6z", header)
            + line("M2 5.5h12", header + "_deep", 1))


def picture(x=1, y=2, width=14, height=12):
    """A framed landscape."""
    n = number
    right, bottom = x + width - 1, y + height - 1
    third = width / 3
    hills = (f"M{n(x + 1)} {n(bottom)}v-2l{n(third)} {n(-height * .36)} {n(third * .8)} {n(height * .24)} "
             f"{n(third * .5)} {n(-height * .16)}L{n(right)} {n(bottom - height * .22)}V{n(bottom)}z")
    frame = rect(x + .5, y + .5, width - 1, height - 1, 1)
    return (shine(frame, "sapphire") + flat(circle(right - width * .2, y + height * .32, height * .11), "white")
            + shine(hills, "emerald") + line(frame, "sapphire_deep", 1))


def film(x=1, y=3, width=14, height=10, colour="steel"):
    """A strip of film, holes along both edges."""
    holes = "".join(rect(hole, edge, 1, 1) for edge in (y + 1, y + height - 2)
                    for hole in range(int(x) + 2, int(x + width) - 2, 2))
    return (solid(rect(x + .5, y + .5, width - 1, height - 1, 1), colour) + flat(holes, "white")
            + flat(rect(x + 2, y + 3, width - 4, height - 6), "white"))


def tiles(colours, x=1, y=1, cell=4, gap=1, columns=3):
    """A field of small square stones; `colours` row by row, None leaves a gap."""
    parts = []
    for index, colour in enumerate(colours):
        if colour:
            left = x + index % columns * (cell + gap)
            top = y + index // columns * (cell + gap)
            parts.append(shine(rect(left, top, cell, cell, .8), colour)
                         + line(rect(left + .4, top + .4, cell - .8, cell - .8, .5), colour + "_deep", .8))
    return "".join(parts)


def question(x=8, y=8, scale=1, colour="white", width=1.8):
    """A question mark about eight units high."""
    return moved(line("M-2.2-1.9a2.2 2.2 0 1 1 3.4 1.8C.3.4 0 .9 0 1.6", colour, width / scale)
                 + flat(circle(0, 4.1, 1.1 * width / 1.8), colour), x, y, scale)


def star(x=8, y=8, scale=1, colour="amber"):
    """A star of five points."""
    points = ((0, -6.2), (1.9, -2.2), (6.3, -1.7), (3, 1.3), (3.9, 5.6), (0, 3.4),
              (-3.9, 5.6), (-3, 1.3), (-6.3, -1.7), (-1.9, -2.2))
    return moved(solid(polygon(*points), colour, 1 / scale), x, y, scale)
