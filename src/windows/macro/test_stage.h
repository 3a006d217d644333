#pragma once

#include "macro/pane_stage.h"

#include <QElapsedTimer>

class QProgressBar;

/// What a test run shows on the workbench. Told while the run is under way.
class TestView
{
public:
    virtual ~TestView() = default;
    virtual void ShowFault(const MacroError& error) = 0; ///< the code in front, its line marked
    virtual QProgressBar& ProgressBar() = 0;
    virtual bool StepsLines() const = 0;
    virtual void WantSteps(bool wanted) = 0;
    virtual void ShowStep(RunState& run) = 0; ///< where it stands; the line at hand runs next
    virtual bool Watches() const = 0;
    virtual void ShowWatch(RunState& run) = 0;
    virtual bool StopsBefore(RunState& run) = 0; ///< has its user marked the line at hand?
    virtual void WaitAt(RunState& run) = 0;      ///< returns when the run is to go on, or is stopped
};

/// The workbench as a macro's stage: its commands work on the output pane.
class TestStage : public PaneStage
{
public:
    TestStage(EditorPane& output, TestView& workbench) : PaneStage(output), view(workbench) {}

    void TextCameFrom(const QString&) override {} // the pane is no document
    Result<> SaveTarget(const QString& path) override;
    void ReportError(const MacroError& error) override;
    bool StepsLines() const override { return view.StepsLines(); }
    void WantSteps(bool wanted) override { view.WantSteps(wanted); }
    StepAnswer Step(RunState& run) override;
    bool Watches() const override { return view.Watches(); }
    void BeforeLine(RunState& run) override;
    void Watch(RunState& run, bool last) override;

private:
    void Show(int most) override;
    void SetValue(int value) override;
    void Hide() override;
    int Maximum() const override { return maximum; }
    int Value() const override { return progress; }

    TestView& view;
    int maximum = 1, progress = 0;
    QElapsedTimer watched; ///< since the watch list was last shown
};
