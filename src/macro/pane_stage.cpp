#include "macro/pane_stage.h"

#include "frame/documents/documents.h"
#include "frame/editor_pane.h"
#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "macro/macro_ports.h"
#include "platform/files/paths.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

QString SystemClipboard::Text() const
{
    return QGuiApplication::clipboard()->text();
}

void SystemClipboard::SetText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

PaneStage::PaneStage(EditorPane& ofRun) : pane(ofRun), copy(clipboard)
{
    copy.CopyFrom(pane);
    FindOptions options = pane.CurrentFindOptions();
    options.Wrap = false; // a macro that looks for all hits must come to an end
    copy.SetFindOptions(options);
    constexpr int PlainTab = 4;
    copy.SetTabSize(Frame.Settings.SuperTab ? Frame.Settings.SpacerWidth - 1 : PlainTab);
    copy.SetPageLines(PageLines());
}

void PaneStage::WriteBack()
{
    copy.WriteChangesTo(pane);
    pane.SetSel(pane.GetSel(false), true); // into view
}

void PaneStage::ShowTarget(bool visible)
{
    if (visible && !apart)
        WriteBack();
}

void PaneStage::ShowNow()
{
    ShowTarget(true);
    QCoreApplication::processEvents();
}

void PaneStage::ReportError(const MacroError& error)
{
    Busy().SetEnabled(true);
    ShowMessage(message::BasicError, error.Text, QString::number(error.Line));
}

void PaneStage::TextCameFrom(const QString& path)
{
    Document& document = Frame.Documents.at(Frame.CurrentTab);
    document.ForeignText = paths::Canonical(document.Path) != paths::Canonical(path);
}

Result<> PaneStage::SaveTarget(const QString& path)
{
    WriteBack();
    if (SaveDocumentOver(path))
        copy.SetModified(false);
    return {};
}

quint64 PaneStage::MainWindow() const
{
    return MacroWindows.MainWindow ? MacroWindows.MainWindow() : 0;
}

void PaneStage::ShowMainWindow(bool visible)
{
    if (MacroWindows.ShowMainWindow)
        MacroWindows.ShowMainWindow(visible);
}

QPoint PaneStage::TextOrigin() const
{
    return MacroWindows.TextOrigin ? MacroWindows.TextOrigin(pane) : QPoint();
}

QString PaneStage::SelectedMedia() const
{
    return MacroWindows.SelectedMedia ? MacroWindows.SelectedMedia() : QString();
}

QString PaneStage::FontName() const
{
    return pane.FontName();
}

double PaneStage::FontSize() const
{
    return pane.FontSize();
}

void PaneStage::SetFont(const QString& name, double points)
{
    pane.SetPaneFont(name, points);
}

void PaneStage::SetColor(int slot, int bgr)
{
    pane.SetColor(slot, bgr);
}

int PaneStage::GetColor(int slot) const
{
    return pane.GetColor(slot);
}

int PaneStage::PageLines() const
{
    const LineSpan shown = pane.VisibleLines();
    return qMax(1, shown.Last - shown.First);
}

void PaneStage::Show(int most)
{
    maximum = most;
    progress = qMin(progress, most);
    barShown = true;
    Busy().ShowProgress(maximum, progress);
}

void PaneStage::SetValue(int value)
{
    progress = value;
    if (barShown)
        Busy().ShowProgress(maximum, progress);
}

void PaneStage::Hide()
{
    if (std::exchange(barShown, false))
        Busy().HideProgress();
}
