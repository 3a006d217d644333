#include "help/contents_pane.h"

#include "help/help_book.h"
#include "help/hit_delegate.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int FileRole = Qt::UserRole, AnchorRole = Qt::UserRole + 1;
constexpr int MostHits = 200;

} // namespace

ContentsPane::ContentsPane(const HelpBook& pages, QWidget* parent)
    : QWidget(parent),
      book(pages),
      box(new QLineEdit(this)),
      count(new QLabel(this)),
      stack(new QStackedWidget(this)),
      contents(new QTreeWidget(stack)),
      hits(new QListWidget(stack))
{
    box->setPlaceholderText(tr("Search all pages"));
    box->setAccessibleName(tr("Search all pages"));
    box->setClearButtonEnabled(true);
    box->installEventFilter(this);
    count->setVisible(false);
    count->setWordWrap(true);
    contents->setHeaderHidden(true);
    contents->setAccessibleName(tr("Contents"));
    contents->setFrameShape(QFrame::NoFrame);
    hits->setAccessibleName(tr("Pages found"));
    hits->setFrameShape(QFrame::NoFrame);
    hits->setUniformItemSizes(true);
    hits->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    hits->setItemDelegate(new HitDelegate(hits));
    stack->addWidget(contents);
    stack->addWidget(hits);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 6, 0, 6);
    column->addWidget(box);
    column->addWidget(count);
    column->addWidget(stack, 1);
    setFocusProxy(box);

    TintBox();
    connect(box, &QLineEdit::textChanged, this, &ContentsPane::ShowHits);
    const auto chooseTree = [this](QTreeWidgetItem* item) {
        if (item && item->data(0, FileRole).isValid())
            emit PlaceChosen({item->data(0, FileRole).toString(), QString()});
    };
    const auto chooseHit = [this](QListWidgetItem* item) {
        if (item)
            emit PlaceChosen({item->data(FileRole).toString(), item->data(AnchorRole).toString()});
    };
    connect(contents, &QTreeWidget::itemClicked, this, chooseTree);
    connect(contents, &QTreeWidget::itemActivated, this, chooseTree);
    connect(hits, &QListWidget::itemClicked, this, chooseHit);
    connect(hits, &QListWidget::itemActivated, this, chooseHit);
}

void ContentsPane::FocusSearch()
{
    box->setFocus(Qt::ShortcutFocusReason);
    box->selectAll();
}

bool ContentsPane::ClearSearch()
{
    const bool held = !box->text().isEmpty();
    box->clear();
    return held;
}

void ContentsPane::MarkPage(const QString& file)
{
    const QList<QTreeWidgetItem*> all = contents->findItems(QString(), Qt::MatchContains | Qt::MatchRecursive);
    for (QTreeWidgetItem* item : all)
        if (item->data(0, FileRole).toString() == file) {
            contents->setCurrentItem(item);
            return;
        }
    contents->setCurrentItem(nullptr);
}

bool ContentsPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != box || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    FollowKeyFromBox(key);
    return true;
}

void ContentsPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        TintBox();
}

void ContentsPane::TintBox()
{
    // Some desktops name no colour for it, and it stays black on their dark boxes.
    QPalette colours = palette();
    QColor faint = colours.color(QPalette::Text);
    faint.setAlphaF(0.6F);
    colours.setColor(QPalette::PlaceholderText, faint);
    box->setPalette(colours);
}

void ContentsPane::FillContents()
{
    contents->clear();
    box->clear();
    QTreeWidgetItem* chapter = nullptr;
    for (const ContentsLine& line : book.Contents()) {
        if (line.Place.File.isEmpty()) {
            chapter = new QTreeWidgetItem(contents, {line.Title});
            chapter->setFlags(Qt::ItemIsEnabled);
            QFont bold = chapter->font(0);
            bold.setBold(true);
            chapter->setFont(0, bold);
            continue;
        }
        auto* item = new QTreeWidgetItem(chapter, {line.Title});
        item->setData(0, FileRole, line.Place.File);
    }
    contents->expandAll();
}

void ContentsPane::ShowHits(const QString& words)
{
    hits->clear();
    for (const SearchHit& hit : book.Search(words, MostHits)) {
        auto* item = new QListWidgetItem(hit.Title, hits);
        const QString below = hit.Title == hit.PageTitle ? hit.Excerpt : hit.PageTitle;
        item->setData(HitDelegate::SecondLineRole, below);
        item->setData(Qt::AccessibleDescriptionRole, below);
        item->setData(FileRole, hit.Place.File);
        item->setData(AnchorRole, hit.Place.Anchor);
        item->setToolTip(hit.Excerpt);
    }
    const bool searching = !words.trimmed().isEmpty();
    stack->setCurrentWidget(searching ? static_cast<QWidget*>(hits) : contents);
    count->setVisible(searching);
    if (hits->count() == 0)
        count->setText(tr("Nothing found. Try fewer or shorter words."));
    else
        count->setText(hits->count() < MostHits ? tr("%1 found").arg(hits->count()) : tr("The best %1").arg(MostHits));
}

void ContentsPane::FollowKeyFromBox(int key)
{
    if (key != Qt::Key_Down) {
        if (hits->count() > 0)
            emit hits->itemActivated(hits->item(0));
        return;
    }
    if (stack->currentWidget() == hits && hits->count() > 0)
        hits->setCurrentRow(0);
    stack->currentWidget()->setFocus(Qt::OtherFocusReason);
}
