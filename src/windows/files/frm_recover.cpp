#include "windows/files/frm_recover.h"

#include "frame/documents/documents.h"
#include "frame/files/take_recovered.h"
#include "frame/recovery/recovery.h"
#include "platform/files/paths.h"
#include "windows/files/recovery_view.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/window_position.h"

#include <QDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

enum Column { FileColumn, KeptColumn, SizeColumn };
constexpr int NumberRole = Qt::UserRole; ///< of the text in the list that was found

class frmRecover : public QDialog
{
public:
    frmRecover(QWidget* owner, Recovery& recovery, std::vector<RecoveredText> found);

private:
    void MakeParts();
    void PlaceParts();
    void AddRow(int number);
    void ShowCurrent();
    void TakeSelected();
    void ThrowSelectedAway();
    std::vector<QTreeWidgetItem*> Selected() const;
    const RecoveredText& TextOf(const QTreeWidgetItem& item) const { return texts[item.data(0, NumberRole).toUInt()]; }
    void Drop(QTreeWidgetItem* item);

    Recovery& keeper;
    std::vector<RecoveredText> texts;
    QTreeWidget* treeTexts;
    QLabel* lblCompare;
    QPlainTextEdit* txtCompare;
    QPushButton *cmdTake, *cmdKeep, *cmdThrow;
};

frmRecover::frmRecover(QWidget* owner, Recovery& recovery, std::vector<RecoveredText> found)
    : QDialog(DialogParent(owner)), keeper(recovery), texts(std::move(found))
{
    setObjectName(QStringLiteral("frmRecover"));
    SetHelpSubject(this, QStringLiteral("recovery"));
    setWindowTitle(QStringLiteral("Gemforge - Unsaved Texts"));
    MakeParts();
    PlaceParts();
    for (size_t i = 0; i < texts.size(); ++i)
        AddRow(int(i));
    connect(treeTexts, &QTreeWidget::currentItemChanged, this, [this] { ShowCurrent(); });
    treeTexts->setCurrentItem(treeTexts->topLevelItem(0));
    treeTexts->setFocus();
}

void frmRecover::MakeParts()
{
    treeTexts = new QTreeWidget(this);
    treeTexts->setAccessibleName(QStringLiteral("Unsaved texts"));
    treeTexts->setHeaderLabels({QStringLiteral("File"), QStringLiteral("Kept"), QStringLiteral("Size")});
    treeTexts->setRootIsDecorated(false);
    treeTexts->setSelectionMode(QAbstractItemView::ExtendedSelection);
    treeTexts->setTextElideMode(Qt::ElideMiddle);
    treeTexts->header()->setStretchLastSection(false);
    treeTexts->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    treeTexts->header()->setSectionResizeMode(FileColumn, QHeaderView::Stretch);
    lblCompare = new QLabel(this);
    lblCompare->setTextFormat(Qt::PlainText);
    txtCompare = new QPlainTextEdit(this);
    txtCompare->setObjectName(QStringLiteral("txtCompare"));
    txtCompare->setAccessibleName(QStringLiteral("Comparison"));
    txtCompare->setReadOnly(true);
    txtCompare->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtCompare->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* colours = new DiffColours(txtCompare->document());
    colours->Dark = palette().color(QPalette::Base).lightness() < 128;

    const auto button = [this](const char* name, const char* caption, auto action) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setObjectName(QString::fromLatin1(name));
        connect(made, &QPushButton::clicked, this, action);
        return made;
    };
    cmdTake = button("cmdTake", "&Take", [this] { TakeSelected(); });
    cmdTake->setDefault(true);
    cmdKeep = button("cmdKeep", "&Keep For Later", [this] { reject(); });
    cmdThrow = button("cmdThrow", "Throw &Away", [this] { ThrowSelectedAway(); });
}

