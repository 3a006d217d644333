"""Drawing of tiles: shapes are painted on a finely sampled canvas and brought down to pixels of a fixed palette.

Colours are ramps of shades from dark to light, so a painter says which material and how much light (0 to 1). All
numbers are in pixels of the finished tile; y grows downward.
"""

import math

SIZE = 32  # pixels of a tile
FINE = 4  # samples a pixel and direction
SHADES = 9  # colours of a ramp

# Material: its darkest, middle and lightest colour.
MATERIALS = {
    "earth": ((30, 18, 28), (112, 70, 58), (206, 158, 112)),
    "stone": ((20, 20, 36), (84, 88, 118), (196, 206, 220)),
    "steel": ((14, 24, 38), (66, 104, 136), (214, 238, 246)),
    "moss": ((8, 30, 30), (44, 118, 70), (190, 228, 116)),
    "green": ((2, 44, 42), (22, 176, 106), (222, 255, 214)),
    "blue": ((14, 22, 84), (52, 126, 232), (226, 246, 255)),
    "red": ((56, 6, 34), (214, 40, 66), (255, 216, 190)),
    "gold": ((72, 32, 14), (234, 160, 40), (255, 250, 196)),
    "violet": ((38, 12, 74), (142, 66, 206), (246, 214, 255)),
    "skin": ((76, 34, 40), (216, 142, 106), (255, 228, 192)),
    "fire": ((84, 14, 16), (255, 112, 24), (255, 248, 188)),
    "glow": ((6, 34, 50), (34, 184, 176), (218, 255, 240)),
    "wood": ((34, 18, 14), (128, 78, 36), (226, 178, 104)),
    "bone": ((46, 38, 58), (168, 156, 158), (255, 252, 240)),
}


def mix(a, b, share):
    return a + (b - a) * share


def clamp(value, low=0.0, high=1.0):
    return low if value < low else high if value > high else value


def smooth(low, high, value):
    """0 below `low`, 1 above `high`, a soft step between."""
    share = clamp((value - low) / (high - low))
    return share * share * (3 - 2 * share)


def shade(material, light):
    """Colour of a material under a light from 0 to 1, as floats."""
    dark, middle, bright = MATERIALS[material]
    light = clamp(light)
    low, high, share = (dark, middle, light * 2) if light < 0.5 else (middle, bright, light * 2 - 1)
    return tuple(mix(a, b, share) for a, b in zip(low, high))


def _make_palette():
    """Colour 0 is the black that the game looks through; no other is pure black."""
    palette = [(0, 0, 0), (10, 8, 18)]
    for material in MATERIALS:
        palette += [tuple(round(part) for part in shade(material, step / (SHADES - 1))) for step in range(SHADES)]
    return palette


PALETTE = _make_palette()
OUTLINE = 1
_nearest = {}


def nearest(colour):
    """Index of the palette's nearest colour; green counts most, as for the eye."""
    key = tuple(int(part) >> 1 for part in colour)
    if key not in _nearest:
        red, green, blue = (part * 2 + 1 for part in key)
        _nearest[key] = min(range(1, len(PALETTE)), key=lambda index: (
            3 * (PALETTE[index][0] - red) ** 2 + 5 * (PALETTE[index][1] - green) ** 2
            + 2 * (PALETTE[index][2] - blue) ** 2))
    return _nearest[key]


def noise(x, y=0, z=0, seed=0):
    """A fixed number from 0 to 1 for a place in a lattice."""
    n = (int(x) * 374761393 + int(y) * 668265263 + int(z) * 2147483647 + seed * 1274126177) & 0xFFFFFFFF
    n = ((n ^ (n >> 13)) * 1274126177) & 0xFFFFFFFF
    n = ((n ^ (n >> 16)) * 2246822519) & 0xFFFFFFFF
    return ((n ^ (n >> 15)) & 0xFFFF) / 0xFFFF


def soft_noise(x, y, seed=0, repeat=None):
    """Noise with soft steps between the lattice points; `repeat` makes it fit its own neighbour."""
    x0, y0 = math.floor(x), math.floor(y)
    u, v = smooth(0, 1, x - x0), smooth(0, 1, y - y0)

    def at(i, j):
        return noise(i % repeat, j % repeat, 0, seed) if repeat else noise(i, j, 0, seed)

    return mix(mix(at(x0, y0), at(x0 + 1, y0), u), mix(at(x0, y0 + 1), at(x0 + 1, y0 + 1), u), v)


