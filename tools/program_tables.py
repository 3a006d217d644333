"""The tables that hold no word lists: the game's files and command lines, level layouts, and the user's settings."""

import basic_words
from ini_text import save, section

CONF_NAMES = "graphicsinfo soundsinfo musicinfo levelinfo helptext helpanim editorsetup".split()
PRINTED = "graphicsinfo soundsinfo musicinfo helptext helpanim editorsetup".split()

# Where the game's data may lie: beside the executable, then where packages for Linux put it.
GAME_FOLDERS = [".", "../share/games/rocksndiamonds", "../share/rocksndiamonds", "/usr/share/games/rocksndiamonds",
                "/usr/share/rocksndiamonds", "/usr/local/share/games/rocksndiamonds",
                "/usr/local/share/rocksndiamonds", "/opt/rocksndiamonds", "~/.local/share/games/rocksndiamonds",
                "~/.local/share/rocksndiamonds"]


def numbered(name, values):
    return [(f"{name}{number}", value) for number, value in enumerate(values, 1)]


def make_compat(out):
    save(out / "compat.ini", section("RND Compatibility", [
        "Conf files, in the order of the modes; lower case.",
        ("ConfigExtension", "conf"), *numbered("ConfName", CONF_NAMES),
        "What makes the game print a default conf. A word in double quotes is one argument, without its quotes.",
        "1 graphics, 2 sounds, 3 music, 4 help texts, 5 help animations, 6 editor setup.",
        *numbered("ComType", [f'-e "print {name}.conf"' for name in PRINTED]),
        "The game's data: the first of these folders that holds FileNameCheck5 counts. A path without \"/\" or \"~/\"",
        "in front is taken from the folder of the executable.",
        *numbered("GameFolder", GAME_FOLDERS),
        "Folders in the game's data.",
        ("DefDocsFolder", "docs"), ("DefGFXFolder", "graphics/gfx_classic"), ("DefSFXFolder", "sounds/snd_classic"),
        "The proof that a file is the game: 1 its usual name, 2 the argument it is run with, 3 the file that keeps",
        "what it printed, 4 a folder and 5 the levels folder in its data. One line of the output must be Banner, a",
        "blank and a version number; warnings may stand before it.",
        *numbered("FileNameCheck", ["rocksndiamonds", "--version", "proof.txt", "graphics", "levels"]),
        ("Banner", "Rocks'n'Diamonds"),
        "The player's own folder, and in it: 2 the settings with the last set played, 3 own level sets, 4 tapes.",
        *numbered("DefMyDocsRND", ["~/.rocksndiamonds", "levelsetup.conf", "levels", "tapes"]),
        "Endings of tile sheets. Where one is missing the game takes its twin of the other ending.",
        ("SheetKinds", "pcx,png"),
        "How a line of the game's output begins that is a message.",
        *numbered("MessageMark", ["[WARN]", "[ERROR]", "[FATAL]"]),
    ], ["What Gemforge knows of the game's files, folders and command line. Read only."]))


LAYOUT_FIELDS = "Width Height Time Count Cavename Double Author Mapsize Mapdata".split()
OLD_FORM = "ROCKSNDIAMONDS_LEVEL_FILE_VERSION_"
LAYOUTS = {
    OLD_FORM + "1.0": [38, 39, 40, 42, 44, 134, "NA", "NA", 150],
    OLD_FORM + "1.2": [46, 47, 48, 50, 52, 142, "NA", 164, 166],
    OLD_FORM + "1.2 AUTH": [46, 47, 48, 50, 52, 142, 166, 288, 290],
    OLD_FORM + "1.4": [46, 47, 48, 50, 52, 142, 166, 360, 362],
    "RND1": [36, 37, 38, 40, 42, 132, 156, 194, 196],
}
LAYOUT_REMARKS = {
    OLD_FORM + "1.0": ["One section a form, named as the file's leading text. Values count bytes from the file's",
                       "start; NA: the form has no such field. Mapsize is the low half of a 32-bit number."],
    OLD_FORM + "1.2 AUTH": ["The second layout under the same leading text: files with the chunk AUTH at 158."],
    OLD_FORM + "1.4": ["Mapsize counts cells here, not bytes."],
    "RND1": ["File version 2: chunks HEAD at 28, AUTH at 148, BODY at 188."],
}


def make_levelheader(out):
    save(out / "levelheader.ini",
         *[section(name, list(zip(LAYOUT_FIELDS, offsets)), LAYOUT_REMARKS.get(name, ()))
           for name, offsets in LAYOUTS.items()],
         section("Compatibility", [("Custom", "CUS4"), ("Envelope", "CNT"), ("Records", "ELEM,NOTE,CUSX,GRPX,EMPX")],
                 ["Names of the first chunk of a custom element file; Records: those of file version 3."]))


def make_basic(out):
    def words(name, listed, remark=()):
        return section(name, [("count", len(listed)), *enumerate(listed, 1)], remark)

    tags = [word if not word.endswith(":]") else word[:-1] for word in basic_words.names(basic_words.tags())]
    save(out / "basic.ini",
         words("macBASIC", basic_words.names(basic_words.commands()),
               ["Words of Gemforge BASIC for the macro editor's list and colours: commands, tags, operators, words that",
                "stand as arguments, commands on the text."]),
         words("macSTATIC", tags),
         words("macOP", basic_words.OPERATORS),
         words("macVARY", basic_words.ARGUMENTS),
         words("macTEXT", basic_words.names(basic_words.text_commands())))


def make_links(out):
    save(out / "links.ini", section("Links", [("Count", 0)], ["Nothing is linked, but the file must exist."]))


