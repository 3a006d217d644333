"""The two sheets of the example set: which animation lies where. Confs take their positions from here."""

import grotto_creatures as creature
import grotto_ground as ground
import grotto_items as item
from image_files import Sheet
from pixel_art import PALETTE

COLUMNS = ROWS = 16
WAYS = ("right", "up", "left", "down")
KEY_COLOURS = ("red", "gold", "green", "blue")
DOOR_GAPS = (0, 2, 4.5, 7.5, 10.4)


def frames(painter, count, *first, **named):
    """`count` frames of a painter that takes its step last."""
    return [lambda step=step: painter(*first, step, **named) for step in range(count)]


def swinging(painter, count, *first, **named):
    """The same for painters of a swing, which take how many frames it has."""
    return [lambda step=step: painter(*first, step, count, **named) for step in range(count)]


# Sheet: rows of (name of an animation, its frames), from the left.
TILES = [
    [("earth", [ground.earth]), ("earth_rim", [ground.crumbled_earth]), ("earth_dug", frames(ground.dug_earth, 4)),
     ("bricks", [ground.bricks]), ("boulders", [ground.boulders]), ("plate", [ground.steel_plate]),
     ("rune", [lambda glow=glow: ground.bricks(glow) for glow in (0.0, 0.33, 0.66, 1.0)])],
    [("gem_green", frames(item.gem, 8, "green")), ("gem_blue", frames(item.gem, 8, "blue"))],
    [("gem_red", frames(item.gem, 8, "red")), ("gem_gold", frames(item.gem, 8, "gold"))],
    [("gem_violet", frames(item.gem, 8, "violet")), ("pearl", frames(item.pearl, 4)),
     ("mushroom_red", frames(item.mushroom, 4, "red"))],
    [("rock", frames(item.rock, 4)), ("geode", frames(item.geode, 4)), ("bomb", frames(item.bomb, 4)),
     ("mushroom_violet", frames(item.mushroom, 4, "violet"))],
    [("dynamite", [item.dynamite]), ("dynamite_lit", frames(item.dynamite, 6)),
     ("hourglass", frames(item.hourglass, 4)),
     ("lamp", [lambda: item.lamp(False)]), ("lamp_lit", [lambda: item.lamp(True)])],
    [*[(f"key_{colour}", [lambda colour=colour: item.key(colour)]) for colour in KEY_COLOURS],
     *[(f"gate_{colour}", [lambda colour=colour: ground.gate(colour)]) for colour in KEY_COLOURS],
     ("gate_grey", [lambda: ground.gate("steel", False)])],
    [("door", [lambda gap=gap: ground.exit_door(gap) for gap in DOOR_GAPS]),
     ("door_open", [lambda pulse=pulse: ground.exit_door(DOOR_GAPS[-1], pulse) for pulse in (0.0, 0.33, 0.66, 1.0)])],
    [("acid", frames(ground.pool, 4, "green")), ("mud", [lambda step=step: ground.pool("earth", step, 4, True)
                                                          for step in range(4)]),
     ("splash_left", [lambda step=step: ground.splash(step, True) for step in range(4)]),
     ("splash_right", [lambda step=step: ground.splash(step, False) for step in range(4)])],
    [("blast", frames(item.blast, 8))],
]

CREATURES = [
    [("miner_down", frames(creature.miner_front, 4)), ("miner_up", frames(creature.miner_back, 4)),
     ("miner_left", frames(creature.miner_side, 4, "left")), ("miner_right", frames(creature.miner_side, 4, "right"))],
    [*[(f"miner_dig_{way}", [lambda way=way, arm=arm: creature.miner_side(way, 0, arm=arm) for arm in (1, 0.5, 0)])
       for way in ("left", "right")],
     *[(f"miner_push_{way}", frames(creature.miner_side, 2, way, lean=1.5)) for way in ("left", "right")],
     ("miner_idle", frames(creature.miner_idle, 6))],
    [(f"worm_{way}", swinging(creature.worm, 4, way)) for way in WAYS],
    [(f"moth_{way}", swinging(creature.moth, 4, way)) for way in WAYS],
    [("fuzz", swinging(creature.fuzz, 4)), ("spider", swinging(creature.spider, 4)),
     *[(f"mole_{way}", swinging(creature.mole, 4, way)) for way in ("left", "right")]],
    [*[(f"mole_{way}", swinging(creature.mole, 4, way)) for way in ("up", "down")],
     ("butterfly", swinging(creature.moth, 4, "up", wing="blue", spot="gold")),
     ("firefly", swinging(creature.firefly, 4, "up"))],
]

SHEETS = {"grotto_tiles": TILES, "grotto_creatures": CREATURES}


class Place:
    """Where an animation lies."""

    def __init__(self, sheet, column, row, count):
        self.sheet, self.column, self.row, self.count = sheet, column, row, count


def _places():
    found = {}
    for sheet, rows in SHEETS.items():
        for row, animations in enumerate(rows):
            column = 0
            for name, painters in animations:
                if name in found or column + len(painters) > COLUMNS:
                    raise ValueError(f"{name} stands twice or leaves its row")
                found[name] = Place(sheet, column, row, len(painters))
                column += len(painters)
    return found


PLACES = _places()


def draw(name):
    """A whole sheet, 16 by 16 tiles; the rest of it is empty."""
    sheet = Sheet(COLUMNS * 32, ROWS * 32, PALETTE)
    for row, animations in enumerate(SHEETS[name]):
        column = 0
        for _, painters in animations:
            for painter in painters:
                sheet.put(column, row, painter())
                column += 1
    return sheet
