#include "conf/element_blocks.h"

#include "conf/block_outline.h"
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
    LineReader lines = LinesOf(pane);
    if (pane.GetLine(pane.CaretLine()).startsWith(u'#'))
        lines = [plain = std::move(lines)](int line) {
            const std::optional<QString> text = plain(line);
            return text && text->startsWith(u'#') ? std::optional(text->mid(1)) : std::nullopt;
        };
    const auto block = BlockAround(lines, pane.CaretLine(), Frame.Settings.SheetKinds);
    return block ? std::optional(LineSpan{block->First, block->Last}) : std::nullopt;
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
