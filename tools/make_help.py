#!/usr/bin/env python3
"""Writes the help's word pages: one page for each folder of ids that F1 on a word can ask for.

    make_help.py FACTS OUT      FACTS: the folder of the game's word lists; OUT: the folder of the pages (help/)

A section explains one word or one family of words. Its heading holds an anchor for each of them, made as in
src/help/page_id.cpp. To explain a word better, change its line in help_words.py and run this again.
"""

import html
import pathlib
import re
import sys
from collections import OrderedDict

import basic_words
import help_words as words
import word_examples


def lines(facts, name):
    return [line for line in (facts / name).read_text(encoding="utf-8").splitlines() if line]


def anchor(word):
    plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_"
    safe = "".join(chr(b) if chr(b) in plain else "-%02x" % b for b in word.encode("utf-8"))
    return "w_" + safe


def code(text):
    return "<code>%s</code>" % html.escape(text)


class Page:
    """Collects sections. A word is anchored once, at the first section that names it."""

    def __init__(self, file, title):
        self.file, self.title = file, title
        self.parts, self.anchored = [], set()

    def chapter(self, title, text=""):
        self.parts.append("<h2>%s</h2>" % html.escape(title))
        if text:
            self.parts.append("<p>%s</p>" % text)

    def section(self, title, named, *texts, kept_for_others=()):
        new = [w for w in OrderedDict.fromkeys(named) if w not in self.anchored and w not in kept_for_others]
        if not new:
            return
        self.anchored.update(new)
        marks = "".join('<a name="%s"></a>' % anchor(w) for w in new)
        self.parts.append("<h3>%s%s</h3>" % (marks, html.escape(title)))
        self.parts.extend("<p>%s</p>" % text for text in texts if text)

    def example(self, of):
        self.parts.extend(word_examples.shown(of))

    def write(self, out):
        head = ('<!DOCTYPE html>\n<html lang="en">\n<head><meta charset="utf-8"><title>%s</title></head>\n<body>\n'
                "<h1>%s</h1>\n" % (self.title, self.title))
        (out / self.file).write_text(head + "\n".join(self.parts) + "\n</body>\n</html>\n", encoding="utf-8")


def family(word):
    """The word with its number as "#": page[7] is page, TITLE_3 is TITLE_#. None without a number."""
    bracket = re.fullmatch(r"(.+)\[\d+\]", word)
    if bracket:
        return bracket.group(1)
    number = re.fullmatch(r"(.+_)\d+", word)
    return number.group(1) + "#" if number else None


def explained(page, listed, texts, parameter=False):
    """Sections for a list of words, those of one family together. Every word must have its text."""
    groups = OrderedDict()
    for word in listed:
        name = word if word in texts else family(word)
        if name not in texts:
            sys.exit("%s: no explanation in help_words.py" % word)
        groups.setdefault(name, []).append(word)
    for name, members in groups.items():
        title = name if len(members) == 1 or "#" not in name else "%s to %s" % (members[0], members[-1])
        named = members + ([name] if "#" not in name else [name[:-2]])
        example = code("KEY.%s:" % name) + " " if parameter else ""
        page.section(title, named, example + html.escape(texts[name]))


