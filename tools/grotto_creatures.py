"""Creatures of the grotto and its miner. Each painter gives a tile's rows of pixels.

A creature that is seen from above is painted with its head to the right and turned by `place`; the light stays where
it is.
"""

import math

from pixel_art import SIZE, Tile, ball_light, clamp, noise, shade

MIDDLE = SIZE / 2
TURNS = {"right": 0, "down": 1, "left": 2, "up": 3}


def place(x, y, way):
    """A point given from the tile's middle, turned from "right" to `way`."""
    for _ in range(TURNS[way]):
        x, y = -y, x
    return MIDDLE + x, MIDDLE + y


def beat(step, steps=4):
    """A number from -1 to 1 that swings once in `steps` frames, out of its end points."""
    return math.cos(math.pi * step / (steps - 1)) if steps > 1 else 0.0


# Creatures --------------------------------------------------------------------------------------------------------


def worm(way, step, steps=4):
    """A glow worm that winds; frames 0 to 3 and back make one wriggle."""
    tile, swing = Tile(), beat(step, steps)

    def middle(along):
        return along, 2.6 * swing * math.sin((along + 3) / 5.2)
    for number in range(7):
        along = -11.5 + 3.1 * number
        x, y = place(*middle(along), way)
        size = (3.0, 4.2, 4.9, 5.3, 5.4, 5.2, 4.9)[number]
        if number < 3:
            tile.ball(x, y, size, size, "glow", 0.34, 1.0)
        else:
            tile.ball(x, y, size, size, "moss", 0.14, 0.86)
            for side in (-1, 1):
                fx, fy = place(along, middle(along)[1] + side * (size + 0.6 + 0.7 * swing * side), way)
                tile.ball(fx, fy, 1.5, 1.5, "moss", 0.1, 0.5)
    hx, hy = place(*middle(10), way)
    tile.ball(hx, hy, 5.0, 5.0, "violet", 0.12, 0.8)
    for side in (-1, 1):
        ax, ay = place(13.6, middle(10)[1] + side * 4.6, way)
        tile.line(*place(12, middle(10)[1] + side * 2.2, way), ax, ay, 1.2, shade("violet", 0.35))
        tile.ball(ax, ay, 1.4, 1.4, "glow", 0.5, 1)
        ex, ey = place(11.4, middle(10)[1] + side * 2.1, way)
        tile.ball(ex, ey, 1.7, 1.7, "bone", 0.7, 1)
        px, py = place(12.1, middle(10)[1] + side * 2.1, way)
        tile.ellipse(px, py, 0.8, 0.8, lambda u, v: shade("stone", 0))
    return tile.pixels()


def moth(way, step, steps=4, wing="bone", spot="fire"):
    """A moth with beating wings: wide at frame 0, folded at the last."""
    tile = Tile()
    spread = 0.72 + 0.28 * beat(step, steps)

    def blade(back, out, length, width, lean):
        """One wing on both sides, as a leaf from the body outward."""
        for side in (-1, 1):
            ox, oy = back, side * (2 + out * spread)

            def at(px, py, side=side, ox=ox, oy=oy):
                x, y = px - MIDDLE, py - MIDDLE
                for _ in range((4 - TURNS[way]) % 4):
                    x, y = -y, x
                u, v = (x - ox - lean * (y - oy) * side) / width, (y - oy) / (length * spread)
                reach = u * u + v * v
                if reach > 1:
                    return None
                if math.hypot(u - 0.05, v - 0.25 * side) < 0.3:
                    return shade(spot, 0.75 if math.hypot(u - 0.05, v - 0.25 * side) < 0.16 else 0.4)
                vein = 0.1 if abs((math.atan2(v, u) * 4) % 2 - 1) < 0.25 else 0
                px, py = u * (1 if TURNS[way] % 2 == 0 else 0), v
                return shade(wing, 0.78 - 0.34 * reach ** 2 - vein - 0.08 * (px + py))
            tile.paint(at)
    blade(-5.5, 5.0, 6.2, 5.4, 0.0)
    blade(2.5, 6.5, 8.2, 6.2, 0.25)
    for number in range(6):
        x, y = place(-9 + 3.0 * number, 0, way)
        size = (1.8, 2.4, 2.8, 3.0, 3.2, 3.0)[number]
        tile.ball(x, y, size, size, "wood", 0.2 if number % 2 else 0.36, 0.95 if number % 2 else 0.7)
    for side in (-1, 1):
        tile.line(*place(7.5, side * 1.2, way), *place(12.8, side * 4.6, way), 1.1, shade("wood", 0.8))
        ex, ey = place(8, side * 2.1, way)
        tile.ball(ex, ey, 1.3, 1.3, "red", 0.4, 1)
    return tile.pixels()


