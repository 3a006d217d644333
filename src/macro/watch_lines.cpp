#include "macro/watch_lines.h"

#include "macro/language/run_state.h"
#include "platform/files/paths.h"

namespace {

QStringList ResultLines(const RunResults& last, const BlockState& block, const QString& title, qsizetype listed)
{
    const qint64 loop = qint64(block.LoopLimit) - block.LoopRemaining;
    const std::pair<const char*, QString> rows[] = {
        {"{strMacroMultiTitle} = ", title},
        {"{strMacroMultiLastChoice} = ", last.ListChoice.Text()},
        {"{intMacroMultiLastnum} = ", last.ListChoiceNumber.Text()},
        {"{strMacroLastListGet} = ", last.ListGet.Text()},
        {"------------------------------", {}},
        {"[LastFindResult] = ", last.FindResult.Text()},
        {"[LastFindPos] = ", last.VarFind.Text()},
        {"[LoopNumber] = ", QString::number(loop)},
        {"[LastFilePath] = ", paths::FolderOfPath(last.Folder).toLower()},
        {"[LastFileName] = ", last.FileName.toLower()},
        {"[LastMessageResult] = ", last.MessageResult.Text()},
        {"[LastAsk] = ", last.Ask.Text()},
        {"[LastElement] = ", last.Element.Text()},
        {"[LastLen] = ", last.VarLen.Text()},
        {"[ListCount] = ", QString::number(listed)},
    };
    QStringList lines;
    for (const auto& [text, value] : rows)
        lines << QLatin1String(text) + value;
    return lines;
}

} // namespace

QStringList WatchLines(const RunState& run)
{
    QStringList lines;
    for (const Variable* variable : run.Variables.InOrder())
        lines << variable->Name + QStringLiteral(" = ") + variable->Held.Text();
    for (const Label& label : run.Code.Labels.InOrder())
        lines << label.Name + QStringLiteral(",Line = ") + QString::number(label.Line);
    return lines + ResultLines(run.Last, run.Block, run.ListTitle, run.ListItems.size());
}

QStringList WatchLinesBeforeRuns()
{
    return ResultLines({}, {}, {}, 0);
}