void frmRecover::PlaceParts()
{
    auto* told = new QLabel(QStringLiteral("These texts were not saved when Gemforge ended. Take opens a text as an "
                                           "unsaved document, code of a macro on the workbench once this window has "
                                           "gone; the file on disk stays as it is until you save."),
                            this);
    told->setWordWrap(true);
    auto* below = new QWidget(this);
    auto* comparison = new QVBoxLayout(below);
    comparison->setContentsMargins(0, 0, 0, 0);
    comparison->addWidget(lblCompare);
    comparison->addWidget(txtCompare);
    auto* split = new QSplitter(Qt::Vertical, this);
    split->addWidget(treeTexts);
    split->addWidget(below);
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 3);
    split->setChildrenCollapsible(false);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdThrow);
    buttons->addStretch();
    buttons->addWidget(cmdKeep);
    buttons->addWidget(cmdTake);
    auto* column = new QVBoxLayout(this);
    column->addWidget(told);
    column->addWidget(split, 1);
    column->addLayout(buttons);
    ResizeOnScreen(*this, QSize(Pixels(*this, 680), Pixels(*this, 480)));
}

void frmRecover::AddRow(int number)
{
    const RecoveredText& text = texts[number];
    const QLocale locale;
    const QString name = text.DocumentPath.isEmpty()
                             ? QStringLiteral("(never saved, %1)")
                                   .arg(text.Code ? QStringLiteral("BASIC") : ModeName(text.Mode).trimmed())
                             : paths::Native(text.DocumentPath);
    auto* item = new QTreeWidgetItem(treeTexts, {name, locale.toString(text.Kept.toLocalTime(), QLocale::ShortFormat),
                                                 locale.formattedDataSize(text.Bytes.size())});
    item->setTextAlignment(SizeColumn, Qt::AlignRight);
    item->setToolTip(FileColumn, name);
    item->setData(0, NumberRole, number);
}

void frmRecover::ShowCurrent()
{
    const QTreeWidgetItem* item = treeTexts->currentItem();
    if (!item)
        return;
    const RecoveryView view = ViewOf(TextOf(*item));
    lblCompare->setText(view.Heading);
    txtCompare->setPlainText(view.Lines);
}

std::vector<QTreeWidgetItem*> frmRecover::Selected() const
{
    std::vector<QTreeWidgetItem*> items;
    for (int i = 0; i < treeTexts->topLevelItemCount(); ++i)
        if (treeTexts->topLevelItem(i)->isSelected())
            items.push_back(treeTexts->topLevelItem(i));
    return items;
}

void frmRecover::TakeSelected()
{
    for (QTreeWidgetItem* item : Selected()) {
        if (!TakeRecovered(TextOf(*item))) {
            ShowFailure(
                {{}, QStringLiteral("All tabs are in use. Keep the text for later: the next start offers it again.")});
            return;
        }
        Drop(item);
    }
}

void frmRecover::ThrowSelectedAway()
{
    const std::vector<QTreeWidgetItem*> items = Selected();
    if (items.empty())
        return;
    MessageRecord question;
    question.MessageTitle = QStringLiteral("Throw Away");
    question.MessageText = items.size() == 1
                               ? QStringLiteral("Do you want to throw away the kept text?^^") + items.front()->text(0)
                               : QStringLiteral("Do you want to throw away %1 kept texts?").arg(items.size());
    question.MessageIcon = 2;
    question.MessageButtons = QStringLiteral("Cancel_Throw Away");
    Frame.Message = question;
    if (ShowRecord() == WayOutOf(Frame.Message))
        return;
    for (QTreeWidgetItem* item : items) {
        keeper.Forget(TextOf(*item));
        Drop(item);
    }
}

void frmRecover::Drop(QTreeWidgetItem* item)
{
    delete item;
    if (treeTexts->topLevelItemCount() == 0)
        accept();
    else if (treeTexts->selectedItems().isEmpty() && treeTexts->currentItem())
        treeTexts->currentItem()->setSelected(true);
}

} // namespace

void OfferRecovered(QWidget* owner, Recovery& recovery)
{
    std::vector<RecoveredText> found = recovery.FindRecovered();
    const auto saved =
        std::stable_partition(found.begin(), found.end(), [](const RecoveredText& text) { return !text.SameAsDisk; });
    for (auto text = saved; text != found.end(); ++text)
        recovery.Forget(*text); // the file has it
    found.erase(saved, found.end());
    if (found.empty())
        return;
    const ModalScope scope;
    frmRecover(owner, recovery, std::move(found)).exec();
}
