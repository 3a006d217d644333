"""The one table of icons: file name, drawing routine, its arguments."""

from typing import NamedTuple

from . import file_commands as files
from . import game_commands as game
from . import about_pictures as about
from . import goto_capital, goto_digits, goto_small, marks, messages, places
from . import kinds
from . import text_commands as texts
from .shapes import folder, gem, pencil


class Icon(NamedTuple):
    """One file. `grid` is the units the routine draws on, `size` the side of the view box."""
    name: str
    draw: object
    arguments: tuple = ()
    grid: int = 16
    size: int = 24


KINDS = ("text", "graphics", "sound", "music", "level", "helptext", "helpanim", "editor")

FILE = (
    ("new", files.new), ("open", files.open_file), ("recent", files.recent), ("revert_to_saved", files.revert),
    ("insert_file", files.insert_file), ("project", files.project), ("save", files.save), ("save_as", files.save_as),
    ("open_tab", files.open_tab), ("close_tab", files.close_tab),
    ("reopen_closed_tab", files.reopen_closed_tab), ("close_all_tabs", files.close_all_tabs),
    ("options", files.options), ("exit", files.exit_window),
)
NEW = (
    ("graphics", kinds.file_of, "graphics"), ("sound", kinds.file_of, "sound"), ("music", kinds.file_of, "music"),
    ("levelinfo", kinds.file_of, "level"), ("helptext", kinds.file_of, "helptext"),
    ("helpanim", kinds.file_of, "helpanim"), ("editorsetup", kinds.file_of, "editor"), ("textfile", kinds.text_file),
)
EDIT = (
    ("undo", files.undo), ("redo", files.redo), ("cut", files.cut), ("cut_append", files.cut_append),
    ("copy", files.copy), ("paste", files.paste), ("delete", files.trash), ("select_line", texts.select_line),
    ("select_element_block", texts.select_block), ("select_between_comments", texts.select_between),
    ("select_all", texts.select_all), ("quick_element", texts.quick_element), ("edit_element", texts.edit_element),
    ("quick_preview", texts.quick_preview), ("edit_animation", texts.edit_animation),
    ("insert_comment_separator", texts.insert_separator), ("comment_selected", texts.comment_selected),
    ("uncomment_selected", texts.uncomment_selected), ("tidy_up", texts.tidy_up),
    ("toggle_comment", texts.toggle_comment),
)
FIND = (
    ("find", texts.find), ("find_next", texts.find_further, "down"), ("find_previous", texts.find_further, "up"),
    ("replace", texts.replace), ("goto_comment_separator", texts.goto_comment),
    ("goto_next_comment", texts.goto_further_comment, "down"),
    ("goto_previous_comment", texts.goto_further_comment, "up"), ("goto_line_number", texts.goto_line),
    ("goto_top", texts.goto_end, 0), ("goto_bottom", texts.goto_end, 180), ("goto_block", texts.goto_block),
    ("next_mark", texts.further_mark, "down"), ("previous_mark", texts.further_mark, "up"),
    ("list_of_marks", texts.marked_lines),
)
VIEW = (
    ("line_numbers", texts.line_numbers), ("spaces_tabs", texts.spaces_tabs),
    ("syntax_colours", texts.syntax_colours), ("super_tab", texts.super_tab), ("line_hints", texts.line_hints),
    ("thumbnails", texts.thumbnails),
)
GAME = (
    ("run_rnd", game.run_game), ("run_rnd_fast", game.run_fast), ("rnd_levman", game.level_manager),
    ("check_for_errors", game.check_errors), ("view_error_log", game.error_log), ("extract_rnd", game.extract),
    ("test_set_safely", game.test_set), ("check_with_game", game.check_with_game), ("game_words", game.game_words),
    ("games", game.games),
)
EXTRA = (
    ("game_structure_wizard", game.wand), ("make_level_palette", game.level_palette), ("make_headline", game.headline),
    ("pcx_lab", game.lab), ("avi_to_bitmap", game.film_sheet), ("basic", game.basic),
    ("record_macro", game.record_macro),
    ("help", game.help_sign), ("about", game.about),
)
LISTS = (
    ("media_base", game.pictures), ("media_extra", folder, "aqua"), ("media_rnd", gem, "aqua"),
    ("media_macros", game.macro_page), ("inject_path", texts.inject_path), ("play", game.play), ("stop", game.stop),
    ("pick_colour", game.wheel), ("pick_font", texts.font),
)
MACROS = (
    ("test_macro", game.test_macro), ("clear_output", texts.eraser), ("resource", files.package),
    ("resource_add", files.resource_add), ("resource_remove", files.resource_remove), ("step_mode", game.step),
    ("watch_mode", game.watch),
)
LEVELS = (
    ("scan_levels", game.scan), ("set_game", game.set_folder), ("play_game", game.set_folder, "play"),
    ("zip_game", files.archive), ("unzip_game", files.unpack), ("install_tapes", game.tape),
    ("view_contents", game.contents), ("map_view", game.map_view), ("zoom_in", game.zoom, "in"),
    ("zoom_out", game.zoom, "out"),
)
SHEETS = (
    ("new_element", texts.tile_element, "plus", "emerald"), ("update_element", texts.tile_element, "again", "sapphire"),
    ("load_image", game.load, "image"), ("save_image", game.image_with, "down", "sapphire"),
    ("convert_image", game.image_with, "again", "amethyst"), ("load_film", game.load, "film"),
    ("make_sheet", game.film_with, "right"),
)
ANSWERS = (
    ("ok", game.mark, "ok", "emerald"), ("cancel", game.mark, "cancel", "ruby"), ("back", game.page_arrow, 90),
    ("next", game.page_arrow, -90), ("rename", pencil, 1.4, 14.6, 1.55),
)
MESSAGES = (messages.information, messages.doubt, messages.failure, messages.missing, messages.tools,
            messages.selection, messages.painting, messages.happy, messages.lost_file, messages.game,
            messages.locked, messages.program)


