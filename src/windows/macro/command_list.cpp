#include "windows/macro/command_list.h"

#include "macro/basic_words.h"
#include "macro/word_facts.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <functional>

namespace {

constexpr int LinesOfFacts = 6;
constexpr int MeaningRole = Qt::UserRole;

bool IsWordEntry(const QListWidgetItem& entry)
{
    return !entry.text().isEmpty() && !entry.text().startsWith(QLatin1String("--"));
}

QString FactsText(const QString& word)
{
    const std::optional<WordFacts> facts = FactsOfWord(word);
    return facts ? facts->Form + u'\n' + facts->Meaning : QString();
}

} // namespace

CommandList::CommandList(QWidget* parent) : QWidget(parent)
{
    txtFilter = new QLineEdit(this);
    txtFilter->setObjectName(QStringLiteral("txtFilter"));
    txtFilter->setAccessibleName(QStringLiteral("Filter of the commands"));
    txtFilter->setPlaceholderText(QStringLiteral("Filter"));
    txtFilter->setClearButtonEnabled(true);
    lstCom = new QListWidget(this);
    lstCom->setObjectName(QStringLiteral("lstCom"));
    lstCom->setAccessibleName(QStringLiteral("Commands"));
    lstCom->setUniformItemSizes(true);
    lblForm = new QLabel(this);
    lblForm->setObjectName(QStringLiteral("lblForm"));
    lblForm->setAccessibleName(QStringLiteral("Form and meaning"));
    lblForm->setTextFormat(Qt::PlainText);
    lblForm->setWordWrap(true);
    lblForm->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblForm->setMinimumHeight(LinesOfFacts * lblForm->fontMetrics().lineSpacing());
    lblForm->setMinimumWidth(1); // as narrow as the list may be
    auto* column = new QVBoxLayout(this);
    setFocusProxy(txtFilter);
    column->setContentsMargins({});
    column->addWidget(txtFilter);
    column->addWidget(lstCom, 1);
    column->addWidget(lblForm);
    Fill();
    ShowFacts();
    for (QWidget* part : std::initializer_list<QWidget*>{txtFilter, lstCom})
        part->installEventFilter(this);
    connect(txtFilter, &QLineEdit::textChanged, this, &CommandList::Filter);
    connect(lstCom, &QListWidget::currentItemChanged, this, &CommandList::ShowFacts);
    connect(lstCom, &QListWidget::itemActivated, this, &CommandList::ChooseCurrent);
}

void CommandList::Fill()
{
    for (const BasicWordGroup& group : BasicWords()) {
        if (!group.Heading.isEmpty() && lstCom->count() > 0)
            lstCom->addItem(QString());
        if (!group.Heading.isEmpty())
            lstCom->addItem(group.Heading);
        for (const QString& word : group.Words) {
            auto* entry = new QListWidgetItem(word, lstCom);
            if (const std::optional<WordFacts> facts = FactsOfWord(word)) {
                entry->setData(MeaningRole, facts->Meaning);
                entry->setToolTip(TipOf(*facts));
            }
        }
    }
}

/// By words; if none fits, by what they mean.
void CommandList::Filter(const QString& typed)
{
    const auto fits = [&](const QString& text) { return text.contains(typed, Qt::CaseInsensitive); };
    for (const int role : {int(Qt::DisplayRole), MeaningRole}) {
        bool any = false;
        for (int row = 0; row < lstCom->count(); ++row) {
            QListWidgetItem& entry = *lstCom->item(row);
            const bool shown = typed.isEmpty() || (IsWordEntry(entry) && fits(entry.data(role).toString()));
            entry.setHidden(!shown);
            any = any || shown;
        }
        if (any)
            break;
    }
    QListWidgetItem* current = lstCom->currentItem();
    if (typed.isEmpty() || (current && !current->isHidden())) {
        lstCom->scrollToItem(current);
        return;
    }
    for (int row = 0; row < lstCom->count(); ++row)
        if (!lstCom->item(row)->isHidden())
            return lstCom->setCurrentRow(row);
    lstCom->setCurrentItem(nullptr);
}

QString CommandList::CurrentWord() const
{
    const QListWidgetItem* entry = lstCom->currentItem();
    return entry && !entry->isHidden() && IsWordEntry(*entry) ? entry->text() : QString();
}

void CommandList::ShowFacts()
{
    const QString facts = FactsText(CurrentWord());
    lblForm->setText(facts.isEmpty() ? QStringLiteral("Enter or a double click puts the word into the code, typing "
                                                      "filters the list.")
                                     : facts);
}

void CommandList::ChooseCurrent()
{
    if (const QString word = CurrentWord(); !word.isEmpty())
        emit Chosen(word);
}

bool CommandList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    auto& key = static_cast<QKeyEvent&>(*event);
    return watched == lstCom ? ListKey(key) : FilterKey(key);
}

/// What is typed in the list goes into the filter.
bool CommandList::ListKey(QKeyEvent& event)
{
    const bool plain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    if (!plain || event.text().isEmpty() || !(event.text().front().isPrint() || event.key() == Qt::Key_Backspace))
        return false;
    txtFilter->setFocus();
    QCoreApplication::sendEvent(txtFilter, &event);
    return true;
}

/// The list moves and chooses while its user types.
bool CommandList::FilterKey(QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        lstCom->setFocus();
        QCoreApplication::sendEvent(lstCom, &event);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        ChooseCurrent();
        return true;
    default:
        return false;
    }
}
