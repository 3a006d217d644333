#include "graphics/picks.h"
#include "macro/language/run_loop.h"
#include "macro/language/run_state.h"
#include "macro_scope.h"

#include "services/archive_tool.h"

#include <QElapsedTimer>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A run of its own around a command that asks first.
struct GateTest : testing::Test
{
    bool Ask(const QStringList& answers)
    {
        MacroAnswers asker(answers);
        asker.OnRefused = [this] { refused = true; };
        Frame.Ask = &asker;
        RunState run(scope.Stage, turns);
        run.Author = author;
        run.SafeSystem = safe;
        static constexpr CommandWord word{"dirkill", Exactly(1), SafeGate, "", "", nullptr};
        ProgramLine line;
        line.Word = &word;
        line.Tokens.push_back(ReadToken(u"dirkill"_s, run.Variables));
        line.Tokens.push_back(ReadToken(u"$folder"_s, run.Variables));
        run.Variables.Declare(run.Variables.Mention(u"$folder"_s));
        run.Variables.Mention(u"$folder"_s).Held = Value(u"my|files^x"_s);
        const bool passed = SystemSafeCheck(run, line);
        Frame.Ask = &scope.Host.Answers;
        EXPECT_EQ(run.StopRequested, !passed);
        return passed;
    }

    MacroScope scope;
    RunScope turns{RunKind::Macro, u"gate"_s};
    QString author;
    bool safe = true, refused = false;
};

} // namespace

// Catches: a gate that lets pass what was not allowed, one that asks although the setting is off, an answer meant for
// something else that is taken.
TEST_F(GateTest, OnlyContinuePasses)
{
    EXPECT_TRUE(Ask({u"Continue"_s}));
    EXPECT_FALSE(refused);
    EXPECT_FALSE(Ask({}));
    EXPECT_FALSE(Ask({u"OK"_s}));
    EXPECT_TRUE(refused);
    safe = false;
    EXPECT_TRUE(Ask({}));
}

// Catches: a question that does not say what it is about, an author that breaks its lines.
TEST_F(GateTest, TheQuestionTellsAuthorAndCommand)
{
    RunState run(scope.Stage, turns);
    run.Author = u"A^B"_s + QString(60, u'x');
    static constexpr CommandWord word{"filekill", Exactly(1), SafeGate, "", "", nullptr};
    ProgramLine line;
    line.Word = &word;
    for (const QString& token : {u"filekill"_s, u"my|file"_s})
        line.Tokens.push_back(ReadToken(token, run.Variables));
    EXPECT_FALSE(SystemSafeCheck(run, line));
    const std::vector<SafetyQuestion> asked = scope.Host.Answers.AskedFor<SafetyQuestion>();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(RecordOf(asked.front()).MessageText,
              u"You have SystemSafe turned on and this BASIC program wants to work with files.^^Author: AB"_s +
                  QString(38, u'x') + u"^^filekill my file"_s);
}

// Catches: a macro for ever that its deadline does not end, by jumps, by waiting or by one long command.
TEST(MacroRun, AStopEndsWhateverRuns)
{
    for (const char* source : {"label @a1\r\ngotolabel @a1\r\n", "pause 100000\r\n", "loop 1 5 -1\r\nendloop\r\n",
                               "label @a1\r\ncursorright 1000000\r\ngotolabel @a1\r\n"}) {
        MacroScope scope;
        scope.Text().SetText(QString(2'000'000, u'x'));
        scope.Deadline = 60;
        QElapsedTimer clock;
        clock.start();
        EXPECT_FALSE(scope.Run(QLatin1String(source)).Error) << source;
        EXPECT_LT(clock.elapsed(), 5000) << source;
    }
}

