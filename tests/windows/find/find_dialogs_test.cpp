#include "frame/files/tab_commands.h"
#include "windows/find/find_dialogs.h"

#include "editor/make_pane.h"
#include "windows/find/find_dialog.h"
#include "windows/find/goto_dialog.h"
#include "windows/main/command_table.h"
#include "windows/main/main_window_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

class FindDialogs : public MainWindowTest
{
protected:
    void Show(FindKind kind)
    {
        CurrentPane().SetFindText(QString());
        ShowFindDialog(Window.get(), CurrentPane(), kind);
        dialog = Window->findChild<FindDialog*>();
        if (kind == FindKind::GotoLine)
            return;
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    }

    QAbstractButton& Part(const char* caption) const
    {
        for (auto* button : dialog->findChildren<QAbstractButton*>())
            if (button->text().remove(QLatin1Char('&')) == QLatin1String(caption))
                return *button;
        qFatal("no button %s", caption);
    }

    QComboBox& Box(const char* name) const
    {
        for (auto* box : dialog->findChildren<QComboBox*>())
            if (box->accessibleName() == QLatin1String(name))
                return *box;
        qFatal("no box %s", name);
    }

    /// Types over a box and presses Enter in it.
    void Type(const char* box, const char* text) const
    {
        QLineEdit* line = Box(box).lineEdit();
        line->selectAll();
        QTest::keyClicks(line, QString::fromUtf8(text));
    }

    void FindText(const char* text, Qt::KeyboardModifiers keys = {}) const
    {
        Type("Find", text);
        QTest::keyClick(Box("Find").lineEdit(), Qt::Key_Return, keys);
    }

    void Again(Qt::KeyboardModifiers keys = {}) const { QTest::keyClick(Box("Find").lineEdit(), Qt::Key_Return, keys); }

    QString Outcome() const { return dialog->findChild<QLabel*>(QStringLiteral("lblOutcome"))->text(); }

    static Range At(int line, int from, int to) { return {line, from, line, to}; }

    FindDialog* dialog = nullptr;
};

// Catches: Enter that closes or picks instead of finding, Shift+Enter that finds forward, a search that wraps without
// the tick, one that does not say that it found nothing or went round, and a dialog that covers what it found.
TEST_F(FindDialogs, EnterFindsAndWrapsOnlyIfTicked)
{
    CurrentPane().SetText(QStringLiteral("gem rock\ngem\nrock gem"));
    CurrentPane().ExecuteCmd(CmdDocumentStart);
    Show(FindKind::Find);
    dialog->move(WidgetOf(CurrentPane())->mapToGlobal(QPoint(0, 0)));
    FindText("GEM");
    EXPECT_EQ(CurrentPane().GetSel(true), At(0, 0, 3));
    const QPoint pane = WidgetOf(CurrentPane())->mapToGlobal(QPoint(0, 0));
    EXPECT_FALSE(dialog->frameGeometry().contains(pane + QPoint(60, 5))) << "covers the hit";
    Again();
    Again();
    EXPECT_EQ(CurrentPane().GetSel(true), At(2, 5, 8));
    EXPECT_EQ(Outcome(), QString());
    Again();
    EXPECT_EQ(Outcome(), QStringLiteral("Not found up to the end."));
    EXPECT_EQ(CurrentPane().GetSel(true), At(2, 5, 8));
    Again(Qt::ShiftModifier);
    EXPECT_EQ(CurrentPane().GetSel(true), At(1, 0, 3));
    EXPECT_EQ(Outcome(), QString());

    Part("Wrap around").click();
    Again();
    Again();
    EXPECT_EQ(CurrentPane().GetSel(true), At(0, 0, 3));
    EXPECT_EQ(Outcome(), QStringLiteral("Went on from the top."));
    Part("Find Previous").click();
    EXPECT_EQ(Outcome(), QStringLiteral("Went on from the bottom."));
    Part("Match case").click();
    FindText("GEM");
    EXPECT_EQ(Outcome(), QStringLiteral("Not found."));
    Part("Match case").click();
    Part("Whole word").click();
    FindText("ge");
    EXPECT_EQ(Outcome(), QStringLiteral("Not found."));
    EXPECT_TRUE(dialog->isVisible());
}

