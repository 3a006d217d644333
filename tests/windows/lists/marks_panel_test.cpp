#include "windows/lists/marks_panel.h"

#include "editor/make_pane.h"
#include "editor/margin_marks.h"
#include "windows/main/main_window_test.h"

#include <QTreeView>

namespace {

class MarksPanelTest : public MainWindowTest
{
protected:
    void Load(const QByteArray& text) const
    {
        SetMode(ModeGfx);
        CurrentPane().LoadBytes(text);
    }
    MarksPanel& Panel() const { return Window->ListOfMarks(); }
    QTreeView* List() const { return Panel().List(); }
    QPoint PlaceOf(int row) const { return List()->visualRect(List()->model()->index(row, 2)).center(); }
    QString Line(int row) const { return List()->model()->index(row, 0).data().toString(); }
};

} // namespace

// Catches: a list that does not open from its key, rows of other lines, a click that goes nowhere, a word not put in by
// the double click, a list that does not follow the text, Esc that stays in it.
TEST_F(MarksPanelTest, LeadsToLinesAndPutsWordsIn)
{
    Load("emerald.xpos: 1\nemeradl.xpos: 1\nemerald.anim_mode: lop\nno colon\n");
    Press(Qt::Key_F8, Qt::ControlModifier);
    ASSERT_TRUE(Panel().ListShows());
    ASSERT_EQ(List()->model()->rowCount(), 3);
    EXPECT_EQ(Line(0) + Line(1) + Line(2), QStringLiteral("234"));
    EXPECT_TRUE(Panel().HasKeyboard());

    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, PlaceOf(2));
    EXPECT_EQ(CurrentPane().CaretLine(), 3);
    QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, PlaceOf(0));
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, PlaceOf(0)); // its second half
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("emerald.xpos: 1"));
    const auto said = [&] { return List()->model()->index(0, 2).data().toString(); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return said().contains(QStringLiteral("same key")); }));
    EXPECT_TRUE(Line(0) == QStringLiteral("2") && Panel().BarText().startsWith(u'3'));

    List()->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Panel().HasKeyboard());
    Press(Qt::Key_F8);
    EXPECT_EQ(CurrentPane().CaretLine(), 2);
}

// Catches: marks beside the first lines only, of lines that are no longer in view.
TEST_F(MarksPanelTest, MarksFollowTheView)
{
    Load("emeradl.xpos: 1\n" + QByteArray(4'000, '\n') + "emeradl.xpos: 1\n");
    const MarginMarks* marks = nullptr;
    for (const QObject* child : WidgetOf(CurrentPane())->children())
        if (!marks)
            marks = dynamic_cast<const MarginMarks*>(child);
    ASSERT_TRUE(marks);
    EXPECT_TRUE(QTest::qWaitFor([marks] { return !marks->MessagesOf(0).isEmpty(); }));
    EXPECT_TRUE(marks->MessagesOf(4'001).isEmpty());
    CurrentPane().ExecuteCmd(CmdDocumentEnd);
    EXPECT_TRUE(QTest::qWaitFor([marks] { return !marks->MessagesOf(4'001).isEmpty(); }));
}

// Catches: a list of a document without marks, or of a plain text, that opens empty.
TEST_F(MarksPanelTest, StaysAwayWhereThereIsNothing)
{
    Load("emerald.xpos: 1\n");
    Press(Qt::Key_F8, Qt::ControlModifier);
    EXPECT_FALSE(Panel().isVisible());
    SetMode(ModeTxt);
    CurrentPane().LoadBytes("no colon\n");
    Press(Qt::Key_F8, Qt::ControlModifier);
    EXPECT_FALSE(Panel().isVisible());
}
