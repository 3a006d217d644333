#include "windows/macro/frm_macro_edit.h"

#include "editor/make_pane.h"
#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "macro/basic_words.h"
#include "macro/watch_lines.h"
#include "windows/find/find_dialogs.h"
#include "windows/macro/code_completion.h"
#include "windows/macro/code_look.h"
#include "windows/macro/command_list.h"
#include "windows/macro/jump_list.h"
#include "windows/macro/kept_code.h"
#include "windows/macro/live_marks.h"
#include "windows/macro/stop_bar.h"
#include "windows/macro/watch_list.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>

// The parts of the workbench and where they stand.

namespace {

constexpr QSize WorkbenchSize{860, 620};    // pixels at 96 dpi
constexpr QSize WorkbenchFrameRoom{20, 40}; // what a window manager puts around it
constexpr double CodePoints = 8;

QPushButton* WorkbenchButton(const char* name, const char* caption, QWidget* parent)
{
    auto* made = new QPushButton(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setAutoDefault(false); // Enter belongs to the text
    return made;
}

QCheckBox* WorkbenchCheck(const char* name, const char* caption, const char* tip, QWidget* parent)
{
    auto* made = new QCheckBox(QString::fromLatin1(caption), parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setToolTip(QString::fromLatin1(tip));
    return made;
}

QAction* Entry(QMenu& menu, const char* name, const char* caption, const QKeySequence& key = {})
{
    QAction* entry = menu.addAction(QString::fromLatin1(caption));
    entry->setObjectName(QString::fromLatin1(name));
    entry->setShortcut(key);
    return entry;
}

} // namespace

frmMacroEdit::frmMacroEdit(QWidget* owner)
    : QDialog(DialogParent(owner)), keptFolder(Frame.CurrentFolder), keptFile(Frame.CurrentFile)
{
    setObjectName(QStringLiteral("frmMacroEdit"));
    SetHelpSubject(this, HelpIdFor("basic"));
    setWindowTitle(QStringLiteral("Gemforge BASIC[*]"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    if (Frame.CurrentFile.isEmpty()) { // test runs have a file name to work with
        Frame.CurrentFolder = Frame.ProgramFolder;
        Frame.CurrentFile = Frame.ConfNames.at(size_t(Frame.CurrentMode));
    }
    body = new QWidget(this);
    MakePanes();
    kept = std::make_unique<KeptCode>(txtEdit(Code));
    marks = std::make_unique<LiveMarks>(txtEdit(Code));
    stops = std::make_unique<CodeStops>(txtEdit(Code));
    auto* split = new QSplitter(body);
    split->setObjectName(QStringLiteral("split"));
    split->setChildrenCollapsible(false);
    split->addWidget(SSmacro);
    split->addWidget(MakeSide());
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 0);
    lblSays = new QLabel(body);
    lblSays->setObjectName(QStringLiteral("lblSays"));
    lblSays->setTextFormat(Qt::PlainText);
    lblSays->setWordWrap(true);
    auto* rows = new QVBoxLayout(body);
    bar = new StopBar(body);
    rows->addWidget(split, 1);
    rows->addWidget(bar);
    rows->addWidget(lblSays);
    MakeMenus();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setMenuBar(menus);
    column->addWidget(body);
    DressCode();
    DressOutput();
    Connect();
    lstWatch->ShowLines(WatchLinesBeforeRuns());
    const QSize wanted(Pixels(*this, WorkbenchSize.width()), Pixels(*this, WorkbenchSize.height()));
    resize(wanted.boundedTo(screen()->availableSize() - WorkbenchFrameRoom));
}

void frmMacroEdit::MakePanes()
{
    SSmacro = new QTabWidget(body);
    SSmacro->setObjectName(QStringLiteral("SSmacro"));
    const QString captions[] = {QStringLiteral("Code"), QStringLiteral("Output")};
    const QString names[] = {QStringLiteral("Code of the macro"), QStringLiteral("Output of test runs")};
    for (const Side side : {Code, Output}) {
        panes[side] = MakePane(SSmacro);
        QWidget* widget = WidgetOf(*panes[side]);
        widget->setObjectName(QStringLiteral("txtEdit%1").arg(side));
        widget->setAccessibleName(names[side]);
        SSmacro->addTab(widget, captions[side]);
    }
}

void frmMacroEdit::MakeMenus()
{
    menus = new QMenuBar(this);
    QMenu& file = *menus->addMenu(QStringLiteral("&File"));
    connect(Entry(file, "mnuOpen", "&Open", QKeySequence::Open), &QAction::triggered, this, &frmMacroEdit::AskForMacro);
    connect(Entry(file, "mnuNew", "&New", QKeySequence::New), &QAction::triggered, this, [this] {
        if (MayGiveUpCode())
            New();
    });
    mnusave = Entry(file, "mnusave", "Save", QKeySequence::Save);
    connect(mnusave, &QAction::triggered, this, &frmMacroEdit::Save);
    connect(Entry(file, "mnusaveas", "Save &As"), &QAction::triggered, this, &frmMacroEdit::SaveAs);
    file.addSeparator();
    connect(Entry(file, "mnuExit", "E&xit"), &QAction::triggered, this, &QWidget::close);
    QMenu& edit = *menus->addMenu(QStringLiteral("&Edit"));
    mnutest = Entry(edit, "mnutest", "&Test", Qt::Key_F5);
    connect(mnutest, &QAction::triggered, this, &frmMacroEdit::Test);
    connect(Entry(edit, "mnuClear", "&Clear Test Window"), &QAction::triggered, this, &frmMacroEdit::ClearOutput);
    edit.addSeparator();
    connect(Entry(edit, "mnuGotoPlace", "&Go To Label Or Sub", Qt::Key_F12), &QAction::triggered, this, [this] {
        SSmacro->setCurrentIndex(Code);
        places->GoOrAsk();
    });
    connect(Entry(edit, "mnuNextMark", "&Next Mark", Qt::Key_F8), &QAction::triggered, this,
            [this] { GotoMark(true); });
    connect(Entry(edit, "mnuPreviousMark", "&Previous Mark", Qt::SHIFT | Qt::Key_F8), &QAction::triggered, this,
            [this] { GotoMark(false); });
    MakeRunMenu();
    mnuRes = menus->addMenu(QStringLiteral("&Resources"));
    connect(Entry(*mnuRes, "mnuResAdd", "&Add A File"), &QAction::triggered, this, &frmMacroEdit::AddResource);
    mnuRes->addSeparator()->setObjectName(QStringLiteral("mnusepok"));
}

QWidget* frmMacroEdit::MakeSide()
{
    auto* side = new QWidget(body);
    lblFile = new QLabel(side);
    lblFile->setObjectName(QStringLiteral("lblFile"));
    lblFile->setTextFormat(Qt::PlainText);
    lblFile->setWordWrap(true);
    places = new JumpList(txtEdit(Code), side);
    cmdTest = WorkbenchButton("cmdTest", "&Test", side);
    cmdTest->setToolTip(QStringLiteral("Runs the code on the output pane (F5). Esc stops it"));
    cmdClear = WorkbenchButton("cmdClear", "&Clear", side);
    cmdClear->setToolTip(QStringLiteral("Empties the output pane"));
    chkClear = WorkbenchCheck("chkClear", "Clear &When Run", "Empties the output pane before each run", side);
    chkSpace = WorkbenchCheck("chkSpace", "Show S&paces + Tabs", "Shows blanks and tabs in both panes", side);
    chkTerminal9 = WorkbenchCheck("chkTerminal9", "Terminal &9", "The font of the output pane", side);
    chkStep = WorkbenchCheck("chkStep", "&Single Step Mode", "Asks before each line of a run", side);
    chkWatch = WorkbenchCheck("chkWatch", "Watch &Mode", "Shows variables and results in place of the commands", side);
    progress = new QProgressBar(side);
    progress->setObjectName(QStringLiteral("ProgressBar"));
    progress->setAccessibleName(QStringLiteral("Progress of the macro"));
    progress->setTextVisible(false);
    progress->hide();
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins({});
    column->addWidget(lblFile);
    column->addWidget(places);
    for (QWidget* part :
         {static_cast<QWidget*>(cmdTest), static_cast<QWidget*>(cmdClear), static_cast<QWidget*>(chkClear),
          static_cast<QWidget*>(chkSpace), static_cast<QWidget*>(chkStep), static_cast<QWidget*>(chkWatch),
          static_cast<QWidget*>(chkTerminal9), static_cast<QWidget*>(progress)})
        column->addWidget(part);
    column->addWidget(MakeLists(side), 1);
    return side;
}

QWidget* frmMacroEdit::MakeLists(QWidget* side)
{
    auto* part = new QWidget(side);
    labcom = new QLabel(part);
    labcom->setObjectName(QStringLiteral("labcom"));
    words = new CommandList(part);
    lstWatch = new WatchList(part);
    lstWatch->setObjectName(QStringLiteral("lstWatch"));
    lstWatch->setAccessibleName(QStringLiteral("Watch"));
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->addWidget(labcom);
    column->addWidget(words, 1);
    column->addWidget(lstWatch, 1);
    ShowLists();
    return part;
}

void frmMacroEdit::DressCode()
{
    Frame.Globals.RegisterLanguage(QStringLiteral("mac"), BasicLanguage(BasicWords()));
    EditorPane& code = txtEdit(Code);
    code.SetLanguage(QStringLiteral("mac"));
    GiveCodeLook(code, FormInUse());
    code.SetPaneFont(QStringLiteral("Courier New"), CodePoints);
    OfferCodeWords(code);
}

/// As a text of the main window.
void frmMacroEdit::DressOutput()
{
    EditorPane& output = txtEdit(Output);
    LoadSyntaxColours(output, SectionOf(FormInUse()));
    output.SetLanguage(QStringLiteral("GFX"));
    if (Frame.Settings.SuperTab)
        output.SetTabSize(Frame.Settings.SpacerWidth - 1);
}

void frmMacroEdit::Connect()
{
    constexpr double OutputPoints = 9.75, TerminalPoints = 9;
    connect(cmdTest, &QPushButton::clicked, this, &frmMacroEdit::Test);
    connect(cmdClear, &QPushButton::clicked, this, &frmMacroEdit::ClearOutput);
    connect(chkSpace, &QCheckBox::toggled, this, [this](bool on) {
        for (const Side side : {Code, Output})
            txtEdit(side).SetDisplayWhitespace(on);
        PaneInFront().FocusPane();
    });
    connect(chkWatch, &QCheckBox::toggled, this, &frmMacroEdit::ShowLists);
    connect(words, &CommandList::Chosen, this, &frmMacroEdit::InsertCommand);
    for (QWidget* part : {WidgetOf(txtEdit(Code)), static_cast<QWidget*>(words)})
        connect(new QShortcut(Qt::Key_F1, part, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
                &QShortcut::activated, this, [this, part] { HelpForCode(part == words); });
    connect(new QShortcut(Qt::Key_F6, body), &QShortcut::activated, this, &frmMacroEdit::TurnToList);
    connect(chkTerminal9, &QCheckBox::toggled, this, [this](bool on) {
        txtEdit(Output).SetPaneFont(on ? QStringLiteral("Terminal") : QStringLiteral("Courier New"),
                                    on ? TerminalPoints : OutputPoints);
    });
    for (const Side side : {Code, Output}) {
        EditorPane& pane = txtEdit(side);
        connect(
            new QShortcut(QKeySequence::SelectAll, WidgetOf(pane), nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, [&pane] { pane.ExecuteCmd(CmdSelectAll); });
        connect(&pane, &DocumentText::SelectionChanged, this, [this, side] { MarkCaretLine(side); });
        connect(&pane, &EditorPane::FindWanted, this,
                [this, &pane](FindKind kind) { ShowFindDialog(this, pane, kind); });
    }
    connect(&Events(), &FrameEvents::MediaLooksChanged, this, [this] { // the desktop has turned dark or light
        GiveCodeLook(txtEdit(Code), FormInUse());
        GiveLook(txtEdit(Output), LookOf(FormInUse()));
    });
    connect(&txtEdit(Code), &DocumentText::ModifiedChanged, this, &QWidget::setWindowModified);
    connect(marks.get(), &LiveMarks::Said, lblSays, &QLabel::setText);
    connect(marks.get(), &LiveMarks::Settled, places, &JumpList::Refresh);
    // Behind the drop: a question may come.
    connect(&txtEdit(Code), &EditorPane::FilesDropped, this, &frmMacroEdit::TakeDropped, Qt::QueuedConnection);
}
