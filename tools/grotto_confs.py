"""The other six conf files of the example set."""

from conf_text import COLUMN, ConfText

INJECT_PATH = "/usr/share/games/rocksndiamonds/graphics/gfx_classic"


def levelinfo(levels):
    conf = ConfText()
    conf.note("Glowworm Grotto, the example set of Gemforge.")
    conf.line()
    for key, value in (("name", "Glowworm Grotto"), ("author", "The Gemforge authors"), ("year", 2025)):
        conf.entry(key, value)
    conf.separator("Levels", "1")
    for key, value in (("levels", levels), ("first_level", 1), ("sort_priority", 100), ("latest_engine", "true"),
                       ("level_group", "false"), ("readonly", "false"), ("handicap", "false")):
        conf.entry(key, value)
    conf.separator("Artwork", "P")
    for kind in ("graphics", "sounds", "music"):
        conf.entry(f"{kind}_set", f"grotto_{ {'graphics': 'gfx', 'sounds': 'sfx', 'music': 'mus'}[kind]}")
    conf.separator("Words of the main menu", "p")
    conf.entry("text.main.levels", "Caves")
    conf.entry("text.title.levels", "Caves of the grotto")
    return conf.text()


def soundsinfo():
    conf = ConfText()
    conf.header("grotto_sfx")
    conf.separator("Gems and keys", "d")
    conf.note("A class in brackets stands for all of its elements.")
    conf.entry("[emerald].collecting", "gem_chime.wav")
    conf.entry("[emerald].collecting.volume", 90)
    conf.entry("diamond.collecting", "gem_chime.wav")
    conf.entry("pearl.collecting", "gem_chime.wav")
    conf.entry("[key].collecting", "key_chime.wav")
    conf.entry("[key].collecting.priority", 5)
    conf.separator("Digging and falling", "r")
    conf.entry("sand.digging", "dig_scrape.wav")
    conf.entry("sand.digging.volume", 70)
    conf.entry("sand.digging.mode_loop", "false")
    conf.entry("rock.impact", "stone_thud.wav")
    conf.entry("rock.pushing", "dig_scrape.wav")
    conf.entry("nut.impact", "stone_thud.wav")
    conf.separator("Doors", "D")
    conf.entry("[exit].opening", "door_creak.wav")
    conf.entry("[gate].passing", "door_creak.wav")
    conf.line("#door_1.opening:                          door_creak.wav")
    conf.separator("Menu", "J")
    conf.entry("menu.item.activating", "stone_thud.wav")
    conf.entry("menu.item.selecting", "key_chime.wav")
    return conf.text()


def musicinfo(tune):
    conf = ConfText()
    conf.header("grotto_mus")
    conf.separator("Screens", "P")
    conf.entry("background.MAIN", "[NONE]")
    conf.entry("background.EDITOR", "[NONE]")
    conf.entry("background.INFO", tune)
    conf.separator("Levels", "n")
    conf.note("One tune for the first level; the others play it too.")
    conf.entry("background", tune)
    conf.entry("background.PLAYING.001", tune)
    conf.entry("background.PLAYING.001.mode_loop", "true")
    return conf.text()