def fuzz(step, steps=4, material="violet"):
    """A hungry ball of fur: its mouth is shut at frame 0 and wide open at the last."""
    tile, wide = Tile(), step / (steps - 1)

    def fur(x, y):
        dx, dy = x - MIDDLE, y - 16.5
        off, angle = math.hypot(dx, dy), math.atan2(dy, dx)
        tuft = abs((angle * 14 / math.pi + 0.6 * math.sin(3 * angle)) % 2 - 1)
        edge = 13.0 + 2.3 * tuft
        if off > edge:
            return None
        streak = 0.16 * (noise(math.floor(angle * 13), math.floor(off / 2.6), 3) - 0.5)
        return shade(material, 0.1 + 0.7 * ball_light(dx / 16, dy / 16) + streak - (0.14 if off > 13 else 0))
    tile.paint(fur)
    open_by = 0.8 + 6.4 * wide

    def mouth(u, v):
        if abs(v) > 0.55 and open_by > 2.2 and (math.floor((u + 1) * 4.5) % 2 == 0) and abs(u) < 0.8:
            return shade("bone", 0.95)
        if v > 0.15 and open_by > 3 and u * u / 0.3 + (v - 0.75) ** 2 / 0.4 < 1:
            return shade("red", 0.6)
        return shade("red", 0.06)
    tile.ellipse(16, 21.6, 8.4, open_by, mouth)
    for side in (-1, 1):
        x, y = 16 + side * 5.0, 11.2 - 1.2 * wide
        tile.ball(x, y, 4.1, 4.4, "bone", 0.62, 1)
        tile.ellipse(x - side * 0.7, y + 0.7 + wide, 1.7, 1.9, lambda u, v: shade("stone", 0.02))
        tile.ellipse(x - side * 0.7 - 0.6, y - 0.1 + wide, 0.7, 0.7, lambda u, v: shade("bone", 1))
        tile.line(x - side * 3.4, y - 3.2 - wide, x + side * 3.2, y - 5.4 + 1.6 * wide, 1.5, shade(material, 0.08))
    return tile.pixels()


def spider(step, steps=4):
    """A clockwork spider of brass and steel; frames 0 to 3 and back are its walk."""
    tile, swing = Tile(), beat(step, steps)
    for side in (-1, 1):
        for number in range(4):
            lift = swing * (1 if (number + (side > 0)) % 2 else -1)
            kx, ky = 16 + side * (10.2 + 0.4 * number), 9 + 4.2 * number - 2.6 + 1.6 * lift
            fx, fy = 16 + side * (13.6 - 0.5 * (number in (0, 3))), 8 + 6.0 * number + 2.0 * lift
            tile.line(16 + side * 5, 13 + 2 * number, kx, ky, 2.0,
                      lambda along, across: shade("steel", 0.55 - 0.25 * across))
            tile.line(kx, ky, fx, fy, 1.6, lambda along, across: shade("steel", 0.6 - 0.25 * across))
            tile.ball(kx, ky, 1.5, 1.5, "gold", 0.3, 0.9)
    tile.ball(16, 18.5, 8.2, 8.0, "steel", 0.1, 1)
    turn = math.pi / 16 * step

    def wheel(px, py):
        dx, dy = px - 16, py - 19.5
        off, angle = math.hypot(dx, dy), math.atan2(dy, dx) + turn * 2
        edge = 4.6 + (0.9 if math.cos(8 * angle) > 0 else 0)
        if off > edge or off < 1.5:
            return None
        return shade("gold", 0.6 - 0.05 * dx - 0.06 * dy)
    tile.paint(wheel, (9, 12, 23, 27))
    tile.ball(16, 9.5, 5.6, 5.0, "steel", 0.16, 1)
    for side in (-1, 1):
        tile.ball(16 + side * 2.6, 8.8, 1.9, 1.9, "red", 0.3, 1)
        tile.line(16 + side * 1.8, 5, 16 + side * 3.6, 1.8 - 0.5 * swing * side, 1.0, shade("gold", 0.7))
    return tile.pixels()