class Elements:
    """All elements by the part of their name that F1 finds: what stands before the first dot."""

    def __init__(self, facts):
        self.rows = OrderedDict()   # first part: list of (full name, number or None, class)
        for line in lines(facts, "level-elements.tsv")[1:]:
            number, name, kind = line.split("\t")
            self.rows.setdefault(name.split(".")[0], []).append((name, int(number), kind))
        for name in lines(facts, "runtime-elements.txt"):
            if "." not in name or not name.startswith("["):
                self.rows.setdefault(name.split(".")[0], []).append((name, None, None))

    def groups(self):
        """(title, first parts), families of four or more numbered names and the classes with many names together."""
        found = OrderedDict()
        for first, rows in self.rows.items():
            kind = rows[0][2]
            if kind in ("char", "steel_char", "custom", "group"):
                name = kind
            else:
                name = family(first) or first
            found.setdefault(name, []).append(first)
        for name, members in found.items():
            if "#" in name and len(members) < 4:
                for first in members:
                    yield first, [first]
            elif len(members) > 1:
                yield "%s to %s" % (members[0], members[-1]), members
            else:
                yield members[0], members

    def text(self, members):
        rows = [row for first in members for row in self.rows[first]]
        numbered = [row for row in rows if row[1] is not None]
        kind = numbered[0][2] if numbered else None
        said = []
        if not numbered:
            said.append(words.DEFAULTS if members[0].startswith("[") else words.RUNTIME)
        elif len(members) > 1:
            numbers = sorted(row[1] for row in numbered)
            dense = numbers[-1] - numbers[0] + 1 == len(numbers)
            span = "%d to %d" % (numbers[0], numbers[-1])
            said.append("Elements %s, class %s." % (span if dense else "between %d and %d" % (numbers[0], numbers[-1]),
                                                    code(kind)))
        else:
            own = [row for row in numbered if row[0] == members[0]]
            if own:
                listed = ", ".join(str(row[1]) for row in own)
                said.append("Element %s, class %s." % (listed, code(kind)))
            else:
                said.append("Class %s." % code(kind))
        said.append(html.escape(words.CLASSES.get(kind, "")))
        said.extend(html.escape(text) for start, text in words.FAMILIES if members[0].startswith(start))
        if len(members) == 1:
            forms = ["%s%s" % (code(name), " (%d)" % number if number is not None else "")
                     for name, number, _ in rows if name != members[0]]
            if forms:
                said.append("Further forms: %s." % ", ".join(forms))
        return " ".join(part for part in said if part)

    def names(self, members):
        """What F1 makes of these words: custom_, char_ and group_ come without what follows."""
        short = {"custom": "custom", "char": "char", "group": "group"}
        starts = [short[s] for s in short if members[0].startswith(s + "_")]
        return starts + members + [member.strip("[]") for member in members]


def add_elements(page, elements, more=None):
    page.chapter("Elements", "The number is the one that level files hold.")
    for title, members in sorted(elements.groups(), key=lambda group: group[0]):
        page.section(title, elements.names(members), elements.text(members), more(members) if more else "")


def add_actions(page, facts):
    page.chapter("Actions", "What an element is doing: the part of a key behind its name, as in %s."
                 % code("yamyam.moving"))
    explained(page, lines(facts, "actions.txt"), words.ACTIONS)


def add_directions(page, facts):
    page.chapter("Directions", "Behind the action, or behind the element where it has none: %s."
                 % code("yamyam.moving.left"))
    explained(page, lines(facts, "directions.txt"), words.DIRECTIONS)


def add_screens(page, facts, example):
    page.chapter("Screens", "In capitals, in front of the parameter: %s." % code(example))
    explained(page, lines(facts, "screens.txt"), words.SCREENS)


def graphics(facts, elements):
    page = Page("words_graphics_info.html", "Words of graphicsinfo.conf")
    page.parts.append('<p>A key is put together from element, action, direction, screen and parameter, with dots between: '
                      '%s. See <a href="conf_files.html">The conf files</a>.</p>' % code("yamyam.moving.left.xpos:"))
    page.chapter("Parameters", "The last part of a key. A line without parameter names the sheet, and puts all parameters "
                 "of its key back to their defaults.")
    explained(page, lines(facts, "graphics-parameters.txt"), words.GRAPHICS_PARAMETERS, parameter=True)
    page.chapter("Animation modes", "Values of %s." % code("anim_mode"))
    for name, text in words.ANIM_MODES.items():
        page.section(name, [name], html.escape(text))
    page.chapter("Values")
    for name, text in words.VALUES.items():
        if "#" not in name:
            page.section(name, [name, name.strip("[]")], html.escape(text))
    add_actions(page, facts)
    add_directions(page, facts)
    add_screens(page, facts, "yamyam.EDITOR.xpos:")

    page.chapter("Names that are no elements", "First parts of keys for everything around the level.")
    left = lines(facts, "graphics-other-names.txt")
    for pattern, text in words.OTHER_NAMES:
        named = [w for w in left if re.fullmatch(pattern, w) and w not in page.anchored]
        left = [w for w in left if w not in named and w not in page.anchored]
        if named:
            bare = [w.strip("[]") for w in named]
            page.section(named[0] if len(named) == 1 else "%s to %s" % (named[0], named[-1]), named + bare,
                         html.escape(text))
    if left:
        sys.exit("no explanation in help_words.py: %s" % ", ".join(left))

    page.chapter("Inner parts", "They stand between the first part of a key and its parameter, as %s does in %s."
                 % (code("panel"), code("game.panel.gems.x:")))
    left = lines(facts, "graphics-other-parts.txt")
    for title, text, pattern in words.INNER_PARTS:
        named = [w for w in left if re.fullmatch(pattern, w) and w not in page.anchored]
        left = [w for w in left if w not in named]
        if named:
            page.section(title, named, html.escape(text), " ".join(code(w) for w in named),
                         kept_for_others=elements.rows)
    add_elements(page, elements)
    return page


