#include "conf/edit_element.h"

#include "conf/conf_lines.h"
#include "conf/element_blocks.h"
#include "conf/sub_groups.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"

namespace {

constexpr int EditReach = 100, EditedLinesBelowMain = 101;

struct CommandLines
{
    QList<bool> Present; ///< by entry of the commands
    int End = 0; ///< first line after the block: the first of two in a row that belong to no command, or of the walk
};

CommandLines FindCommands(const LineReader& lines, int mainLine, const QString& key, const QStringList& commands)
{
    CommandLines found{QList<bool>(commands.size(), false)};
    int missed = 0;
    int line = mainLine + 1;
    for (; line <= mainLine + EditedLinesBelowMain && missed < 2; ++line) {
        const int command = CommandOfLine(lines(line).value_or(QString()), key, commands);
        if (command >= 0)
            found.Present[command] = true;
        missed = command >= 0 ? 0 : missed + 1;
    }
    found.End = line - missed;
    return found;
}

} // namespace

std::optional<InjectRequest> SelectBlockToEdit(DocumentText& pane)
{
    const LineReader lines = LinesOf(pane);
    pane.ExecuteCmd(CmdLineStart);
    const auto mainLine = FindMainLine(lines, pane.GetSel(true).StartLine, {Frame.Settings.SheetKinds, EditReach});
    if (!mainLine) {
        ShowNotice(QStringLiteral("No element block begins in the %1 lines above").arg(EditReach));
        return std::nullopt;
    }
    const QString main = CleanValue(pane.GetLine(*mainLine));
    if (!main.contains(QLatin1Char(':'))) {
        ShowMessage(message::ColonMissing);
        return std::nullopt;
    }
    const QString key = KeyOfLine(main);
    const std::optional<SubGroup> group = GroupAtEnd(key);
    if (group && group != SubGroup::Crumbled) {
        ShowMessage(message::SubCommandRefused);
        return std::nullopt;
    }
    const CommandLines commands = FindCommands(lines, *mainLine, key, Frame.WordLists.at(ModeGfx).at(KindGraphicComs));
    if (commands.End >= pane.LineCount())
        pane.InsertLine(pane.LineCount(), {});
    pane.SetSel({.StartLine = *mainLine, .EndLine = commands.End}, true);
    return InjectRequest{ParseBlock(pane.SelText().trimmed(), GraphicsKeyWords().Directions), commands.Present,
                         group.has_value()};
}