def mole(way, step, steps=4):
    """A mole: from the side to the left and right, from above up and down."""
    tile, swing = Tile(), beat(step, steps)
    if way in ("left", "right"):
        side = 1 if way == "right" else -1

        def at(x):
            return MIDDLE + side * (x - MIDDLE)
        for x, phase in ((9, 1), (20, -1)):
            tile.ball(at(x + 2.2 * swing * phase), 27, 3.2, 2.2, "skin", 0.2, 0.8)
        tile.ball(at(13.5), 18.5, 11.2, 9.0, "wood", 0.06, 0.62)
        tile.ball(at(22.5), 18.8, 7.0, 6.4, "wood", 0.1, 0.66)
        tile.ball(at(28.2), 20.5 + 0.4 * swing, 2.8, 2.2, "red", 0.5, 1)
        tile.ball(at(23.4), 16, 1.6, 1.8, "bone", 0.8, 1)
        tile.ellipse(at(23.8), 16.2, 0.9, 1.0, lambda u, v: shade("stone", 0))
        for x, phase in ((12.5, -1), (23.2, 1)):
            px = at(x + 2.2 * swing * phase)
            tile.ball(px, 27.4, 3.4, 2.6, "skin", 0.3, 0.95)
            for claw in (-1.6, 0, 1.6):
                tile.line(px + side * 1.6, 27.4 + claw * 0.6, px + side * 4.0, 28 + claw, 0.9, shade("bone", 0.9))
        tile.line(at(3.2), 19, at(0.9), 15.5 - swing, 1.6, shade("skin", 0.6))
        return tile.pixels()
    for side in (-1, 1):
        for along, reach in ((7.5, 1), (-6.5, -1)):
            px, py = place(along + 2.4 * swing * side * reach, side * 9.2, way)
            tile.ball(px, py, 3.0, 3.0, "skin", 0.24, 0.9)
    tile.line(*place(-10, 0, way), *place(-14.4, 1.5 * swing, way), 1.6, shade("skin", 0.6))
    for along, size in ((-4.5, 8.6), (0, 9.0), (5, 7.4)):
        tile.ball(*place(along, 0, way), size, size, "wood", 0.06, 0.64)
    tile.ball(*place(12.2, 0, way), 2.4, 2.4, "red", 0.5, 1)
    for side in (-1, 1):
        tile.ball(*place(8.4, side * 3.2, way), 1.3, 1.3, "bone", 0.7, 1)
        tile.ellipse(*place(8.9, side * 3.2, way), 0.7, 0.7, lambda u, v: shade("stone", 0))
    return tile.pixels()


# The miner --------------------------------------------------------------------------------------------------------


def _boot(tile, x, y):
    tile.ellipse(x, y, 3.5, 2.6, lambda u, v: shade("wood", 0.55 - 0.3 * v - 0.1 * u))


def _body(tile, lean=0.0):
    tile.polygon([(11.2 + lean, 17), (20.8 + lean, 17), (22, 27), (10, 27)],
                 lambda x, y: shade("violet", 0.42 - 0.03 * (x - 14)))
    tile.ellipse(16, 26.8, 6.0, 2.2, lambda u, v: shade("violet", 0.2 - 0.08 * u))
    tile.line(10.6 + lean, 23.6, 21.4 + lean, 23.6, 2.0, lambda along, across: shade("wood", 0.44 - 0.2 * across))
    tile.ball(16 + lean, 23.6, 1.6, 1.4, "gold", 0.5, 1)


def _helmet(tile, x, y, lamp_x, lit=True):
    tile.ellipse(x, y, 8.0, 7.0, lambda u, v: shade("gold", 0.1 + 0.8 * ball_light(u, v)) if v < 0.12 else None)
    tile.line(x - 8.2, y + 0.9, x + 8.2, y + 0.9, 1.9,
              lambda along, across: shade("gold", 0.5 - 0.3 * across - 0.2 * along))
    if lamp_x is not None:
        tile.ball(lamp_x, y - 2.6, 2.5, 2.5, "steel", 0.2, 0.9)
        tile.ball(lamp_x, y - 2.6, 1.7, 1.7, "bone" if lit else "steel", 0.8 if lit else 0.2, 1)


