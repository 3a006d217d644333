"""graphicsinfo.conf of the example set."""

from conf_text import ConfText
from grotto_sheets import KEY_COLOURS

WAYS = ("left", "right", "up", "down")


def graphicsinfo():
    conf = ConfText()
    conf.note("Glowworm Grotto: graphics of the example set.",
              "A sheet is 16 by 16 tiles of 32 by 32 pixels. xpos and ypos count tiles from 0.")
    conf.line()
    conf.header("grotto_gfx")
    ground(conf)
    gems(conf)
    stones(conf)
    doors(conf)
    lights(conf)
    creatures(conf)
    miner(conf)
    screens(conf)
    return conf.text()


def ground(conf):
    conf.separator("Ground", "l")
    conf.note("Earth crumbles where it meets the dark: CRUMBLED gives the gnawed rim, border_size its width.")
    conf.block("sand", "earth")
    conf.block("sand.CRUMBLED", "earth_rim", delay=1, anim_mode="loop", border_size=6)
    conf.block("sand.digging", "earth_dug", delay=3, anim_mode="linear")
    conf.line()
    conf.block("wall", "bricks")
    conf.block("wall_slippery", "boulders")
    conf.block("steelwall", "plate")
    conf.line()
    conf.note("The rune glows up and fades again; all of its cells in step.")
    conf.block("magic_wall", "rune", frames=1)
    conf.block("magic_wall.active", "rune", delay=6, anim_mode="pingpong", global_sync="true")
    conf.group("magic_wall.active", "EDITOR", "rune", first=2)
    conf.line()
    conf.block("acid", "acid", delay=8, global_sync="true")
    conf.block("quicksand_empty", "mud", delay=12)
    conf.note("Hidden earth looks and crumbles like the other once it is seen.")
    conf.block("invisible_sand.active", "earth", crumbled_like="sand", diggable_like="sand")
    conf.line()
    conf.note("Two of these keys reach beyond the column: their value follows the colon at once.")
    conf.group("expandable_steelwall_horizontal", "EDITOR", "plate")


def gems(conf):
    conf.separator("Gems", "d")
    conf.block("emerald", "gem_green", delay=5, anim_mode="loop", start_frame=0, name="Green stone",
               global_sync="false", offset=32)
    conf.group("emerald", "EDITOR", "gem_green", first=4)
    conf.line()
    conf.block("diamond", "gem_blue", delay=5, name="Blue stone")
    conf.block("emerald_red", "gem_red", delay=5, name="Red stone")
    conf.block("emerald_yellow", "gem_gold", delay=5, name="Golden stone")
    conf.block("emerald_purple", "gem_violet", delay=5, start_frame=3, name="Violet stone")
    conf.block("pearl", "pearl", delay=9, name="Pearl")
    conf.note("Falling stones turn the other way round, and faster.")
    conf.block("emerald.falling", "gem_green", delay=2, anim_mode="linear,reverse")
    conf.block("diamond.falling", "gem_blue", delay=2, anim_mode="reverse")


def stones(conf):
    conf.separator("Stones and blasts", "r")
    conf.block("rock", "rock", frames=1, name="Boulder")
    conf.block("rock.moving.left", "rock", delay=2, anim_mode="reverse")
    conf.block("rock.moving.right", "rock", delay=2, start_frame=1)
    conf.line()
    conf.block("nut", "geode", frames=1, name="Geode")
    conf.block("nut.breaking", "geode", first=1, delay=3, anim_mode="linear")
    conf.block("bomb", "bomb", delay=4, anim_mode="random")
    conf.block("dynamite", "dynamite")
    conf.block("dynamite.active", "dynamite_lit", delay=12, anim_mode="linear")
    conf.group("dynamite.active", "EDITOR", "dynamite_lit", first=2)
    conf.block("[default].exploding", "blast", delay=2, anim_mode="linear")


def doors(conf):
    conf.separator("Doors and keys", "D")
    conf.block("exit_closed", "door", frames=1, name="Way out")
    conf.block("exit.opening", "door", delay=6, anim_mode="linear")
    conf.block("exit.closing", "door", delay=6, anim_mode="linear,reverse")
    conf.block("exit_open", "door_open", delay=7, anim_mode="pingpong")
    conf.group("exit_open", "PREVIEW", "door_open", first=1)
    for number, colour in enumerate(KEY_COLOURS, 1):
        conf.line()
        conf.block(f"key_{number}", f"key_{colour}")
        conf.block(f"gate_{number}", f"gate_{colour}")


def lights(conf):
    conf.separator("Lamps and mushrooms", "m")
    conf.block("lamp", "lamp", name="Lantern")
    conf.block("lamp.active", "lamp_lit")
    conf.block("time_orb_full", "hourglass", delay=10, name="Hourglass")
    conf.line()
    conf.note("Two elements of our own. The second shows its still picture in the editor.")
    conf.block("custom_1", "mushroom_red", delay=10, anim_mode="pingpong", name="Red glowcap")
    conf.block("custom_2", "mushroom_violet", delay=10, anim_mode="pingpong2", name="Violet glowcap")
    conf.group("custom_2", "EDITOR", "mushroom_violet")
    conf.note("Put away until there is a level for it:")
    conf.line("#custom_3:                                grotto_tiles.pcx")
    conf.line("#custom_3.xpos:                           12")
    conf.line("#custom_3.ypos:                           3")


def creatures(conf):
    conf.separator("Glowworms", "s")
    conf.note("A worm winds to and fro while it crawls: four frames and back.")
    conf.block("bug", "worm_right", "png", delay=8, anim_mode="pingpong")
    for way in WAYS:
        conf.block(f"bug.{way}", f"worm_{way}", "png", frames=1)
    for way in WAYS:
        conf.block(f"bug.moving.{way}", f"worm_{way}", "png", delay=4, anim_mode="pingpong")
    conf.separator("Other creatures", "y")
    conf.block("bd_butterfly", "moth_up", "png", delay=3, anim_mode="pingpong", name="Moth")
    conf.block("bd_firefly", "firefly", "png", delay=2, anim_mode="pingpong2", name="Firefly")
    conf.line()
    conf.block("yamyam", "fuzz", "png", delay=4, anim_mode="pingpong2", name="Fuzz")
    conf.block("yamyam.moving", "fuzz", "png", delay=3, anim_mode="pingpong2")
    conf.block("robot", "spider", "png", delay=5, anim_mode="pingpong", name="Clockwork spider")
    conf.block("robot.moving", "spider", "png", delay=2, anim_mode="pingpong")


def miner(conf):
    conf.separator("The miner", "K")
    conf.block("player_1", "miner_down", "png", frames=1)
    for way in WAYS:
        conf.block(f"player_1.{way}", f"miner_{way}", "png", frames=1)
    for way in WAYS:
        conf.block(f"player_1.moving.{way}", f"miner_{way}", "png", start_frame=1, delay=4)
    conf.line()
    for way in WAYS[:2]:
        conf.block(f"player_1.digging.{way}", f"miner_dig_{way}", "png", delay=3, anim_mode="pingpong")
    conf.line()
    conf.note("Left alone he looks about: after a while, not always after the same while.")
    conf.block("player_1.boring[1]", "miner_idle", "png", delay=12, anim_mode="linear", anim_delay_fixed=72,
               anim_delay_random=0, post_delay_fixed=200, post_delay_random=400)


def screens(conf):
    conf.separator("Screens", "P")
    conf.entry("global.num_toons", 1)
    conf.block("toon_1", "worm_right", "png", delay=4, anim_mode="pingpong", direction="right", step_offset=2)
