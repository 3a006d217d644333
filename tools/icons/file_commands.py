"""Commands on files, tabs and the clipboard."""

from .paint import circle, flat, line, mirrored, moved, rect, shine, solid
from .shapes import arrow, badge, disk, folder, open_folder, page, pencil, text


def new():
    return page() + text((4, 5, 4), (4, 7, 6), (4, 9, 3)) + badge("plus")


def open_file():
    return open_folder() + arrow("sapphire", 180, 11, 4.2, .6)


def recent():
    clock = circle(11, 11, 4)
    return (page(1, 1, 11, 13) + text((3, 5, 4), (3, 7, 4), (3, 9, 2))
            + solid(clock, "aqua") + line("M11 8.6V11l1.6 1.2", "white", 1.3))


def revert():
    return disk() + badge("back", "amber")


def insert_file():
    return page(4) + text((10, 6, 3), (6, 10, 7), (6, 12, 5)) + arrow("emerald", -90, 5.8, 7, .82)


def project():
    return open_folder("amethyst", moved(page(0, 0, 7, 9, 2), 3.5, .5) + moved(page(0, 0, 7, 9, 2), 6.8, 1.5))


def save():
    return disk()


def save_as():
    return disk() + pencil(7.6, 15.6, .92)


def tab_window():
    behind = "M8.5 5.5v-1a1 1 0 0 1 1-1h3a1 1 0 0 1 1 1v1z"
    front = "M1.5 5.5v-2a1 1 0 0 1 1-1h4a1 1 0 0 1 1 1v2h6a1 1 0 0 1 1 1v6a1 1 0 0 1-1 1h-11a1 1 0 0 1-1-1z"
    return (solid(behind, "slate") + solid(front, "paper") + shine(rect(3, 4, 3, 1.2, .5), "sapphire")
            + text((3, 7, 7), (3, 9, 9), (3, 11, 5)))


def open_tab():
    return tab_window() + badge("plus")


def reopen_closed_tab():
    return tab_window() + badge("up", "emerald")


def close_tab():
    return tab_window() + badge("cross", "ruby")


def close_all_tabs():
    return moved(tab_window(), 2.2, -1.2, .86) + moved(tab_window(), 0, 1.6, .86) + badge("cross", "ruby")


def options():
    rows = ((3.5, 10.5, "ruby"), (8, 5, "emerald"), (12.5, 9, "sapphire"))
    return "".join(line(f"M1.5 {y}h13", "slate", 1.6) + solid(circle(x, y, 2), colour) for y, x, colour in rows)


def undo():
    return (line("M3 6h6.3a3.7 3.7 0 0 1 0 7.4H5.5", "amber_deep", 2.8)
            + line("M6.5 2.3L2.8 6l3.7 3.7", "amber_deep", 2.8)
            + line("M3 6h6.3a3.7 3.7 0 0 1 0 7.4H5.5", "amber", 1.3)
            + line("M6.5 2.3L2.8 6l3.7 3.7", "amber", 1.3))


def redo():
    return mirrored(undo())


def scissors():
    return (line("M5.5 10L11.5 1.5", "slate_deep", 2.2)
            + line("M10.5 10L4.5 1.5", "slate_deep", 2.2)
            + line("M5.5 10L11.5 1.5M10.5 10L4.5 1.5", "slate_pale", .9)
            + line(circle(4.2, 12, 2) + circle(11.8, 12, 2), "ruby_deep", 2.2)
            + line(circle(4.2, 12, 2) + circle(11.8, 12, 2), "ruby", 1.1))


def cut():
    return scissors()


def cut_append():
    return moved(scissors(), -1.4, -.6, .94) + badge("plus")


def copy():
    return page(1, 0, 9, 12) + page(6, 4, 9, 12) + text((8, 8, 3), (8, 10, 5), (8, 12, 5))


def clipboard():
    return (solid(rect(1.5, 2.5, 11, 12, 1), "bronze") + solid(rect(4.5, .9, 5, 3, 1), "slate"))


def paste():
    return clipboard() + page(5, 5, 10, 11) + text((7, 9, 4), (7, 11, 6), (7, 13, 4))


def exit_window():
    return (solid(rect(1.5, 1.5, 8, 13, 1), "bronze") + flat(circle(7.4, 8, .9), "amber_pale")
            + arrow("emerald", -90, 11, 8, .72))


def trash():
    return (solid("M3.5 5.5h9l-.8 8.2a1 1 0 0 1-1 .8H5.3a1 1 0 0 1-1-.8z", "slate")
            + solid(rect(2.5, 3, 11, 2.5, .8), "slate") + line("M6.5 2.5v-1h3v1", "slate_deep", 1)
            + line("M6.5 7.5l.2 5M9.5 7.5l-.2 5", "slate_deep", 1))


def package(lid="bronze"):
    """A parcel: a file kept inside another file."""
    return (solid("M8 1L14.5 4v7.6L8 15 1.5 11.6V4z", lid)
            + flat("M8 7.2L14.5 4v7.6L8 15z", lid + "_deep", .35)
            + line("M1.5 4L8 7.2 14.5 4M8 7.2V15", lid + "_deep", 1)
            + line("M4.8 2.5l6.4 3.1v2.6", "amber_pale", 1.3))


def resource_add():
    return package() + badge("plus")


def resource_remove():
    return package() + badge("minus", "ruby")


def archive(colour="amber"):
    """A folder closed by a zip."""
    return (folder(colour)
            + flat(rect(7, 5.5, 1, 1) + rect(8, 6.5, 1, 1) + rect(7, 7.5, 1, 1) + rect(8, 8.5, 1, 1), "ink")
            + solid(rect(6.9, 9.6, 2.2, 2.8, .6), "slate"))


def unpack():
    """A zipped folder being opened."""
    return archive() + badge("up", "emerald")