def keys_by_name(facts, name):
    """The default keys of sounds by their first part, brackets taken off."""
    found = OrderedDict()
    for key in lines(facts, name):
        found.setdefault(key.split(".")[0].strip("[]"), []).append(key)
    return found


def sounds(facts, elements):
    page = Page("words_sounds_info.html", "Words of soundsinfo.conf")
    page.parts.append("<p>A key is a name, an action and sometimes a screen: %s. The name is an element or a class in "
                      "brackets, which stands for all its elements: %s. The value is a sound file of the set's folder "
                      "%s.</p>" % (code("yamyam.moving:"), code("[exit].opening:"), code("sounds")))
    by_name = keys_by_name(facts, "sounds-keys.txt")
    page.chapter("Parameters")
    explained(page, lines(facts, "sound-parameters.txt"), words.SOUND_PARAMETERS, parameter=True)
    for name in ("name", "sort_priority"):
        page.section(name, [name], html.escape(words.GRAPHICS_PARAMETERS[name]))
    page.chapter("Values")
    for name, text in words.VALUES.items():
        named = ["RANDOM_%d" % i for i in range(1, 9)] if "#" in name else [name, name.strip("[]")]
        page.section(name.replace("#", "1 to RANDOM_8"), named, html.escape(text))
    add_actions(page, facts)
    for name, text in words.SOUND_ACTIONS.items():
        numbered = [w for keys in by_name.values() for k in keys for w in k.split(".") if w.startswith(name + "_")
                    and w[len(name) + 1:].isdigit()]
        page.section(name, [name] + numbered, html.escape(text))
    add_directions(page, facts)
    add_screens(page, facts, "yamyam.moving.EDITOR:")

    def own_keys(names):
        keys = [k for n in names for k in by_name.get(n, [])]
        return "Sounds of the game: %s." % ", ".join(code(k) for k in keys) if keys else ""

    known = {first for _, members in elements.groups() for first in members}
    page.chapter("Classes and names that are no elements", "A class in brackets stands for all elements of that class.")
    for name in by_name:
        if name not in known and name not in ("name", "sort_priority"):
            page.section(name, [name, "[%s]" % name], html.escape(words.CLASSES.get(name, "")), own_keys([name]))
    page.section("menu", ["menu", "item"], "Sounds of the menus.")
    add_elements(page, elements, own_keys)
    return page


def music(facts):
    page = Page("words_music_info.html", "Words of musicinfo.conf")
    page.parts.append("<p>A key is %s, a screen and, for levels, the level's number with three digits: %s and %s. The value "
                      "is a file of the set's folder %s: a module or a recording. Files that no line names are played in the "
                      "order of their names.</p>" % (code("background"), code("background.MAIN:"),
                                                     code("background.PLAYING.000:"), code("music")))
    page.chapter("Parts of keys")
    page.section("background", ["background"], "The music behind a screen. Alone it serves every screen that has none of "
                 "its own.")
    explained(page, lines(facts, "music-parameters.txt"), words.SOUND_PARAMETERS, parameter=True)
    for name in ("name", "sort_priority"):
        page.section(name, [name], html.escape(words.GRAPHICS_PARAMETERS[name]))
    parts = [part for key in lines(facts, "music-keys.txt") for part in key.split(".")]
    for start, text in (("titlescreen", "A picture shown as title screen; initial: at the start of the game."),
                        ("titlemessage", "A text shown as title screen; initial: at the start of the game.")):
        named = [w for w in parts if w.startswith(start)]
        page.section("%s to %s" % (named[0], named[-1]), named, text)
    inner = [w for w in parts if w.startswith("INFO[")]
    page.section("Info screens", inner + [w[5:-1] for w in inner], "One of the info screens.",
                 " ".join(code(w) for w in inner))
    add_screens(page, facts, "background.MAIN:")
    page.chapter("Values")
    for name, text in words.VALUES.items():
        if "#" not in name:
            page.section(name, [name, name.strip("[]")], html.escape(text))
    return page


