#include "windows/macro/frm_macro_multi.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QStyle>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int ListWidth = 240, TreeWidth = 360, ListHeight = 260; ///< pixels of a 96-dpi screen
constexpr int NarrowList = 120;                                   ///< the same, of a list beside others

} // namespace

frmMacroMulti::frmMacroMulti(const QString& title, Page ofQuestion, QWidget* parent)
    : QDialog(parent), page(ofQuestion), pages(new QStackedWidget(this)), preview(new QLineEdit(this))
{
    setObjectName(QStringLiteral("frmMacroMulti"));
    setWindowTitle(title);
    SetHelpSubject(this, QStringLiteral("macros"));
    pages->setObjectName(QStringLiteral("SSMultiPage"));
    preview->setObjectName(page == ZipPage ? QStringLiteral("txtZipFile") : QStringLiteral("txtPreview"));
    preview->setAccessibleName(QStringLiteral("Chosen"));
    preview->setReadOnly(true);
    preview->setVisible(page != ListPage);
}

frmMacroMulti::frmMacroMulti(const ChoiceQuestion& question, QWidget* parent)
    : frmMacroMulti(question.Title, question.Lists.front().Caption.isEmpty() ? ListPage : WordsPage, parent)
{
    QWidget* shown = MakePage(question);
    Arrange(shown, lists.front());
    if (page == ListPage)
        lists.front()->setCurrentIndex(lists.front()->model()->index(0, 0));
    ChoiceChanged();
}

frmMacroMulti::frmMacroMulti(const ZipEntryQuestion& question, QWidget* parent)
    : frmMacroMulti(question.Title, ZipPage, parent)
{
    QWidget* shown = MakeTree(question.Entries);
    Arrange(shown, tree);
    EntryChanged();
}

/// `first` has the keyboard.
void frmMacroMulti::Arrange(QWidget* shown, QWidget* first)
{
    for (int place = ListPage; place <= ZipPage; ++place)
        pages->addWidget(place == page ? shown : new QWidget(pages));
    pages->setCurrentIndex(page);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(QStringLiteral("OK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    for (QWidget* part : std::initializer_list<QWidget*>{pages, preview, buttons})
        column->addWidget(part);
    first->setFocus();
}

/// The folders and files of an archive, each once, whatever its entries' order.
QWidget* frmMacroMulti::MakeTree(const QStringList& entries)
{
    const QIcon file = style()->standardIcon(QStyle::SP_FileIcon), folder = style()->standardIcon(QStyle::SP_DirIcon);
    auto* model = new QStandardItemModel(this);
    QHash<QString, QStandardItem*> nodes{{QString(), model->invisibleRootItem()}};
    for (const QString& entry : entries) {
        QString path;
        for (const QString& piece : entry.split(u'/', Qt::SkipEmptyParts)) {
            QStandardItem* const parent = nodes.value(path);
            if (!path.isEmpty())
                path += u'/';
            path += piece;
            if (nodes.contains(path))
                continue;
            auto* node = new QStandardItem(piece.contains(u'.') ? file : folder, piece);
            node->setData(path);
            parent->appendRow(node);
            nodes.insert(path, node);
        }
    }
    tree = new QTreeView(pages);
    tree->setObjectName(QStringLiteral("lstZipTree"));
    tree->setAccessibleName(windowTitle());
    tree->setModel(model);
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tree->setMinimumSize(Pixels(*this, TreeWidth), Pixels(*this, ListHeight));
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmMacroMulti::EntryChanged);
    return tree;
}

/// The entry that is chosen as macros get it: "\" between its pieces, and behind what looks like a folder.
void frmMacroMulti::EntryChanged()
{
    const QModelIndexList chosen = tree->selectionModel()->selectedIndexes();
    QString path = chosen.isEmpty() ? QString() : chosen.front().data(Qt::UserRole + 1).toString();
    ok->setEnabled(!path.isEmpty());
    path.replace(u'/', u'\\');
    preview->setText(path.isEmpty() || path.contains(u'.') ? path : path + u'\\');
}

QWidget* frmMacroMulti::MakePage(const ChoiceQuestion& question)
{
    auto* sheet = new QWidget(pages);
    auto* row = new QHBoxLayout(sheet);
    row->setContentsMargins(0, 0, 0, 0);
    for (const ChoiceQuestion::List& list : question.Lists) {
        auto* column = new QVBoxLayout;
        QListView* view = MakeList(list, sheet, question.Lists.size() == 1);
        if (page == WordsPage) {
            auto* caption = new QLabel(WithoutMnemonic(list.Caption), sheet);
            caption->setBuddy(view);
            column->addWidget(caption);
        }
        column->addWidget(view, 1);
        row->addLayout(column, 1);
    }
    return sheet;
}

/// One that is not `alone` gives way, so that all fit on a screen of 640 pixels.
QListView* frmMacroMulti::MakeList(const ChoiceQuestion::List& list, QWidget* sheet, bool alone)
{
    auto* view = new QListView(sheet);
    view->setObjectName(page == WordsPage ? QStringLiteral("lstElements") : QStringLiteral("lstAsk"));
    view->setAccessibleName(page == WordsPage ? list.Caption : windowTitle());
    view->setModel(new QStringListModel(list.Items, view));
    view->setUniformItemSizes(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setMinimumSize(Pixels(*this, alone ? ListWidth : NarrowList), Pixels(*this, ListHeight));
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmMacroMulti::ChoiceChanged);
    connect(view, &QListView::doubleClicked, this, [this] {
        if (ok->isEnabled())
            accept();
    });
    lists.push_back(view);
    return view;
}

QString frmMacroMulti::TextOf(const QListView& list) const
{
    const QModelIndexList chosen = list.selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? QString() : chosen.front().data().toString();
}

void frmMacroMulti::ChoiceChanged()
{
    QStringList parts;
    for (const QListView* list : lists)
        if (const QString text = TextOf(*list); !text.isEmpty())
            parts << text;
    preview->setText(parts.join(u'.'));
    if (page == WordsPage)
        ok->setEnabled(!parts.isEmpty());
    else
        ok->setEnabled(lists.front()->selectionModel()->hasSelection());
}

Answer frmMacroMulti::Chosen() const
{
    if (lists.size() > 1)
        return preview->text();
    return lists.front()->selectionModel()->selectedIndexes().front().row() + 1;
}

Answer frmMacroMulti::Ask(const ChoiceQuestion& question, QWidget* parent)
{
    const ModalScope scope;
    frmMacroMulti dialog(question, parent);
    return dialog.exec() == QDialog::Accepted ? dialog.Chosen() : Answer(Cancelled{});
}

Answer frmMacroMulti::AskEntry(const ZipEntryQuestion& question, QWidget* parent)
{
    const ModalScope scope;
    frmMacroMulti dialog(question, parent);
    if (dialog.exec() != QDialog::Accepted)
        return Cancelled{};
    return dialog.tree->selectionModel()->selectedIndexes().front().data(Qt::UserRole + 1).toString();
}
