"""Things that lie in the grotto: gems, rocks, keys, lamps, blasts. Each painter gives a tile's rows of pixels."""

import math

from pixel_art import SIZE, Tile, ball_light, clamp, mix, noise, shade, smooth

MIDDLE = SIZE / 2
LIGHT = (-0.48, -0.66, 0.58)  # from the upper left, towards the viewer


def _facets(angle, sides, table, waist, top, belt, tip):
    """A cut stone as polygons in space: y downward, z towards the viewer; wound so that their normals point outward."""
    def ring(radius, y, shift=0.0):
        turns = (angle + 2 * math.pi * (i + shift) / sides for i in range(sides))
        return [(radius * math.cos(turn), y, radius * math.sin(turn)) for turn in turns]

    upper, lower = ring(table, top, 0.5), ring(waist, belt)
    faces = [upper]
    for i in range(sides):
        j = (i + 1) % sides
        faces += [[upper[i], lower[j], lower[i]], [upper[i], upper[j], lower[j]], [lower[i], lower[j], (0, tip, 0)]]
    return faces


def _tilted(point, tilt):
    x, y, z = point
    return x, y * math.cos(tilt) + z * math.sin(tilt), z * math.cos(tilt) - y * math.sin(tilt)


def _normal(a, b, c):
    u, v = [p - q for p, q in zip(b, a)], [p - q for p, q in zip(c, a)]
    n = (u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0])
    length = math.sqrt(sum(part * part for part in n)) or 1
    return [part / length for part in n]


def gem(material, step, steps=8, sides=8, table=7.2, waist=13.2, top=-9.0, belt=-4.2, tip=12.5):
    """A cut stone that turns by one facet in `steps` frames, with a sparkle that comes and goes."""
    tile, angle = Tile(), 2 * math.pi / sides * step / steps + 0.2
    for face in _facets(angle, sides, table, waist, top, belt, tip):
        points = [_tilted(point, 0.42) for point in face]
        normal = _normal(*points[:3])
        centre = [sum(p[axis] for p in points) / len(points) for axis in range(3)]
        if sum(n * (c - q) for n, c, q in zip(normal, centre, _tilted((0, -1, 0), 0.42))) < 0:
            normal = [-part for part in normal]
        if normal[2] <= 0.02:
            continue
        lit = sum(n * l for n, l in zip(normal, LIGHT))
        mirror = 2 * lit * normal[2] - LIGHT[2]
        # Light that enters above leaves through the facets below on the far side.
        inner = clamp(-0.55 * normal[0] + 0.75 * normal[1])
        light = clamp(0.2 + 0.44 * max(0, lit) + 0.6 * max(0, mirror) ** 6 + 0.34 * inner)
        outline = [(MIDDLE + p[0], MIDDLE + 0.2 + p[1]) for p in points]
        low = min(y for _, y in outline)
        tile.polygon(outline, lambda x, y, l=light, t=low: shade(material, l + 0.012 * (t + 6 - y)))
    beat = math.sin(math.pi * ((step + 0.5) / steps))
    tile.star(10.2, 9.8, 0.6 + 4.2 * beat ** 3, "bone", 1)
    return tile.pixels()


def pearl(step, steps=4):
    """A round gem with a gleam that wanders."""
    tile = Tile()
    tile.ball(16, 17, 10.5, 10.5, "bone", 0.2, 0.92)
    swing = math.sin(2 * math.pi * step / steps)
    tile.ellipse(16 + 1.5 * swing, 20.5, 6.5, 4, lambda u, v: shade("violet", 0.62 + 0.2 * (1 - u * u - v * v))
                 if noise(math.floor(u * 9), math.floor(v * 9)) > 0.45 else None)
    tile.star(11.5 + swing, 12, 3.6, "bone", 1)
    return tile.pixels()


