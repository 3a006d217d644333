"""Ground of the grotto: earth, walls, the rune wall, pools and doors. Each painter gives a tile's rows of pixels."""

import math

from pixel_art import SIZE, Tile, ball_light, clamp, mix, noise, shade, soft_noise

MIDDLE = SIZE / 2


def earth_colour(x, y):
    """Earth that fits its own neighbours: soft clods and fine grain."""
    clods = soft_noise(x / 5.33, y / 5.33, 3, 6)
    grain = noise(math.floor(x), math.floor(y), 0, 7)
    return shade("earth", 0.2 + 0.3 * clods + 0.16 * grain)


def paint_earth(tile):
    tile.paint(earth_colour)
    for x, y, r in ((6.5, 7, 2.6), (22.5, 5.5, 2.0), (26, 20.5, 2.8), (11, 24.5, 2.2), (17, 14, 1.7), (3.5, 19, 1.5)):
        tile.ellipse(x + 0.6, y + 0.9, r, r * 0.8, lambda u, v: shade("earth", 0.06))
        tile.ball(x, y, r, r * 0.8, "earth", 0.3, 0.9)
    for x, y in ((13, 4.5), (29, 12.5), (20, 28), (7.5, 14)):
        tile.ball(x, y, 1.2, 1.0, "stone", 0.3, 0.8)


def earth():
    tile = Tile()
    paint_earth(tile)
    return tile.pixels(outline=False)


def bite(x, y, seed=0):
    """How far a place lies behind the gnawed line along the four sides: below 0 is eaten away."""
    edge = min(x, y, SIZE - x, SIZE - y)
    return edge - 1.2 - 4.2 * soft_noise(x / 3.2, y / 3.2, 11 + seed, 10)


def crumbled_earth():
    """Earth whose rim is gnawed; only a strip along its sides is shown in play."""
    tile = Tile()
    paint_earth(tile)
    tile.paint(lambda x, y: shade("earth", 0.02) if bite(x, y) < 0.9 else None)
    tile.paint(lambda x, y: shade("earth", 0.78 if x + y < SIZE else 0.3) if 0.9 <= bite(x, y) < 1.7 else None)
    tile.erase(lambda x, y: bite(x, y) < 0)
    return tile.pixels(outline=False)


def dug_earth(step, steps=4):
    """Earth that falls apart: crumbs shrink and sink as `step` runs from 0."""
    tile, left = Tile(), 1 - (step + 0.6) / steps
    for i in range(6):
        for j in range(6):
            x = 2.7 + 5.33 * i + 2.4 * (noise(i, j, 1) - 0.5)
            y = 2.7 + 5.33 * j + 2.4 * (noise(i, j, 2) - 0.5) + 3.5 * (1 - left) * noise(i, j, 3)
            r = 4.1 * left * (0.5 + 0.9 * noise(i, j, 4))
            if r > 0.7:
                tile.ball(x, y, r, r * 0.9, "stone" if noise(i, j, 5) > 0.88 else "earth", 0.12, 0.82)
    return tile.pixels()


def lit_block(x, y, left, top, width, height, material, base, seed):
    """Colour of a hewn block with a light upper left rim and a dark lower right one."""
    u, v = x - left, y - top
    light = base + 0.13 * (soft_noise(x / 2.2, y / 2.2, seed) - 0.5) + 0.09 * (1 - v / height)
    if u < 1 or v < 1:
        light += 0.24
    if width - u < 1.1 or height - v < 1.1:
        light -= 0.2
    return shade(material, light)


def bricks(rune=None):
    """A wall of hewn stone, mossy on top. `rune`: how bright a sign glows on it, 0 to 1."""
    tile = Tile()
    tile.paint(lambda x, y: shade("stone", 0.05))
    courses = ((0, 0, 8, (0, 13, 32)), (1, 8, 8, (0, 6, 21, 32)), (2, 16, 8, (0, 15, 32)), (3, 24, 8, (0, 8, 23, 32)))
    for number, top, height, cuts in courses:
        for place, (left, right) in enumerate(zip(cuts, cuts[1:])):
            base = 0.36 + 0.12 * noise(number, place, 9)
            tile.paint(lambda x, y, l=left, w=right - left - 1, t=top, h=height - 1, b=base, s=number:
                       lit_block(x, y, l, t, w, h, "stone", b, s), (left, top, right - 1, top + height - 1))
    if rune is None:
        for x, y, r in ((3, 1.2, 2.4), (8, 0.8, 2.0), (24, 9, 2.2), (28, 8.4, 1.6), (18, 17, 1.9), (30, 25, 1.7)):
            tile.ball(x, y, r, r * 0.75, "moss", 0.16, 0.72)
    else:
        draw_rune(tile, rune)
    return tile.pixels(outline=False)


