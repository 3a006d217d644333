#include "windows/macro/test_stage.h"

#include "frame/editor_pane.h"
#include "frame/frame_state.h"
#include "macro/language/run_state.h"
#include "macro/run_macro.h"
#include "platform/files/paths.h"

#include <QProgressBar>

Result<> TestStage::SaveTarget(const QString& path)
{
    WriteBack();
    if (const Result<> saved = Pane().SaveFile(path, false); !saved)
        return saved;
    Copy().SetModified(false);
    Frame.CurrentFolder = paths::FolderOfPath(path);
    Frame.CurrentFile = paths::FileNameOfPath(path);
    return {};
}

void TestStage::ReportError(const MacroError& error)
{
    ShowMessage(message::BasicError, error.Text, QString::number(error.Line));
    view.ShowFault(error);
}

StepAnswer TestStage::Step(RunState& run)
{
    const int line = run.CurrentLine;
    ShowTarget(true);
    view.ShowStep(run);
    switch (ShowMessage(message::BasicStep, run.Code.Lines[size_t(line)].Written, QString::number(line))) {
    case 1:
        return StepAnswer::Next;
    case 2:
        return StepAnswer::Continue;
    default:
        return StepAnswer::Break;
    }
}

void TestStage::BeforeLine(RunState& run)
{
    if (!view.StopsBefore(run))
        return;
    ShowTarget(true);
    view.WaitAt(run);
    ShowTarget(false);
}

/// No oftener than anybody sees it.
void TestStage::Watch(RunState& run, bool last)
{
    constexpr qint64 EveryMs = 20;
    if (!last && watched.isValid() && watched.elapsed() < EveryMs)
        return;
    view.ShowWatch(run);
    watched.start();
}

void TestStage::Show(int most)
{
    maximum = most;
    progress = qMin(progress, most);
    view.ProgressBar().setRange(0, maximum);
    view.ProgressBar().setValue(progress);
    view.ProgressBar().show();
}

void TestStage::SetValue(int value)
{
    progress = value;
    view.ProgressBar().setValue(value);
}

void TestStage::Hide()
{
    view.ProgressBar().hide();
}