class Tile:
    """One tile under work. Painters say for a place whether it is inside and which colour it has."""

    def __init__(self):
        self.side = SIZE * FINE
        self.cells = [None] * (self.side * self.side)

    def paint(self, colour, box=(0, 0, SIZE, SIZE)):
        """Paints `colour(x, y)` wherever it gives one (None: leave). `box` limits the places that are asked."""
        x0, y0, x1, y1 = (int(clamp(edge * FINE, 0, self.side)) for edge in
                          (math.floor(box[0]), math.floor(box[1]), math.ceil(box[2]), math.ceil(box[3])))
        for row in range(y0, y1):
            for column in range(x0, x1):
                found = colour((column + 0.5) / FINE, (row + 0.5) / FINE)
                if found is not None:
                    self.cells[row * self.side + column] = found

    def erase(self, inside, box=(0, 0, SIZE, SIZE)):
        """Makes the places see-through for which `inside(x, y)` holds."""
        for row in range(int(box[1] * FINE), int(box[3] * FINE)):
            for column in range(int(box[0] * FINE), int(box[2] * FINE)):
                if inside((column + 0.5) / FINE, (row + 0.5) / FINE):
                    self.cells[row * self.side + column] = None

    # Shapes -------------------------------------------------------------------------------------------------------

    def ellipse(self, x, y, rx, ry, colour):
        """`colour(u, v)` with u and v from -1 to 1 inside the ellipse."""
        def at(px, py):
            u, v = (px - x) / rx, (py - y) / ry
            return colour(u, v) if u * u + v * v <= 1 else None
        self.paint(at, (x - rx, y - ry, x + rx, y + ry))

    def ball(self, x, y, rx, ry, material, low=0.12, high=0.95):
        """An ellipse lit as a ball from the upper left."""
        self.ellipse(x, y, rx, ry, lambda u, v: shade(material, mix(low, high, ball_light(u, v))))

    def line(self, x0, y0, x1, y1, width, colour):
        """A round-ended stroke; `colour(share along, share across from -1 to 1)`, or a fixed colour."""
        length = math.hypot(x1 - x0, y1 - y0) or 1e-6
        ax, ay = (x1 - x0) / length, (y1 - y0) / length

        def at(px, py):
            along = clamp(((px - x0) * ax + (py - y0) * ay), 0, length)
            dx, dy = px - x0 - along * ax, py - y0 - along * ay
            if math.hypot(dx, dy) > width / 2:
                return None
            across = ((px - x0) * -ay + (py - y0) * ax) / (width / 2)
            return colour(along / length, clamp(across, -1, 1)) if callable(colour) else colour
        self.paint(at, (min(x0, x1) - width, min(y0, y1) - width, max(x0, x1) + width, max(y0, y1) + width))

    def polygon(self, points, colour):
        """A filled polygon; `colour(x, y)` or a fixed colour."""
        def at(px, py):
            inside, (bx, by) = False, points[-1]
            for ax, ay in points:
                if (ay > py) != (by > py) and px < (bx - ax) * (py - ay) / (by - ay) + ax:
                    inside = not inside
                bx, by = ax, ay
            if not inside:
                return None
            return colour(px, py) if callable(colour) else colour
        xs, ys = [p[0] for p in points], [p[1] for p in points]
        self.paint(at, (min(xs), min(ys), max(xs), max(ys)))

    def star(self, x, y, reach, material="bone", light=1.0):
        """A sparkle with four thin rays."""
        def at(px, py):
            dx, dy = abs(px - x), abs(py - y)
            return shade(material, light) if math.sqrt(dx) + math.sqrt(dy) <= math.sqrt(reach) else None
        self.paint(at, (x - reach, y - reach, x + reach, y + reach))

    # Finish -------------------------------------------------------------------------------------------------------

    def pixels(self, outline=True):
        """Rows of palette indices. A pixel counts as painted if half of its samples are; 0 elsewhere."""
        rows = [[self._pixel(x, y) for x in range(SIZE)] for y in range(SIZE)]
        if not outline:
            return rows
        framed = [row[:] for row in rows]
        for y in range(SIZE):
            for x in range(SIZE):
                beside = [rows[j][i] for i, j in ((x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1))
                          if 0 <= i < SIZE and 0 <= j < SIZE]
                if rows[y][x] == 0 and any(beside):
                    framed[y][x] = OUTLINE
        return framed

    def _pixel(self, x, y):
        starts = [row * self.side + x * FINE for row in range(y * FINE, (y + 1) * FINE)]
        found = [cell for start in starts for cell in self.cells[start:start + FINE] if cell is not None]
        if len(found) * 2 < FINE * FINE:
            return 0
        return nearest([sum(part) / len(found) for part in zip(*found)])


def ball_light(u, v, power=1.0):
    """Light on a ball at (u, v) from its middle, 0 to 1, with a small bright spot."""
    w = math.sqrt(max(0.0, 1 - u * u - v * v))
    light = clamp((-0.5 * u - 0.62 * v + 0.6 * w) * power)
    return clamp(0.1 + 0.78 * light + 0.5 * light ** 14)