// Catches: a broken expression that is told as "not found", shown in a box of its own or loses what was typed;
// a place behind the end of the expression.
TEST_F(FindDialogs, ABrokenExpressionIsToldInTheDialog)
{
    CurrentPane().SetText(QStringLiteral("a(b"));
    Show(FindKind::Replace);
    Part("Regular expression").click();
    FindText("a(");
    EXPECT_TRUE(Outcome().startsWith(QStringLiteral("Wrong expression"))) << Outcome();
    Part("Replace All").click();
    EXPECT_EQ(CurrentPane().Text(), QStringLiteral("a(b"));
    EXPECT_EQ(Box("Find").currentText(), QStringLiteral("a("));
    for (const auto& [pattern, place] :
         {std::pair("a(", 2), std::pair("a[b", 3), std::pair("*ab", 1), std::pair("ab)c", 3)}) {
        FindText(pattern);
        const QString told = QStringLiteral("(character %1)").arg(place);
        EXPECT_TRUE(Outcome().endsWith(told)) << Outcome();
    }
    FindText("a\\(b");
    EXPECT_EQ(Outcome(), QString());
}

// Catches: the selection not taken as the text to find, several lines taken, or a selection that an expression reads
// as something else.
TEST_F(FindDialogs, TheSelectionIsTheText)
{
    CurrentPane().SetText(QStringLiteral("gem.left? x\nrock"));
    CurrentPane().SetSel(At(0, 0, 9), false);
    Show(FindKind::Find);
    EXPECT_EQ(Box("Find").currentText(), QStringLiteral("gem.left?"));
    EXPECT_EQ(Box("Find").lineEdit()->selectedText(), QStringLiteral("gem.left?")) << "typing must replace it";
    Part("Regular expression").click();
    FindText("[a-z]+");
    CurrentPane().SetSel(At(0, 0, 9), false);
    Show(FindKind::Find);
    EXPECT_EQ(Box("Find").currentText(), QStringLiteral("gem\\.left\\?"));
    CurrentPane().SetSel({0, 0, 1, 2}, false);
    Show(FindKind::Find);
    EXPECT_EQ(Box("Find").currentText(), QStringLiteral("[a-z]+")) << "newest of the history";
}

// Catches: Replace that changes what is no hit, a wrong count, a replace all outside the selection, one that takes
// several undos, and a pane that stays frozen afterwards.
TEST_F(FindDialogs, ReplacesOneAllOrTheSelection)
{
    EditorPane& pane = CurrentPane();
    pane.SetText(QStringLiteral("gem gem\ngem\ngem"));
    pane.ExecuteCmd(CmdDocumentStart);
    Show(FindKind::Replace);
    Type("Find", "gem");
    Type("Replace with", "emerald");
    Part("Replace").click();
    EXPECT_EQ(pane.GetLine(0), QStringLiteral("gem gem")) << "only found yet";
    Part("Replace").click();
    EXPECT_EQ(pane.GetLine(0), QStringLiteral("emerald gem"));
    EXPECT_EQ(pane.SelText(), QStringLiteral("gem"));

    pane.SetSel({0, 0, 1, 3}, false);
    Part("In Selection").click();
    EXPECT_EQ(pane.Text(), QStringLiteral("emerald emerald\r\nemerald\r\ngem"));
    EXPECT_EQ(Outcome(), QStringLiteral("2 replaced."));
    pane.ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane.Text(), QStringLiteral("emerald gem\r\ngem\r\ngem"));
    Part("Replace All").click();
    EXPECT_EQ(Outcome(), QStringLiteral("3 replaced."));
    EXPECT_TRUE(WidgetOf(pane)->updatesEnabled());
    pane.ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane.GetLine(2), QStringLiteral("gem"));
    Type("Find", "rock");
    Part("Replace All").click();
    EXPECT_EQ(Outcome(), QStringLiteral("Not found."));
}

