#include "windows/find/find_dialog.h"

#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

QComboBox* MakeHistory(QWidget* parent, const QString& name)
{
    auto* box = new QComboBox(parent);
    box->setAccessibleName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr); // a completed text would search for more than was typed
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(28);
    return box;
}

void FillHistory(QComboBox& box, const QString& items, int limit, const QString& text)
{
    box.clear();
    box.addItems(items.split(QLatin1Char('\n'), Qt::SkipEmptyParts).mid(0, limit));
    box.setEditText(text);
}

QString FirstOf(const QString& items)
{
    return items.section(QLatin1Char('\n'), 0, 0);
}

/// A text that a regular expression takes for itself.
QString Literal(const QString& text)
{
    QString literal;
    for (const QChar c : text) {
        if (QStringLiteral("\\^$.|?*+()[]{}").contains(c))
            literal += QLatin1Char('\\');
        literal += c;
    }
    return literal;
}

} // namespace

FindDialog::FindDialog(QWidget* owner) : QDialog(owner, Qt::Tool)
{
    setObjectName(QStringLiteral("FindDialog"));
    SetHelpSubject(this, QStringLiteral("find_dialogs"));
    cmbFind = MakeHistory(this, QStringLiteral("Find"));
    cmbReplace = MakeHistory(this, QStringLiteral("Replace with"));
    lblReplace = new QLabel(QStringLiteral("Replace &with:"), this);
    lblReplace->setBuddy(cmbReplace);
    lblOutcome = new QLabel(this);
    lblOutcome->setObjectName(QStringLiteral("lblOutcome"));
    lblOutcome->setTextFormat(Qt::PlainText);
    lblOutcome->setWordWrap(true);
    lblOutcome->setMinimumHeight(lblOutcome->fontMetrics().lineSpacing() * 2);
    lblOutcome->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    MakeOptions();
    MakeButtons();
    PlaceParts();
}

void FindDialog::MakeOptions()
{
    const auto option = [this](const char* caption) { return new QCheckBox(QString::fromLatin1(caption), this); };
    chkCase = option("Match &case");
    chkWord = option("Who&le word");
    chkExpression = option("Regular e&xpression");
    chkWrap = option("Wrap ar&ound");
    connect(cmbFind, &QComboBox::editTextChanged, this, [this] {
        Say({}, false);
        UpdateButtons();
    });
}

void FindDialog::MakeButtons()
{
    const auto button = [this](const char* caption, auto action) {
        auto* made = new QPushButton(QString::fromLatin1(caption), this);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, action);
        return made;
    };
    cmdNext = button("Find &Next", [this] { FindFrom(true); });
    cmdPrevious = button("Find Previo&us", [this] { FindFrom(false); });
    cmdReplace = button("Re&place", [this] { ReplaceOne(); });
    cmdReplaceAll = button("Replace &All", [this] { ReplaceMany(CmdReplaceAll); });
    cmdReplaceSelection = button("In &Selection", [this] { ReplaceMany(CmdReplaceAllInSelection); });
    cmdReplaceSelection->setAccessibleName(QStringLiteral("Replace all in the selection"));
    cmdReplaceSelection->setToolTip(cmdReplaceSelection->accessibleName());
    cmdClose = button("Close", [this] { reject(); });
    cmdNext->setDefault(true);
}

