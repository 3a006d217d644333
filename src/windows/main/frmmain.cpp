#include "windows/main/frmmain.h"

#include "conf/help_for_word.h"
#include "frame/documents/documents.h"
#include "frame/files/file_commands.h"
#include "frame/files/recent_list.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "frame/vocabulary.h"
#include "macro/start_macro.h"
#include "macro/started_windows.h"
#include "platform/files/paths.h"
#include "platform/processes/processes.h"
#include "platform/screen/lock_keys.h"
#include "windows/find/find_box.h"
#include "windows/game/words_panel.h"
#include "windows/lists/block_list.h"
#include "windows/lists/comment_tree.h"
#include "windows/lists/marks_panel.h"
#include "windows/lists/recent_popup.h"
#include "windows/macro/macro_buttons.h"
#include "windows/main/dialog_keys.h"
#include "windows/main/line_hints_view.h"
#include "windows/main/macro_recording.h"
#include "windows/main/pane_split.h"
#include "windows/main/run_watch.h"
#include "windows/main/status_panels.h"
#include "windows/main/tab_strip.h"
#include "windows/main/waiting_tools.h"
#include "windows/main/window_keys.h"
#include "windows/media/media_tabs.h"
#include "windows/media/media_view.h"
#include "windows/parts/close_guard.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"
#include "windows/parts/window_position.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr QSize LeastSize{500, 400};

enum KeyPanel { InsertPanel = 4, CapsPanel = 5, NumPanel = 6 };

QString TipOfTab(int tab)
{
    const Document& document = Frame.Documents.at(tab);
    const QString name = HasFile(document) ? paths::Native(document.Path) : EmptyCaption.trimmed();
    return Panes().Pane(tab).Modified() ? name + QStringLiteral("\nNot saved") : name;
}

QString FileOfTab(int tab)
{
    const Document& document = Frame.Documents.at(tab);
    return HasFile(document) ? paths::FileNameOfPath(document.Path) : QString();
}

} // namespace

frmmain::frmmain()
    : commands(this),
      menus(menuBar(), commands),
      bars(this, commands, menus),
      strip(new TabStrip),
      stack(new QStackedWidget),
      panels(new StatusPanels),
      recent(nullptr),
      subject(new HelpSubject(this)),
      hints(new LineHintsView(this)),
      keys(new WindowKeys(this)),
      runs(new RunWatch(this, *panels)),
      buttons(new MacroButtons(this)),
      recording(new MacroRecording(commands, *panels, this)),
      tools(new WaitingTools(this))
{
    setObjectName(QStringLiteral("frmmain"));
    setWindowTitle(QStringLiteral("Gemforge"));
    setWindowIcon(CommandIcon(QStringLiteral("app")));
    setMinimumSize(OnScreen(QRect(QPoint(), LeastSize), {}).size()); // a large scale leaves less
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(true);
    LayOut();
    AddMediaLists();
    ConnectParts();
    ClaimKeys();
    panels->ShowKey(InsertPanel, true);
    ReadLocks();
}

frmmain::~frmmain() = default;

void frmmain::LayOut()
{
    auto* text = new QWidget(this);
    auto* column = new QVBoxLayout(text);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(strip);
    words = new WordsPanel;
    marks = new MarksPanel;
    auto* rows = new QSplitter(Qt::Vertical);
    rows->setChildrenCollapsible(false);
    rows->addWidget(stack);
    rows->addWidget(marks);
    rows->addWidget(words);
    rows->setStretchFactor(0, 3);
    rows->setStretchFactor(1, 1);
    rows->setStretchFactor(2, 1);
    column->addWidget(rows, 1);
    // Around the pane the strip has no subject of its own.
    SetHelpSubject(text, QStringLiteral(""));
    split = new PaneSplit(text);
    SetHelpSubject(split, QStringLiteral(""));
    setCentralWidget(split);
    setStatusBar(panels);
    recent = new RecentPopup(text);
    comments = new CommentTree(text);
    blocks = new BlockList(text);
}

