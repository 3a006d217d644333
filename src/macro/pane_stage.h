#pragma once

#include "macro/run_stage.h"
#include "services/registry_store.h"
#include "text/line_text.h"

class EditorPane;

/// The desktop's clipboard.
class SystemClipboard : public TextClipboard
{
public:
    QString Text() const override;
    void SetText(const QString& text) override;
};

/// A pane as a macro's stage. The run works on a copy of the pane's text, which costs a line what it changes; the pane
/// is brought up to date whenever a person is to see it, and at the end. The pane must have an undo group open.
class PaneStage : public RunStage, private TextScreen, private ProgressBarPort
{
public:
    explicit PaneStage(EditorPane& pane);

    /// Writes what has changed into the pane, its selection too. A run on a copy never does so by itself.
    void WriteBack();
    void KeepApart() { apart = true; } ///< from now on: a run on a copy
    LineText& Copy() { return copy; }

    DocumentText& Target() override { return copy; }
    void ShowTarget(bool visible) override;
    void ShowNow() override;
    TextScreen& Screen() override { return *this; }
    ProgressBarPort& Bar() override { return *this; }
    TextClipboard& Clipboard() override { return clipboard; }
    void SetTurn(std::function<bool()> give) override { copy.SetTurn(std::move(give)); }
    bool HasWindow() const override { return true; }
    void TextCameFrom(const QString& path) override;
    Result<> SaveTarget(const QString& path) override;
    quint64 MainWindow() const override;
    void ShowMainWindow(bool visible) override;
    QPoint TextOrigin() const override;
    RegistryStore& Registry() override { return registry; }
    void ReportError(const MacroError& error) override;
    QString SelectedMedia() const override;

protected:
    EditorPane& Pane() const { return pane; }

private:
    QString FontName() const override;
    double FontSize() const override;
    void SetFont(const QString& name, double points) override;
    void SetColor(int slot, int bgr) override;
    int GetColor(int slot) const override;
    int PageLines() const; ///< how far the page keys go

    void Show(int most) override;
    void SetValue(int value) override;
    void Hide() override;
    int Maximum() const override { return maximum; }
    int Value() const override { return progress; }

    EditorPane& pane;
    SystemClipboard clipboard;
    LineText copy;
    RegistryStore registry;
    bool apart = false, barShown = false;
    int maximum = 1, progress = 0;
};
