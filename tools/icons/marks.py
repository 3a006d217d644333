"""Frames laid over a tile of a sheet: three sets of ten pictures, each a dashed line that runs round.

The line is two units wide, so its middle is 120 units long. A dash and its gap take 20 units and move
on by two from picture to picture: after ten the first fits on again, and every end lies on a whole unit.
"""

from .paint import flat, line, polygon, tone

SIZE = 32
PERIOD = 20
COLOURS = {"first": "emerald", "last": "ruby", "play": "amber"}


def _corner(role):
    """A small sign in the corner, for those who can't tell the colours apart."""
    if role == "first":
        return polygon((2, 2), (8, 2), (2, 8))
    if role == "last":
        return polygon((30, 30), (24, 30), (30, 24))
    return polygon((30, 2), (30, 8), (24, 2))


def mark(role, phase):
    """Picture `phase` (0 to 9) of the frame for the first tile, the last one, or the one where play begins."""
    colour = COLOURS[role]
    frame = "M1 1h30v30h-30z"
    offset = (PERIOD - 2 * phase) % PERIOD
    dashes = (f'<path fill="none" stroke="{tone(colour + "_pale")}" stroke-width="2" stroke-linecap="butt"'
              f' stroke-linejoin="miter" stroke-dasharray="12 8" stroke-dashoffset="{offset}" d="{frame}"/>')
    base = (f'<path fill="none" stroke="{tone(colour + "_deep")}" stroke-width="2"'
            f' stroke-linejoin="miter" d="{frame}"/>')
    sign = _corner(role)
    return base + dashes + flat(sign, colour) + line(sign, colour + "_deep", 1)