def draw_rune(tile, glow):
    """A ring with a flame in it, cut into the stone and lit from within."""
    def light(share):
        return lambda along, across: shade("glow", mix(0.12, share, glow))

    def ring(px, py):
        off = abs(math.hypot(px - MIDDLE, py - MIDDLE) - 10)
        if off > 4.0:
            return None
        if off > 1.1:
            halo = glow * (1 - (off - 1.1) / 2.9)
            return shade("glow", 0.4 * halo) if halo > 0.25 else None
        return shade("glow", mix(0.12, 0.95, glow) - 0.1 * off)
    tile.paint(ring)
    for points in (((16, 22.5), (11.8, 17.5), (13.6, 13.5), (16, 9.5)),
                   ((16, 22.5), (20.2, 17.5), (18.4, 13.5), (16, 9.5)), ((16, 19.5), (16, 16.5))):
        for (x0, y0), (x1, y1) in zip(points, points[1:]):
            tile.line(x0, y0, x1, y1, 1.9, light(0.85))


# Middle and half widths; the lower row goes on behind the tile's edge.
STONES = ((0.4, 24.2, 8, 8.4), (32.4, 24.2, 8, 8.4), (16.4, 24.6, 8.4, 7.8), (8.2, 8, 8.6, 8), (24.6, 8.4, 8, 8.6))


def boulders():
    """Rounded stones that rocks slip from."""
    tile = Tile()
    tile.paint(lambda x, y: shade("stone", 0.04))
    for x, y, rx, ry in STONES:
        tile.ellipse(x + 0.7, y + 1, rx, ry, lambda u, v: shade("stone", 0.02))
        tile.ellipse(x, y, rx - 0.4, ry - 0.4, lambda u, v, s=x: shade(
            "stone", 0.1 + 0.72 * ball_light(u, v, 0.9) + 0.1 * (soft_noise(u * 5 + s, v * 5, 4) - 0.5)))
    return tile.pixels(outline=False)


def steel_plate():
    """A riveted plate that nothing breaks."""
    tile = Tile()
    tile.paint(lambda x, y: lit_block(x, y, 0, 0, 32, 32, "steel", 0.34, 2))
    tile.paint(lambda x, y: shade("steel", 0.14 if x < 6.2 or y < 6.2 else 0.5), (5, 5, 27, 27))
    tile.paint(lambda x, y: shade("steel", 0.4 + 0.1 * math.sin((x + y) * 0.55) + 0.04 * noise(math.floor(x), 0, 0)
                                  - 0.008 * y), (6, 6, 26, 26))
    for x in (3.1, 28.9):
        for y in (3.1, 28.9):
            tile.ball(x, y, 1.9, 1.9, "steel", 0.1, 1.0)
    tile.line(10, 21.5, 21.5, 10, 1.2, shade("steel", 0.75))
    tile.line(10.9, 22.2, 22.2, 10.9, 0.7, shade("steel", 0.12))
    return tile.pixels(outline=False)


def pool(material, step, steps=4, thick=False):
    """A liquid whose waves travel one tile in `steps` frames. A `thick` one fills the tile and has large bubbles."""
    phase = 2 * math.pi * step / steps

    def at(x, y):
        wave = math.sin(2 * math.pi * x / SIZE + phase) + 0.5 * math.sin(4 * math.pi * x / SIZE - phase)
        surface = -9 if thick else 4 + 1.1 * wave
        if y < surface:
            return None
        depth = (y - surface) / SIZE
        light = 0.66 - 0.5 * depth + 0.09 * math.sin(2 * math.pi * (x / 16 + y / 10.67) + phase)
        light += 0.3 if y < surface + 1.3 else 0.17 if thick else 0
        return shade(material, light)
    tile = Tile()
    tile.paint(at)
    for number, (x, y) in enumerate(((8, 24), (23, 19), (15, 29), (27, 28), (5, 14))):
        rise = (step + number) % steps / steps
        r = (2.8 if thick else 1.4) * (0.5 + 0.6 * rise)
        tile.ellipse(x, y - 5 * rise, r, r, lambda u, v: shade(
            material, 0.95 if u + v < -0.5 else 0.16 if thick and u * u + v * v > 0.45 else 0.6))
    return tile.pixels(outline=False)


