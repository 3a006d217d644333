#include "windows/main/frmmain.h"

#include "conf/block_outline.h"
#include "conf/value_list.h"
#include "editor/make_pane.h"
#include "frame/documents/documents.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/recovery/recovery.h"
#include "frame/vocabulary.h"
#include "windows/find/find_dialogs.h"
#include "windows/lists/marks_panel.h"
#include "windows/main/dropped_files.h"
#include "windows/main/line_hints_view.h"
#include "windows/main/pane_mouse.h"
#include "windows/main/status_panels.h"
#include "windows/main/tab_strip.h"
#include "windows/parts/help_subject.h"
#include "windows/sheet/hover_tile.h"

#include <QLocale>
#include <QMenu>
#include <QStackedWidget>
#include <QTimer>

// The panes of the tabs.

namespace {

void MarkBlockAtCaret(EditorPane& pane)
{
    const auto block = Frame.CurrentMode == ModeGfx
                           ? BlockAround(LinesOf(pane), pane.GetSel(true).StartLine, Frame.Settings.SheetKinds)
                           : std::nullopt;
    if (block)
        pane.MarkBlock(block->First, block->Last);
    else
        pane.MarkBlock(-1, -1);
}

} // namespace

EditorPane& frmmain::Pane(int tab)
{
    std::unique_ptr<EditorPane>& pane = panes.at(tab);
    if (!pane) {
        pane = MakePane(stack);
        ConnectPane(tab, *pane);
        QWidget* widget = WidgetOf(*pane);
        widget->setAccessibleName(QStringLiteral("Text of tab %1").arg(tab + 1));
        SetHelpSubject(widget, TextSubject);
        stack->addWidget(widget);
    }
    return *pane;
}

EditorPane& frmmain::txtBuffer()
{
    if (!buffer)
        buffer = MakePane(this);
    return *buffer;
}

void frmmain::ConnectPane(int tab, EditorPane& pane)
{
    pane.CodeList = OfferedWords;
    pane.CodeListPick = PickCodeListItem;
    pane.CodeValues = ValuesAtCaret;
    pane.CodePicture = ValuePicture;
    pane.HoverText = [](EditorPane& hovered, int line, int column) {
        return Frame.CurrentMode == ModeGfx ? BlockSummary(LinesOf(hovered), line, column, Frame.Settings.SheetKinds)
                                            : QString();
    };
    pane.HoverPicture = [](EditorPane& hovered, int line, int column) {
        return Frame.CurrentMode == ModeGfx ? HoverTile(hovered, line, column) : QImage();
    };
    connect(&pane, &EditorPane::SelectionChanged, this, [&pane] {
        if (!pane.Visible())
            return;
        UpdateCaretStatus(pane);
        MarkBlockAtCaret(pane);
    });
    connect(&pane, &EditorPane::TextChanged, this, [this, tab] { PaneTextChanged(tab); });
    connect(&pane, &EditorPane::ModifiedChanged, this, [this, tab](bool modified) {
        strip->SetUnsaved(tab, modified);
        if (tab == Frame.CurrentTab)
            panels->SetUnsaved(modified);
    });
    connect(&pane, &EditorPane::FindWanted, this, [this, &pane](FindKind kind) { ShowFindDialog(this, pane, kind); });
    // Behind the opening of a file, which ends with its path in the same place.
    connect(
        &pane, &EditorPane::LineCut, this,
        [](int line, qsizetype length) {
            ShowNotice(QStringLiteral("Line %1 is %2 bytes long; only its front is shown")
                           .arg(line + 1)
                           .arg(QLocale().toString(qlonglong(length))));
        },
        Qt::QueuedConnection);
    connect(&pane, &EditorPane::MousePressed, this, &frmmain::PanePressed);
    hints->Watch(pane);
    connect(&pane, &EditorPane::TextChanged, marks, &MarksPanel::DocumentChanged);
    pane.LeaveNames = AnyLeavesItsName;
    // Behind the drop: a question may come.
    connect(&pane, &EditorPane::FilesDropped, this, DropIntoText, Qt::QueuedConnection);
}

void frmmain::PaneTextChanged(int tab)
{
    EditorPane& pane = Pane(tab);
    if (Frame.DocumentLoading)
        pane.SetModified(false);
    else if (Frame.Keeper && pane.Modified())
        Frame.Keeper->TextEdited(tab);
    else if (Frame.Keeper)
        Frame.Keeper->TextSettled(tab); // undone back to what is saved
}

void frmmain::PanePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    HideLists();
    if (RunMouseShortcut(button, modifiers))
        return;
    // The press is still under way; the menu comes behind it.
    if (button == Qt::RightButton && modifiers == Qt::NoModifier)
        QTimer::singleShot(0, this, [this] { PopUpEditMenu(QCursor::pos()); });
}

void frmmain::PopUpEditMenu(const QPoint& at)
{
    menus.Find(QStringLiteral("mnuEdit"))->popup(at);
}

void frmmain::ShowPaneOf(int tab)
{
    HideLists();
    stack->setCurrentWidget(WidgetOf(Pane(tab)));
}
