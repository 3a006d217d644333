#include "frame/files/tab_commands.h"
#include "windows/files/frm_recover.h"

#include "frame/host_ports.h"
#include "frame/program_scope.h"
#include "frame/recovery/recovery.h"
#include "windows/files/recovery_view.h"
#include "windows/parts/dialog_support.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>

class RecoveryWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        NewRun();
    }

    void TearDown() override { Frame.Keeper = nullptr; }

    void NewRun()
    {
        keeper = std::make_unique<Recovery>(Run.State.Path());
        Frame.Keeper = keeper.get();
    }

    /// An earlier run ended with a changed file in tab 1 and a text without a file in tab 2.
    void LeaveTwoTexts()
    {
        path = Run.Work.Write(QStringLiteral("soundsinfo.conf"), "one\ntwo\nthree\n");
        Run.OpenInNewTab(path);
        CurrentPane().InsertText(QStringLiteral("new "), {1, 0, 1, 0});
        OpenNewTab();
        ActivateTab();
        ProgramScope::Type(QStringLiteral("no file"));
        EXPECT_TRUE(keeper->KeepAllNow());
        keeper.reset();
        Frame.Keeper = nullptr;
        for (int tab = 1; tab < 8; ++tab)
            EmptySlot(tab);
        Panes().SelectTab(0);
        ActivateTab();
        NewRun();
        ASSERT_EQ(keeper->FindRecovered().size(), 2U);
    }

    void Offer(std::function<void(QWidget&, QTreeWidget&)> act)
    {
        OnModal([act](QWidget& window) { act(window, *window.findChild<QTreeWidget*>()); });
        OfferRecovered(nullptr, *keeper);
    }

    static void Choose(QTreeWidget& tree, const QString& name)
    {
        const auto items = tree.findItems(name, Qt::MatchContains);
        ASSERT_EQ(items.size(), 1);
        tree.setCurrentItem(items.first());
    }

    QString path;
    ProgramScope Run;
    std::unique_ptr<Recovery> keeper;
};

// Catches: a text lost by closing the window, a comparison of the wrong text, texts thrown away without a question or
// after "Cancel", and a text that is taken and gone.
TEST_F(RecoveryWindow, TakesKeepsAndThrowsAway)
{
    LeaveTwoTexts();
    Offer([&](QWidget& window, QTreeWidget& tree) {
        EXPECT_EQ(tree.topLevelItemCount(), 2);
        Choose(tree, QStringLiteral("soundsinfo"));
        EXPECT_EQ(Part<QPlainTextEdit>(window, "txtCompare").toPlainText(),
                  QStringLiteral("  one\n- two\n+ new two\n  three\n"));
        QTest::keyClick(&tree, Qt::Key_Escape);
    });
    ASSERT_EQ(keeper->FindRecovered().size(), 2U);

    Run.Scope.Answers.Next = {QStringLiteral("Cancel"), QStringLiteral("Throw Away")};
    Offer([&](QWidget& window, QTreeWidget& tree) {
        Choose(tree, QStringLiteral("never saved"));
        auto& away = Part<QPushButton>(window, "cmdThrow");
        away.click();
        EXPECT_EQ(keeper->FindRecovered().size(), 2U);
        away.click();
        EXPECT_EQ(keeper->FindRecovered().size(), 1U);
        ASSERT_EQ(tree.topLevelItemCount(), 1);
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible()) << "nothing is left to decide";
    });
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("soundsinfo.conf"));
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("new two"));
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(Run.Work.Read(QStringLiteral("soundsinfo.conf")), "one\ntwo\nthree\n") << "only a save writes";
    CurrentPane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("two")) << "undo shows what the file has";
}

// Catches: a take that fails for want of a tab and drops the text.
TEST_F(RecoveryWindow, WithoutAFreeTabTheTextStays)
{
    LeaveTwoTexts();
    for (int tab = 0; tab < 8; ++tab) {
        ProgramScope::Type(QStringLiteral("typed"));
        OpenNewTab();
        ActivateTab();
    }
    Offer([&](QWidget& window, QTreeWidget& tree) {
        tree.selectAll();
        Part<QPushButton>(window, "cmdTake").click();
        EXPECT_EQ(tree.topLevelItemCount(), 2);
    });
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_EQ(keeper->FindRecovered().size(), 2U);
}

// Catches: a window that bothers about a text which the file holds, and its copy staying for ever.
TEST_F(RecoveryWindow, WhatTheFileHoldsIsNotOffered)
{
    LeaveTwoTexts();
    Run.Work.Write(QStringLiteral("soundsinfo.conf"), "one\nnew two\nthree\n");
    Offer([](QWidget&, QTreeWidget& tree) { EXPECT_EQ(tree.topLevelItemCount(), 1); });
    EXPECT_EQ(keeper->FindRecovered().size(), 1U);
}

// Catches: a view that hangs or fills memory on huge or wholly different texts, or says nothing about a file that has
// gone or differs in its bytes only.
TEST(RecoveryView, FallsBackToTheKeptText)
{
    const TestFolder folder;
    RecoveredText text;
    text.Bytes = "kept\n";
    EXPECT_EQ(ViewOf(text).Lines, QStringLiteral("  kept\n  \n"));
    text.DocumentPath = folder.Path(QStringLiteral("gone.conf"));
    EXPECT_TRUE(ViewOf(text).Heading.contains(QStringLiteral("gone")));
    EXPECT_EQ(ViewOf(text).Lines, QStringLiteral("  kept\n  \n"));

    QByteArray other;
    for (int i = 0; i < 300'000; ++i)
        other += QByteArray::number(i) + '\n';
    text.DocumentPath = folder.Write(QStringLiteral("a.conf"), other);
    text.Bytes = QByteArray(other).replace('1', 'x').replace('2', 'y') + QByteArray(1'000'000, 'z');
    const RecoveryView view = ViewOf(text);
    EXPECT_TRUE(view.Heading.contains(QStringLiteral("little in common")));
    EXPECT_LT(view.Lines.size(), 400'000);

    text.DocumentPath = folder.Write(QStringLiteral("b.conf"), "caf\xe9\n");
    text.Bytes = "caf\xc3\xa9\n";
    EXPECT_TRUE(ViewOf(text).Heading.contains(QStringLiteral("encoding")));
    text.Bytes = "caf\xc3\xa9s\n";
    EXPECT_EQ(ViewOf(text).Lines, QStringLiteral("- caf\u00e9\n+ caf\u00e9s\n"));
}
