#include "frame/program_scope.h"
#include "frame/run_scope.h"

#include <QDateTime>
#include <QFile>

class OutsideChanges : public FrameTest
{
protected:
    void SetUp() override
    {
        Run.Start();
        for (const char* name : {"a.conf", "b.conf"})
            Run.OpenInNewTab(Run.Work.Write(QString::fromLatin1(name), "old\n"));
    }

    /// As another program does, with a time of its own so that no clock hides it.
    void Change(const QString& name, const QByteArray& bytes)
    {
        QFile file(Run.Work.Write(name, bytes));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTime().addSecs(++seconds * 10), QFileDevice::FileModificationTime);
    }

    int seconds = 0;
};

// Catches: a question a file, a question about a file that was only touched, and the same question at every focus.
TEST_F(OutsideChanges, OneQuestionForAllFilesAndNoneTwice)
{
    CheckChangedOutside();
    Change(QStringLiteral("a.conf"), "old\n");
    CheckChangedOutside();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    Change(QStringLiteral("a.conf"), "new a\n");
    Change(QStringLiteral("b.conf"), "new b\n");
    Answers.Next = {QStringLiteral("Load Again")};
    CheckChangedOutside();
    CheckChangedOutside();
    const QStringList told = Run.TakeMessages();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(QStringLiteral("a.conf")) && told[0].contains(QStringLiteral("b.conf")));
    EXPECT_EQ(Window.Pane(1).GetLine(0), QStringLiteral("new a"));
    EXPECT_EQ(Window.Pane(2).GetLine(0), QStringLiteral("new b"));
    EXPECT_FALSE(Window.Pane(1).Modified());
}

// Catches: "keep" that forgets that text and file differ, so that closing the tab loses the text without a question.
TEST_F(OutsideChanges, WhatIsKeptCountsAsUnsaved)
{
    Change(QStringLiteral("a.conf"), "theirs\n");
    ASSERT_TRUE(QFile::remove(Run.Work.Path(QStringLiteral("b.conf"))));
    CheckChangedOutside();
    EXPECT_EQ(Run.TakeMessages().size(), 2);
    EXPECT_EQ(Window.Pane(1).GetLine(0), QStringLiteral("old"));
    EXPECT_TRUE(Window.Pane(1).Modified());
    EXPECT_TRUE(Window.Pane(2).Modified());
    EXPECT_EQ(Window.Pane(2).GetLine(0), QStringLiteral("old"));
    CheckChangedOutside();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("b.conf")), "old\n");
    EXPECT_EQ(Run.TakeMessages(), QStringList());
}

// Catches: a save over what another program wrote since the last look.
TEST_F(OutsideChanges, ASaveAsksBeforeItReplacesAChangedFile)
{
    Run.Type(QStringLiteral("mine "));
    Change(QStringLiteral("b.conf"), "theirs\n");
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("b.conf")), "theirs\n");
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_TRUE(Run.TakeMessages().join(u' ').contains(QLatin1String("Another program has changed"))) << "no reason";
    Answers.Next = {QStringLiteral("Overwrite")};
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("b.conf")), "mine old\n");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("b.conf_000.GemforgeBackup")), "theirs\n");
}

// Catches: a file loaded under a running macro or behind an open question, a change of equal size that goes unseen.
TEST_F(OutsideChanges, RunningWorkIsNotDisturbed)
{
    Change(QStringLiteral("a.conf"), "new\n"); // as long as the old one
    {
        const WorkScope macro;
        CheckChangedOutside();
        EXPECT_EQ(Run.TakeMessages(), QStringList());
    }
    CheckChangedOutside();
    EXPECT_EQ(Run.TakeMessages().size(), 1);
}
