#include "mapglass/element_list.h"
#include "mapglass/level_strip.h"
#include "mapglass/map_view.h"
#include "mapglass/mapglass_window.h"
#include "mapglass/window_memory.h"
#include "platform/processes/processes.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>
#include <functional>
#include <optional>
#include <span>
#include <tuple>

namespace {

QLabel* Fact(QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

void ShowViewerHelp()
{
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/Help");
    std::ignore = processes::StartDetached(program, {QStringLiteral("mapglass")}); // without one F1 does nothing
}

} // namespace

void MapglassWindow::LayOut()
{
    split = new QSplitter(this);
    strip = new LevelStrip(split);
    auto* middle = new QWidget(split);
    view = new MapView(middle);
    banner = new QWidget(middle);
    banner->setAutoFillBackground(true);
    banner->setBackgroundRole(QPalette::AlternateBase);
    message = new QLabel(banner);
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    boxText = new QLabel(banner);
    boxText->setObjectName(QStringLiteral("boxText"));
    boxText->setWordWrap(true);
    auto* ok = new QPushButton(QStringLiteral("OK"), banner);
    ok->setObjectName(QStringLiteral("ok"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), banner);
    cancel->setObjectName(QStringLiteral("cancel"));
    auto* texts = new QVBoxLayout;
    texts->addWidget(message);
    texts->addWidget(boxText);
    auto* row = new QHBoxLayout(banner);
    row->addLayout(texts, 1);
    row->addWidget(ok);
    row->addWidget(cancel);
    banner->hide();
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(banner);
    column->addWidget(view, 1);
    split->addWidget(MakeSide());
    connect(ok, &QPushButton::clicked, this, &MapglassWindow::FinishAndClose);
    connect(cancel, &QPushButton::clicked, this, [this] { close(); });

    setCentralWidget(split);
    split->setChildrenCollapsible(false);
    split->setStretchFactor(1, 1);
    cellText = new QLabel(this);
    cellText->setObjectName(QStringLiteral("cellText"));
    zoomText = new QLabel(this);
    statusBar()->addWidget(cellText, 1);
    statusBar()->addPermanentWidget(zoomText);
    resize(QSize(1180, 760).boundedTo(screen()->availableSize() * 0.9));
    constexpr int StripWidth = 146, SideWidth = 330;
    const int side = qMin(SideWidth, width() * 3 / 10);
    split->setSizes({StripWidth, width() - StripWidth - side, side});
    const WindowMemory memory = RecallWindow();
    restoreGeometry(memory.Geometry);
    split->restoreState(memory.Split);
}

QWidget* MapglassWindow::MakeSide()
{
    constexpr int SideLetters = 42;
    auto* side = new QWidget(split);
    side->setMinimumWidth(fontMetrics().averageCharWidth() * SideLetters);
    auto* form = new QFormLayout;
    for (const char* caption : {"Name", "Author", "Size", "Time", "Gems", "Form"}) {
        facts << Fact(side);
        form->addRow(QString::fromLatin1(caption) + u':', facts.last());
    }
    elements = new ElementList(side);
    auto* column = new QVBoxLayout(side);
    column->addLayout(form);
    column->addWidget(elements, 1);
    return side;
}

void MapglassWindow::MakeActions()
{
    // One row is one action. An empty caption is a line in menu and tool bar; a row without icon is in the menu alone.
    struct Row
    {
        const char* Caption;
        const char* Keys; ///< with "; " between
        std::optional<QStyle::StandardPixmap> Icon;
        std::function<void()> Run;
        bool NeedsLevel = true;
        QAction** Kept = nullptr; ///< where the action is kept for later
    };
    const Row file[] = {
        {"&Open...", "Ctrl+O", QStyle::SP_DialogOpenButton, [this] { AskForLevel(); }, false},
        {"", "", {}, {}},
        {"&Previous", "Ctrl+PgUp; Alt+Left", QStyle::SP_ArrowBack, [this] { StepLevel(-1); }, false},
        {"&Next", "Ctrl+PgDown; Alt+Right", QStyle::SP_ArrowForward, [this] { StepLevel(1); }, false},
        {"", "", {}, {}},
        {"&Read Again", "F5", {}, [this] { ReadAgain(); }, false},
        {"", "", {}, {}},
        {"Cop&y Picture", "Ctrl+C", {}, [this] { CopyPicture(); }},
        {"&Export as PNG...", "Ctrl+E; Ctrl+S", QStyle::SP_DialogSaveButton, [this] { Export(); }},
        {"P&rint...", "Ctrl+P", {}, [this] { Print(); }},
        {"", "", {}, {}},
        {"&Close", "Esc; Ctrl+W; Ctrl+Q", {}, [this] { close(); }, false},
    };
    QAction* stripShown = nullptr;
    const Row look[] = {
        {"Zoom &In", "Ctrl++; Ctrl+=", {}, [this] { view->Zoom(1); }},
        {"Zoom &Out", "Ctrl+-", {}, [this] { view->Zoom(-1); }},
        {"&Actual Size", "Ctrl+0", {}, [this] { view->ShowCells(); }},
        {"&Fit", "Ctrl+9", {}, [this] { view->Fit(); }},
        {"", "", {}, {}},
        {"Show or Hide the &Strip", "F9", {}, [this] { strip->setVisible(!strip->isVisible()); }, false, &stripShown},
        {"", "", {}, {}},
        {"Mark What the Set Does Not &Draw", "Ctrl+D", {}, [this] { elements->SelectUndrawn(); }, false, &undrawn},
        {"Mark &Nothing", "Ctrl+Shift+A", {}, [this] { elements->clearSelection(); }, false, &unmark},
    };
    const Row help[] = {{"&Help", "F1", {}, [] { ShowViewerHelp(); }, false}};
    auto* bar = addToolBar(QStringLiteral("Levels"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto fill = [&](QMenu* menu, std::span<const Row> rows) {
        for (const Row& entry : rows) {
            if (*entry.Caption == 0) {
                menu->addSeparator();
                continue;
            }
            auto* action = new QAction(QString::fromLatin1(entry.Caption), this);
            action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(entry.Keys)));
            connect(action, &QAction::triggered, this, entry.Run);
            menu->addAction(action);
            if (entry.Kept)
                *entry.Kept = action;
            if (entry.NeedsLevel)
                levelActions << action;
            else if (entry.Icon)
                otherLevels << action;
            if (entry.Icon) {
                action->setIcon(style()->standardIcon(*entry.Icon));
                action->setIconText(QString::fromLatin1(entry.Caption).remove(u'&').section(u' ', 0, 0).remove(u'.'));
                bar->addAction(action);
            }
        }
    };
    fill(menuBar()->addMenu(QStringLiteral("&Level")), file);
    fill(menuBar()->addMenu(QStringLiteral("&View")), look);
    fill(menuBar()->addMenu(QStringLiteral("&Help")), help);
    otherLevels << stripShown;
    unmark->setEnabled(false);
    undrawn->setEnabled(false);

    palettes = new QComboBox(bar);
    palettes->setObjectName(QStringLiteral("palettes"));
    palettes->setAccessibleName(QStringLiteral("Palette"));
    palettes->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    palettes->addItem(QStringLiteral("Classic"), ClassicPalette);
    bar->addSeparator();
    auto* caption = new QLabel(QStringLiteral(" P&alette: "), bar);
    caption->setBuddy(palettes);
    bar->addWidget(caption);
    bar->addWidget(palettes);
}
