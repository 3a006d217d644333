#include "batch/answer_list.h"

#include "batch/verbs.h"
#include "host_scope.h"

#include <gtest/gtest.h>

namespace {

MessageQuestion Own(const char* buttons)
{
    MessageQuestion question;
    question.Record.MessageButtons = QString::fromLatin1(buttons);
    return question;
}

ChoiceQuestion Choice(const std::vector<QStringList>& lists)
{
    ChoiceQuestion question;
    for (const QStringList& items : lists)
        question.Lists.push_back({{}, items});
    return question;
}

} // namespace

// Catches: answers taken by kind instead of in order, a text that is not turned into the button or item it names, and
// a pause or consent that eats the answer of the question after it.
TEST(AnswerList, TakesAnswersInTheOrderOfTheQuestions)
{
    const QString a = QStringLiteral("a"), b = QStringLiteral("b"), c = QStringLiteral("c");
    AnswerList answers;
    answers.Next = {QStringLiteral("No"),   QStringLiteral(" text "), b,
                    QStringLiteral("a.c"),  QStringLiteral("dir/a"),  QString(),
                    QStringLiteral("/file")};
    EXPECT_EQ(answers.Ask(Own("Yes_No")), Answer(Pressed{2}));
    EXPECT_EQ(answers.Ask(InputQuestion{}), Answer(QStringLiteral(" text ")));
    EXPECT_EQ(answers.Ask(PauseQuestion{}), Answer(Pressed{1}));
    EXPECT_EQ(answers.Ask(SafetyQuestion{}), Answer(Pressed{message::Refuse})) << "no consent was prepared";
    EXPECT_EQ(answers.Ask(KeysQuestion{}), Answer(Cancelled{}));
    EXPECT_EQ(answers.Ask(Choice({{a, b}})), Answer(2));
    EXPECT_EQ(answers.Ask(Choice({{a}, {b}, {c}})), Answer(QStringLiteral("a.c")));
    const ZipEntryQuestion entry{{}, {QStringLiteral("dir/a/b.txt")}};
    EXPECT_EQ(answers.Ask(entry), Answer(QStringLiteral("dir/a"))) << "a folder of entries";
    EXPECT_EQ(answers.Ask(InputQuestion{}), Answer(Cancelled{}));
    EXPECT_EQ(answers.Ask(FileQuestion{}), Answer(QStringLiteral("/file")));
    EXPECT_TRUE(answers.Next.empty());
    EXPECT_TRUE(answers.Outcome());

    answers.Next = {QStringLiteral("Continue"), KeySet{3}};
    EXPECT_EQ(answers.Ask(SafetyQuestion{}), Answer(Pressed{message::Consent}));
    EXPECT_EQ(answers.Ask(KeysQuestion{}), Answer(KeySet{3}));
    answers.AllowFiles = true;
    EXPECT_EQ(answers.Ask(SafetyQuestion{}), Answer(Pressed{message::Consent}));
}

// Catches: an end of the answers that overwrites a file or goes on with a question that nobody answered.
TEST(AnswerList, StatesWhatHappensWhenAnswersEnd)
{
    const MessageQuestion overwrite{RecordOf(message::OverwriteFile)}, close{RecordOf(message::CloseChanged)};
    struct
    {
        WhenAnswersEnd Ending;
        int Own, Close, Overwrite;
    } cases[] = {
        {WhenAnswersEnd::FirstButton, 1, 1, 2}, {WhenAnswersEnd::WayOut, 2, 2, 2}, {WhenAnswersEnd::Fail, 2, 2, 2}};
    for (const auto& one : cases) {
        AnswerList answers(one.Ending);
        EXPECT_EQ(answers.Ask(InputQuestion{}), Answer(Cancelled{}));
        EXPECT_TRUE(answers.Outcome());
        EXPECT_EQ(answers.Ask(Own("Yes_Cancel")), Answer(Pressed{one.Own}));
        EXPECT_EQ(answers.Ask(close), Answer(Pressed{one.Close}));
        EXPECT_EQ(answers.Ask(overwrite), Answer(Pressed{one.Overwrite}));
        EXPECT_EQ(answers.Outcome().has_value(), one.Ending != WhenAnswersEnd::Fail);
    }
}

// Catches: an answer for another question that passes for an answer, and a call that ends well with one.
TEST(AnswerList, WhatDoesNotFitIsToldAndEndsWithTwo)
{
    const HostScope scope;
    const QString a = QStringLiteral("a"), b = QStringLiteral("b");
    const std::pair<Question, Answer> cases[] = {
        {Own("Yes_No"), QStringLiteral("Maybe")},
        {Own("Yes_No"), Pressed{3}},
        {Own("Yes_No"), Cancelled{}},
        {InputQuestion{}, 1},
        {FileQuestion{}, Pressed{1}},
        {FileQuestion{}, QStringList{a, b}},
        {Choice({{a}}), b},
        {Choice({{a}, {b}}), QStringLiteral("b.a")},
        {ZipEntryQuestion{{}, {QStringLiteral("dir/a")}}, QStringLiteral("di")},
    };
    const TestFolder folder;
    const QString good = folder.Write(QStringLiteral("notes.txt"), "a\n");
    for (const auto& [question, answer] : cases) {
        AnswerList answers;
        answers.Next = {answer};
        EXPECT_EQ(answers.Ask(question), WayOutOf(question));
        QString out, error;
        QTextStream outStream(&out), errorStream(&error);
        EXPECT_EQ(RunVerb({QStringLiteral("tidy"), good}, {outStream, errorStream, answers}), VerbFailed);
        EXPECT_TRUE(error.startsWith(QLatin1StringView("answers: "))) << error;
    }
}
