#include "frame/frame_state.h"
#include "frame/messages/messages.h"
#include "frame/run_scope.h"
#include "host_scope.h"

#include <QSet>
#include <gtest/gtest.h>

// Catches: a row added twice, out of order, with an icon or colour that the window does not know, a nag class beyond
// the five flags, or a way out that is none of its buttons.
TEST(Messages, EveryRowCanBeShown)
{
    const QSet<QString> colours = {QStringLiteral("blu"), QStringLiteral("red"), QStringLiteral("gre"),
                                   QStringLiteral("pur"), QStringLiteral("whi"), QStringLiteral("yel"),
                                   QStringLiteral("bro")};
    int last = 0;
    for (const MessageRow& row : Messages()) {
        SCOPED_TRACE(row.Code);
        EXPECT_GT(row.Code, last);
        last = row.Code;
        EXPECT_TRUE(row.Icon >= 1 && row.Icon <= 12);
        EXPECT_TRUE(row.Nag >= -1 && row.Nag < 5);
        EXPECT_TRUE(colours.contains(QString::fromLatin1(row.Colour)));
        const HostScope scope;
        Frame.Settings.Nags = {1, 1, 1, 1, 1};
        const QString answer = ShowMessage(row.Code, QStringLiteral("one"), QStringLiteral("two"));
        EXPECT_TRUE(ButtonCaptions(QString::fromUtf8(row.Buttons)).contains(answer)) << answer;
        EXPECT_FALSE(Frame.Message.MessageText.contains(u'%')) << Frame.Message.MessageText;
    }
}

// Catches: a suppressed question that still asks, or leaves the answer of the message before it.
TEST(Messages, ASuppressedClassIsNotShownAndCountsAsConfirmed)
{
    HostScope scope;
    ShowMessage(2);
    Frame.Settings.Nags[0] = 0;
    EXPECT_EQ(ShowMessage(8), QString());
    EXPECT_EQ(Frame.Message.MessageResult, QString());
    EXPECT_EQ(scope.Answers.Shown.size(), 1U);
    EXPECT_EQ(ShowMessage(9), QStringLiteral("Cancel"));
}

// Catches: texts put in one after the other, so that a path with "%2" in its name is filled with the other text.
TEST(Messages, TextsAreFilledInOnePass)
{
    HostScope scope;
    ShowMessage(201, QStringLiteral("print %2 %1"), QStringLiteral("7"));
    EXPECT_EQ(Frame.Message.MessageText, QStringLiteral("Line: 7^^print %2 %1"));
    ShowMessage(200, QStringLiteral("Missing value"), QStringLiteral("12"));
    EXPECT_EQ(Frame.Message.MessageTitle, QStringLiteral("BASIC Error In Line 12"));
    ShowMessage(58);
    EXPECT_TRUE(Frame.Message.MessageText.endsWith(QStringLiteral("Author: UNKNOWN!")));
}

// Catches: a message closed without a button that answers with the button that loses something.
TEST(Messages, TheWayOutLosesNothing)
{
    HostScope scope;
    EXPECT_EQ(ShowMessage(MessageChangedOutside), QStringLiteral("Keep Mine"));
    EXPECT_EQ(ShowMessage(MessageNoBackup), QStringLiteral("Cancel"));
    EXPECT_EQ(ShowMessage(201), QStringLiteral("Break"));
    EXPECT_EQ(ShowMessage(999), QStringLiteral("OK"));
    EXPECT_EQ(ShowMessage(67), QStringLiteral("Cancel"));
    EXPECT_EQ(Frame.Message.MessageButtonIndex, 2);
}

// Catches: an empty caption that becomes a button, and a message without any.
TEST(Messages, CaptionsEndAtTheFirstEmptyOne)
{
    EXPECT_EQ(ButtonCaptions(QStringLiteral("Yes_No__Never")),
              (QStringList{QStringLiteral("Yes"), QStringLiteral("No")}));
    EXPECT_EQ(ButtonCaptions({}), QStringList{QStringLiteral("OK")});
    EXPECT_EQ(ButtonCaptions(QStringLiteral("_Yes")), QStringList{QStringLiteral("OK")});
}

// Catches: a macro's own message that is counted as no running work, so that a close ends the program under it.
TEST(Messages, AnOpenMessageIsRunningWork)
{
    class Watcher : public AnswerList
    {
    public:
        MessageAnswer Message(const MessageRecord& record) override
        {
            Seen = RunningWork();
            return AnswerList::Message(record);
        }
        int Seen = 0;
    };
    HostScope scope;
    Watcher watcher;
    InstallHost(scope.Host, watcher);
    Frame.Message.MessageButtons = QStringLiteral("Left_Right");
    watcher.Buttons = {QStringLiteral("Right")};
    EXPECT_EQ(ShowRecord(), QStringLiteral("Right"));
    EXPECT_EQ(watcher.Seen, 1);
    EXPECT_EQ(RunningWork(), 0);
}