// Catches: a history in the wrong order, longer than its limit, or without what was searched just now.
TEST_F(FindDialogs, HistoriesAreNewestFirst)
{
    Frame.Settings.FindHistoryLimit = 3;
    Frame.Globals.FindMRUList = QStringLiteral("c\nb\na");
    CurrentPane().SetText(QStringLiteral("x"));
    Show(FindKind::Find);
    EXPECT_EQ(Box("Find").currentText(), QStringLiteral("c"));
    FindText("b");
    FindText("new");
    QStringList items;
    for (int i = 0; i < Box("Find").count(); ++i)
        items << Box("Find").itemText(i);
    EXPECT_EQ(items, (QStringList{QStringLiteral("new"), QStringLiteral("b"), QStringLiteral("c")}));
}

// Catches: a dialog that goes on in the tab where it was opened, options that hold in one tab only (F3), a second
// dialog for each call, and Esc that leaves it open or the focus behind.
TEST_F(FindDialogs, FollowsTheUserToOtherTabs)
{
    CurrentPane().SetText(QStringLiteral("gem"));
    Show(FindKind::Find);
    const QPointer<FindDialog> first = dialog;
    OpenNewTab();
    ActivateTab();
    CurrentPane().SetText(QStringLiteral("Gem gem"));
    CurrentPane().ExecuteCmd(CmdDocumentStart);
    Part("Match case").click();
    FindText("gem");
    EXPECT_EQ(CurrentPane().GetSel(true), At(0, 4, 7));
    EXPECT_TRUE(Window->Pane(5).CurrentFindOptions().MatchCase);
    EXPECT_EQ(Window->Pane(0).FindText(), QStringLiteral("gem"));

    Show(FindKind::Replace);
    EXPECT_EQ(dialog, first);
    EXPECT_EQ(Window->findChildren<FindDialog*>().size(), 1);
    EXPECT_TRUE(Box("Replace with").isVisible());
    EXPECT_TRUE(Part("Match case").isChecked());
    QTest::keyClick(Box("Find").lineEdit(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    Show(FindKind::Find);
    EXPECT_FALSE(Box("Replace with").isVisible());
    EXPECT_LE(dialog->minimumSizeHint().height(), dialog->height());
    EXPECT_LE(dialog->minimumSizeHint().width(), dialog->width()) << "clipped";
}

// Catches: a line off by one from the margin's number, a number behind the end, and Esc that moves the caret.
TEST_F(FindDialogs, GotoLineCountsAsTheMargin)
{
    CurrentPane().SetText(QStringLiteral("1\n2\n3\n4"));
    CurrentPane().ExecuteCmd(CmdDocumentStart);
    Show(FindKind::GotoLine);
    auto* asked = Window->findChild<GotoDialog*>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(asked));
    auto* number = asked->findChild<QSpinBox*>();
    QTest::keyClicks(number, QStringLiteral("3"));
    QTest::keyClick(number, Qt::Key_Return);
    EXPECT_FALSE(asked->isVisible());
    EXPECT_EQ(CurrentPane().GetSel(true).StartLine, 2);
    Show(FindKind::GotoLine);
    EXPECT_EQ(number->value(), 3);
    QTest::keyClicks(number, QStringLiteral("1"));
    QTest::keyClick(number, Qt::Key_Escape);
    EXPECT_EQ(CurrentPane().GetSel(true).StartLine, 2);
    Show(FindKind::GotoLine);
    QTest::keyClicks(number, QStringLiteral("999"));
    QTest::keyClick(number, Qt::Key_Return);
    EXPECT_EQ(CurrentPane().GetSel(true).StartLine, 3) << "behind the end is the last line, not 99 or 9";
}

// Catches: an Alt letter of the dialog that a menu of the window behind has too, so that neither answers.
TEST_F(FindDialogs, LettersAreTheDialogsOwn)
{
    Show(FindKind::Replace);
    QStringList taken;
    for (const MenuRow& menu : MainMenus())
        taken << QString::fromLatin1(menu.Letter).toUpper();
    QStringList captions;
    for (const auto* button : dialog->findChildren<QAbstractButton*>())
        captions << button->text();
    for (const auto* label : dialog->findChildren<QLabel*>())
        captions << label->text();
    for (const QString& caption : captions) {
        const qsizetype mark = caption.indexOf(QLatin1Char('&'));
        if (mark < 0)
            continue;
        const QString letter = caption.mid(mark + 1, 1).toUpper();
        EXPECT_FALSE(taken.contains(letter)) << caption;
        taken << letter;
    }
}
