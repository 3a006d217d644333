#!/usr/bin/env python3
"""check_tables.py DATA [CONF ...]: looks the ini tables in DATA over, and each conf file's words against them.

Prints a line for each finding and ends with 1 if there is one. A conf file's kind comes from its name. Its commented
entries count as entries, so that a default conf as the game prints it can be checked too.
"""

import re
import sys
from collections import Counter
from pathlib import Path

import ini_text
from vocabulary_tables import EDITED_COMMANDS

TABLES = "basic compat lg_gfxact lg_gfxele lg_other links user mapele levelheader".split()
KINDS = ("Elements", "Actions", "Coms", "Special")
WITH_GRAPHICS_WORDS = ("SFX", "HLT", "HLA", "EDI")  # these modes know the elements and actions of graphics
MODES = "GFX SFX MUS LVL HLT HLA EDI".split()  # in the order of ConfName1 to ConfName7


class Checker:
    def __init__(self, folder):
        self.findings = []
        self.tables = {name: ini_text.read(folder / f"{name}.ini") for name in TABLES}
        self.vocabulary = {**self.tables["lg_gfxele"], **self.tables["lg_gfxact"], **self.tables["lg_other"]}
        self.compat = dict(self.tables["compat"]["RND Compatibility"])

    def say(self, where, text):
        self.findings.append(f"{where}: {text}")

    def words(self, name):
        return [value for key, value in self.vocabulary.get(name, []) if key.isdigit() and value != ini_text.NO_WORDS]

    def check_doubles(self, where, words):
        for word, times in Counter(words).items():
            if times > 1:
                self.say(where, f"{word} stands {times} times")

    def check_lists(self):
        """Each section with a count: as many keys as it says, from 1 without a gap, no word twice or with a blank."""
        for table in ("lg_gfxele", "lg_gfxact", "lg_other", "basic"):
            for name, pairs in self.tables[table].items():
                where = f"{table}.ini [{name}]"
                key, count = pairs[0] if pairs else ("", "")
                if key.lower() != "count" or int(count) != len(pairs) - 1:
                    self.say(where, f"{key}={count} in front of {len(pairs) - 1} words")
                if [key for key, _ in pairs[1:]] != [str(number) for number in range(1, len(pairs))]:
                    self.say(where, "the numbers have gaps")
                self.check_doubles(where, [word for _, word in pairs[1:]])
                for _, word in pairs[1:]:
                    allowed = word == ini_text.NO_WORDS or table == "basic" or not re.search(r"[\s.:#=]", word)
                    if not word or word != word.strip() or not allowed:
                        self.say(where, f"no word: {word!r}")

    def check_order(self):
        if self.words("GraphicComs")[:len(EDITED_COMMANDS)] != EDITED_COMMANDS:
            self.say("lg_gfxact.ini [GraphicComs]", "the commands of the element window do not stand in front")
        if self.words("Actions")[:4] != ["left", "right", "up", "down"]:
            self.say("lg_gfxact.ini [Actions]", "the four directions do not stand in front")
        for table in TABLES:
            for name, pairs in self.tables[table].items():
                if table != "mapele":
                    self.check_doubles(f"{table}.ini [{name}]", [key.lower() for key, _ in pairs])
        for mode in ("SFX", "MUS", "LVL", "HLT", "HLA", "EDI", "TXT"):
            for kind in KINDS:
                inherits = mode in WITH_GRAPHICS_WORDS[1:] and kind in KINDS[:2]
                if not inherits and mode + kind not in self.vocabulary:
                    self.say("lg_other.ini", f"section {mode + kind} is missing")

    def check_map(self):
        """Line order is element order: readers take the names by their place."""
        pairs = self.tables["mapele"].get("MapElements", [])
        if not pairs or pairs[0] != ("Count", str(len(pairs) - 2)):
            self.say("mapele.ini", "the first line must be Count with the highest number")
        if [value for _, value in pairs[1:]] != [str(number) for number in range(len(pairs) - 1)]:
            self.say("mapele.ini", "the numbers do not run from 0 without a gap")
        elements = set(self.words("Elements"))
        for name, _ in pairs[1:]:
            if name not in elements and name.split(".")[0] not in elements and name.rpartition("_")[0] not in elements:
                self.say("mapele.ini", f"{name} is no element")

    def check_levels(self):
        for name, pairs in self.tables["levelheader"].items():
            values = dict(pairs)
            if name == "Compatibility":
                if len(values.get("Custom", "")) != 4 or len(values.get("Envelope", "")) != 3:
                    self.say("levelheader.ini", "Custom has four letters, Envelope three")
            else:
                offsets = [value for key, value in pairs if key not in ("Author", "Mapsize")]
                if len(values) != 9 or len(offsets) != 7 or not all(value.isdigit() for value in offsets):
                    self.say("levelheader.ini", f"{name} lacks an offset")

    def mode_of(self, path):
        for number, mode in enumerate(MODES, 1):
            if path.name.lower() == f"{self.compat[f'ConfName{number}']}.{self.compat['ConfigExtension']}":
                return mode
        return None

    def known_words(self, mode):
        """First parts and further parts that a conf of this mode may use."""
        lists = {kind: set(self.words(mode + kind)) for kind in KINDS}
        if mode == "GFX":
            sections = ("Elements", "Actions", "GraphicComs", "Special")
            lists = {kind: set(self.words(name)) for kind, name in zip(KINDS, sections)}
        elif mode in WITH_GRAPHICS_WORDS:
            lists["Elements"] |= set(self.words("Elements"))
            lists["Actions"] |= set(self.words("Actions"))
        return lists["Elements"], set().union(*lists.values())

    def check_conf(self, path):
        mode = self.mode_of(path)
        if mode is None:
            self.say(path, "no conf file by its name")
            return
        first_parts, all_parts = self.known_words(mode)
        unknown, keys = Counter(), 0
        for key in conf_keys(path, mode == "EDI"):
            first, *rest = key.split(".")
            keys += 1
            if first not in first_parts:
                unknown[f"{first} as an element"] += 1
            for part in rest:
                level_number = mode == "MUS" and re.fullmatch(r"\d{3}", part)
                if part not in all_parts and not level_number:
                    unknown[part] += 1
        for word, times in unknown.items():
            self.say(path, f"unknown: {word} ({times} times)")
        print(f"{path}: {keys} keys, {len(unknown)} unknown words")


def conf_keys(path, bare_names):
    """Keys of the entries of a conf file, commented ones too. `bare_names`: one name a line without a colon."""
    for line in path.read_bytes().decode("utf-8", "replace").splitlines():
        if line.startswith(("#!*", "#~")):
            continue
        entry = line[2:] if line.startswith("# ") else line[1:] if line.startswith("#") else line
        if bare_names and not line.startswith("#"):
            entry = entry.split("#")[0].strip() + ":"
        key, colon, _ = entry.partition(":")
        if colon and key and not re.search(r"\s", key) and key != "end":
            yield key


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    checker = Checker(Path(sys.argv[1]))
    for check in (checker.check_lists, checker.check_order, checker.check_map, checker.check_levels):
        check()
    for conf in sys.argv[2:]:
        checker.check_conf(Path(conf))
    print("\n".join(checker.findings) or "All is well.")
    sys.exit(1 if checker.findings else 0)


if __name__ == "__main__":
    main()