def _hand(tile, shoulder, hand, light=0.5):
    tile.line(*shoulder, *hand, 3.7, lambda along, across: shade("violet", light - 0.16 * across))
    tile.ball(*hand, 2.1, 2.1, "skin", 0.35, 0.95)


def _beard(tile, x, y, width, length):
    """A pointed beard in strands, hanging from a line at `y`."""
    def at(px, py):
        share = (py - y) / length
        if not 0 < share < 1 or abs(px - x) > width * (1 - share ** 1.6):
            return None
        return shade("fire", 0.44 - 0.016 * (px - x) ** 2 + 0.16 * (noise(math.floor(px), math.floor(py / 3), 4) - 0.5))
    tile.paint(at, (x - width, y, x + width, y + length))


def miner_front(step, steps=4, hands=None, look=0.0, blink=False):
    """Towards the viewer. `hands` are the places of both hands, `look` shifts the eyes, -1 to 1."""
    tile, stride = Tile(), math.sin(math.pi / 2 * step)
    _boot(tile, 12.4, 28.6 - 1.2 * max(0, stride))
    _boot(tile, 19.6, 28.6 - 1.2 * max(0, -stride))
    left, right = hands or ((7.4, 23 + 1.4 * stride), (24.6, 23 - 1.4 * stride))
    _body(tile)
    _hand(tile, (10.6, 18.6), left)
    _hand(tile, (21.4, 18.6), right, 0.4)
    tile.ball(16, 11.4, 7.0, 6.6, "skin", 0.3, 0.92)
    for side in (-1, 1):
        x = 16 + side * 2.7 + 1.2 * look
        if blink:
            tile.line(x - 1.2, 12, x + 1.2, 12, 0.9, shade("wood", 0.1))
        else:
            tile.ellipse(x, 11.8, 1.25, 1.7, lambda u, v: shade("stone", 0.02))
            tile.ellipse(x - 0.35, 11.2, 0.5, 0.5, lambda u, v: shade("bone", 1))
    _beard(tile, 16, 13.6, 6.6, 9)
    tile.ball(16 + look, 13.6, 1.7, 1.4, "skin", 0.6, 1)
    _helmet(tile, 16, 8.6, 16 + 0.6 * look)
    return tile.pixels()


def miner_back(step, steps=4):
    """Away from the viewer, with a rucksack."""
    tile, stride = Tile(), math.sin(math.pi / 2 * step)
    _boot(tile, 12.4, 28.6 - 1.2 * max(0, stride))
    _boot(tile, 19.6, 28.6 - 1.2 * max(0, -stride))
    _hand(tile, (10.6, 18.6), (7.4, 22.6 + 1.4 * stride))
    _hand(tile, (21.4, 18.6), (24.6, 22.6 - 1.4 * stride), 0.4)
    _body(tile)
    tile.ball(16, 11.6, 6.8, 6.2, "fire", 0.2, 0.5)
    tile.ellipse(16, 21, 5.6, 5.2, lambda u, v: shade("moss", 0.16 + 0.56 * ball_light(u, v)))
    tile.line(11.5, 20, 20.5, 20, 1.2, shade("wood", 0.5))
    tile.ball(16, 21.4, 1.0, 1.0, "gold", 0.5, 1)
    _helmet(tile, 16, 8.8, None)
    return tile.pixels()


