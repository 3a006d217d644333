"""Colours and the few primitives every icon is made of.

A drawing is a text of SVG elements. Most drawings are made on a grid of 16 units with outlines one
unit wide on half units: one grid unit is a whole number of pixels at 16, 32 and 48 pixels, so edges
stay sharp there. Only paths and linear gradients are used, which every SVG Tiny renderer draws alike.
"""

import re

# name: (pale, middle, deep). The middle tones have contrast on white as well as on dark grey, so
# strokes use those; fills run from pale to middle and are held together by an outline in the deep tone.
GEMS = {
    "ruby": ("#ff9a9c", "#e8505b", "#b02a3a"),
    "amber": ("#ffd57e", "#efa02f", "#b36d14"),
    "emerald": ("#7fdcb0", "#2bb07a", "#167a54"),
    "aqua": ("#86e0ef", "#25aecb", "#127489"),
    "sapphire": ("#8fbcff", "#4484f2", "#2a5cc0"),
    "amethyst": ("#c6adff", "#946ae6", "#6540b4"),
    "rose": ("#ffaed6", "#e565a9", "#ab3a7b"),
    "bronze": ("#e2b68a", "#b97e4c", "#7f532d"),
    "slate": ("#c7d0de", "#8593ab", "#5c6981"),
    "steel": ("#8c9ab3", "#5f6d88", "#434f68"),
    "paper": ("#ffffff", "#dfe6f2", "#7f8da8"),
    "night": ("#4a5672", "#2f394f", "#7f8da8"),
}
PLAIN = {"white": "#ffffff", "ink": "#39445a", "none": "none"}


def tone(name):
    """The flat colour of `ruby` (middle), `ruby_pale`, `ruby_deep` or a plain colour's name."""
    if name in PLAIN:
        return PLAIN[name]
    gem, _, depth = name.partition("_")
    return GEMS[gem][{"pale": 0, "": 1, "deep": 2}[depth]]


def number(value):
    """A coordinate as short text."""
    return f"{value:.2f}".rstrip("0").rstrip(".") if value % 1 else str(int(value))


def solid(outline, gem, width=1, edge=None):
    """A body: gradient of the gem inside, its deep tone (or `edge`) round it."""
    return (f'<path fill="url(#{gem})" stroke="{tone(edge or gem + "_deep")}"'
            f' stroke-width="{number(width)}" d="{outline}"/>')


def flat(outline, colour, opacity=1):
    """A fill of one colour without outline."""
    clear = f' fill-opacity="{number(opacity)}"' if opacity != 1 else ""
    return f'<path fill="{tone(colour)}"{clear} d="{outline}"/>'


def shine(outline, gem):
    """A fill with the gem's gradient without outline."""
    return f'<path fill="url(#{gem})" d="{outline}"/>'


def line(track, colour, width=1.5, opacity=1):
    """A stroke with round ends."""
    clear = f' stroke-opacity="{number(opacity)}"' if opacity != 1 else ""
    return f'<path fill="none" stroke="{tone(colour)}" stroke-width="{number(width)}"{clear} d="{track}"/>'


def rect(x, y, width, height, radius=0):
    """Path data of a rectangle with round corners."""
    n, r = number, number(radius)
    if not radius:
        return f"M{n(x)} {n(y)}h{n(width)}v{n(height)}h{n(-width)}z"
    across, down = n(width - 2 * radius), n(height - 2 * radius)
    return (f"M{n(x + radius)} {n(y)}h{across}a{r} {r} 0 0 1 {r} {r}v{down}a{r} {r} 0 0 1 -{r} {r}"
            f"h-{across}a{r} {r} 0 0 1 -{r} -{r}v-{down}a{r} {r} 0 0 1 {r} -{r}z")


def circle(x, y, radius):
    """Path data of a circle."""
    r = number(radius)
    return (f"M{number(x - radius)} {number(y)}a{r} {r} 0 1 1 {number(2 * radius)} 0"
            f"a{r} {r} 0 1 1 {number(-2 * radius)} 0z")


def polygon(*points):
    """Path data of a closed polygon through (x, y) pairs."""
    return "M" + "L".join(f"{number(x)} {number(y)}" for x, y in points) + "z"


def moved(drawing, x=0, y=0, scale=1, turn=0):
    """A drawing turned about its origin, scaled, then moved."""
    steps = [f"translate({number(x)} {number(y)})"] if x or y else []
    steps += [f"rotate({number(turn)})"] if turn else []
    steps += [f"scale({number(scale)})"] if scale != 1 else []
    return f'<g transform="{" ".join(steps)}">{drawing}</g>' if steps else drawing


def turned(drawing, degrees, centre=8):
    """A drawing turned about the middle of the grid."""
    c = number(centre)
    return f'<g transform="rotate({number(degrees)} {c} {c})">{drawing}</g>' if degrees else drawing


def mirrored(drawing, grid=16):
    """A drawing seen in a mirror, left and right exchanged."""
    return f'<g transform="translate({number(grid)} 0) scale(-1 1)">{drawing}</g>'


def _gradient(gem):
    pale, middle, _ = GEMS[gem]
    return (f'<linearGradient id="{gem}" x1="0" y1="0" x2="0" y2="1">'
            f'<stop offset="0" stop-color="{pale}"/><stop offset="1" stop-color="{middle}"/></linearGradient>')


def document(drawing, grid, size):
    """The whole SVG text: a drawing made on `grid` units shown in a view box of `size` units."""
    used = sorted(set(re.findall(r"url\(#(\w+)\)", drawing)))
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny"'
             f' width="{size}" height="{size}" viewBox="0 0 {size} {size}">']
    if used:
        parts.append("<defs>" + "\n".join(_gradient(gem) for gem in used) + "</defs>")
    scale = f' transform="scale({number(size / grid)})"' if grid != size else ""
    parts.append(f'<g{scale} stroke-linecap="round" stroke-linejoin="round">')
    parts.append(drawing.replace("/><", "/>\n<"))
    parts.append("</g>\n</svg>\n")
    return "\n".join(parts)
