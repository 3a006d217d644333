#pragma once

#include "batch/macro_answers.h"
#include "frame/run_scope.h"
#include "host_scope.h"
#include "macro/plain_stage.h"
#include "macro/run_macro.h"

/// What a macro did: its dialogs, the text it leaves, its error.
struct MacroTrial
{
    QStringList Told;  ///< "MESSAGE title|text|buttons", "REFUSED", "MISFIT ..."
    QStringList Lists; ///< that were to be chosen from: "title|item|item"
    std::optional<MacroError> Error;
};

/// Runs macros on a text of its own, without a window.
class MacroScope
{
public:
    MacroTrial Run(const QString& source, const QStringList& answers = {})
    {
        MacroTrial trial;
        RunScope scope(RunKind::Macro, QStringLiteral("trial"), Deadline);
        MacroAnswers asker(answers);
        Frame.Ask = &asker;
        asker.AllowFiles = AllowFiles;
        asker.OnMessage = [&trial](const MessageRecord& record) {
            trial.Told << QStringLiteral("MESSAGE %1|%2|%3")
                              .arg(record.MessageTitle, QString(record.MessageText).replace(u'\r', u'^').remove(u'\n'),
                                   record.MessageButtons);
        };
        asker.OnRefused = [&trial] { trial.Told << QStringLiteral("REFUSED"); };
        asker.OnMisfit = [&](const QString& text) {
            trial.Told << QStringLiteral("MISFIT ") + text;
            scope.Stop(StopReason::Break);
        };
        MacroRequest request;
        request.Source = PrepareSource(source);
        request.Folder = Home.isEmpty() ? Folder.Path() : Home;
        request.Seed = 1;
        request.Path = Path;
        trial.Error = RunMacro(request, Stage, scope);
        Frame.Ask = &Host.Answers;
        for (const ChoiceQuestion& choice : asker.AskedFor<ChoiceQuestion>())
            if (choice.Lists.size() == 1)
                trial.Lists << choice.Title + u'|' + choice.Lists.front().Items.join(u'|');
        return trial;
    }
    LineText& Text() { return Stage.TargetLines(); }

    HostScope Host;
    TestFolder Folder;
    OwnClipboard Clipboard;
    PlainStage Stage{Clipboard};
    QString Path; ///< of the macro's file; empty: never saved
    QString Home; ///< where it runs; empty: in Folder
    bool AllowFiles = false;
    std::optional<qint64> Deadline = 60'000;
};
