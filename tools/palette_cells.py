"""Drawings for the level palette: a cell of 16 by 16 pixels for each element that can stand in a level.

RULES says by an element's name how it looks: the first row that fits draws it. A row is a pattern, a painter and what
the painter needs to know; groups of the pattern tell it which one of a family it paints. What no row fits is a plain
tile in a colour of its class with the initials of its name.
"""

import math
import re

from pixel_art import OUTLINE, nearest, noise, shade

SIDE = 16
FINE = 3  # samples a pixel and direction

COLOURS = {"red": "red", "yellow": "gold", "green": "green", "blue": "blue", "purple": "violet", "white": "bone",
           "1": "red", "2": "gold", "3": "green", "4": "blue", "5": "bone", "6": "violet", "7": "fire", "8": "glow"}
WAYS = {"left": (-1, 0), "right": (1, 0), "up": (0, -1), "down": (0, 1), "top": (0, -1), "bottom": (0, 1)}

# Letters of three by five pixels, a digit a row: its bits are the pixels from left to right.
LETTERS = dict(item.split("=", 1) for item in (
    "A=25755 B=65656 C=34443 D=65556 E=74647 F=74644 G=34553 H=55755 I=72227 J=11152 K=55655 L=44447 M=57755 N=65555 "
    "O=25552 P=65644 Q=25563 R=65655 S=34216 T=72222 U=55557 V=55552 W=55775 X=55255 Y=55222 Z=71247 0=75557 1=26227 "
    "2=61247 3=61216 4=55711 5=74616 6=34752 7=71244 8=75757 9=75716 !=22202 ?=61202 .=00002 ,=00024 :=02020 ;=02024 "
    "-=00700 +=02720 *=05250 /=11244 \\=44211 (=12221 )=42224 [=62226 ]=32223 <=12421 >=42124 '=22000 \"=55000 #=57575 $=36236 "
    "%=51245 &=25253 @=25743 ^=25000 _=00007 |=22222 ~=03600 ©=75657 ®=77657 ™=75500 °=25200").split())

# What the names of letters stand for.
SIGNS = {"space": " ", "exclam": "!", "quotedbl": '"', "numbersign": "#", "dollar": "$", "percent": "%",
         "ampersand": "&", "apostrophe": "'", "parenleft": "(", "parenright": ")", "asterisk": "*", "plus": "+",
         "comma": ",", "minus": "-", "period": ".", "slash": "/", "colon": ":", "semicolon": ";", "less": "<",
         "equal": "=", "greater": ">", "question": "?", "at": "@", "bracketleft": "[", "backslash": "\\",
         "bracketright": "]", "asciicircum": "^", "underscore": "_", "copyright": "©", "aumlaut": "A", "oumlaut": "O",
         "uumlaut": "U", "degree": "°", "trademark": "™", "cursor": "_", "registered": "®", "bar": "|", "asciitilde": "~"}
LETTERS["="] = "07070"


