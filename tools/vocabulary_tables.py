"""The game's words as tables: the four lists a mode, the animation modes and the names of a level's cells.

The facts are plain lists of the game's names. A name is cut at its dots: its first part is an element, each further
part belongs to the actions, the graphic commands or the special words.
"""

from ini_text import save, section, unique, word_list

# The window that edits an element has a box for each of these and relies on their order.
EDITED_COMMANDS = """xpos ypos frames delay anim_mode start_frame global_sync offset name crumbled_like diggable_like
    anim_delay_fixed anim_delay_random post_delay_fixed post_delay_random EDITOR PREVIEW CRUMBLED border_size""".split()

ANIM_MODES = """none loop linear pingpong pingpong2 random random_static ce_value ce_score ce_delay horizontal vertical
    centered all tiled level_nr default""".split()
ANIM_MODIFIERS = "reverse once opaque_player static_panel".split()

# A level map names these with an underscore in front of their direction, all other elements with the dot of the conf.
TURNING_ELEMENTS = "bug spaceship pacman mole bd_butterfly bd_firefly".split()


class Facts:
    """The lists of one folder, each file one name a line."""

    def __init__(self, folder):
        def names(file):
            return [line for line in (folder / file).read_text(encoding="utf-8").split("\n") if line]

        rows = [line.split("\t") for line in names("level-elements.tsv")[1:]]
        if [int(row[0]) for row in rows] != list(range(len(rows))):
            raise ValueError("level-elements.tsv: the numbers must run from 0 without a gap")
        self.level_elements = [row[1] for row in rows]
        self.runtime_elements = names("runtime-elements.txt")
        self.other_names = names("graphics-other-names.txt")
        self.directions = names("directions.txt")
        self.actions = names("actions.txt")
        self.screens = names("screens.txt")
        self.graphics_parameters = names("graphics-parameters.txt")
        self.other_parts = names("graphics-other-parts.txt")
        self.sounds_keys = names("sounds-keys.txt")
        self.sound_parameters = names("sound-parameters.txt")
        self.music_keys = names("music-keys.txt")
        self.music_parameters = names("music-parameters.txt")
        self.levelinfo_keys = names("levelinfo-keys.txt")


def first_part(name):
    return name.split(".")[0]


def inner_parts(names):
    return unique(part for name in names for part in name.split(".")[1:])


def graphics_lists(facts):
    """Elements, actions, graphic commands and special words of graphics, in this order."""
    names = facts.level_elements + facts.runtime_elements + facts.other_names
    elements = sorted({first_part(name) for name in names})
    actions = unique(facts.directions + facts.actions)
    commands = unique(EDITED_COMMANDS + facts.graphics_parameters)
    special = unique(facts.screens + facts.other_parts)
    known = set(actions) | set(commands) | set(special)
    special += [part for part in inner_parts(names) if part not in known]
    return elements, actions, commands, special


def own_lists(keys, parameters, elements, actions, screens):
    """What the keys of sounds or music hold beyond `elements` and `actions`.

    The last part of a key (parameters aside) is what happens, so it is an action; all others say where. Screens,
    numbered choices and switches of the game say where, too, wherever they stand.
    """
    own_elements = [name for name in unique(map(first_part, keys)) if name not in elements]
    own_actions, special = [], list(screens)
    for key in keys:
        parts = [part for part in key.split(".") if part not in parameters]
        for part in parts[1:]:
            says_where = part != parts[-1] or part[:1].isupper() or part.startswith("use_") or parts[0] == "background"
            if part not in actions:
                (special if says_where else own_actions).append(part)
    return own_elements, unique(own_actions), unique(special)


def make_vocabulary(facts, out):
    elements, actions, commands, special = graphics_lists(facts)
    save(out / "lg_gfxele.ini", word_list("Elements", elements, [
        "First parts of the keys of graphicsinfo.conf: elements of levels, elements that only appear in play, and the",
        "names of everything else that has a picture. Sorted."]))
    save(out / "lg_gfxact.ini",
         word_list("Actions", actions, ["Directions, the four of every creature in front, then what an element does."]),
         word_list("GraphicComs", commands,
                   ["The commands that an element block is edited by, in fixed order; then all others."]),
         word_list("Special", special, ["Screens, then the inner parts of keys that are no element of a level."]),
         word_list("AnimModes", ANIM_MODES, ["Values of anim_mode, to choose one from."]),
         word_list("AnimModifiers", ANIM_MODIFIERS, ["Added to a mode behind a comma, or standing for loop alone."]))

    sound = own_lists(facts.sounds_keys, facts.sound_parameters, set(elements), set(actions), facts.screens)
    music = own_lists(facts.music_keys, facts.music_parameters, set(), set(), facts.screens)
    level_elements = unique(map(first_part, facts.levelinfo_keys))
    modes = {
        "SFX": (sound[0], sound[1], facts.sound_parameters, sound[2]),
        "MUS": (music[0], music[1], facts.music_parameters, music[2]),
        "LVL": (level_elements, [], [], inner_parts(facts.levelinfo_keys)),
        "HLT": (None, None, [], []),
        "HLA": (None, None, [], ["end"]),
        "EDI": (None, None, [], []),
        "TXT": ([], [], [], []),
    }
    save(out / "lg_other.ini", *[
        word_list(mode + kind, words)
        for mode, lists in modes.items()
        for kind, words in zip(("Elements", "Actions", "Coms", "Special"), lists) if words is not None])

    save(out / "mapele.ini", section("MapElements", [("Count", len(facts.level_elements) - 1)] + [
        (map_name(name), number) for number, name in enumerate(facts.level_elements)]))


def map_name(name):
    return name.replace(".", "_") if first_part(name) in TURNING_ELEMENTS else name
