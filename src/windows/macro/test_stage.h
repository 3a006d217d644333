#pragma once

#include "macro/pane_stage.h"

class QProgressBar;

/// What a test run shows on the workbench. Told while the run is under way.
class TestView
{
public:
    virtual ~TestView() = default;
    virtual void ShowFault(const MacroError& error) = 0; ///< the code in front, its line marked
    virtual QProgressBar& ProgressBar() = 0;
};

/// The workbench as a macro's stage: its commands work on the output pane.
class TestStage : public PaneStage
{
public:
    TestStage(EditorPane& output, TestView& workbench) : PaneStage(output), view(workbench) {}

    void TextCameFrom(const QString&) override {} // the pane is no document
    Result<> SaveTarget(const QString& path) override;
    void ReportError(const MacroError& error) override;

private:
    void Show(int most) override;
    void SetValue(int value) override;
    void Hide() override;
    int Maximum() const override { return maximum; }
    int Value() const override { return progress; }

    TestView& view;
    int maximum = 1, progress = 0;
};
