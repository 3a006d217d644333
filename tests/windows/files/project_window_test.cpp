#include "frame/files/tab_commands.h"
#include "windows/files/frm_project.h"

#include "frame/files/projects.h"
#include "frame/program_scope.h"
#include "windows/parts/dialog_support.h"

#include <QPushButton>
#include <QTreeWidget>

class ProjectWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        for (const char* name : {"graphicsinfo.conf", "soundsinfo.conf"})
            Run.OpenInNewTab(Run.Work.Write(QString::fromLatin1(name), "text\n"));
    }

    void Open(std::function<void(QWidget&, QTreeWidget&)> act)
    {
        OnModal([act](QWidget& window) { act(window, Part<QTreeWidget>(window, "treeProject")); });
        RunProjectWindow(nullptr);
    }

    ProgramScope Run;
};

// Catches: a new project that is not listed, buttons that stay enabled without a selection or beyond the limit, and a
// deletion of the wrong one.
TEST_F(ProjectWindow, MakesAndDeletes)
{
    Run.Scope.Answers.Next = {QStringLiteral(" First "), QStringLiteral("Second")};
    Frame.Settings.ProjectLimit = 2;
    Open([](QWidget& window, QTreeWidget& tree) {
        auto& make = Part<QPushButton>(window, "cmdNew");
        auto& remove = Part<QPushButton>(window, "cmdDelete");
        EXPECT_FALSE(remove.isEnabled());
        make.click();
        EXPECT_TRUE(make.isEnabled());
        make.click();
        EXPECT_FALSE(make.isEnabled());
        ASSERT_EQ(tree.topLevelItemCount(), 2);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(tree.topLevelItem(0)).center());
        remove.click();
        ASSERT_EQ(tree.topLevelItemCount(), 1);
        EXPECT_EQ(tree.topLevelItem(0)->text(0), QStringLiteral("Second"));
        EXPECT_FALSE(remove.isEnabled());
        EXPECT_TRUE(make.isEnabled());
    });
    const auto left = LoadPrjList();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].Key, 2);
}

// Catches: a double click or Enter that does not load or loads behind the open window, and
// Esc that loads.
TEST_F(ProjectWindow, EnterOrDoubleClickLoads)
{
    Run.Scope.Answers.Next = {QStringLiteral("Set")};
    ASSERT_TRUE(CreateProject());
    const auto empty = [] {
        for (int tab = 0; tab < 8; ++tab)
            EmptySlot(tab);
    };
    const auto loaded = [] { return Frame.Documents[1].Path.endsWith(QStringLiteral("soundsinfo.conf")); };
    empty();
    Open([](QWidget& window, QTreeWidget& tree) {
        tree.setCurrentItem(tree.topLevelItem(0));
        QTest::keyClick(&tree, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_FALSE(loaded());
    Open([&](QWidget& window, QTreeWidget& tree) {
        tree.setCurrentItem(tree.topLevelItem(0));
        QTest::keyClick(&tree, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
        EXPECT_FALSE(loaded());
    });
    EXPECT_TRUE(loaded());
    EXPECT_EQ(Frame.CurrentTab, 0);
    empty();
    Open([&](QWidget&, QTreeWidget& tree) {
        const QPoint row = tree.visualItemRect(tree.topLevelItem(0)).center();
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, row);
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, row);
    });
    EXPECT_TRUE(loaded());
    EXPECT_EQ(LoadPrjList().size(), 1U);
}
