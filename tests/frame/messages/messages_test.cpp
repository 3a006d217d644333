#include "frame/frame_state.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "host_scope.h"

#include <QMetaEnum>
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
        SCOPED_TRACE(row.Number);
        EXPECT_GT(row.Number, last);
        last = row.Number;
        EXPECT_TRUE(row.Icon >= 1 && row.Icon <= 12);
        EXPECT_TRUE(row.Nag >= -1 && row.Nag < 5);
        EXPECT_TRUE(colours.contains(QString::fromLatin1(row.Colour)));
        const HostScope scope;
        Frame.Settings.Nags = {1, 1, 1, 1, 1};
        const int place = ShowMessage(row.Number, QStringLiteral("one"), QStringLiteral("two"));
        EXPECT_TRUE(place >= 1 && place <= ButtonCaptions(QString::fromUtf8(row.Buttons)).size()) << place;
        EXPECT_FALSE(Frame.Message.MessageText.contains(u'%')) << Frame.Message.MessageText;
    }
}

// Catches: a name without a row (a caller that compiles and then finds nothing), two names for one number, and names
// of buttons that no longer stand at the places of their captions.
TEST(Messages, EveryNameHasItsRow)
{
    QSet<int> rows, named;
    for (const MessageRow& row : Messages())
        rows << row.Number;
    const QMetaEnum names = QMetaEnum::fromType<message::Number>();
    for (int i = 0; i < names.keyCount(); ++i) {
        EXPECT_FALSE(named.contains(names.value(i))) << names.key(i);
        named << names.value(i);
        EXPECT_TRUE(rows.contains(names.value(i)) || names.value(i) == message::CallersOwn) << names.key(i);
    }
    EXPECT_EQ(named.size(), rows.size() + 1);
    const std::tuple<message::Number, int, const char*> buttons[] = {
        {message::FileConsent, message::Consent, "Continue"},
        {message::FileConsent, message::Refuse, "Break"},
        {message::BasicStep, message::NextStep, "Next Step"},
        {message::BasicStep, message::Continue, "Continue"},
        {message::BasicStep, message::Break, "Break"},
        {message::Welcome, message::WelcomeOk, "OK"},
        {message::Welcome, message::ReadHelp, "Read Help"},
        {message::Welcome, message::DoNotShowAgain, "Don't Show This Again"},
    };
    for (const auto& [number, place, caption] : buttons)
        EXPECT_EQ(ButtonCaptions(RecordOf(number).MessageButtons).value(place - 1), QLatin1StringView(caption));
}

// Catches: a suppressed question that still asks, or leaves the answer of the message before it.
TEST(Messages, ASuppressedClassIsNotShownAndCountsAsConfirmed)
{
    HostScope scope;
    ShowMessage(message::FileMissing);
    Frame.Settings.Nags[0] = 0;
    EXPECT_EQ(ShowMessage(message::CloseChanged), 0);
    EXPECT_TRUE(Confirmed(message::CloseChanged));
    EXPECT_EQ(Frame.Message.MessageResult, QString());
    EXPECT_EQ(scope.Answers.Asked.size(), 1U);
    EXPECT_EQ(ShowMessage(message::OverwriteFile), 2);
}

// Catches: texts put in one after the other, so that a path with "%2" in its name is filled with the other text.
TEST(Messages, TextsAreFilledInOnePass)
{
    HostScope scope;
    ShowMessage(message::BasicStep, QStringLiteral("print %2 %1"), QStringLiteral("7"));
    EXPECT_EQ(Frame.Message.MessageText, QStringLiteral("Line: 7^^print %2 %1"));
    ShowMessage(message::BasicError, QStringLiteral("Missing value"), QStringLiteral("12"));
    EXPECT_EQ(Frame.Message.MessageTitle, QStringLiteral("BASIC Error In Line 12"));
    ShowMessage(message::FileConsent);
    EXPECT_TRUE(Frame.Message.MessageText.endsWith(QStringLiteral("Author: UNKNOWN!")));
}

// Catches: a message closed without a button that answers with the button that loses something, a caption that is not
// that of the place, and a question whose second button goes on taken for refused.
TEST(Messages, TheWayOutLosesNothing)
{
    HostScope scope;
    const std::pair<message::Number, const char*> cases[] = {
        {message::ChangedOutside, "Keep Mine"}, {message::NoBackup, "Cancel"}, {message::OverwriteChanged, "Cancel"},
        {message::BasicStep, "Break"},          {message::Welcome, "OK"},      {message::MakeTapesFolder, "Cancel"},
    };
    for (const auto& [number, caption] : cases) {
        const int place = ShowMessage(number);
        EXPECT_EQ(Frame.Message.MessageResult, QLatin1StringView(caption));
        EXPECT_EQ(Frame.Message.MessageButtonIndex, place);
        EXPECT_FALSE(Confirmed(number)) << number;
    }
    scope.Answers.Next = {Pressed{1}, Pressed{2}};
    EXPECT_TRUE(Confirmed(message::ChangedOutside));
    EXPECT_TRUE(Confirmed(message::TextNotKept));
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
        Answer Ask(const Question& question) override
        {
            Seen = RunningWork();
            return AnswerList::Ask(question);
        }
        int Seen = 0;
    };
    HostScope scope;
    Watcher watcher;
    InstallHost(scope.Host, watcher);
    Frame.Message.MessageButtons = QStringLiteral("Left_Right");
    watcher.Next = {QStringLiteral("Right")};
    EXPECT_EQ(ShowRecord(), 2);
    EXPECT_EQ(Frame.Message.MessageResult, QStringLiteral("Right"));
    EXPECT_EQ(watcher.Seen, 1);
    EXPECT_EQ(RunningWork(), 0);
}

// Catches: a question asked while the program ends, which would hold it, and one answered there with the button that
// loses something.
TEST(Messages, NothingIsAskedWhileTheProgramEndsOrCloses)
{
    for (bool FrameState::*end : {&FrameState::Ending, &FrameState::Closing}) {
        HostScope scope;
        Frame.*end = true;
        EXPECT_FALSE(Confirmed(message::OverwriteFile));
        EXPECT_FALSE(Confirmed(message::TextNotKept));
        EXPECT_EQ(AskText(InputQuestion{}), std::nullopt);
        EXPECT_EQ(scope.Answers.Asked.size(), 0U);
    }
}

// Catches: a consent that does not say what it is for, or that a macro's author fills with lines of his own.
TEST(Messages, AConsentSaysWhatItIsFor)
{
    const SafetyQuestion question{QStringLiteral("Me^^") + QString(50, u'x'), QStringLiteral("filekill"),
                                  QStringLiteral("/levels/a.level")};
    const QString text = RecordOf(question).MessageText;
    EXPECT_TRUE(text.endsWith(u"Author: Me" + QString(38, u'x') + u"^^filekill /levels/a.level")) << text.toStdString();
}