def miner_side(way, step, steps=4, arm=None, lean=0.0):
    """To the left or right. `arm`: the angle of a pick in the hand, in quarter turns from level to straight up."""
    tile, side = Tile(), 1 if way == "right" else -1
    stride = math.sin(math.pi / 2 * step)

    def at(x):
        return MIDDLE + side * (x - MIDDLE)
    _boot(tile, at(16 - 4.2 * stride), 28.6 - 1.2 * max(0, -stride))
    tile.line(at(15), 24, at(16 - 3.8 * stride), 27, 4.2, shade("violet", 0.16))
    _boot(tile, at(16.6 + 4.2 * stride), 28.6 - 1.2 * max(0, stride))
    tile.line(at(16), 24, at(16.4 + 3.8 * stride), 27, 4.4, shade("violet", 0.3))
    tile.ellipse(at(15.6 + lean), 21.2, 5.2, 5.8, lambda u, v: shade("violet", 0.1 + 0.56 * ball_light(u, v)))
    tile.line(at(11.4 + lean), 24, at(20.2 + lean), 24, 1.8, lambda along, across: shade("wood", 0.44 - 0.2 * across))
    tile.ellipse(at(10.8 + lean), 20.6, 3.2, 4.2, lambda u, v: shade("moss", 0.16 + 0.56 * ball_light(u, v)))
    hx = 16.4 + lean
    tile.ball(at(hx), 11.6, 6.8, 6.4, "skin", 0.3, 0.92)
    tile.ellipse(at(hx + 3.4), 11.6, 1.2, 1.7, lambda u, v: shade("stone", 0.02))
    tile.ellipse(at(hx + 3.2), 11.0, 0.5, 0.5, lambda u, v: shade("bone", 1))
    _beard(tile, at(hx + 2.4), 14, 4.8, 8.4)
    tile.ball(at(hx + 6.4), 13.4, 1.9, 1.6, "skin", 0.5, 1)
    _helmet(tile, at(hx), 8.8, at(hx + 6.4))
    shoulder = (at(15.4 + lean), 19)
    if arm is None:
        _hand(tile, shoulder, (at(17.5 - 3.4 * stride + 2 * lean), 23.4 - (5.0 if lean else 0)))
        return tile.pixels()
    angle = arm * math.pi / 2
    hand = (at(20.5 + 1.5 * math.cos(angle)), 20 - 3 * math.sin(angle))
    tip = (hand[0] + side * 9.2 * math.cos(angle), hand[1] - 9.2 * math.sin(angle))
    tile.line(hand[0] - side * 3 * math.cos(angle), hand[1] + 3 * math.sin(angle), *tip, 1.8, shade("wood", 0.66))
    for number in range(9):  # the head of the pick, an arc across the end of its shaft
        bend = (number - 4) / 4
        px = tip[0] + side * (-bend * 6.4 * math.sin(angle) - 1.8 * bend * bend * math.cos(angle))
        py = tip[1] - (bend * 6.4 * math.cos(angle) - 1.8 * bend * bend * math.sin(angle))
        tile.ball(px, py, 1.7 - 0.9 * abs(bend), 1.7 - 0.9 * abs(bend), "steel", 0.4, 1)
    _hand(tile, shoulder, hand)
    return tile.pixels()


def miner_idle(step):
    """Waiting: looks about, blinks and tosses a stone. Six frames that go on from one to the next."""
    toss = (0, 0, 1, 2, 1, 0)[step]
    look, blink = (0, -1, 1, 1, 1, 0)[step], step == 5
    return miner_front(0, hands=((7.4, 23), (24.2, 22.4 - 1.2 * toss)), look=look, blink=blink)


def firefly(way, step, steps=4):
    """A small beetle with a lantern in its tail; the wings blur."""
    tile, swing = Tile(), beat(step, steps)
    for side in (-1, 1):
        for spread in (0, 1):
            ox, oy = place(0.5 - 3.5 * spread, side * (7.2 + 1.2 * swing * (1 - 2 * spread)), way)
            rx, ry = (4.2, 6.2) if TURNS[way] % 2 == 0 else (6.2, 4.2)
            tile.ellipse(ox, oy, rx, ry, lambda u, v: shade(
                "glow", 0.5 + 0.4 * ball_light(u, v) + (0.2 if abs((u * u + v * v) - 0.5) < 0.16 else 0)))
    for along, size, material, low, high in ((-9, 5.6, "gold", 0.5 + 0.2 * swing, 1.0), (-3.5, 5.2, "fire", 0.1, 0.6),
                                             (1.5, 5.4, "red", 0.1, 0.72), (7.5, 4.4, "stone", 0.06, 0.6)):
        tile.ball(*place(along, 0, way), size, size, material, clamp(low), high)
    for side in (-1, 1):
        tile.ball(*place(9.6, side * 2.4, way), 1.5, 1.5, "bone", 0.7, 1)
        tile.line(*place(11, side * 1.4, way), *place(14.4, side * 3.6, way), 1.1, shade("stone", 0.3))
    return tile.pixels()
