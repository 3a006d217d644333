#include "windows/macro/frm_macro_multi.h"

#include "windows/macro/zip_page.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>
#include <QStringListModel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum MultiPage { ListPage, WordsPage, ArchivePage };

constexpr int ListWidth = 240, ListHeight = 260; ///< pixels of a 96-dpi screen

} // namespace

frmMacroMulti::frmMacroMulti(const ChoiceQuestion& question, QWidget* parent)
    : QDialog(parent),
      ofWords(!question.Lists.front().Caption.isEmpty()),
      pages(new QStackedWidget(this)),
      preview(new QLineEdit(this))
{
    setWindowTitle(question.Title); // a list is called by it
    for (int page = ListPage; page <= ArchivePage; ++page)
        pages->addWidget(page == (ofWords ? WordsPage : ListPage) ? MakePage(question) : new QWidget(pages));
    pages->setCurrentIndex(ofWords ? WordsPage : ListPage);
    preview->setObjectName(QStringLiteral("txtPreview"));
    preview->setAccessibleName(QStringLiteral("Chosen"));
    preview->setReadOnly(true);
    preview->setVisible(ofWords);
    LayOut();
    if (!ofWords)
        lists.front()->setCurrentIndex(lists.front()->model()->index(0, 0));
    ChoiceChanged();
    lists.front()->setFocus();
}

frmMacroMulti::frmMacroMulti(const ZipEntryQuestion& question, QWidget* parent)
    : QDialog(parent), ofWords(false), pages(new QStackedWidget(this)), preview(new QLineEdit(this))
{
    setWindowTitle(question.Title);
    zip = new ZipPage(question.Entries, pages);
    for (int page = ListPage; page <= ArchivePage; ++page)
        pages->addWidget(page == ArchivePage ? zip : new QWidget(pages));
    pages->setCurrentIndex(ArchivePage);
    preview->hide();
    LayOut();
    ok->setEnabled(false);
    connect(zip, &ZipPage::Changed, this, [this] { ok->setEnabled(!zip->Chosen().isEmpty()); });
    connect(zip, &ZipPage::Activated, ok, &QPushButton::click);
    zip->lstZipTree()->setFocus();
}

/// Pages, line and buttons below each other.
void frmMacroMulti::LayOut()
{
    setObjectName(QStringLiteral("frmMacroMulti"));
    SetHelpSubject(this, QStringLiteral("macros"));
    pages->setObjectName(QStringLiteral("SSMultiPage"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok = buttons->button(QDialogButtonBox::Ok);
    ok->setText(QStringLiteral("OK"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    for (QWidget* part : std::initializer_list<QWidget*>{pages, preview, buttons})
        column->addWidget(part);
}

QWidget* frmMacroMulti::MakePage(const ChoiceQuestion& question)
{
    auto* page = new QWidget(pages);
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    for (const ChoiceQuestion::List& list : question.Lists) {
        auto* column = new QVBoxLayout;
        QListView* view = MakeList(list, page);
        if (ofWords) {
            auto* caption = new QLabel(WithoutMnemonic(list.Caption), page);
            caption->setBuddy(view);
            column->addWidget(caption);
        }
        column->addWidget(view, 1);
        row->addLayout(column, 1);
    }
    return page;
}

QListView* frmMacroMulti::MakeList(const ChoiceQuestion::List& list, QWidget* page)
{
    auto* view = new QListView(page);
    view->setObjectName(ofWords ? QStringLiteral("lstElements") : QStringLiteral("lstAsk"));
    view->setAccessibleName(ofWords ? list.Caption : windowTitle());
    view->setModel(new QStringListModel(list.Items, view));
    view->setUniformItemSizes(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setMinimumSize(Pixels(*this, ListWidth), Pixels(*this, ListHeight));
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
    if (ofWords)
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

Answer frmMacroMulti::AskZip(const ZipEntryQuestion& question, QWidget* parent)
{
    const ModalScope scope;
    frmMacroMulti dialog(question, parent);
    return dialog.exec() == QDialog::Accepted ? Answer(dialog.zip->Chosen()) : Answer(Cancelled{});
}