// Catches: font, colours or bar that a macro leaves changed, by an error too; state that reaches the next run.
TEST(MacroRun, LeavesTheStageAsItWas)
{
    MacroScope scope;
    const auto screen = [&scope]() -> TextScreen& { return scope.Stage.Screen(); };
    screen().SetColor(PrintSlot, 0x123456);
    screen().SetFont(u"Mono"_s, 9);
    EXPECT_TRUE(scope.Run(u"colour 1 2 3 4 5 6\nprogbarset 5\ndim $a\nnosuchword"_s).Error);
    EXPECT_EQ(screen().GetColor(PrintSlot), 0x123456);
    EXPECT_EQ(screen().GetColor(GroundSlot), 0);
    EXPECT_EQ(screen().FontName(), u"Mono"_s);
    EXPECT_FALSE(scope.Run(u"dim $a\nprint [lastask] [listcount] $a"_s).Error);
    EXPECT_EQ(scope.Text().Text(), u"0"_s);
}

// Catches: events that wait for the macro's end, so that nothing can stop it from outside.
TEST(MacroRun, EventsRunMeanwhile)
{
    MacroScope scope;
    QTimer::singleShot(30, [] { StopRuns(StopReason::Esc); });
    EXPECT_FALSE(scope.Run(u"label @a1\ngotolabel @a1"_s).Error);
}

// Catches: a run panel that shows the line of the last turn while a later one waits.
TEST(MacroRun, TellsTheLineThatWaits)
{
    MacroScope scope;
    QString told;
    QTimer::singleShot(30, [&told] {
        told = RunInFront()->Detail();
        StopRuns(StopReason::Esc);
    });
    EXPECT_FALSE(scope.Run(u"print a\nprint b\npause 100000"_s).Error);
    EXPECT_EQ(told, u"line 2"_s);
}

// Catches: fields of a sheet's pick that the tags do not see, a sheet that was not shown and counts as picked.
TEST(MacroRun, APickFromASheetFillsTheElement)
{
    MacroScope scope;
    scope.Folder.Write(u"Tiles.PCX"_s, "x");
    const QString macro =
        u"pickfrompcx tiles.pcx Prompt\nprint [lastmessageresult] [eleframes] [eleanimmode] [elexpos] [elename]"_s;
    EXPECT_FALSE(scope.Run(macro).Error);
    EXPECT_EQ(scope.Text().Text(), u"cancel0loop0Nameless"_s);
    SheetRequest asked;
    Picks.Sheet = [&asked](const SheetRequest& request) {
        asked = request;
        SheetAnswer answer;
        answer.Outcome = SheetOutcome::Closed;
        answer.Element.Frames = 4;
        answer.Element.XPos = 7;
        answer.Element.AnimMode = u"pingpong"_s;
        answer.Element.Reverse = true;
        answer.Element.ElementName = u"wall"_s;
        return answer;
    };
    scope.Text().SetText({});
    EXPECT_FALSE(scope.Run(macro).Error);
    ResetPicks();
    EXPECT_EQ(scope.Text().Text(), u"ok4pingpong,reverse7wall"_s);
    EXPECT_EQ(asked.File, scope.Folder.Path(u"Tiles.PCX"_s));
    EXPECT_EQ(asked.Prompt, u"Prompt"_s);
}

// Catches: a macro's file that is taken for something else, an archive without a source that runs.
TEST(MacroFile, IsAnArchiveByItsFirstBytesElseSource)
{
    TestFolder folder;
    const QString plain = folder.Write(u"plain.gfb"_s, "print a\n");
    EXPECT_EQ(ReadMacroSource(plain).value(), "print a\n");
    const QString archive = folder.Path(u"packed.gfb"_s);
    ASSERT_TRUE(AddBytesToResource(u"other.txt"_s, "x", archive));
    const Result<QByteArray> none = ReadMacroSource(archive);
    ASSERT_FALSE(none);
    EXPECT_EQ(none.error().Reason, u"Can't find the file: 'basic.txt' in the resource."_s);
    ASSERT_TRUE(AddBytesToResource(u"basic.txt"_s, "print b\r\n", archive));
    EXPECT_EQ(ReadMacroSource(archive).value(), "print b\r\n");
    EXPECT_FALSE(ReadMacroSource(folder.Path(u"none.gfb"_s)));
}