void FindDialog::PlaceParts()
{
    auto* lblFind = new QLabel(QStringLiteral("Fin&d:"), this);
    lblFind->setBuddy(cmbFind);
    auto* grid = new QGridLayout(this);
    grid->addWidget(lblFind, 0, 0);
    grid->addWidget(cmbFind, 0, 1, 1, 2);
    grid->addWidget(lblReplace, 1, 0);
    grid->addWidget(cmbReplace, 1, 1, 1, 2);
    grid->addWidget(chkCase, 2, 1);
    grid->addWidget(chkExpression, 2, 2);
    grid->addWidget(chkWord, 3, 1);
    grid->addWidget(chkWrap, 3, 2);
    grid->addWidget(lblOutcome, 4, 0, 3, 3);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(6, 1);
    int row = 0;
    for (QPushButton* each : {cmdNext, cmdPrevious, cmdReplace, cmdReplaceAll, cmdReplaceSelection, cmdClose})
        grid->addWidget(each, row++, 3);
    grid->setSizeConstraint(QLayout::SetMinimumSize);
    QWidget* const order[] = {cmbFind, cmbReplace,  chkCase,    chkWord,       chkExpression,       chkWrap,
                              cmdNext, cmdPrevious, cmdReplace, cmdReplaceAll, cmdReplaceSelection, cmdClose};
    for (size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void FindDialog::Open(EditorPane& pane, FindKind kind)
{
    const bool wasOpen = isVisible();
    target.Set(pane);
    ShowKind(kind);
    TakeTexts();
    if (!wasOpen)
        PlaceBeside(*this, pane);
    show();
    raise();
    activateWindow();
    cmbFind->setFocus();
    cmbFind->lineEdit()->selectAll();
    UncoverCaret(*this, pane);
}

void FindDialog::ShowKind(FindKind kind)
{
    const bool replacing = kind == FindKind::Replace;
    setWindowTitle(replacing ? QStringLiteral("Replace") : QStringLiteral("Find"));
    for (QWidget* part :
         std::initializer_list<QWidget*>{lblReplace, cmbReplace, cmdReplace, cmdReplaceAll, cmdReplaceSelection})
        part->setVisible(replacing);
    adjustSize();
}

void FindDialog::TakeTexts()
{
    const EditorPane& pane = *target.Pane();
    const FindOptions options = pane.CurrentFindOptions();
    chkCase->setChecked(options.MatchCase);
    chkWord->setChecked(options.WholeWord);
    chkExpression->setChecked(options.RegularExpression);
    chkWrap->setChecked(options.Wrap);

    const EditorGlobals& histories = Frame.Globals;
    QString text = pane.FindText().isEmpty() ? FirstOf(histories.FindMRUList) : pane.FindText();
    const Range selection = pane.GetSel(true);
    if (selection.StartLine == selection.EndLine && pane.SelLength() > 0)
        text = options.RegularExpression ? Literal(pane.SelText()) : pane.SelText();
    FillHistories(text, pane.ReplaceText().isEmpty() ? FirstOf(histories.ReplaceMRUList) : pane.ReplaceText());
    Say({}, false);
}

void FindDialog::FillHistories(const QString& find, const QString& replace)
{
    const QSignalBlocker quiet(cmbFind);
    FillHistory(*cmbFind, Frame.Globals.FindMRUList, Frame.Settings.FindHistoryLimit, find);
    FillHistory(*cmbReplace, Frame.Globals.ReplaceMRUList, Frame.Settings.ReplaceHistoryLimit, replace);
    UpdateButtons();
}

// Text and options hold for all tabs, so that F3 goes on with them wherever the user is.
void FindDialog::TellPane()
{
    const FindOptions options{chkCase->isChecked(), chkWord->isChecked(), chkExpression->isChecked(),
                              chkWrap->isChecked()};
    const auto tell = [&](EditorPane& pane) {
        pane.SetFindText(cmbFind->currentText());
        pane.SetReplaceText(cmbReplace->currentText());
        pane.SetFindOptions(options);
    };
    if (!target.FollowsTabs()) {
        tell(*target.Pane());
        return;
    }
    for (int tab = 0; tab < int(Frame.Documents.size()); ++tab)
        tell(Panes().Pane(tab));
}

void FindDialog::FindFrom(bool forward)
{
    EditorPane* pane = target.Pane();
    if (!pane || cmbFind->currentText().isEmpty())
        return;
    TellPane();
    const Range before = pane->GetSel(true);
    const bool found = pane->ExecuteCmd(forward ? CmdFindNext : CmdFindPrevious);
    const Range now = pane->GetSel(true);
    const auto place = [](const Range& range) { return std::pair(range.StartLine, range.StartCol); };
    QString news;
    if (now == before)
        news = QStringLiteral("This is the only one.");
    else if (forward ? place(now) < place(before) : place(before) < place(now))
        news = forward ? QStringLiteral("Went on from the top.") : QStringLiteral("Went on from the bottom.");
    ShowOutcome(found, news, NotFoundText(forward));
}

void FindDialog::ReplaceOne()
{
    EditorPane* pane = target.Pane();
    if (!pane)
        return;
    TellPane();
    const bool found = pane->ReplaceFound();
    const bool last = pane->LastReplaceCount() > 0 && pane->SelLength() == 0;
    ShowOutcome(found, last ? QStringLiteral("Replaced the last one.") : QString(), NotFoundText(true));
}

void FindDialog::ReplaceMany(int command)
{
    EditorPane* pane = target.Pane();
    if (!pane)
        return;
    TellPane();
    pane->LockRedraw(true);
    const bool ran = pane->ExecuteCmd(command);
    pane->LockRedraw(false);
    const int count = ran ? pane->LastReplaceCount() : 0;
    ShowOutcome(count > 0, QStringLiteral("%1 replaced.").arg(count), QStringLiteral("Not found."));
}

QString FindDialog::NotFoundText(bool forward) const
{
    if (chkWrap->isChecked())
        return QStringLiteral("Not found.");
    return forward ? QStringLiteral("Not found up to the end.") : QStringLiteral("Not found up to the top.");
}

void FindDialog::ShowOutcome(bool found, const QString& good, const QString& bad)
{
    EditorPane& pane = *target.Pane();
    const QString error = pane.FindError();
    if (!error.isEmpty())
        Say(QStringLiteral("Wrong expression: ") + error, true);
    else
        Say(found ? good : bad, !found);
    FillHistories(cmbFind->currentText(), cmbReplace->currentText());
    UncoverCaret(*this, pane);
}

void FindDialog::Say(const QString& text, bool trouble)
{
    lblOutcome->setText(text);
    QPalette colours = palette();
    if (trouble) { // red that reads on a light and on a dark window
        const bool dark = colours.color(QPalette::Window).lightness() < 128;
        colours.setColor(QPalette::WindowText, dark ? QColor(255, 140, 130) : QColor(170, 20, 20));
    }
    lblOutcome->setPalette(colours);
    QAccessibleEvent spoken(lblOutcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&spoken);
}

void FindDialog::UpdateButtons()
{
    const bool some = !cmbFind->currentText().isEmpty();
    for (QPushButton* each : {cmdNext, cmdPrevious, cmdReplace, cmdReplaceAll, cmdReplaceSelection})
        each->setEnabled(some);
}

void FindDialog::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers().testFlag(Qt::ShiftModifier))
        cmdPrevious->click();
    else
        QDialog::keyPressEvent(event);
}

void FindDialog::reject()
{
    QDialog::reject();
    if (EditorPane* pane = target.Pane())
        pane->FocusPane();
}
