"""The level of the example set, drawn with one letter a cell."""

from level_bytes import level

NAME, AUTHOR, TIME, NEEDED = "The first lantern", "The Gemforge authors", 300, 18

LETTERS = {
    "#": "steelwall", "W": "wall", "O": "wall_slippery", ".": "sand", " ": "empty_space", "o": "rock", "e": "emerald",
    "b": "diamond", "r": "emerald_red", "P": "player_1", "X": "exit_closed", "k": "key_1", "G": "gate_1", "n": "nut",
    "L": "lamp", "w": "bug_right", "m": "bd_butterfly_left", "y": "yamyam", "t": "time_orb_full", "M": "magic_wall",
    "1": "custom_1", "2": "custom_2", "d": "dynamite",
}
VALUES = {"e": 1, "r": 1, "b": 3}  # how far a stone counts towards the door
BARRED = "#WOonMXmwy12"  # where the miner cannot or should not walk

MAP = """
################################
#P...o...e..W...........W..o..e#
#......o....W..e.....o..W.....o#
#..e......o.W.....WWWWW.W..e...#
#.....L.....W..o..W   W....o...#
#..o........W.....W w W.....L..#
#.e...OOO...G..e..W b W..WWWW..#
#....O   O..W.....WW.WW..W  y..#
#....O m O..W.............W b  #
#....O b O..W..o.e....o..e.WW..#
#.o...O.O...W............o.....#
#..........oW....OOOOO.........#
#WWWWWW.WWWWW...O.n.n.O..e..o..#
#.k..o...e..W...O..e..O........#
#.......o...W....OO.OO....1.2..#
#..e.o....r.W.L.........e......#
#.o.........W......MMMM.....r..#
#..r..d..t..W..e.............X.#
################################
""".strip().split("\n")


def reachable(rows):
    """Cells the miner can walk to: through earth and stones, through the gate once he has the key."""
    start = next((x, y) for y, row in enumerate(rows) for x, cell in enumerate(row) if cell == "P")
    has_key = any("k" in row for row in rows)
    while True:
        seen, todo = {start}, [start]
        key_found = False
        while todo:
            x, y = todo.pop()
            key_found = key_found or rows[y][x] == "k"
            for i, j in ((x + 1, y), (x - 1, y), (x, y + 1), (x, y - 1)):
                cell = rows[j][i]
                if (i, j) not in seen and cell not in BARRED and (cell != "G" or has_key is None):
                    seen.add((i, j))
                    todo.append((i, j))
        if has_key is None or not key_found:
            return seen
        has_key = None  # from now on the gate lets him through


def check(rows):
    """A level that cannot be won is no example: enough stones, all lamps and the door must be within reach."""
    if len({len(row) for row in rows}) != 1:
        raise ValueError("the rows of the level differ in length")
    seen = reachable(rows)
    beside = {(x + i, y + j) for x, y in seen for i, j in ((1, 0), (-1, 0), (0, 1), (0, -1))}
    worth = sum(VALUES.get(rows[y][x], 0) for x, y in seen)
    for y, row in enumerate(rows):
        for x, cell in enumerate(row):
            if cell in "LX" and (x, y) not in seen | beside:
                raise ValueError(f"{LETTERS[cell]} at {x}, {y} is out of reach")
    if worth < NEEDED:
        raise ValueError(f"only {worth} of {NEEDED} stones are within reach")


def first_level(numbers):
    """Bytes of the level; `numbers` gives the number of an element's name."""
    check(MAP)
    cells = [numbers[LETTERS[cell]] for row in MAP for cell in row]
    return level(len(MAP[0]), len(MAP), cells, NAME, AUTHOR, TIME, NEEDED)