void frmmain::ConnectParts()
{
    connect(strip, &TabStrip::Changed, this, &frmmain::ShowPaneOf);
    connect(strip, &TabStrip::Activated, this, ActivateTab);
    connect(strip, &TabStrip::Activated, this, [] { CurrentPane().CloseCodeList(); });
    connect(strip, &TabStrip::NewWanted, commands.MenuOf(OpenTabCommand), &QAction::trigger);
    connect(strip, &TabStrip::CloseWanted, commands.MenuOf(CloseTab), &QAction::trigger);
    strip->TipOf = TipOfTab;
    strip->FileOf = FileOfTab;
    connect(&commands, &CommandSet::AboutToRun, this, &frmmain::HideLists);
    connect(&commands, &CommandSet::AboutToRun, this, [this] { ssML->NoteSelection(); });
    connect(recording, &MacroRecording::Changed, this, &frmmain::RecordingChanged);
    connect(recording, &MacroRecording::StopWanted, this, &frmmain::RecordMacro);
    connect(recent, &RecentPopup::Chosen, this, RecentOpenSelected, Qt::QueuedConnection);
    connect(recent, &FloatingList::Dismissed, this, &frmmain::CloseLists);
    connect(split, &PaneSplit::LaidOut, this, [this] {
        if (!Frame.StartingUp && ListShows())
            CloseLists();
    });
    for (LowerList* list : {static_cast<LowerList*>(words), static_cast<LowerList*>(marks)})
        connect(list, &LowerList::Left, this, &frmmain::FocusPane);
    connect(split, &PaneSplit::Dragged, this, &frmmain::FocusPane);
    connect(subject, &HelpSubject::Moved, this, &frmmain::MouseOver);
    connect(keys, &WindowKeys::EscapePressed, this, &frmmain::EscapePressed);
    connect(keys, &WindowKeys::HelpPressed, this, [this] { HelpForWord(HelpId()); });
    SetHelpSubject(menuBar(), QStringLiteral(""));
    // Behind the event: on the way to the menu beside it another one opens at once.
    for (const QAction* entry : menuBar()->actions())
        connect(entry->menu(), &QMenu::aboutToHide, this, &frmmain::LeaveMenuBar, Qt::QueuedConnection);
    connect(new DialogKeys(this), &DialogKeys::HelpPressed, this, HelpForWord);
    keys->TakesAlt = [this](QChar key) { return !MacroOfKey(key).isEmpty() && !locked; };
    connect(keys, &WindowKeys::AltPressed, this, &frmmain::RunMacroOfKey);
    connect(keys, &WindowKeys::InsertPressed, this, &frmmain::ToggleInsert);
    connect(keys, &WindowKeys::LocksChanged, this, &frmmain::ReadLocks);
    connect(keys, &WindowKeys::MenuPressed, this, [this](QWidget* part) {
        const QRect caret = part->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        PopUpEditMenu(part->mapToGlobal(caret.bottomLeft()));
    });
}