# The style "Default": colour and background as 0xBBGGRR, font style 0 normal, 1 bold, 2 italic, 3 both.
PAPER = 0xF4E8EA
SYNTAX = [
    ("Element", 0xB00000, PAPER, 0), ("Action", 0x005000, PAPER, 0), ("GFXCom", 0x000070, PAPER, 0),
    ("Special", 0x900090, PAPER, 0), ("Comment", 0x766516, 0xE6E4D5, 0), ("Operators", 0x606000, PAPER, 1),
    ("LineNumber", 0xF4E8EA, 0xAEAEAE, 0), ("Normal", 0x000000, PAPER, 0), ("Numbers", 0x757575, PAPER, 0),
]

# Its dark form.
NIGHT = 0x22201E
SYNTAX_DARK = [
    ("Element", 0xFFBD9D, NIGHT, 0), ("Action", 0x8CCB8C, NIGHT, 0), ("GFXCom", 0x8FA0F3, NIGHT, 0),
    ("Special", 0xECA0DD, NIGHT, 0), ("Comment", 0xCEC297, 0x332F26, 0), ("Operators", 0xC2C266, NIGHT, 1),
    ("LineNumber", 0xB4ACA8, 0x322E2B, 0), ("Normal", 0xE6E6E6, NIGHT, 0), ("Numbers", 0xC2BDB9, NIGHT, 0),
]

MISC = [
    ("1stTime", 1), ("MenuIcons", 1), ("Gradients", 1), ("ShowLineNumbers", 1), ("ShowSpaces", 0), ("LineHints", 1),
    ("Thumbnails", 0), ("UseColour", 1), ("SuperTab", 0), ("SpacerWidth", 43), ("UndoLimit", -1), ("LineCommentLineChar", "-"),
    ("LineCommentSearchChar", "~"), ("SortGotoList", 0), ("OpenSaveInLevelDir", 0), ("BackupOnSave", 1),
    ("DisableSoundLaunch", 0), ("QuickClose", 0), ("SafeSystemBASIC", 1), ("AskBeforeMacros", 1), ("RecentLimit", 50), ("ProjectLimit", 20),
    ("FindHistoryLimit", 30), ("ReplaceHistoryLimit", 30), ("RNDPath", ""),
    "The program that opens the image of a sheet. Empty: the one that the desktop has for it.",
    ("ImageEditor", ""),
    "Do panes tell their text to a screen reader? 0 while one runs, 1 always, 2 never.",
    ("ScreenReader", 0),
    "Colours of texts and windows: 0 as the desktop, 1 light, 2 dark.",
    ("ColourForm", 0),
]

# Tag, control, width in pixels, starts a row. Together they fill two rows of a window 1240 pixels wide.
BANDS = [("File", "tbFile", 360, True), ("Edit", "tbEdit", 620, False), ("Find", "tbFind", 500, True),
         ("View", "tbView", 140, False), ("RnD", "tbRnD", 190, False), ("Extra", "tbExtra", 230, False)]


def kind_keys(kinds):
    keys = []
    for kind, colour, back, style in kinds:
        # The style key of the line numbers is named unlike all others.
        style_key = "LineNumberBackStyle" if kind == "LineNumber" else kind + "Style"
        keys += [(kind + "Colour", colour), (kind + "BackColour", back), (style_key, style)]
    return keys


def make_user(out):
    colours = kind_keys(SYNTAX) + [
        ("WindowColour", PAPER), ("HighlightedLineColour", 0xD4D4D4), ("MainFont", "Courier New"),
        ("MainFontSize", 9.75), ("MediaListBackColour", PAPER), ("MediaListColour", 0),
        ("MediaListFontName", "MS Sans Serif"), ("MediaListFontSize", 8.25), ("MediaListFontBold", False),
        ("MediaListFontItalic", False)]
    dark = kind_keys(SYNTAX_DARK) + [("WindowColour", NIGHT), ("HighlightedLineColour", 0x36302C),
                                     ("MediaListBackColour", NIGHT), ("MediaListColour", 0xE6E6E6)]
    bands = [pair for number, (tag, control, width, row) in enumerate(BANDS, 1)
             for pair in ((f"T{number}", tag), (f"C{number}", control), (f"W{number}", width), (f"N{number}", row))]
    save(out / "user.ini",
         section("Misc", MISC, ["Settings of Gemforge. Flags are 0 or 1."]),
         section("QuickElementTemplate", [(number, 1) for number in range(10)],
                 ["Lines of a quick element: xpos, ypos, frames, delay, anim_mode, start_frame, name, global_sync,",
                  "offset, the three of EDITOR."]),
         section("AutoCompleteTemplate", [(number, 1) for number in range(4)],
                 ["Words of the code list: elements, actions, graphic commands, special words."]),
         section("Nags", [(number, 1) for number in range(5)],
                 ["Messages: document changed, save, image errors, text errors, file errors."]),
         section("Window Positions", [("Width", 1240), ("Height", 760), ("Left", 20), ("Top", 60), ("Max", 0)],
                 ["In pixels. Max: 0 normal, 1 minimised, 2 maximised."]),
         section("Coolbar Bands", bands,
                 ["A tool bar each: T its tag, C its control, W its width in pixels, N whether it starts a new row."]),
         section("Syntax Colours", colours,
                 ["Colours are decimal numbers: blue x 65536 + green x 256 + red.",
                  "Styles: 0 normal, 1 bold, 2 italic, 3 both."]),
         section("Syntax Colours Dark", dark, ["The same for a dark desktop; the fonts are those above."]),
         *[section(name, []) for name in ("Find History", "Replace History", "Recent", "Projects")])