def level(facts):
    page = Page("words_level_info.html", "Words of levelinfo.conf")
    page.parts.append("<p>Every level set needs this file: without it the game does not see the folder. A line is a key and "
                      "a value: %s. Keys that the game does not know are passed over without a word, so mind the "
                      "spelling.</p>" % code("levels: 20"))
    page.chapter("Keys")
    groups = OrderedDict()
    for key in lines(facts, "levelinfo-keys.txt"):
        groups.setdefault(key.split(".")[0], []).append(key)
    for name, keys in groups.items():
        if name not in words.LEVEL_KEYS:
            sys.exit("%s: no explanation in help_words.py" % name)
        inner = [part for key in keys for part in key.split(".")[1:] if part not in groups]
        more = "Keys: %s." % ", ".join(code(k) for k in keys) if len(keys) > 1 else ""
        page.section(name, [name] + keys + inner, html.escape(words.LEVEL_KEYS[name]), more)
    page.chapter("Values")
    for name in ("true", "false"):
        page.section(name, [name], html.escape(words.VALUES[name]))
    return page


def others(facts, elements):
    page = Page("words_other_infos.html", "Words of helptext, helpanim and editorsetup")
    page.parts.append("<p>These three files use the names of elements and actions. <code>helptext.conf</code> and "
                      "<code>helpanim.conf</code> belong to the screen of the game that explains the elements; "
                      "<code>editorsetup.conf</code> to its level editor.</p>")
    page.chapter("The files")
    page.section("helptext.conf", ["helptext"], "A line for each element, or element and action: the name, a colon and the "
                 "text to show.")
    page.section("helpanim.conf", ["helpanim"], "What is shown beside a text: lines with the graphics one after the other, "
                 "each with the time it is shown. A line <code>end</code> closes the block.")
    page.section("editorsetup.conf", ["editorsetup"], "One name of an element a line, without a colon: the elements that the "
                 "level editor offers, in that order.")
    page.section("end", ["end"], "Alone on a line of helpanim.conf: the block of an element ends here.")
    add_actions(page, facts)
    add_directions(page, facts)
    add_elements(page, elements)
    return page


def basic():
    page = Page("words_gemforge_basic.html", "Words of Gemforge BASIC")
    page.parts.append("<p>%s</p>" % words.BASIC_LINES)
    for title, texts in words.BASIC_RULES.items():
        page.section(title, [title.lower().replace(" ", "_")], *texts)
    examples = word_examples.examples()
    for family in basic_words.commands() + basic_words.text_commands():
        page.chapter(family.title)
        for word in family.words:
            page.section(word.name, [word.name], code(("%s %s" % (word.name, word.usage)).strip()),
                         html.escape(word.help))
            page.example(examples[word.name])
    for family in basic_words.tags():
        page.chapter(family.title)
        for word in family.words:
            plain = word.name.strip("[:]")
            page.section(word.name, [word.name, plain], code(word.usage), html.escape(word.help))
            page.example(examples[word.name])
    page.chapter("Arguments", "Words that stand as arguments: %s." % ", ".join(code(w) for w in basic_words.ARGUMENTS))
    return page


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    facts, out = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    elements = Elements(facts)
    for page in (graphics(facts, elements), sounds(facts, elements), music(facts), level(facts), others(facts, elements),
                 basic()):
        page.write(out)


if __name__ == "__main__":
    main()
