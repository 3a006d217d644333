"""Signs of comment separators: the plain one and the ten digits on coloured stones."""

from .paint import flat, line, rect, solid

DIGITS = (
    "M8 4.2c1.9 0 2.6 1.7 2.6 3.8s-.7 3.8-2.6 3.8-2.6-1.7-2.6-3.8.7-3.8 2.6-3.8z",
    "M6 5.8l2.3-1.6v7.6M6 11.8h4.6",
    "M5.5 6.2a2.5 2.5 0 1 1 4.6 1.5L5.5 11.8h5.2",
    "M5.5 4.2h5L7.7 7.2a2.4 2.4 0 1 1-2.4 3.4",
    "M9.4 11.8V4.2L5 9.7h6",
    "M10.4 4.2H6l-.4 3.6a2.5 2.5 0 1 1-.3 3.1",
    "M9.8 4.2C7.5 5 5.5 7 5.5 9.4a2.5 2.5 0 1 0 .7-1.7",
    "M5.4 4.2h5.2L7.4 11.8",
    "M8 7.8a1.8 1.8 0 1 1 0-3.6 1.8 1.8 0 0 1 0 3.6zM8 7.8a2 2 0 1 1 0 4 2 2 0 0 1 0-4z",
    "M6.2 11.8c2.3-.8 4.3-2.8 4.3-5.2a2.5 2.5 0 1 0-.7 1.7",
)
COLOURS = ("slate", "ruby", "amber", "emerald", "aqua", "sapphire", "amethyst", "rose", "bronze", "steel")


def plain():
    """A separator without a sign of its own."""
    return (solid("M3.5 1.5h9v12.6a.4.4 0 0 1-.7.3L8 11l-3.8 3.4a.4.4 0 0 1-.7-.3z", "slate")
            + flat(rect(5.5, 4, 5, 1.2, .5) + rect(5.5, 6.6, 5, 1.2, .5), "white"))


def digit(value):
    """A digit, 0 to 9, on a stone."""
    return solid(rect(1.5, 1.5, 13, 13, 3), COLOURS[value]) + line(DIGITS[value], "white", 1.7)
