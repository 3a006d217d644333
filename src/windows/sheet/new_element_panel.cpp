#include "windows/sheet/new_element_panel.h"

#include "frame/frame_state.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

/// The entry of `words` that is selected in their list; empty for none.
QString ChosenIn(const QListWidget& list, const QStringList& words)
{
    return list.selectedItems().isEmpty() ? QString() : words.value(list.currentRow());
}

} // namespace

NewElementPanel::NewElementPanel(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("picNewElement"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* group = new QGroupBox(QStringLiteral("Make A New Element  (With the above info)"), this);
    auto* grid = new QGridLayout;
    const auto list = [this, grid](const char* name, const char* caption) {
        auto* made = new QListWidget(this);
        made->setObjectName(QString::fromLatin1(name));
        auto* label = new QLabel(QString::fromLatin1(caption), this);
        label->setBuddy(made);
        const int column = grid->columnCount();
        grid->addWidget(label, 0, column);
        grid->addWidget(made, 1, column);
        return made;
    };
    lstElement = list("lstElement", "&Element");
    txtSearch = new QLineEdit(this);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setPlaceholderText(QStringLiteral("Search"));
    txtSearch->setAccessibleName(QStringLiteral("Search elements"));
    txtSearch->setClearButtonEnabled(true);
    txtSearch->installEventFilter(this);
    setTabOrder(txtSearch, lstElement);
    grid->addWidget(txtSearch, 2, grid->columnCount() - 1);
    lstAction = list("lstAction", "&Action");
    lstDirection = list("lstDirection", "&Direction");
    useTemplate = new QRadioButton(QStringLiteral("Use Quick Element Template"), this);
    useFull = new QRadioButton(QStringLiteral("Make A Full Element"), this);
    useTemplate->setChecked(true);
    auto* cmdMakeElement = new QPushButton(QStringLiteral("&Make"), this);
    cmdMakeElement->setObjectName(QStringLiteral("cmdMakeElement"));
    auto* cmdCancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    cmdMakeElement->setToolTip(QStringLiteral("Ctrl+Enter"));
    cmdCancel->setToolTip(QStringLiteral("Esc"));
    for (QPushButton* button : {cmdMakeElement, cmdCancel})
        button->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    row->addWidget(useTemplate);
    row->addWidget(useFull);
    row->addStretch();
    row->addWidget(cmdMakeElement);
    row->addWidget(cmdCancel);
    auto* inside = new QVBoxLayout(group);
    inside->addLayout(grid, 1);
    inside->addLayout(row);
    (new QVBoxLayout(this))->addWidget(group);
    connect(txtSearch, &QLineEdit::textChanged, this, &NewElementPanel::Narrow);
    connect(cmdMakeElement, &QPushButton::clicked, this, &NewElementPanel::Make);
    connect(cmdCancel, &QPushButton::clicked, this, &NewElementPanel::CancelWanted);
    hide();
}

void NewElementPanel::Open()
{
    words = GraphicsKeyWords();
    const std::pair<QListWidget*, QStringList> lists[] = {
        {lstElement, words.Elements}, {lstAction, words.Actions}, {lstDirection, words.Directions}};
    for (const auto& [list, entries] : lists) {
        list->clear();
        list->addItems(entries);
        list->setCurrentItem(nullptr);
        list->clearSelection();
    }
    txtSearch->clear();
    show();
    raise();
    txtSearch->setFocus();
}

/// The elements that hold what is typed; one that begins with it is chosen before others.
void NewElementPanel::Narrow(const QString& typed)
{
    int best = -1;
    for (int row = 0; row < lstElement->count(); ++row) {
        const QString& word = words.Elements.at(row);
        const bool holds = word.contains(typed, Qt::CaseInsensitive);
        lstElement->item(row)->setHidden(!holds);
        const bool begins = word.startsWith(typed, Qt::CaseInsensitive);
        if (holds && (best < 0 || (begins && !words.Elements.at(best).startsWith(typed, Qt::CaseInsensitive))))
            best = row;
    }
    lstElement->setCurrentRow(typed.isEmpty() ? -1 : best);
    if (lstElement->currentRow() < 0)
        lstElement->clearSelection();
    else
        lstElement->scrollToItem(lstElement->currentItem());
}

/// The arrows go through the list while the keyboard is in the search line.
bool NewElementPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtSearch && event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent&>(*event).key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(lstElement, event);
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void NewElementPanel::Make()
{
    const QString element = ChosenIn(*lstElement, words.Elements);
    if (element.isEmpty()) {
        ShowMessage(message::NoElementPicked);
        return;
    }
    QString key = element;
    for (const QString& word : {ChosenIn(*lstAction, words.Actions), ChosenIn(*lstDirection, words.Directions)})
        if (!word.isEmpty())
            key += QLatin1Char('.') + word;
    emit MakeWanted(key, useFull->isChecked());
}

void NewElementPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit CancelWanted();
    else
        QFrame::keyPressEvent(event);
}
