#include "editor/make_pane.h"
#include "windows/main/main_window_test.h"

#include <QTreeWidget>

class RecentPopupTest : public MainWindowTest
{
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        first = Run.Work.Write(QStringLiteral("a.conf"), "a: 1\n");
        second = Run.Work.Write(QStringLiteral("b.conf"), "b: 1\n");
        OpenDocument(first, false);
        OpenDocument(second, false);
        MenuOf("mnuOpenRecent")->trigger();
        list = &Window->RecentBack();
    }

    QString first, second;
    RecentPopup* list = nullptr;
};

// Catches: a list beside the pane, one that shows old entries, or that the keyboard cannot use.
TEST_F(RecentPopupTest, StandsOverHalfThePaneAndObeysKeys)
{
    const QWidget* pane = WidgetOf(CurrentPane());
    EXPECT_EQ(list->height(), pane->height());
    EXPECT_EQ(list->width(), pane->width() / 2);
    EXPECT_EQ(list->mapToGlobal(QPoint()).y(), pane->mapToGlobal(QPoint()).y());
    ASSERT_EQ(list->Tree()->topLevelItemCount(), 2);
    EXPECT_TRUE(list->Tree()->hasFocus());
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(Frame.Documents[0].Path, first);
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
}

// Catches: a list that goes before the mouse has reached it, or stays when the mouse has left it.
TEST_F(RecentPopupTest, GoesWhenTheMouseLeavesIt)
{
    MouseOver(Tabs());
    EXPECT_TRUE(list->isVisible());
    MouseOver(list->Tree()->viewport());
    EXPECT_TRUE(list->isVisible());
    MouseOver(Tabs());
    EXPECT_FALSE(list->isVisible());
}

// Catches: a list that stands over a pane of another size.
TEST_F(RecentPopupTest, GoesWhenTheWindowIsLaidOutAnew)
{
    Window->resize(Window->size() + QSize(120, 40));
    EXPECT_TRUE(WaitUntil([this] { return !list->isVisible(); }));
}

// Catches: an entry of a vanished file that opens an empty text or stays in the list; a message that the click's own
// handling cannot survive.
TEST_F(RecentPopupTest, ClickOnAVanishedFileRemovesItAndTells)
{
    QFile::remove(first);
    QTreeWidget* tree = list->Tree();
    const QRect row = tree->visualItemRect(tree->topLevelItem(1));
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, row.center());
    QCoreApplication::processEvents();
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_EQ(Frame.Recent.size(), 1U);
    EXPECT_EQ(Frame.Documents[0].Path, second);
    EXPECT_FALSE(list->isVisible());
}
