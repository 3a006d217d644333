#include "windows/lists/block_list.h"

#include "editor/make_pane.h"
#include "frame/host_ports.h"
#include "windows/main/main_window_test.h"

#include <QLineEdit>
#include <QTreeView>

namespace {

class BlockListTest : public MainWindowTest
{
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        CurrentPane().LoadBytes("zip: a.png\nzip.xpos: 1\n\nmole: b.png\nmole.digging: c.pcx\nmole.EDITOR: a.png\n");
        CurrentPane().SetSel({.StartLine = 4, .EndLine = 4}, false);
        MenuOf("mnuGotoBlock")->trigger();
        list = &Window->ListOfBlocks();
    }

    QStringList Rows() const
    {
        QStringList rows;
        for (int row = 0; row < list->View()->model()->rowCount(); ++row)
            rows << list->View()->model()->index(row, 0).data().toString();
        return rows;
    }

    BlockList* list = nullptr;
};

} // namespace

// Catches: a list that does not start at the caret's block, typing that moves in the list or reaches the text, a
// filter by the beginning only, a pick of the row's number among all blocks.
TEST_F(BlockListTest, TypingNarrowsAndEnterGoesThere)
{
    EXPECT_EQ(list->View()->currentIndex().data().toString(), QStringLiteral("mole.digging"));
    QTest::keyClicks(list->View(), QStringLiteral("A.P"));
    EXPECT_EQ(Rows(), (QStringList{QStringLiteral("zip"), QStringLiteral("mole.EDITOR")}));
    QTest::keyClicks(list->View(), QStringLiteral(" mole"));
    EXPECT_EQ(Rows(), QStringList(QStringLiteral("mole.EDITOR")));
    for (int key = 0; key < 5; ++key)
        QTest::keyClick(list->View(), Qt::Key_Backspace);
    QTest::keyClick(list->View(), Qt::Key_Down);
    QTest::keyClick(list->View(), Qt::Key_Return);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(CurrentPane().GetSel(true), (Range{.StartLine = 5, .EndLine = 5}));
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
    EXPECT_FALSE(CurrentPane().Modified());
    MenuOf("mnuGotoBlock")->trigger();
    EXPECT_EQ(list->Filter()->text(), QString());
    EXPECT_EQ(Rows().size(), 4);
}

// Catches: an empty list over the text, a filter without a hit that Enter cannot survive.
TEST_F(BlockListTest, WithoutBlocksThereIsNoList)
{
    QTest::keyClicks(list->View(), QStringLiteral("nothing"));
    QTest::keyClick(list->View(), Qt::Key_Return);
    EXPECT_TRUE(list->isVisible());
    Tools().CloseLists();
    CurrentPane().LoadBytes("name: x\n# zip: a.png\n");
    MenuOf("mnuGotoBlock")->trigger();
    EXPECT_FALSE(list->isVisible());
}
