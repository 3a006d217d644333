#include "conf/element_blocks.h"

#include "conf/conf_lines.h"
#include "conf/sub_groups.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"

namespace {
constexpr int SelectReach = 50;
}

std::optional<int> FindMainLine(const LineReader& lines, int from, const MainLineSearch& search)
{
    const bool groupsCount = search.Groups == GroupRule::Count || NamesGroup(lines(from).value_or(QString()));
    for (int line = from; line >= qMax(0, from - search.Reach); --line) {
        const QString text = lines(line).value_or(QString());
        if (HasSheetName(text, search.Endings) && (groupsCount || !NamesGroup(text)))
            return line;
    }
    return std::nullopt;
}

int EndOfBlock(const LineReader& lines, int mainLine)
{
    const QString main = lines(mainLine).value_or(QString());
    const QString key = KeyOfLine(main);
    int line = mainLine + 1;
    if (key.isEmpty() || key.size() == main.size())
        return line;
    while (lines(line).value_or(QString()).startsWith(key))
        ++line;
    return line;
}

std::optional<LineSpan> BlockAtCaret(const DocumentText& pane)
{
    if (Frame.CurrentMode != ModeGfx)
        return {};
    const LineReader lines = LinesOf(pane);
    const std::optional<int> main =
        FindMainLine(lines, pane.CaretLine(), {Frame.Settings.SheetKinds, SelectReach, GroupRule::FromWithin});
    const int end = main ? EndOfBlock(lines, *main) : 0;
    return main && pane.CaretLine() < end ? std::optional(LineSpan{*main, end - 1}) : std::nullopt;
}

void SelectElementBlock()
{
    DocumentText& pane = CurrentPane();
    const LineReader lines = LinesOf(pane);
    pane.ExecuteCmd(CmdLineStart);
    const std::optional<int> main =
        FindMainLine(lines, pane.GetSel(true).StartLine, {Frame.Settings.SheetKinds, SelectReach});
    if (!main)
        return ShowNotice(QStringLiteral("No element block begins in the %1 lines above").arg(SelectReach));
    const int end = EndOfBlock(lines, *main);
    if (end >= pane.LineCount())
        pane.InsertLine(end, {});
    pane.SetSel({.StartLine = *main, .EndLine = end}, true);
}
