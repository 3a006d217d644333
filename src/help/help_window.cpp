#include "help/help_window.h"

#include "help/contents_pane.h"
#include "help/find_bar.h"
#include "help/page_view.h"
#include "help/window_memory.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileInfo>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>
#include <functional>
#include <optional>
#include <span>

namespace {

std::pair<qint64, QDateTime> StateOf(const QString& archive)
{
    const QFileInfo file(archive);
    return {file.size(), file.lastModified()};
}

} // namespace

HelpWindow::HelpWindow(Result<HelpBook> opened, QWidget* parent) : QMainWindow(parent), broken(!opened)
{
    split = new QSplitter(this);
    contents = new ContentsPane(book, split);
    auto* right = new QWidget(split);
    view = new PageView(book, right);
    find = new FindBar(*view, right);
    auto* column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(view, 1);
    column->addWidget(find);
    LayOut();
    MakeActions();

    connect(view, &PageView::sourceChanged, this, &HelpWindow::FollowView);
    connect(view, &PageView::LinkRefused, this, [this](const QUrl& link) {
        statusBar()->showMessage(tr("This link leads out of the help and is not followed: %1").arg(link.toString()));
    });
    connect(contents, &ContentsPane::PlaceChosen, view, &PageView::ShowPlace);
    setWindowTitle(tr("Gemforge Help"));
    TakeBook(opened);
}

void HelpWindow::Follow(const QString& followed)
{
    archive = followed;
    archiveState = StateOf(archive);
}

void HelpWindow::TakeChangedBook()
{
    const auto now = StateOf(archive);
    if (archive.isEmpty() || now == archiveState)
        return;
    archiveState = now;
    Result<HelpBook> opened = HelpBook::Open(archive);
    view->Forget();
    TakeBook(opened);
}

void HelpWindow::TakeBook(Result<HelpBook>& opened)
{
    broken = !opened;
    book = opened ? std::move(*opened) : HelpBook();
    contents->FillContents();
    contents->setEnabled(!broken);
    for (QAction* action : std::as_const(bookActions))
        action->setEnabled(!broken);
    if (broken) {
        const QString reason = opened.error().Text().replace(QLatin1Char('^'), QLatin1Char('\n'));
        view->ShowFailure(
            tr("The help pages cannot be shown"),
            tr("%1\n\nThe pages come with Gemforge: build or unpack it again to get them back.").arg(reason));
    }
}

void HelpWindow::ShowId(const QString& id)
{
    if (!broken)
        view->ShowPlace(book.Resolve(id));
    view->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::ShowIdInFront(const QString& id)
{
    TakeChangedBook();
    ShowId(id);
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

void HelpWindow::closeEvent(QCloseEvent* event)
{
    KeepWindow({saveGeometry(), split->saveState(), view->Zoom()});
    QMainWindow::closeEvent(event);
}

void HelpWindow::MakeActions()
{
    // One row is one action. An empty caption is a line in menu and tool bar; a row without icon is in the menu alone.
    struct Row
    {
        const char* Caption;
        QList<QKeySequence> Keys;
        std::optional<QStyle::StandardPixmap> Icon;
        std::function<void()> Run;
        bool NeedsBook = true;
    };
    const auto keys = [](std::initializer_list<const char*> texts) {
        QList<QKeySequence> list;
        for (const char* text : texts)
            list += QKeySequence(QLatin1String(text));
        return list;
    };
    const Row page[] = {
        {"&Back", keys({"Alt+Left", "Backspace"}), QStyle::SP_ArrowBack, [this] { view->backward(); }, false},
        {"&Forward", keys({"Alt+Right"}), QStyle::SP_ArrowForward, [this] { view->forward(); }, false},
        {"&Contents", keys({"Alt+Home"}), QStyle::SP_FileDialogListView, [this] { ShowId(QString()); }},
        {"", {}, {}, {}},
        {"&Search All Pages", keys({"Ctrl+Shift+F", "Ctrl+K"}), {}, [this] { contents->FocusSearch(); }},
        {"Find on This &Page", keys({"Ctrl+F"}), QStyle::SP_FileDialogContentsView, [this] { find->Open(); }},
        {"Find &Next", keys({"F3", "Ctrl+G"}), {}, [this] { find->Step(false); }},
        {"Find Pre&vious", keys({"Shift+F3"}), {}, [this] { find->Step(true); }},
        {"", {}, {}, {}},
        {"C&lose", keys({"Ctrl+W", "Ctrl+Q"}), {}, [this] { close(); }, false},
    };
    const Row size[] = {
        {"&Larger Text", keys({"Ctrl++", "Ctrl+="}), {}, [this] { view->SetZoom(view->Zoom() + 10); }, false},
        {"&Smaller Text", keys({"Ctrl+-"}), {}, [this] { view->SetZoom(view->Zoom() - 10); }, false},
        {"&Normal Size", keys({"Ctrl+0"}), {}, [this] { view->SetZoom(100); }, false},
    };
    auto* bar = addToolBar(tr("Pages"));
    bar->setObjectName(QStringLiteral("pages"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto fill = [&](QMenu* menu, std::span<const Row> rows) {
        for (const Row& row : rows) {
            if (*row.Caption == 0) {
                menu->addSeparator();
                continue;
            }
            auto* action = new QAction(tr(row.Caption), this);
            action->setShortcuts(row.Keys);
            if (row.NeedsBook)
                bookActions << action;
            connect(action, &QAction::triggered, this, row.Run);
            menu->addAction(action);
            if (!row.Icon)
                continue;
            action->setIcon(style()->standardIcon(*row.Icon));
            action->setToolTip(QStringLiteral("%1 (%2)").arg(tr(row.Caption).remove(QLatin1Char('&')),
                                                             row.Keys.first().toString(QKeySequence::NativeText)));
            bar->addAction(action);
        }
    };
    fill(menuBar()->addMenu(tr("&Page")), page);
    fill(menuBar()->addMenu(tr("&View")), size);

    QAction* back = bar->actions().at(0);
    QAction* forward = bar->actions().at(1);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(view, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(view, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

    auto* escape = new QAction(this);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, this, &HelpWindow::Escape);
    addAction(escape);
}

void HelpWindow::LayOut()
{
    statusBar()->setSizeGripEnabled(false);
    setCentralWidget(split);
    split->setChildrenCollapsible(false);
    split->setStretchFactor(1, 1);
    contents->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
    const QSize roomy(fontMetrics().averageCharWidth() * 140, fontMetrics().height() * 42);
    resize(roomy.boundedTo(screen()->availableSize() * 0.9));
    split->setSizes({width() * 3 / 10, width() * 7 / 10});

    const WindowMemory memory = RecallWindow();
    restoreGeometry(memory.Geometry);
    split->restoreState(memory.Split);
    view->SetZoom(memory.Zoom);
    connect(view, &PageView::ZoomChanged, this,
            [this](int percent) { statusBar()->showMessage(tr("Text size %1 %").arg(percent), 2000); });
}

void HelpWindow::FollowView(const QUrl& source)
{
    const QString file = PageView::PlaceOf(source).File;
    if (!book.Has(file))
        return;
    statusBar()->clearMessage();
    setWindowTitle(file == ContentsPage ? tr("Gemforge Help") : tr("%1 - Gemforge Help").arg(book.Page(file).Title));
    contents->MarkPage(file);
}

void HelpWindow::Escape()
{
    if (!find->CloseIfOpen() && contents->ClearSearch())
        view->setFocus(Qt::OtherFocusReason);
}
