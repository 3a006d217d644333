#include "test_support.h"

#include <gtest/gtest.h>

namespace {

struct PaneTest : testing::Test
{
    HostScope host;
    std::unique_ptr<EditorPane> pane = MakePane();
};

TEST_F(PaneTest, Smoke)
{
    pane->SetText(QStringLiteral("one\ntwo\r\nthree"));
    EXPECT_EQ(pane->LineCount(), 3);
    EXPECT_EQ(pane->GetLine(1), QStringLiteral("two"));
    EXPECT_TRUE(pane->SetSel({1, 0, 1, 2}, true));
    EXPECT_EQ(pane->SelText(), QStringLiteral("tw"));
    EXPECT_TRUE(pane->ExecuteCmd(CmdUndo));
    EXPECT_EQ(pane->Text(), QString());
}

} // namespace