void frmmain::ClaimKeys()
{
    const auto claim = [this](const QKeySequence& sequence, auto&& run) {
        connect(new QShortcut(sequence, this), &QShortcut::activated, this, run);
        keys->Claim(sequence);
    };
    for (const auto forward : {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown})
        claim(forward, [this] { strip->SelectNext(1); });
    for (const auto back : {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageUp})
        claim(back, [this] { strip->SelectNext(-1); });
    claim(QKeySequence(Qt::Key_F6), [this] { MoveFocus(); });
    claim(QKeySequence(Qt::Key_F10), [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
    TakeCommandKeys();
}

void frmmain::TakeCommandKeys()
{
    commands.TakeKeys();
    QSet<QKeySequence> overText, overAll;
    for (const MenuRow& menu : MainMenus())
        for (const auto& [row, apart] : ShownRows(menu))
            for (const QKeySequence& key : commands.KeysOf(QString::fromLatin1(row->Control)))
                (row->Flags & EverywhereKey ? overAll : overText).insert(key);
    buttons->TakeKeys();
    for (const QAction* macro : buttons->Entries())
        for (const QKeySequence& key : macro->shortcuts())
            overText.insert(key);
    keys->ClaimForCommands(std::move(overText), std::move(overAll));
}

void frmmain::EscapePressed()
{
    if (CurrentPane().CodeListOpen())
        CurrentPane().CloseCodeList();
    else if (ListShows())
        CloseLists();
    else if (MediaView* list = ssML->Focused()) {
        list->EndFilter();
        FocusPane();
    } else if (bars.cmbFind()->hasFocus() || strip->Bar()->hasFocus() || ssML->isAncestorOf(focusWidget()) ||
               words->HasKeyboard() || marks->HasKeyboard())
        FocusPane();
    else if (AnyRun())
        StopRuns(StopReason::Esc);
    else
        StopPreview();
}

void frmmain::LeaveMenuBar()
{
    if (!menuBar()->hasFocus() || QApplication::activePopupWidget())
        return;
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(menuBar(), &escape);
}

void frmmain::MoveFocus()
{
    if (bars.cmbFind()->hasFocus())
        strip->Bar()->setFocus(Qt::ShortcutFocusReason);
    else if (strip->Bar()->hasFocus() || (!bars.cmbFind()->isVisible() && !ssML->isAncestorOf(focusWidget()) &&
                                          !words->HasKeyboard() && !marks->HasKeyboard()))
        ssML->FocusList();
    else if (ssML->isAncestorOf(focusWidget()) && marks->ListShows())
        marks->ShowList();
    else if ((ssML->isAncestorOf(focusWidget()) || marks->HasKeyboard()) && words->ListShows())
        words->ShowList();
    else if (ssML->isAncestorOf(focusWidget()) || marks->HasKeyboard() || words->HasKeyboard())
        FocusPane();
    else
        bars.cmbFind()->setFocus(Qt::ShortcutFocusReason);
}

void frmmain::MouseOver(const QString& helpId)
{
    if (recent->LeftFor(helpId) || comments->LeftFor(helpId) || blocks->LeftFor(helpId))
        CloseLists();
}

void frmmain::HideLists()
{
    recent->hide();
    comments->hide();
    blocks->hide();
}

bool frmmain::ListShows() const
{
    return recent->isVisible() || comments->isVisible() || blocks->isVisible();
}

QString frmmain::HelpId() const
{
    return subject->HelpId();
}

void frmmain::ReadLocks()
{
    const LockKeys locks = ReadLockKeys();
    panels->ShowKey(CapsPanel, locks.Caps);
    panels->ShowKey(NumPanel, locks.Num);
}

void frmmain::ToggleInsert()
{
    overtype = !overtype;
    for (const auto& pane : panes)
        if (pane)
            pane->SetOvertype(overtype);
    panels->ShowKey(InsertPanel, !overtype);
}

void frmmain::Activated()
{
    ReadLocks();
    if (Frame.StartingUp)
        return;
    RefreshLists();
    buttons->Look();
    ShowMenuIcons();
    if (!IsWorkHeldUp()) // what runs works on the text
        CheckChangedOutside();
}

void frmmain::ShowMenuIcons()
{
    const bool on = Frame.Settings.MenuIcons == 1;
    commands.ShowMenuIcons(on);
    for (QAction* macro : buttons->Entries())
        macro->setIconVisibleInMenu(on);
}

bool frmmain::event(QEvent* event)
{
    // Not from inside the event: the check may ask a question.
    if (event->type() == QEvent::WindowActivate)
        QTimer::singleShot(0, this, &frmmain::Activated);
    if (event->type() == QEvent::WindowDeactivate)
        ssML->SaveSelection();
    return QMainWindow::event(event);
}

void frmmain::closeEvent(QCloseEvent* event)
{
    if (RunningWork() > 0) {
        event->ignore();
        CloseAfterWork();
        return;
    }
    if (!ending && recording->HasCode()) { // shown first: what was recorded is work too
        event->ignore();
        QTimer::singleShot(0, this, [this] {
            RecordMacro();
            close();
        });
        return;
    }
    finished = MayClose();
    if (finished)
        StartedWindows.CloseAll();
    event->setAccepted(finished);
}

void frmmain::EndProgram()
{
    ending = true;
    EndWork();
}

void frmmain::CloseAfterWork()
{
    closeWanted = Frame.Closing = true;
    StopRuns(StopReason::Close);
    processes::StopWaiting();
    WorkChanged();
}

/// The loops unwind from the inside; what opens meanwhile is closed too.
void frmmain::WorkChanged()
{
    runs->WorkChanged();
    closeWanted = closeWanted && Frame.Closing; // a window may have called it off
    if (!closeWanted)
        return;
    if (RunningWork() > 0) {
        QTimer::singleShot(0, this, [this] {
            if (closeWanted && RunningWork() > 0)
                CloseModalWindows();
        });
        return;
    }
    closeWanted = Frame.Closing = false;
    QTimer::singleShot(0, this, &QWidget::close);
}

void frmmain::Finish()
{
    if (!finished) {
        StartedWindows.CloseAll();
        static_cast<void>(KeepEverything()); // the loop has ended; there is nobody left to ask
    }
    finished = true;
}

void frmmain::RestorePosition()
{
    const WindowPosition stored = StoredPosition();
    const QRect place = OnScreen(stored.Place, minimumSize());
    resize(place.size());
    move(place.topLeft());
    setWindowState(stored.State);
}

void frmmain::ShowStarted()
{
    split->LayoutMainWindow();
    LoadMacroButtons();
    ShowMenuIcons();
    UpdateCommands();
    setWindowTitle(windowTitle() + QStringLiteral("  (Startup Time MS = %1)").arg(Frame.StartTicks.elapsed()));
}