def rock(step, steps=4):
    """A boulder, turned clockwise by one quarter turn in `steps` frames; the light stays."""
    tile, turn = Tile(), math.pi / 2 * step / steps
    pits = [(0.45, -0.3, 0.26), (-0.4, 0.42, 0.3), (-0.5, -0.38, 0.2), (0.25, 0.56, 0.2), (0.02, 0.04, 0.22),
            (0.68, 0.25, 0.15)]

    def at(u, v):
        # The pattern repeats with every quarter turn, so that rolling has no jump.
        shadow = 0.0
        for quarter in range(4):
            a = turn + quarter * math.pi / 2
            for x, y, r in pits[:3] if quarter % 2 else pits[3:]:
                px, py = x * math.cos(a) - y * math.sin(a), x * math.sin(a) + y * math.cos(a)
                near = math.hypot(u - px, v - py) / r
                if near < 1:
                    side = ((u - px) * 0.6 + (v - py) * 0.7) / r
                    shadow += 0.2 * side - 0.12 * (1 - near)
        grain = noise(math.floor(u * 14 + 20), math.floor(v * 14 + 20), 0, 3) - 0.5
        return shade("stone", 0.06 + 0.72 * ball_light(u, v, 0.95) + shadow + 0.08 * grain)
    tile.ellipse(16, 16, 14.6, 14.6, at)
    return tile.pixels()


def geode(step):
    """A nut of stone with violet crystals inside; `step` 0 is whole, 1 to 3 break it open."""
    tile = Tile()
    part = (0, 2.5, 5.5, 8)[step]
    drop = (0, 0.5, 2, 4.5)[step]

    def half(side):
        def at(x, y):
            cx, cy = 16 + side * part, 17 + drop
            u, v = (x - cx) / 11, (y - cy) / 12
            crack = 1.6 * math.sin(y * 1.7) / 11
            if u * u + v * v > 1 or (u - crack) * side < 0 or step == 3 and math.hypot(u, v) > 0.9:
                return None
            if step and abs(u - crack) < 0.5 and abs(v) < 0.72:
                return shade("violet", 0.35 + 0.6 * noise(math.floor(x * 0.9), math.floor(y * 0.9), step))
            return shade("wood", 0.1 + 0.62 * ball_light(u, v) + 0.16 * (noise(math.floor(x), math.floor(y), 2) - 0.5))
        tile.paint(at)
    half(-1)
    half(1)
    if step == 0:
        for number in range(6):
            y = 7.5 + number * 3.3
            x = 16 + 1.6 * math.sin(y * 1.7)
            tile.line(x, y, 16 + 1.6 * math.sin((y + 3.3) * 1.7), y + 3.3, 1.0, shade("wood", 0.04))
        tile.ball(12, 12, 1.6, 1.4, "bone", 0.5, 1)
    else:
        tile.star(16, 15 + drop, 2.0 + step, "violet", 1)
    return tile.pixels()


def bomb(step, steps=4):
    """A round bomb; the spark on its fuse flickers."""
    tile = Tile()
    tile.line(19.5, 9, 23, 4.8, 2.0, lambda along, across: shade("wood", 0.66 - 0.3 * across))
    tile.ellipse(15, 19, 11.4, 11.4, lambda u, v: shade("steel", 0.02 + 0.7 * ball_light(u, v, 0.8)))
    tile.polygon([(16.5, 8.2), (21.4, 10.6), (20, 13), (15.2, 10.8)], lambda x, y: shade("steel", 0.9 - 0.04 * x))
    tile.ellipse(10.5, 15, 2.6, 3.4, lambda u, v: shade("steel", 0.96 - 0.3 * (u * u + v * v)))
    flicker = (1.0, 0.7, 1.2, 0.85)[step % steps]
    tile.star(23.6, 4.6, 4.4 * flicker, "fire", 0.75)
    tile.star(23.6, 4.6, 2.6 * flicker, "gold", 1)
    return tile.pixels()


