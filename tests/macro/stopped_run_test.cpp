#include "macro/stopped_run.h"

#include "macro/language/run_state.h"
#include "macro_scope.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Stands still in front of one line.
class StoppingStage : public PlainStage
{
public:
    StoppingStage(TextClipboard& clipboard, int line, std::function<void(RunState&)> act)
        : PlainStage(clipboard), at(line), then(std::move(act))
    {
    }
    void BeforeLine(RunState& run) override
    {
        if (run.CurrentLine == at && then)
            std::exchange(then, {})(run);
    }

private:
    int at;
    std::function<void(RunState&)> then;
};

/// What a macro leaves that stood still once.
QString Left(const QString& source, int line, const std::function<void(RunState&)>& act)
{
    const HostScope host;
    OwnClipboard clipboard;
    StoppingStage stage(clipboard, line, act);
    RunScope scope(RunKind::Macro, u"trial"_s, 60'000);
    MacroRequest request;
    request.Source = PrepareSource(source);
    request.TestRun = true;
    const auto error = RunMacro(request, stage, scope);
    return error ? error->Text : stage.Target().Text();
}

} // namespace

// Catches: a condition that another value answers than the one of this moment, one that spoils the run or its branch, a
// fault that passes for "no".
TEST(StoppedRun, ConditionsAreToldByTheRun)
{
    const QString source = u"dim $n\ndim $name\nset $n =7\nset $name =two|words\nprint done"_s;
    const QString left = Left(source, 4, [](RunState& run) {
        for (const char16_t* holds : {u"", u" $n ==7", u"$n >>5 <<9", u"$name ==\"two words\"", u"[loopnumber] ==1"})
            EXPECT_TRUE(HoldsNow(run, QString::fromUtf16(holds)).Holds) << QString::fromUtf16(holds);
        for (const char16_t* fails : {u"$n ==8", u"$n >>5 <<7", u"$name ==two"})
            EXPECT_FALSE(HoldsNow(run, QString::fromUtf16(fails)).Holds) << QString::fromUtf16(fails);
        for (const char16_t* wrong : {u"$n", u"n ==7", u"$none ==1", u"$n 7", u"$n ==\"7"}) {
            const ConditionAnswer answer = HoldsNow(run, QString::fromUtf16(wrong));
            EXPECT_TRUE(answer.Holds && !answer.Fault.isEmpty()) << QString::fromUtf16(wrong);
        }
        EXPECT_FALSE(run.Block.IfActive);
    });
    EXPECT_EQ(left, u"done"_s);
}

// Catches: a chain in another order or with the line of the sub in place of its call; a value that the run does not
// take, or takes with its blanks lost.
TEST(StoppedRun, ShowsWhereItStandsAndTakesValues)
{
    const QString source =
        u"dim $a\ngosub @one\nprint $a\nstop\nsub @one\ngosub @two\nendsub\nsub @two\nset $a =old\nendsub"_s;
    const QString left = Left(source, 9, [](RunState& run) {
        QStringList chain;
        for (const RunPlace& place : GosubChain(run))
            chain << u"%1 %2"_s.arg(place.Line).arg(place.Written);
        EXPECT_EQ(chain, QStringList({u"1 gosub @one"_s, u"5 gosub @two"_s, u"9 endsub"_s}));
        EXPECT_EQ(ValueNow(run, u"$A"_s), u"old"_s);
        EXPECT_FALSE(ValueNow(run, u"$b"_s));
        EXPECT_FALSE(SetVariableAt(run, 1, {}));
        EXPECT_TRUE(SetVariableAt(run, 0, u"new value"_s));
        EXPECT_EQ(ValueNow(run, u"$a"_s), u"new value"_s);
    });
    EXPECT_EQ(left, u"new value"_s);
}