class Cell:
    """One cell under work: colours (None: nothing) on a fine grid, then pixels laid over it."""

    def __init__(self):
        self.fine = [None] * (SIDE * FINE) ** 2
        self.over = {}

    def paint(self, colour):
        """`colour(x, y)`, in pixels, wherever it gives one."""
        for row in range(SIDE * FINE):
            for column in range(SIDE * FINE):
                found = colour((column + 0.5) / FINE, (row + 0.5) / FINE)
                if found is not None:
                    self.fine[row * SIDE * FINE + column] = found

    def box(self, left, top, right, bottom, material, light=0.5, bevel=0.0):
        """A plate; `bevel` lights its upper left edge and darkens the other."""
        def at(x, y):
            if not (left <= x < right and top <= y < bottom):
                return None
            edge = (bevel if x - left < 1 or y - top < 1 else 0) - (bevel if right - x < 1 or bottom - y < 1 else 0)
            return shade(material, light + edge)
        self.paint(at)

    def ball(self, x, y, rx, ry, material, light=0.5):
        def at(px, py):
            u, v = (px - x) / rx, (py - y) / ry
            if u * u + v * v > 1:
                return None
            return shade(material, light + 0.35 - 0.6 * math.hypot(u + 0.35, v + 0.35))
        self.paint(at)

    def line(self, x0, y0, x1, y1, width, material, light=0.6):
        length = math.hypot(x1 - x0, y1 - y0) or 1e-6

        def at(x, y):
            along = min(max(((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length, 0), length) / length
            away = math.hypot(x - x0 - along * (x1 - x0), y - y0 - along * (y1 - y0))
            return shade(material, light) if away <= width / 2 else None
        self.paint(at)

    def polygon(self, points, material, light=0.5):
        def at(x, y):
            inside, (bx, by) = False, points[-1]
            for ax, ay in points:
                if (ay > y) != (by > y) and x < (bx - ax) * (y - ay) / (by - ay) + ax:
                    inside = not inside
                bx, by = ax, ay
            return shade(material, light + 0.2 * (8 - y) / 8) if inside else None
        self.paint(at)

    def text(self, text, x, y, material="bone", scale=1, light=0.95, edge=True):
        """Letters from their upper left pixel on, with a dark edge so that they read on any ground."""
        pixels = {(x + 4 * scale * i + scale * column + dx, y + scale * row + dy)
                  for i, letter in enumerate(text) for row, bits in enumerate(LETTERS.get(letter, "00000"))
                  for column in range(3) if int(bits) >> (2 - column) & 1 for dx in range(scale) for dy in range(scale)}
        if edge:
            for px, py in pixels:
                self.over.update({(px + dx, py + dy): (6, 4, 12) for dx in (-1, 0, 1) for dy in (-1, 0, 1)
                                  if (px + dx, py + dy) not in pixels and (px + dx, py + dy) not in self.over})
        self.over.update({at: shade(material, light) for at in pixels})

    def label(self, text):
        """At the lower right."""
        text = text.upper()[:3]
        self.text(text, SIDE - 4 * len(text), SIDE - 6)

    def arrow(self, way, material="bone", x=8, y=8, reach=4.5):
        dx, dy = way
        tip, side = (x + dx * reach, y + dy * reach), (dy * reach * 0.8, dx * reach * 0.8)
        self.polygon([tip, (x - dx + side[0], y - dy + side[1]), (x - dx - side[0], y - dy - side[1])], material, 0.85)
        self.line(x - dx * reach, y - dy * reach, x, y, 2, material, 0.85)

    def pixels(self):
        """Rows of numbers of the palette's colours."""
        rows = []
        for y in range(SIDE):
            row = []
            for x in range(SIDE):
                found = [self.fine[(y * FINE + j) * SIDE * FINE + x * FINE + i] or shade("earth", 0.0)
                         for j in range(FINE) for i in range(FINE)]
                colour = self.over.get((x, y), tuple(sum(parts) / len(found) for parts in zip(*found)))
                row.append(nearest(colour) if max(colour) > 12 else OUTLINE)
            rows.append(row)
        return rows


# Painters. Each takes the cell, what the pattern found, and what its row says.

def bricks(cell, found, material="stone", gem=None):
    def at(x, y):
        row = int(y // 4)
        joint = y % 4 < 0.8 or (x + 4 * (row % 2)) % 8 < 0.8
        return shade(material, 0.12 if joint else 0.52 + 0.14 * noise((x + 4 * (row % 2)) // 8, row))
    cell.paint(at)
    if gem:
        diamond(cell, found, gem, 0.62)


def steel(cell, found, material="steel"):
    cell.box(0, 0, SIDE, SIDE, material, 0.5, 0.25)
    for x, y in ((3, 3), (13, 3), (3, 13), (13, 13)):
        cell.ball(x, y, 1.4, 1.4, material, 0.75)


def grains(cell, found, material="earth", light=0.4):
    cell.paint(lambda x, y: shade(material, light + 0.35 * noise(x // 1.5, y // 1.5, 0, 5) - 0.1))


def water(cell, found, material="blue", full=16):
    number = found.get("n")
    top = SIDE - (int(number) if number else full)
    cell.paint(lambda x, y: shade(material, 0.45 + 0.12 * math.sin(x * 0.8 + y * 1.1))
               if y >= top + 0.8 * math.sin(x * 0.8) else None)


def boulder(cell, found, material="stone", size=7.2):
    cell.ball(8, 8, size, size, material)


def diamond(cell, found, material="blue", size=1.0):
    material = COLOURS.get(found.get("c"), material)
    r, top = 7.4 * size, 3 * size
    cell.polygon([(8 - r, 8 - top / 2), (8 - r * 0.55, 8 - r * 0.8), (8 + r * 0.55, 8 - r * 0.8), (8 + r, 8 - top / 2),
                  (8, 8 + r)], material, 0.55)
    cell.polygon([(8 - r * 0.4, 8 - top / 2), (8 + r * 0.4, 8 - top / 2), (8, 8 + r)], material, 0.8)


def creature(cell, found, material="green", body="round"):
    dx, dy = WAYS.get(found.get("w"), (0, 0))
    if body == "round":
        cell.ball(8, 8, 6.8, 6.4, material)
    elif body == "wings":
        for x in (4, 12):
            cell.ball(x, 5.5, 3.6, 4.6, material, 0.6)
            cell.ball(x, 11.5, 3, 3.4, material, 0.5)
        cell.line(8, 3, 8, 13, 2, "earth", 0.3)
    elif body == "box":
        cell.box(2, 2, 14, 14, material, 0.5, 0.3)
        cell.box(5, 5, 11, 11, "fire", 0.75, 0.1)
    elif body == "legs":
        for y in (4, 8, 12):
            cell.line(1.5, y - 1, 14.5, y + 1, 1.2, "bone", 0.4)
        cell.ball(8, 8, 4.6, 6.6, material)
    for side in (-2.4, 2.4):
        cell.ball(8 + side + 2 * dx, 6.5 + 2 * dy, 1.7, 1.7, "bone", 0.9)
        cell.ball(8 + side + 2.9 * dx, 6.7 + 2.9 * dy, 0.8, 0.8, "earth", -0.2)
    if (dx, dy) != (0, 0):
        cell.polygon([(8 + 7.8 * dx, 8 + 7.8 * dy), (8 + 4.5 * dx + 3 * dy, 8 + 4.5 * dy + 3 * dx),
                      (8 + 4.5 * dx - 3 * dy, 8 + 4.5 * dy - 3 * dx)], "bone", 0.9)


def person(cell, found, material="skin"):
    material = {"1": "gold", "2": "red", "3": "green", "4": "blue"}.get(found.get("n"), material)
    cell.line(5.6, 11, 4.6, 15, 2.2, "earth", 0.45)
    cell.line(10.4, 11, 11.4, 15, 2.2, "earth", 0.45)
    cell.ball(8, 10, 4.6, 3.8, material, 0.55)
    cell.ball(8, 5, 4, 4, "skin", 0.7)
    for x in (6.5, 9.5):
        cell.ball(x, 5, 0.8, 0.9, "earth", -0.2)


def key(cell, found, material="gold"):
    material = COLOURS.get(found.get("c"), material)
    cell.ball(5, 5, 3.8, 3.8, material, 0.6)
    cell.ball(5, 5, 1.6, 1.6, "earth", -0.3)
    cell.line(7, 7, 14, 14, 2.2, material, 0.7)
    cell.line(11, 12.5, 12.5, 10.5, 1.6, material, 0.7)


def gate(cell, found, material="steel"):
    bricks(cell, found, "stone")
    inner = "stone" if found.get("g") else COLOURS.get(found.get("c"), material)
    cell.box(3, 2, 13, 16, inner, 0.5, 0.3)
    cell.ball(8, 8, 2, 2, "earth", -0.1)
    cell.line(8, 8, 8, 12, 1.6, "earth", 0.05)
    if found.get("g"):
        cell.label(found.get("c", ""))


def door(cell, found, material="wood", frame="stone"):
    (steel if frame == "steel" else bricks)(cell, {}, frame)
    opened = "open" in found.get("name", "")
    cell.box(3, 2, 13, 16, "earth" if opened else material, 0.05 if opened else 0.5, 0 if opened else 0.25)
    if opened:
        cell.polygon([(3, 2), (6, 4), (6, 15), (3, 16)], material, 0.5)
    else:
        cell.ball(11, 9, 1, 1, "gold", 0.8)


def letter(cell, found, ground="blue"):
    cell.box(0, 0, SIDE, SIDE, ground, 0.28, 0.12)
    name = found["n"]
    sign = SIGNS.get(name, name.upper())
    if len(sign) == 1:
        cell.text(sign, 5, 3, scale=2, edge=False)
        if name.endswith("umlaut"):
            for x in (5, 9):
                cell.over.update({(x + dx, 1): shade("bone", 0.95) for dx in range(2)})
    elif sign.startswith(("BUTTON", "NONE")) or len(sign) > 1:
        cell.text("".join(word[0] for word in sign.split("_"))[:3], 2, 5, edge=False)


def number_tile(cell, found, material="violet", prefix=""):
    number = int(found["n"])
    cell.paint(lambda x, y: shade(material, 0.30 + 0.25 * noise(number, 1) + 0.2 * ((16 - x - y) / 32))
               if 0.5 < x < 15.5 and 0.5 < y < 15.5 else shade(material, 0.12))
    text = prefix + str(number)
    cell.text(text, (SIDE - 4 * len(text) + 1) // 2, 5)


def marked(cell, found, text, material="stone", light=0.4):
    cell.box(0.5, 0.5, 15.5, 15.5, material, light, 0.25)
    text = found.get("t", text).upper()[:3]
    cell.text(text, (SIDE - 4 * len(text) + 1) // 2, 5)


def pointer(cell, found, material="steel"):
    cell.box(0.5, 0.5, 15.5, 15.5, material, 0.35, 0.25)
    cell.arrow(WAYS.get(found.get("w"), (1, 0)), COLOURS.get(found.get("c"), "gold"))


def port(cell, found, material="steel", text=""):
    cell.box(0, 0, SIDE, SIDE, material, 0.35, 0.2)
    way = found.get("w", "any")
    cell.ball(8, 8, 5.5, 5.5, "earth", -0.1)
    for one in {"vertical": ("up", "down"), "horizontal": ("left", "right"), "any": tuple(WAYS)}.get(way, (way,)):
        dx, dy = WAYS[one]
        cell.arrow((dx, dy), "gold", 8 + 1.5 * dx, 8 + 1.5 * dy, 4)
    if text:
        cell.label(text)


def belt(cell, found):
    cell.box(0, 4, SIDE, 12, COLOURS.get(found.get("c"), "steel"), 0.45, 0.25)
    for x in (3, 8, 13):
        cell.ball(x, 8, 2, 2, "earth", 0.3)
    if found.get("w") in WAYS:
        cell.arrow(WAYS[found["w"]])


def switch(cell, found, material="steel", text=""):
    cell.box(1, 1, 15, 15, COLOURS.get(found.get("c"), material), 0.32, 0.2)
    cell.ball(8, 11, 3.4, 2.4, "earth", 0.1)
    dx, dy = WAYS.get(found.get("w"), (0, -1))
    cell.line(8, 11, 8 + 5 * dx, 6 + 1.5 * dy if dy else 6, 2, "bone", 0.8)
    cell.ball(8 + 5 * dx, 6 + 1.5 * dy if dy else 6, 2, 2, "red" if not found.get("a") else "green", 0.6)
    if text:
        cell.label(text)


def pipe(cell, found):
    name = found["t"]
    ends = [way for way in ("left", "right", "up", "down") if way in name]
    ends += ["up", "down"] * ("vertical" in name or "any" in name) + ["left", "right"] * (
        "horizontal" in name or "any" in name)
    for width, light in ((9, 0.25), (6, 0.6), (2.5, 0.85)):
        for way in ends:
            dx, dy = WAYS[way]
            cell.line(8, 8, 8 + 9 * dx, 8 + 9 * dy, width, "moss", light)


def turned(cell, found, material="glow", striped=False, turn=16, frame=None):
    """A bar that stands at one of `turn` angles over half a round."""
    if frame:
        cell.box(0.5, 0.5, 15.5, 15.5, frame, 0.25, 0.15)
    angle = math.pi * (int(found["n"]) - 1) / turn
    dx, dy = math.cos(angle) * 6.5, -math.sin(angle) * 6.5
    cell.line(8 - dx, 8 - dy, 8 + dx, 8 + dy, 4, material, 0.35)
    cell.line(8 - dx, 8 - dy, 8 + dx, 8 + dy, 2, "bone" if not striped else material, 0.85)
    if striped:
        for share in (-0.7, 0, 0.7):
            cell.ball(8 + dx * share, 8 + dy * share, 1, 1, "earth", -0.2)


def quarters(cell, found, material="wood"):
    """Of a wall each quarter may stand."""
    bits = int(found["n"]) - 1
    for bit, (x, y) in enumerate(((0, 0), (8, 0), (0, 8), (8, 8))):
        if bits >> bit & 1:
            cell.box(x, y, x + 8, y + 8, material, 0.5, 0.2)
    if bits < 1 or bits > 15:
        cell.box(1, 1, 15, 15, material, 0.2, 0.1)
        cell.label(found["n"])


def lattice(cell, found, material="wood"):
    step = int(found["n"]) if found.get("n") else 1
    cell.paint(lambda x, y: shade(material, 0.6) if (x + (step % 2) * 2) % 4 < 1.4 or (y + step // 2 * 2) % 4 < 1.4
               else shade(material, 0.1))


def slope(cell, found, material="stone"):
    bricks(cell, found, material)
    right, down = "right" in found["t"], "down" in found["t"]

    def at(x, y):
        across, height = (x if right else SIDE - x), (y if down else SIDE - y)
        return shade("earth", 0.0) if across + height > SIDE else None
    cell.paint(at)


def bomb(cell, found, material="steel"):
    cell.ball(7.5, 9.5, 5.8, 5.8, material, 0.25)
    cell.line(11, 5, 14, 2, 1.4, "bone", 0.6)
    cell.ball(14, 2.2, 1.6, 1.6, "fire", 0.8)


def sticks(cell, found, material="red"):
    for x in (4.5, 8, 11.5):
        cell.box(x - 1.5, 5, x + 1.5, 15, material, 0.5, 0.2)
    cell.line(8, 5, 11, 1.5, 1.2, "bone", 0.7)
    if found.get("a"):
        cell.ball(11, 2, 2.2, 2.2, "fire", 0.9)


def disk(cell, found, material="red"):
    cell.box(1.5, 1.5, 14.5, 14.5, material, 0.5, 0.25)
    cell.box(4, 2, 12, 7, "bone", 0.7, 0.1)
    cell.box(4.5, 9, 11.5, 14.5, "earth", 0.15)


def burst(cell, found, material="fire"):
    reach = 4.5 + min(int(found.get("n") or 3), 6) * 0.6

    def at(x, y):
        u, v = x - 8, y - 8
        away = math.hypot(u, v) / (reach * (0.75 + 0.25 * math.cos(7 * math.atan2(v, u))))
        return shade(material, 1.0 - 0.7 * away) if away < 1 else None
    cell.paint(at)


def clock(cell, found, material="bone"):
    cell.ball(8, 8, 7, 7, material, 0.6)
    cell.line(8, 8, 8, 3.5, 1.4, "earth", 0.0)
    cell.line(8, 8, 11, 9.5, 1.4, "earth", 0.0)


def envelope(cell, found):
    cell.box(1, 3.5, 15, 13, COLOURS.get(found.get("c"), "bone"), 0.6, 0.2)
    cell.line(1.5, 4, 8, 9, 1.1, "earth", 0.1)
    cell.line(14.5, 4, 8, 9, 1.1, "earth", 0.1)
    if found.get("c"):
        cell.label(found["c"])


def lamp(cell, found, material="gold"):
    cell.box(5.5, 11, 10.5, 15, "steel", 0.5, 0.2)
    cell.ball(8, 6.5, 5, 5.5, material if found.get("a") else "bone", 0.75 if found.get("a") else 0.3)


def plant(cell, found, material="green"):
    for x, tip in ((3, 1), (6, 5), (9, 9), (12, 14)):
        cell.line(x, 16, tip + 0.5, 3 + x % 5, 1.6, material, 0.4 + 0.04 * x)


def wheel(cell, found, material="steel"):
    cell.ball(8, 8, 7, 7, material, 0.5)
    for turn in range(3):
        dx, dy = math.cos(turn * math.pi / 3) * 6, math.sin(turn * math.pi / 3) * 6
        cell.line(8 - dx, 8 - dy, 8 + dx, 8 + dy, 1.3, "earth", 0.1)
    cell.ball(8, 8, 2.2, 2.2, "red" if found.get("a") else "bone", 0.6)


def balloon(cell, found, material="red"):
    cell.line(8, 11, 8, 16, 1, "bone", 0.6)
    cell.ball(8, 6.5, 5.6, 6.2, material, 0.55)


def spring(cell, found, material="steel"):
    for y in (4, 7, 10, 13):
        cell.line(3, y, 13, y - 1.5, 1.6, material, 0.7)
    if found.get("w"):
        cell.arrow(WAYS[found["w"]])


def nothing(cell, found):
    if found.get("n"):
        cell.text(found["n"], (SIDE - 4 * len(found["n"]) + 1) // 2, 5, "steel", light=0.35, edge=False)


def initials(cell, found, material="violet"):
    cell.box(0.5, 0.5, 15.5, 15.5, material, 0.3, 0.2)
    words = re.split(r"[_.]", re.sub(r"^(bdx|bd|sp|em|emc|dc|dx|mm|df)_", "", found["name"]))
    text = "".join(word[0] if not word.isdigit() else word for word in words if word).upper()[:3]
    cell.text(text, (SIDE - 4 * len(text) + 1) // 2, 5)


C = r"(?P<c>white|red|yellow|green|blue|purple|\d)"
W = r"(?P<w>left|right|up|down)"
N = r"(?P<n>\d+)"
STATE = r"(\.(?P<s>scanned|falling|flying|ticking|growing|breaking|exploding|active)(_(?P<k>\d+))?)*"

RULES = (
    (r"((sp|mm|df)_)?empty_space(_%s)?" % N, nothing, {}),
    (r"steel_char_(?P<n>\w+)", letter, {"ground": "steel"}),
    (r"char_(?P<n>\w+)", letter, {}),
    (r"custom_%s" % N, number_tile, {}),
    (r"group_%s" % N, number_tile, {"material": "moss", "prefix": "G"}),
    (r"(invisible_)?sand|sp_base|bdx_sand|bdx_sand_glued|sp_buggy_base|trap", grains, {}),
    (r"(emc_|bdx_)?(fake_)?(grass|plant|grass_loose|grass_ball)" + STATE, plant, {}),
    (r"bdx_(sand|wall|steelwall)_sloped_(?P<t>\w+)", slope, {}),
    (r"quicksand.*", grains, {"material": "gold", "light": 0.35}),
    (r".*wall.*_switch.*", switch, {"text": "EX"}),
    (r".*magic_wall.*", bricks, {"material": "violet"}),
    (r"(bdx_)?wall_(bd_)?diamond", bricks, {"gem": "blue"}),
    (r"wall_pearl", bricks, {"gem": "bone"}),
    (r"wall_crystal", bricks, {"gem": "glow"}),
    (r"wall_emerald(_%s)?" % C, bricks, {"gem": "green"}),
    (r"bdx_wall_key_%s" % C, bricks, {"gem": "gold"}),
    (r"(mm|df)_wooden_wall_%s" % N, quarters, {"material": "wood"}),
    (r"(mm|df)_steel_wall_%s" % N, quarters, {"material": "steel"}),
    (r"mm_ice_wall_%s" % N, quarters, {"material": "blue"}),
    (r"mm_amoeba_wall_%s" % N, quarters, {"material": "green"}),
    (r"(mm|df)_wooden_grid\w*_%s" % N, lattice, {"material": "wood"}),
    (r"(mm|df)_steel_grid\w*_%s" % N, lattice, {"material": "steel"}),
    (r"df_slope_%s" % N, turned, {"material": "stone", "turn": 4, "frame": "steel"}),
    (r"(mm|df)_mirror_fixed_%s" % N, turned, {"frame": "steel"}),
    (r"(mm|df)_mirror_rotating_%s" % N, turned, {"frame": "violet"}),
    (r"(mm|df)_mirror_%s" % N, turned, {}),
    (r"mm_polarizer_cross_%s" % N, turned, {"material": "gold", "striped": True, "turn": 4, "frame": "blue"}),
    (r"mm_polarizer_%s" % N, turned, {"material": "gold", "striped": True}),
    (r"(mm_teleporter)_%s" % N, turned, {"material": "violet", "frame": "blue"}),
    (r"df_fibre_optic_%s_%s" % (C, N), gate, {}),
    (r"(invisible_|.*expandable_)?.*steelwall.*|mm_steel_(block|lock)|df_.*steel.*", steel, {}),
    (r"(dc_|bdx_|sp_|emc_|em_|d?x_)?.*(wall|stoneblock|block|lock|acid_pool|chip|hardware).*", bricks, {}),
    (r"(bdx_|emc_fake_)?(acid)" + STATE, water, {"material": "gold"}),
    (r"bdx_water(_%s)?" % N, water, {}),
    (r"bdx_(lava|slime)", water, {"material": "fire"}),
    (r".*(rock|zonk)(_glued)?" + STATE, boulder, {}),
    (r"(bdx_)?nut" + STATE, boulder, {"material": "wood", "size": 5.5}),
    (r"pearl", boulder, {"material": "bone", "size": 5.5}),
    (r"sp_infotron", boulder, {"material": "red", "size": 6}),
    (r"black_orb|mm_(gray_ball|lightball|bomb)", boulder, {"material": "stone", "size": 6}),
    (r".*magic_ball(.active)?", boulder, {"material": "violet", "size": 6.5}),
    (r".*bubble.*", boulder, {"material": "glow", "size": 6}),
    (r"emerald(_%s)?" % C, diamond, {"material": "green", "size": 0.8}),
    (r"(bd_|bdx_)?(flying_|trapped_)?diamond(_\w+)?" + STATE, diamond, {"material": "blue"}),
    (r"crystal", diamond, {"material": "glow"}),
    (r"(bd_|bdx_)?amoeba.*", grains, {"material": "green", "light": 0.45}),
    (r"biomaze|game_of_life", grains, {"material": "moss", "light": 0.5}),
    (r"(bd_|bdx_)butterfly(_\d)?(\.%s)?" % W + STATE, creature, {"material": "violet", "body": "wings"}),
    (r"(bd_|bdx_)(firefly)(_\d)?(\.%s)?" % W + STATE, creature, {"material": "red", "body": "box"}),
    (r"bdx_(dragonfly|stonefly)(\.%s)?" % W + STATE, creature, {"material": "glow", "body": "wings"}),
    (r"bug(\.%s)?" % W, creature, {"material": "gold", "body": "legs"}),
    (r"spaceship(\.%s)?" % W, creature, {"material": "blue", "body": "box"}),
    (r"(mm_)?pacman(\.%s)?" % W, creature, {"material": "gold"}),
    (r"(dark_)?yamyam(\.%s)?" % W, creature, {"material": "violet"}),
    (r"mole(\.%s)?" % W, creature, {"material": "wood"}),
    (r"bdx_(cow|biter)(\.%s)?" % W + STATE, creature, {"material": "bone", "body": "legs"}),
    (r"(mm_mcduffin|df_laser|df_receiver)(\.%s)?" % W, creature, {"material": "steel", "body": "box"}),
    (r"robot|satellite|sp_sniksnak|sp_electron|emc_android", creature, {"material": "steel", "body": "box"}),
    (r"dragon|bdx_ghost.*", creature, {"material": "moss"}),
    (r"penguin|pig|frankie|bdx_cow_enclosed_\d", creature, {"material": "skin"}),
    (r"player_%s" % N, person, {}),
    (r"player_obsolete", person, {"material": "gold"}),
    (r"(em_)?key(_%s)?(_file)?_obsolete" % C, key, {}),
    (r"envelope_obsolete", envelope, {}),
    (r"(sp_murphy|bdx_player.*|bdx_voodoo_doll|sokoban_field_player|bdx_inbox)", person, {"material": "red"}),
    (r"(dc_|em_|emc_|bdx_|mm_)?key(_%s)?" % C, key, {}),
    (r"(em_|emc_|dc_|bdx_)?gate_%s(?P<g>_gray)?(_active)?" % C, gate, {}),
    (r"(dc_gate_fake_gray)", gate, {}),
    (r"(?P<name>.*(steel_exit).*)", door, {"frame": "steel"}),
    (r"(?P<name>.*exit.*)", door, {}),
    (r"(?P<name>(time|switch)gate_\w+)", door, {"material": "steel"}),
    (r"arrow_%s" % W, pointer, {}),
    (r"sp_gravity_on_port_%s" % W, port, {"text": "+"}),
    (r"sp_gravity_off_port_%s" % W, port, {"text": "-"}),
    (r"sp_gravity_port_%s" % W, port, {"text": "G"}),
    (r"sp_port_(?P<w>\w+)", port, {}),
    (r"conveyor_belt_%s_switch_(?P<w>\w+)" % C, switch, {}),
    (r"conveyor_belt_%s_(?P<w>\w+)" % C, belt, {}),
    (r"bdx_conveyor_%s(?P<a>\.active)?" % W, belt, {}),
    (r"balloon_switch_(?P<w>\w+)", switch, {"material": "red", "text": "B"}),
    (r"(dc_)?(time|switch)gate_switch_?(?P<w>up|down)?(?P<a>\.active)?", switch, {"text": "G"}),
    (r"(?P<t>.*switch.*?)(?P<a>\.active)?", switch, {}),
    (r"balloon", balloon, {}),
    (r"tube_(?P<t>\w+)", pipe, {}),
    (r"(em_)?dynamite(?P<a>\.active)?", sticks, {}),
    (r"sp_disk_%s" % C.replace("red|", "red|orange|"), disk, {}),
    (r"(dynabomb\w*|bomb|dx_supabomb|bdx_bomb)" + STATE, bomb, {}),
    (r"((dc_)?landmine|df_mine|bdx_nitro_pack)" + STATE, bomb, {"material": "moss"}),
    (r"bdx_rocket(_launcher)?(\.%s)?" % W + STATE, pointer, {"material": "red"}),
    (r"bdx_exploding_%s" % N, burst, {}),
    (r"(bdx_)?(extra_time|time_orb_\w+|clock.*|time_penalty)", clock, {}),
    (r"(mm_)?envelope_%s" % C, envelope, {}),
    (r"(mm_)?(lamp|lightbulb)(?P<a>\.active)?", lamp, {}),
    (r"robot_wheel(?P<a>\.active)?", wheel, {}),
    (r"spring(\.%s)?" % W, spring, {}),
    (r"speed_pill|bdx_sweet", boulder, {"material": "fire", "size": 4.5}),
    (r"shield_(normal|deadly)", clock, {"material": "glow"}),
    (r"sokoban_object|bdx_box", marked, {"text": "", "material": "wood", "light": 0.5}),
    (r"sokoban_field_empty", boulder, {"material": "red", "size": 3}),
    (r"sokoban_field_full", marked, {"text": "", "material": "gold", "light": 0.55}),
    (r"sign_(?P<t>\w+)", marked, {"text": "", "material": "gold"}),
    (r"unused_%s|bdx_unused_%s" % (N, N.replace("<n>", "<m>")), marked, {"text": "-", "material": "earth", "light": 0.2}),
    (r"\w*obsolete", marked, {"text": "OLD", "material": "earth", "light": 0.2}),
    (r"\w*unknown\w*", marked, {"text": "?", "material": "earth", "light": 0.2}),
    (r"(?P<t>prev|next)_ce_(?P<n>\d)", marked, {"text": "", "material": "violet"}),
)
MARKS = {"scanned": "'", "falling": "F", "flying": "F", "ticking": "T", "growing": "G", "breaking": "B", "exploding": "X"}

# Names that two drawings would share get their initials laid over.
PLAIN = {bricks, steel, grains, boulder, creature, bomb}
KNOWN_BY_SHAPE = {"wall", "steelwall", "sand", "rock", "bd_rock", "nut", "pearl", "bomb", "robot", "penguin", "pig", "dragon",
                  "sp_base", "sp_zonk", "bd_wall", "amoeba_wet", "wall_slippery"}
OF_CLASS = ("violet", "moss", "earth", "steel", "wood", "blue", "red", "glow")


def initials_of(name):
    words = [word for word in re.split(r"[_.]", re.sub(r"^(bdx|bd|sp|em|emc|dc|dx|mm|df)_", "", name)) if word]
    return "".join(word if word.isdigit() else word[0] for word in words).upper()[:3]


def cell_of(name, kind):
    """The drawn cell of an element, as rows of colour numbers."""
    cell = Cell()
    for pattern, painter, told in RULES:
        found = re.fullmatch(pattern, name)
        if not found:
            continue
        groups = {key: value for key, value in found.groupdict().items() if value is not None}
        painter(cell, groups, **told)
        if groups.get("s") in MARKS:
            cell.label(MARKS[groups["s"]] + groups.get("k", ""))
        elif painter in PLAIN and name not in KNOWN_BY_SHAPE and "w" not in groups:
            cell.label(initials_of(name)[:2])
        return cell.pixels()
    initials(cell, {"name": name}, OF_CLASS[sum(map(ord, kind)) % len(OF_CLASS)])
    return cell.pixels()