def dynamite(step=None, steps=6):
    """Three sticks; with `step` the fuse burns down."""
    tile = Tile()
    for x in (9.5, 22.5, 16):
        low = 12 if x == 16 else 13
        tile.paint(lambda px, py, c=x: shade("red", 0.5 - 0.085 * (px - c) ** 2 if px > c else
                                             0.6 - 0.0425 * (px - c) ** 2), (x - 3.4, low, x + 3.4, 30))
        tile.ellipse(x, low, 3.4, 1.6, lambda u, v: shade("bone", 0.8 - 0.2 * u))
    for y in (16.5, 24.5):
        tile.paint(lambda px, py: shade("steel", 0.5 - 0.02 * (px - 16)), (6, y, 26, y + 2.2))
    tile.paint(lambda px, py: shade("bone", 0.85 if 1 < (px * 1.1) % 3 else 0.5), (11, 19.8, 21, 23))
    fuse = [(16, 12), (17.5, 8.5), (20.5, 7), (22, 3.8)]
    left = 1.0 if step is None else 1 - step / steps
    end = fuse[0]
    for number, (a, b) in enumerate(zip(fuse, fuse[1:])):
        share = clamp(left * 3 - number)
        if share > 0:
            end = (mix(a[0], b[0], share), mix(a[1], b[1], share))
            tile.line(*a, *end, 1.5, shade("wood", 0.72))
    if step is not None:
        tile.star(*end, 4.4 if step % 2 else 5.4, "fire", 0.72)
        tile.star(*end, 2.8, "gold", 1)
    return tile.pixels()


def key(material):
    """A key with a ring and two teeth."""
    tile = Tile()

    def ring(px, py):
        off = math.hypot(px - 10, py - 12)
        return shade(material, 0.62 - 0.05 * (px - 10) - 0.05 * (py - 12)) if 3.0 < off < 6.8 else None
    tile.line(14, 15, 26, 26, 3.4, lambda along, across: shade(material, 0.56 - 0.3 * across))
    tile.line(21, 21.6, 24.4, 17.8, 3.0, lambda along, across: shade(material, 0.6 - 0.3 * across))
    tile.line(25, 25.2, 28, 22, 3.0, lambda along, across: shade(material, 0.6 - 0.3 * across))
    tile.paint(ring)
    tile.star(7, 8.6, 2.6, "bone", 1)
    return tile.pixels()


def lamp(lit):
    """A miner's lantern, dark or lit."""
    tile = Tile()
    if lit:
        for x, y, reach in ((4.5, 12, 2.4), (3, 20, 3.2), (5.5, 27, 2.0)):
            tile.star(x, y, reach, "gold", 0.9)
            tile.star(SIZE - x, y, reach, "gold", 0.9)

    def handle(px, py):
        off = math.hypot((px - 16) / 1.0, (py - 8) / 1.0)
        return shade("steel", 0.75 - 0.05 * (px - 12)) if 4.2 < off < 5.7 and py < 8.5 else None
    tile.paint(handle)
    glass = "gold" if lit else "glow"
    tile.paint(lambda x, y: shade(glass, (0.95 - 0.045 * math.hypot(x - 16, y - 19) ** 1.4) if lit else
                                  0.16 + 0.2 * (x < 13.5)), (10.5, 12, 21.5, 25))
    if lit:
        tile.ellipse(16, 19, 2.2, 4.4, lambda u, v: shade("bone", 1))
    else:
        tile.line(16, 20.5, 16, 24, 1.2, shade("wood", 0.5))
    tile.polygon([(9, 12.6), (12.5, 8), (19.5, 8), (23, 12.6)], lambda x, y: shade("steel", 0.85 - 0.04 * (x - 9)))
    tile.polygon([(9, 24.5), (23, 24.5), (24.5, 29), (7.5, 29)], lambda x, y: shade("steel", 0.8 - 0.04 * (x - 8)))
    for x in (11.2, 20.8):
        tile.line(x, 12.6, x, 24.5, 1.4, shade("steel", 0.55 if x < 16 else 0.3))
    return tile.pixels()


