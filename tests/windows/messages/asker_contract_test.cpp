#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "host_scope.h"
#include "windows/messages/window_asker.h"
#include "windows/parts/dialog_support.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

/// Answers by real windows: presses the button or types the text that is wanted.
struct ByWindows
{
    WindowAsker Door{nullptr};

    static void Prepare(const Answer& answer)
    {
        OnModal([answer](QWidget& window) {
            if (const auto* pressed = std::get_if<Pressed>(&answer)) {
                const QByteArray name = "cmdButton" + QByteArray::number(pressed->Place + 1);
                QTest::mouseClick(&Part<QPushButton>(window, name.constData()), Qt::LeftButton);
            } else {
                auto* line = window.findChild<QLineEdit*>();
                const auto* text = std::get_if<QString>(&answer);
                line->setText(text ? *text : std::get<QStringList>(answer).constFirst());
                QTest::keyClick(line, Qt::Key_Return);
            }
        });
    }
    static void PrepareCancel(const Question&)
    {
        OnModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    }
};

/// Answers from a list.
struct ByList
{
    AnswerList Door;

    void Prepare(const Answer& answer) { Door.Next = {answer}; }
    void PrepareCancel(const Question& question) { Door.Next = {WayOutOf(question)}; }
};

template <class Way>
struct AskerContract : testing::Test
{
    AskerContract() { InstallHost(Scope.Host, Asks.Door); }

    HostScope Scope;
    Way Asks;
};
using Ways = testing::Types<ByWindows, ByList>;
TYPED_TEST_SUITE(AskerContract, Ways);

} // namespace

// Catches: an asker that gives another answer than the person or list gave, one of another kind than the question
// has, a cancel that is no way out, and a question that is counted as running work after its answer.
TYPED_TEST(AskerContract, EachKindGivesItsOwnAnswer)
{
    const TestFolder folder;
    const QString file = folder.Write(QStringLiteral("a.conf"), "x");
    const QString text = QStringLiteral(" new ");
    const std::pair<Question, Answer> cases[] = {
        {MessageQuestion{RecordOf(message::OverwriteFile)}, Pressed{1}},
        {MessageQuestion{RecordOf(message::ChangedOutside)}, Pressed{1}},
        {MessageQuestion{RecordOf(message::BasicStep)}, Pressed{2}},
        {SafetyQuestion{{}, QStringLiteral("filekill"), file}, Pressed{message::Consent}},
        {InputQuestion{QStringLiteral("Title"), QStringLiteral("Prompt"), QStringLiteral("old")}, text},
        {FileQuestion{FileQuestion::Open, {}, {}, folder.Path(), {}}, file},
        {FileQuestion{FileQuestion::OpenMany, {}, {}, folder.Path(), {}}, QStringList{file}},
        {FileQuestion{FileQuestion::Save, {}, {}, folder.Path(), {}}, folder.Path(QStringLiteral("new.conf"))},
        {FolderQuestion{{}, folder.Path()}, folder.Path().chopped(1)},
    };
    for (const auto& [question, answer] : cases) {
        SCOPED_TRACE(question.index());
        ASSERT_TRUE(Fits(question, answer));
        this->Asks.Prepare(answer);
        EXPECT_EQ(Ask(question), answer);
        this->Asks.PrepareCancel(question);
        EXPECT_EQ(Ask(question), WayOutOf(question));
        EXPECT_EQ(RunningWork(), 0);
    }
}

// Catches: a question without a window that ends the program or passes for answered, and a window that a room brings
// and nobody calls.
TEST(WindowAsker, KindsWithoutAWindowAreCancelledUntilARoomBringsIt)
{
    WindowAsker asker(nullptr);
    for (const Question& question : {Question(ChoiceQuestion{}), Question(ZipEntryQuestion{}),
                                     Question(PauseQuestion{}), Question(KeysQuestion{})})
        EXPECT_EQ(asker.Ask(question), Answer(Cancelled{}));
    asker.Bring<ChoiceQuestion>([](const ChoiceQuestion& question, QWidget*) { return int(question.Lists.size()); });
    EXPECT_EQ(asker.Ask(ChoiceQuestion{{}, {{}, {}, {}}}), Answer(3));
    EXPECT_EQ(asker.Ask(ZipEntryQuestion{}), Answer(Cancelled{}));
}
