#include "conf/edit_element.h"

#include "conf/block_fields.h"
#include "conf/conf_lines.h"
#include "conf/element_blocks.h"
#include "conf/inject.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"

namespace {

constexpr int EditReach = 100, EditedLinesBelowMain = 101;

bool EndsIn(const QString& key, const char* tail)
{
    return key.endsWith(QLatin1String(tail), Qt::CaseInsensitive);
}

/// First line behind the block: the first of two in a row that belong to no command, or the line behind the walk.
int EndOfCommands(const LineReader& lines, int mainLine, const QString& key)
{
    const QStringList& commands = Frame.WordLists.at(ModeGfx).at(KindGraphicComs);
    Conf.CommandPresent = QList<bool>(commands.size(), false);
    int missed = 0;
    int line = mainLine + 1;
    for (; line <= mainLine + EditedLinesBelowMain && missed < 2; ++line) {
        const int command = CommandOfLine(lines(line).value_or(QString()), key, commands);
        if (command >= 0)
            Conf.CommandPresent[command] = true;
        missed = command >= 0 ? 0 : missed + 1;
    }
    return line - missed;
}

} // namespace

void EditElement()
{
    DocumentText& pane = CurrentPane();
    const UndoGroup visit(pane); // from here on: undo brings the caret back too
    pane.ExecuteCmd(CmdLineStart);
    const auto mainLine = FindMainLine(pane, pane.GetSel(true).StartLine, EditReach);
    if (!mainLine)
        return;
    const QString main = CleanValue(pane.GetLine(*mainLine));
    if (!main.contains(QLatin1Char(':'))) {
        ShowMessage(message::ColonMissing);
        return;
    }
    const QString key = KeyOfLine(main);
    if (EndsIn(key, ".editor") || EndsIn(key, ".preview")) {
        ShowMessage(message::SubCommandRefused);
        return;
    }
    Conf.CrumbledBlock = EndsIn(key, ".crumbled");
    const int end = EndOfCommands(LinesOf(pane), *mainLine, key);
    if (end >= pane.LineCount())
        pane.InsertLine(pane.LineCount(), {});
    pane.SetSel({.StartLine = *mainLine, .EndLine = end}, true);
    Panes().txtBuffer().SetText(pane.SelText().trimmed());
    Tools().OpenTool(ToolWindow::Inject);
    Panes().FocusPane();
}