def mushroom(material, step=0, steps=4):
    """A toadstool whose spots glow in a slow beat."""
    tile = Tile()
    beat = 0.5 - 0.5 * math.cos(2 * math.pi * step / steps)
    tile.polygon([(13, 16), (19, 16), (20.5, 28.5), (11.5, 28.5)], lambda x, y: shade("bone", 0.78 - 0.05 * (x - 12)))
    tile.ellipse(16, 28.5, 5.2, 2.0, lambda u, v: shade("bone", 0.5 - 0.2 * u))

    def cap(u, v):
        return shade(material, 0.08 + 0.8 * ball_light(u, v * 0.9)) if v < 0.25 + 0.15 * (u * u) else None
    tile.ellipse(16, 15.5, 13.2, 11.5, cap)
    tile.ellipse(16, 18.8, 9.5, 2.0, lambda u, v: shade("bone", 0.34 + 0.2 * math.sin(u * 16)))
    for x, y, r in ((10.5, 12.5, 2.2), (17, 8.2, 2.0), (22.5, 13, 2.1), (16, 14.2, 1.7)):
        tile.ellipse(x, y, r, r * 0.85, lambda u, v: shade("glow", mix(0.62, 1.0, beat) - 0.2 * (u * u + v * v)))
    return tile.pixels()


def hourglass(step, steps=4):
    """Sand that runs through a glass: a gift of time."""
    tile = Tile()

    def half_width(y):
        return 2.0 + 7.0 * abs((y - 16) / 11) ** 0.8

    def at(x, y):
        wide = half_width(y)
        if not 5 < y < 27 or abs(x - 16) > wide:
            return None
        run = 3.0 * step / steps
        sand = (9.5 + run < y < 16) or (y > 24 - run - 3.5 * (1 - abs(x - 16) / 9)) or (abs(x - 16) < 0.9 and y > 15)
        if sand:
            grain = noise(math.floor(x * 2), math.floor(y * 2), step) - 0.5
            return shade("gold", 0.62 - 0.04 * (x - 16) + 0.2 * grain)
        return shade("glow", 0.2 + (0.5 if -wide + 1.2 < x - 16 < -wide + 2.8 else 0))
    tile.paint(at)
    for y in (3.6, 28.4):
        tile.line(6.5, y, 25.5, y, 3.6, lambda along, across: shade("wood", 0.58 - 0.34 * across))
    for x in (7.2, 24.8):
        tile.line(x, 5, x, 27, 1.8, lambda along, across: shade("wood", 0.56 + 0.3 * across))
    return tile.pixels()


def blast(step, steps=8):
    """A ball of fire that grows, tears and fades to smoke."""
    tile, share = Tile(), step / (steps - 1)
    reach = 5.5 + 12 * math.sqrt(smooth(0, 0.6, share))
    hollow = 13 * smooth(0.45, 1.1, share)

    def at(x, y):
        dx, dy = x - MIDDLE, y - MIDDLE
        off, angle = math.hypot(dx, dy), math.atan2(dy, dx)
        ragged = 1 + 0.16 * math.sin(5 * angle + step) + 0.12 * math.sin(9 * angle - 2 * step)
        edge = off / (reach * ragged)
        if edge > 1 or off < hollow * (0.7 + 0.3 * math.sin(7 * angle + step)):
            return None
        tear = noise(math.floor(x / 2 + step), math.floor(y / 2), step)
        if share > 0.4 and tear < (share - 0.4) * 1.05:
            return None
        heat = 1.05 - 0.75 * edge ** 1.5 - 0.55 * smooth(0.35, 1, share) + 0.16 * (tear - 0.5)
        return shade("fire", heat) if heat > 0.22 else shade("stone", 0.12 + heat)
    tile.paint(at)
    return tile.pixels(outline=step < 6)
