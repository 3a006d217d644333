#include "conf/comments.h"
#include "conf/element_blocks.h"
#include "conf/locate_image.h"
#include "conf/tidy_up.h"
#include "conf/write_block.h"
#include "windows/blocks/frm_comment.h"
#include "windows/blocks/frm_inject.h"
#include "windows/main/command_table.h"
#include "windows/parts/pane_commands.h"

#include <array>

std::span<const CommandRow> EditCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuUndo", "Undo", "Ctrl+Z", tbEdit, "undo", nullptr, NoFlags, RunOnPane<CmdUndo>},
        CommandRow{"mnuRedo", "Redo", "", tbEdit, "redo", nullptr, SeparatorBehind, RunOnPane<CmdRedo>, EveryMode,
                   EveryMode, nullptr, "Ctrl+Y; Ctrl+Shift+Z"},
        CommandRow{"mnuCut", "Cut", "Ctrl+X", tbEdit, "cut", nullptr, NoFlags, RunOnSelection<CmdCut>},
        CommandRow{"mnuCutAppend", "Cut Append", "", tbEdit, "cut_append", nullptr, NoFlags,
                   RunOnSelection<CmdCutAppend, CmdCut>},
        CommandRow{"mnuCopy", "Copy", "Ctrl+C", tbEdit, "copy", nullptr, NoFlags, RunOnSelection<CmdCopy>},
        CommandRow{"mnuPaste", "Paste", "Ctrl+V", tbEdit, "paste", nullptr, SeparatorBehind, RunOnPane<CmdPaste>},
        CommandRow{"mnuSelectLine", "Select Line", "Ctrl+L", tbEdit, "select_line", nullptr, NoFlags,
                   RunAndFocus<CmdSelectLine>},
        CommandRow{"mnuSelectEleBlock", "Select Element Block", "Ctrl+B", tbEdit, "select_element_block", nullptr,
                   NoFlags, SelectElementBlock, InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuSelectBetween", "Select Between Comments", "", tbEdit, "select_between_comments", nullptr,
                   NoFlags, SelectBetweenComments},
        CommandRow{"mnuSelectAll", "Select All", "Ctrl+A", tbEdit, "select_all", nullptr,
                   SeparatorBehind | EverywhereKey, RunAndFocus<CmdSelectAll>},
        CommandRow{"mnuFinishEle", "Quick Element", "Ctrl+Q", tbEdit, "quick_element", nullptr, NoFlags, QuickElement,
                   InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuEditEdCom", "Edit Element", "Ctrl+D", tbEdit, "edit_element", nullptr, NoFlags, EditElement,
                   InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuEDViewElement", "Quick Preview", "Ctrl+W", tbEdit, "quick_preview", nullptr, OpensMedia,
                   QuickPreview, InMode(ModeGfx) | InMode(ModeSfx) | InMode(ModeMus), InMode(ModeGfx)},
        CommandRow{"mnuEditAnimation", "Edit Animation", "Ctrl+E", tbEdit, "edit_animation", nullptr,
                   SeparatorBehind | OpensMedia, EditAnimation, InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuComment", "Insert A Comment Separator", "", tbEdit, "insert_comment_separator",
                   "Insert Comment Separator", NoFlags, InsertCommentCommand},
        CommandRow{"mnuCommentSel", "Comment Selected", "", tbEdit, "comment_selected", nullptr, NoFlags,
                   CommentSelected},
        CommandRow{"mnuUnCommentSel", "Uncomment Selected", "", tbEdit, "uncomment_selected", nullptr, NoFlags,
                   UncommentSelected},
        CommandRow{"mnuToggleComment", "Toggle Comment", "Ctrl+/", tbEdit, "toggle_comment", nullptr, NoFlags,
                   ToggleComment},
        CommandRow{"mnuTidyup", "Tidy Up", "Ctrl+T", tbEdit, "tidy_up", nullptr, NoFlags, TidyUp},
    };
    return Rows;
}