def splash(step, left):
    """Drops that fly up from the acid, to one side."""
    tile, share = Tile(), (step + 1) / 5
    for number in range(6):
        reach = 5 + 5 * noise(number, 3)
        x = 31 - reach * share * 2.6 * noise(number, 8) - 2
        y = 30 - 60 * share * (0.35 + 0.4 * noise(number, 5)) + 46 * share * share
        r = 2.6 * (1 - 0.6 * share) * (0.6 + 0.5 * noise(number, 6))
        tile.ball(x if left else SIZE - x, y, r, r, "green", 0.35, 1)
    return tile.pixels()


# Doors ------------------------------------------------------------------------------------------------------------


def arch(tile, material="stone"):
    """A frame of stones around an opening of 22 by 27."""
    tile.paint(lambda x, y: shade(material, 0.02))
    stones = [(x, y) for y in (28, 22, 16) for x in (2.6, 29.4)]
    stones += [(4.6, 9.6), (10, 4.6), (16, 3), (22, 4.6), (27.4, 9.6)]
    for number, (x, y) in enumerate(stones):
        base = 0.1 + 0.08 * noise(number, 2, 2)
        tile.ellipse(x, y, 4.1, 3.9, lambda u, v, b=base: shade(material, b + 0.66 * ball_light(u, v, 0.9)))
    return tile


def in_opening(x, y):
    return y > 6.5 and abs(x - MIDDLE) < 10.4 - max(0, 14 - y) ** 2 / 12


def light_behind(x, y, pulse=1.0):
    """The light of the way out: brightest low in the middle."""
    near = math.hypot((x - MIDDLE) / 9, (y - 27) / 19)
    return shade("gold", clamp(1.02 - 0.62 * near) * (0.82 + 0.18 * pulse))


def exit_door(gap, pulse=None):
    """The way out: two leaves of wood that part by `gap` pixels each; `pulse` 0 to 1 is the beat of the light."""
    tile = arch(Tile())

    def at(x, y):
        if not in_opening(x, y):
            return None
        side = abs(x - MIDDLE)
        if side < gap:
            return light_behind(x, y, 0.5 if pulse is None else pulse)
        plank = side - gap
        light = 0.42 + 0.1 * noise(math.floor(plank / 3.4), 1 if x > MIDDLE else 2, 4)
        light += 0.1 * (soft_noise(x, y / 6, 6) - 0.5)
        if plank % 3.4 < 0.6 or plank < 0.5:
            light -= 0.28
        if abs(y - 13) < 1.3 or abs(y - 25) < 1.3:
            return shade("steel", 0.55 - 0.12 * (y - math.floor(y)))
        return shade("wood", light)
    tile.paint(at)
    for side in (-1, 1):
        x = MIDDLE + side * (gap + 2.2)
        if gap < 8:
            tile.ball(x, 19, 1.3, 1.3, "gold", 0.3, 1)
    if gap >= 10:
        for number in range(3):
            drift = (pulse or 0) * 3
            tile.star(11 + 5 * number, 22 - 4 * number % 9 - drift, 1.6, "gold", 1)
    return tile.pixels(outline=False)


def gate(material, seen=True):
    """A gate with a lattice in the colour of its key; unseen ones show it only as bare iron."""
    tile = arch(Tile())
    tile.paint(lambda x, y: shade("stone", 0.03) if in_opening(x, y) else None)
    tone = material if seen else "steel"
    for x in (9.5, 13.8, 18.2, 22.5):
        tile.line(x, 7.5, x, 31, 2.0, lambda along, across: shade(tone, 0.6 - 0.4 * across))
    for y in (11.5, 18, 26.5):
        tile.line(6.5, y, 25.5, y, 1.8, lambda along, across: shade(tone, 0.55 - 0.3 * across))
    tile.ellipse(16, 19, 4.6, 4.8, lambda u, v: shade(tone, 0.1 + 0.8 * ball_light(u, v)))
    tile.ellipse(16, 18.2, 1.3, 1.3, lambda u, v: shade("stone", 0))
    tile.polygon([(15.4, 18), (16.6, 18), (17.1, 21.6), (14.9, 21.6)], shade("stone", 0))
    return tile.pixels(outline=False)
