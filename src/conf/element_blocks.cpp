#include "conf/element_blocks.h"

#include "conf/conf_lines.h"
#include "frame/frame_state.h"

namespace {
constexpr int SelectReach = 50;
}

std::optional<int> FindMainLine(const DocumentText& pane, int caretLine, int reach)
{
    const int top = qMax(0, caretLine - reach);
    for (int line = caretLine; line >= top; --line)
        if (HasSheetName(pane.GetLine(line)))
            return line;
    return std::nullopt;
}

int EndOfBlock(const DocumentText& pane, int mainLine)
{
    const QString main = pane.GetLine(mainLine);
    const QString key = KeyOfLine(main);
    int line = mainLine + 1;
    if (key.isEmpty() || key.size() == main.size())
        return line;
    const int count = pane.LineCount();
    while (line < count && pane.GetLine(line).startsWith(key))
        ++line;
    return line;
}

void SelectElementBlock()
{
    DocumentText& pane = CurrentPane();
    pane.ExecuteCmd(CmdLineStart);
    const std::optional<int> main = FindMainLine(pane, pane.GetSel(true).StartLine, SelectReach);
    if (!main)
        return;
    const int end = EndOfBlock(pane, *main);
    if (end >= pane.LineCount())
        pane.InsertLine(end, {});
    pane.SetSel({.StartLine = *main, .EndLine = end}, true);
}
