#include "conf/comments.h"
#include "conf/document_hints.h"
#include "frame/host_ports.h"
#include "windows/main/command_table.h"
#include "windows/parts/pane_commands.h"

#include <array>

namespace {

constexpr quint8 ConfModes = EveryMode & ~InMode(ModeTxt);

} // namespace

std::span<const CommandRow> FindCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuFindFor", "Find", "Ctrl+F", tbFind, "find", nullptr, NoFlags, RunOnPane<CmdFindDialog>},
        CommandRow{"mnuFindNext", "Find Next", "F3", tbFind, "find_next", nullptr, NoFlags, SearchAgain<CmdFindNext>},
        CommandRow{"mnuFindPrevious", "Find Previous", "Shift+F3", tbFind, "find_previous", nullptr, SeparatorBehind,
                   SearchAgain<CmdFindPrevious>},
        CommandRow{"mnuFindReplace", "Replace", "Ctrl+R", tbFind, "replace", nullptr, SeparatorBehind | EverywhereKey,
                   RunOnPane<CmdReplaceDialog>},
        CommandRow{"mnuGotoComment", "Goto Comment", "", tbFind, "goto_comment_separator", "Goto Comment Separator",
                   NoFlags, [] { Tools().ShowList(ListKind::Comments); }},
        CommandRow{"mnuNextCom", "Goto Next Comment", "", tbFind, "goto_next_comment", nullptr, NoFlags,
                   [] { GotoComment(true); }},
        CommandRow{"mnuPreviousCom", "Goto Previous Comment", "", tbFind, "goto_previous_comment", nullptr,
                   SeparatorBehind, [] { GotoComment(false); }},
        CommandRow{"mnuFindGoto", "Goto Line Number", "Ctrl+G", tbFind, "goto_line_number", nullptr, NoFlags,
                   [] { CurrentPane().ExecuteCmd(CmdGotoLine, -1); }},
        CommandRow{"mnuFindGotoTop", "Goto Top", "", tbFind, "goto_top", nullptr, NoFlags, RunOnPane<CmdDocumentStart>},
        CommandRow{"mnuFindGotoBotton", "Goto Bottom", "", tbFind, "goto_bottom", nullptr, SeparatorBehind,
                   RunOnPane<CmdDocumentEnd>},
        CommandRow{"mnuGotoBlock", "Goto Block", "Ctrl+Shift+B", tbFind, "goto_block", nullptr, SeparatorBehind,
                   [] { Tools().ShowList(ListKind::Blocks); }},
        CommandRow{"mnuNextMark", "Next Mark", "F8", None, "next_mark", nullptr, EverywhereKey, [] { GotoMark(true); },
                   ConfModes, ConfModes},
        CommandRow{"mnuPreviousMark", "Previous Mark", "Shift+F8", None, "previous_mark", nullptr, EverywhereKey,
                   [] { GotoMark(false); }, ConfModes, ConfModes},
        CommandRow{"mnuMarks", "List Of Marks", "Ctrl+F8", None, "list_of_marks", nullptr, NoFlags,
                   [] { Tools().ShowList(ListKind::Marks); }, ConfModes, ConfModes},
    };
    return Rows;
}
