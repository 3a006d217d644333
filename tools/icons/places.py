"""Places of the program: trees of macros, levels and archives, and the program's own picture."""

from .kinds import level_map
from .paint import flat, line, moved, rect, shine, solid
from .shapes import folder, page, sparkle, text


def game_folder():
    """A level set as a folder."""
    return folder() + moved(level_map(), 4.6, 6.2, .5)


def chosen_game():
    """The level set the game opens with."""
    return folder("emerald") + line("M4.5 9.5l2.5 2.5 4.5-4.5", "white", 1.8)


def packed_file():
    """A file inside an archive."""
    return page() + text((4, 5, 4), (4, 7, 7), (4, 9, 7), (4, 11, 5))


def program():
    """A cut stone on an anvil, one spark flying; on a grid of 24 units."""
    anvil = ("M1.3 16.5h20.2a.8.8 0 0 1 .8.8v1.4a1 1 0 0 1-1 1h-3.2c-1.5 0-2.1.5-2.1 1.1l1.4.6a.6.6 0 0 1-.3 1.1H7.3"
             "a.6.6 0 0 1-.3-1.1l1.5-.6c0-.8-.7-1-1.7-1.2-3.2-.3-5.4-1.1-6.2-2.4a.5.5 0 0 1 .4-.7z")
    crown = "M7.2 1.5h9.6L20.5 6.8 12 17 3.5 6.8z"
    return (solid(anvil, "steel", .9) + flat(rect(3, 17.2, 18.2, .8, .4), "white", .35)
            + solid(crown, "sapphire", .9)
            + flat("M7.2 1.5L8.5 6.8h-5z", "white", .5) + flat("M7.2 1.5H12L8.5 6.8z", "white", .25)
            + shine("M12 1.5h4.8l-1.3 5.3z", "aqua") + flat("M12 1.5l3.5 5.3h-7z", "white", .38)
            + flat("M16.8 1.5l3.7 5.3h-5z", "amethyst") + flat("M15.5 6.8h5L12 17z", "amethyst", .9)
            + flat("M3.5 6.8h5L12 17z", "white", .18) + flat("M8.5 6.8h7L12 17z", "sapphire")
            + line("M3.5 6.8h17M7.2 1.5l1.3 5.3L12 1.5l3.5 5.3 1.3-5.3M8.5 6.8L12 17l3.5-10.2", "sapphire_deep", .5)
            + line(crown, "sapphire_deep", .9) + sparkle(20, 3, 3) + sparkle(3, 12.5, 1.7))
