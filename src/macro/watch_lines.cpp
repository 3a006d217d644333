#include "macro/watch_lines.h"

#include "macro/language/run_state.h"
#include "platform/files/paths.h"

QStringList WatchLines(const RunState& run)
{
    QStringList lines;
    for (const Variable* variable : run.Variables.InOrder())
        lines << variable->Name + QStringLiteral(" = ") + variable->Held.Text();
    for (const Label& label : run.Code.Labels.InOrder())
        lines << label.Name + QStringLiteral(",Line = ") + QString::number(label.Line);
    const RunResults& last = run.Last;
    const qint64 loop = qint64(run.Block.LoopLimit) - run.Block.LoopRemaining;
    const std::pair<const char*, QString> rows[] = {
        {"{strMacroMultiTitle} = ", run.ListTitle},
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
        {"[ListCount] = ", QString::number(run.ListItems.size())},
    };
    for (const auto& [text, value] : rows)
        lines << QLatin1String(text) + value;
    return lines;
}