def _commands():
    groups = (FILE, NEW, EDIT, FIND, VIEW, GAME, EXTRA, LISTS, MACROS, LEVELS, SHEETS, ANSWERS)
    return [Icon(name, draw, tuple(arguments)) for group in groups for name, draw, *arguments in group]


def _list(name, rows, **shape):
    """An image list: numbers from 01, each row a routine and its arguments."""
    return [Icon(f"{name}_{i:02d}", draw, tuple(arguments), **shape) for i, (draw, *arguments) in enumerate(rows, 1)]


def icons():
    """Every icon of the program."""
    rows = _commands()
    rows += _list("mode", [(kinds.sign, kind) for kind in KINDS + ("unknown",)])
    rows += _list("recent", [(kinds.any_file,)] + [(kinds.file_of, kind) for kind in KINDS[1:]])
    rows += _list("message", [(draw,) for draw in MESSAGES], grid=24)
    rows += _list("mark", [(marks.mark, role, phase) for role in marks.COLOURS for phase in range(10)],
                  grid=marks.SIZE, size=marks.SIZE)
    rows += _list("goto", [(goto_digits.plain,)] + [(goto_digits.digit, value) for value in range(10)]
                  + [(letters.motif, i) for letters in (goto_small, goto_capital) for i in range(26)])
    rows += _list("macro", [(game.macro_page,), (game.hot_macro,)])
    rows += _list("tree", [(places.game_folder,), (files.archive,), (places.chosen_game,)])
    rows += _list("zip", [(folder,), (places.packed_file,)])
    rows.append(Icon("app", places.program, grid=24))
    rows += [Icon(f"about_{draw.__name__}", draw, grid=48, size=96) for draw in (about.smith, about.letter, about.broken)]
    return rows
