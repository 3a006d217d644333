"""The words of Gemforge BASIC, read from the tables in src/macro: there each word stands once, with its use and help."""

import re
from collections import namedtuple
from pathlib import Path

Word = namedtuple("Word", "name usage help")
Family = namedtuple("Family", "title words")

ROOM = Path(__file__).resolve().parent.parent / "src" / "macro"

# A family's table, and its heading. Families that edit the text stand apart in the macro editor's list.
COMMANDS = {"BranchRows": "Conditions", "LoopRows": "Loops", "JumpRows": "Jumps and subs", "VariableRows": "Variables",
            "TextValueRows": "Pieces of texts", "RandomRows": "Random values and words", "ListRows": "The list",
            "GroupRows": "Groups", "DialogRows": "Dialogs", "ProgressRows": "Progress", "SetFileRows": "Files", "FileWorkRows": "Copying, moving, deleting",
            "DocumentFileRows": "The document and files", "ByteRows": "Bytes of files", "FileDialogRows": "Asking for files",
            "ArchiveRows": "Archives", "ProgramRows": "Programs",
            "WindowRows": "Windows of programs", "MouseAndKeyRows": "Mouse and keys", "SoundRows": "Sound", "RegistryRows": "Values kept between runs",
             "LevelFileRows": "Levels: files", "LevelPaintRows": "Levels: painting", "LevelReplaceRows": "Levels: replacing",
             "LevelShowRows": "Levels: showing"}
TEXT_COMMANDS = {"ScreenRows": "The text as a screen", "CursorRows": "Moving and selecting", "EditingRows": "Editing"}
TAGS = {"EditingTagRows": "Text and caret", "ResultRows": "Results", "PathRows": "Paths, documents, time",
        "ElementRows": "The element picked from a sheet",
        "WindowTagRows": "Windows and mouse", "LevelRows": "The open level"}
FUNCTIONS = {"FunctionRows": "Tags with arguments", "LevelFunctionRows": "The open level, with arguments"}

OPERATORS = "== <> << >> <= => = + - * /".split()
# Words that stand as arguments.
ARGUMENTS = ("on off clipclear clipbackup cliprestore popup pickall pickelement pickaction rand word uppr lowr name nums letr "
             "gfxelement gfxaction gfxcommand gfxspecial sfxelement sfxaction sfxcommand sfxspecial muselement musaction "
             "muscommand musspecial [numerical] [multiline] [exist]").split()

LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')


def rows(source, table):
    """The rows of a table: the texts that each holds, adjacent ones joined."""
    body = re.search(r"constexpr \w+ %s\[\] = \{\n(.*?)\n\};" % table, source, re.S)
    if not body:
        return None
    text = body.group(1)
    for name, value in re.findall(r'constexpr const char\* (\w+) = ("(?:[^"\\]|\\.)*")', source):
        text = re.sub(r"\b%s\b" % name, lambda _: value, text)
    text = re.sub(r'"\s*\n\s*"', "", text)  # one text over several lines
    found = []
    depth, start, inside = 0, 0, False
    for i, c in enumerate(text):
        if c == '"' and text[i - 1] != "\\":
            inside = not inside
        elif c == "{" and not inside:
            depth += 1
            start = i if depth == 1 else start
        elif c == "}" and not inside:
            depth -= 1
            if depth == 0:
                found.append([part.replace('\\"', '"').replace("\\\\", "\\")
                              for part in LITERAL.findall(text[start:i])])
    return found


def families(tables, make):
    sources = [path.read_text(encoding="utf-8") for path in sorted(ROOM.glob("*/*.cpp"))]
    found = []
    for table, title in tables.items():
        told = [rows(source, table) for source in sources]
        told = [one for one in told if one is not None]
        if len(told) != 1:
            raise SystemExit("%s stands in %d sources of src/macro" % (table, len(told)))
        found.append(Family(title, [make(*texts) for texts in told[0]]))
    return found


def commands():
    return families(COMMANDS, Word)


def text_commands():
    return families(TEXT_COMMANDS, Word)


def tags():
    return (families(TAGS, lambda name, told: Word("[%s]" % name, "[%s]" % name, told))
            + families(FUNCTIONS, lambda name, usage, told: Word("[%s:]" % name, usage, told)))


def names(of):
    return [word.name for family in of for word in family.words]