def helptext():
    conf = ConfText()
    conf.note("What the info screen says of each element.")
    conf.separator("The miner and his way", "K")
    for key, value in (
            ("player_1", "THE MINER: He came for a lamp and stayed for the stones."),
            ("sand", "EARTH: Soft enough for a pick."),
            ("wall", "OLD WALL: Only a blast opens it."),
            ("wall_slippery", "ROUND WALL: Boulders roll off it."),
            ("magic_wall.active", "RUNE WALL: What falls in as a boulder comes out as a stone worth having."),
            ("lamp", "LANTERN: Touch it. The door waits for every light."),
            ("exit_open", "THE WAY OUT: It opens when you have enough.")):
        conf.entry(key, value)
    conf.separator("Stones", "d")
    for key, value in (
            ("emerald", "GREEN STONE: One towards the door."),
            ("diamond", "BLUE STONE: Counts for three."),
            ("nut", "GEODE: Drop a boulder on it."),
            ("rock", "BOULDER: It falls, it rolls, it can be pushed.")):
        conf.entry(key, value)
    conf.separator("Creatures", "y")
    for key, value in (
            ("bug", "GLOWWORM: Keeps to the wall on one side. Its light is lovely, its bite is not."),
            ("bd_butterfly", "MOTH: Keeps to the wall on the other side. Full of blue stones, they say."),
            ("yamyam", "FUZZ: Eats blue stones, and miners."),
            ("robot", "CLOCKWORK SPIDER: Somebody wound it up. It follows you.")):
        conf.entry(key, value)
    return conf.text()


def helpanim():
    conf = ConfText()
    conf.line("#!*" + INJECT_PATH.replace("/", "*"))
    conf.note("What the info screen shows: a line is a picture and how long it stays; end closes an element.")
    walk = [(f"player_1.moving.{way}", 16) for way in ("down", "up", "left", "right")]
    blocks = (
        ("The miner", "K", [walk + [("player_1.digging.right", 16), ("player_1.pushing.left", 16)]]),
        ("Ground and stones", "r", [[("sand", 50)], [("rock", 50), ("rock.moving.left", 16), ("rock.moving.right", 16)],
                                    [("nut", 100), ("nut.breaking", 9), ("emerald", 20)], [("emerald", -1)]]),
        ("Doors", "D", [[("exit_closed", 200), ("exit.opening", 30), ("exit_open", 100), ("exit.closing", 30)],
                        [("lamp", 50), ("lamp.active", 50)]]),
        ("Creatures", "y", [[(f"bug.moving.{way}", 8) for way in ("left", "up", "right", "down")], [("yamyam", -1)],
                            [("robot", -1)]]),
    )
    for title, icon, elements in blocks:
        conf.separator(title, icon)
        for pictures in elements:
            for key, delay in pictures:
                conf.entry(key, delay)
            conf.line("end")
    return conf.text()


# The editor's palette is four elements wide. Each row stands for itself, its note behind.
PALETTE_ROWS = (
    ("The word GROT as a heading", ["char_g", "char_r", "char_o", "char_t"]),
    ("The miner, and where he starts and ends", ["player_1", "exit_closed", "exit_open", "lamp"]),
    ("Ground", ["empty_space", "sand", "wall", "wall_slippery"]),
    ("Ground that does something", ["steelwall", "magic_wall", "acid", "quicksand_empty"]),
    ("Stones worth having", ["emerald", "diamond", "pearl", "nut"]),
    ("More of them", ["emerald_red", "emerald_yellow", "emerald_purple", "time_orb_full"]),
    ("What falls and what blows up", ["rock", "bomb", "dynamite", "dynamite.active"]),
    ("Keys", ["key_1", "key_2", "key_3", "key_4"]),
    ("Gates", ["gate_1", "gate_2", "gate_3", "gate_4"]),
    ("Glowworms, by the way they crawl first", ["bug.left", "bug.right", "bug.up", "bug.down"]),
    ("Moths", ["bd_butterfly.left", "bd_butterfly.right", "bd_butterfly.up", "bd_butterfly.down"]),
    ("Other creatures", ["yamyam", "robot", "mole", "bd_firefly.right"]),
    ("Elements of our own", ["custom_1", "custom_2", "char_space", "char_space"]),
)


def editorsetup():
    conf = ConfText()
    conf.note("The palette of the level editor, one element a line, four to a row.")
    conf.separator("Palette")
    for title, names in PALETTE_ROWS:
        for number, name in enumerate(names, 1):
            conf.line(f"{name:<{COLUMN - 1}}# {title}, {number} of {len(names)}")
    return conf.text()
