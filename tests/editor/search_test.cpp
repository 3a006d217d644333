#include "either_text.h"

#include "frame/run_scope.h"
#include "text/search.h"

#include <QRandomGenerator>
#include <QTimer>

namespace {

struct SearchTest : EitherTextTest
{
    QString Find(const QString& what, bool forward = true)
    {
        subject->SetFindText(what);
        found = subject->ExecuteCmd(forward ? 176 : 174);
        return Shown();
    }

    QString ReplaceAll(const QString& before, const QString& what, const QString& with, int number = 171)
    {
        Put(before);
        subject->ExecuteCmd(179, what);
        subject->ExecuteCmd(180, with);
        found = subject->ExecuteCmd(number);
        return Shown();
    }

    bool found = false;
};

ON_EITHER_TEXT(SearchTest);

// Catches: a search that finds its own selection again, goes the wrong way, or wraps unasked.
TEST_P(SearchTest, NextAndPreviousGoOnFromTheSelection)
{
    Put(u"ab|Ab\nab"_s);
    EXPECT_EQ(Find(u"ab"_s), u"ab[Ab|\nab"_s);
    EXPECT_EQ(Find(u"ab"_s), u"abAb\n[ab|"_s);
    EXPECT_EQ(Find(u"ab"_s), u"abAb\n[ab|"_s);
    EXPECT_FALSE(found);
    EXPECT_EQ(Find(u"ab"_s, false), u"ab[Ab|\nab"_s);
    EXPECT_EQ(Find(u"ab"_s, false), u"[ab|Ab\nab"_s);
    Find(u"ab"_s, false);
    EXPECT_FALSE(found);
    subject->SetFindOptions({.Wrap = true});
    EXPECT_EQ(Find(u"ab"_s, false), u"abAb\n[ab|"_s);
    EXPECT_EQ(Find(u"ab"_s), u"[ab|Ab\nab"_s);
    Find({});
    EXPECT_FALSE(found);
}

struct OptionCase
{
    const char16_t *Text, *What;
    FindOptions Options;
    const char16_t* Hit; ///< null: none
};

// Catches: an option that is ignored or acts in another kind of search.
TEST_P(SearchTest, OptionsSayWhatIsAHit)
{
    constexpr FindOptions Exact{.MatchCase = true}, Whole{.WholeWord = true}, Expression{.RegularExpression = true};
    constexpr FindOptions WholeExpression{.WholeWord = true, .RegularExpression = true};
    const OptionCase cases[] = {
        {u"|xAB", u"ab", {}, u"x[AB|"},
        {u"|AB ab", u"ab", Exact, u"AB [ab|"},
        {u"|cab ab_ ab", u"ab", Whole, u"cab ab_ [ab|"},
        {u"|a.b .", u".", Whole, u"a[.|b ."},
        {u"|Äx ä", u"ä", {}, u"[Ä|x ä"},
        {u"|Äx ä", u"ä", Exact, u"Äx [ä|"},
        {u"|Äx ä", u"ä", Whole, u"Äx [ä|"},
        {u"|a.b", u"a.b", {}, u"[a.b|"},
        {u"|axb", u"a.b", {}, nullptr},
        {u"|€axb", u"a.b", Expression, u"€[axb|"},
        {u"|a\nb", u"a.b", Expression, nullptr},
        {u"|x\nab", u"^a", Expression, u"x\n[a|b"},
        {u"|xAB", u"b$", Expression, u"xA[B|"},
        {u"|foobar foo", u"foo|o", WholeExpression, u"foobar [foo|"},
        {u"|aab", u"x*b", Expression, u"aa[b|"},
        {u"|a\nb\nc", u"b\nc", {}, u"a\n[b\nc|"},
    };
    for (const OptionCase& row : cases) {
        SCOPED_TRACE(QString::fromUtf16(row.What).toStdString());
        Put(QString::fromUtf16(row.Text));
        subject->SetFindOptions(row.Options);
        const QString shown = Find(QString::fromUtf16(row.What));
        EXPECT_EQ(found, row.Hit != nullptr);
        if (row.Hit) {
            EXPECT_EQ(shown, QString::fromUtf16(row.Hit));
        }
        EXPECT_EQ(subject->FindError(), QString());
    }
    subject->SetFindOptions(Expression);
    Find(u"a(b"_s);
    EXPECT_FALSE(found);
    EXPECT_FALSE(subject->FindError().isEmpty());
    Find(u"a"_s);
    EXPECT_TRUE(subject->FindError().isEmpty());
}

// Catches: backward in expressions by another set of hits, a position between CR and LF.
TEST_P(SearchTest, ExpressionsGoBackward)
{
    subject->SetFindOptions({.RegularExpression = true});
    Put(u"a1\nb22\n\nc|3"_s);
    EXPECT_EQ(Find(u"[a-z]\\d+"_s, false), u"a1\n[b22|\n\nc3"_s);
    EXPECT_EQ(Find(u"[a-z]\\d+"_s, false), u"[a1|\nb22\n\nc3"_s);
    Find(u"$"_s, false);
    EXPECT_FALSE(found) << "a hit without length selects nothing";
}

// Catches: replaced text searched again, groups mixed up, hits of no length missed or doubled, line ends torn apart.
TEST_P(SearchTest, ReplaceAll)
{
    EXPECT_EQ(ReplaceAll(u"aa\nA|"_s, u"a"_s, u"aa"_s), u"aaaa\na|a"_s);
    EXPECT_EQ(subject->LastReplaceCount(), 3);
    EXPECT_EQ(subject->ExecuteCmd(CmdUndo), OnPane());
    EXPECT_EQ(subject->Text(), OnPane() ? u"aa\r\nA"_s : u"aaaa\r\naa"_s);
    EXPECT_EQ(ReplaceAll(u"ab|"_s, u"x"_s, u"y"_s), u"ab|"_s);
    EXPECT_FALSE(found);
    EXPECT_EQ(subject->LastReplaceCount(), 0);
    EXPECT_EQ(ReplaceAll(u"|a.b"_s, u"."_s, u"\\1$1"_s), u"|a\\1$1b"_s) << "plain text stays plain";

    subject->SetFindOptions({.RegularExpression = true});
    EXPECT_EQ(ReplaceAll(u"|ab cd"_s, u"(\\w)(\\w)"_s, u"$2\\1$0\\\\$$\\t"_s), u"|baab\\$\t dccd\\$\t"_s);
    EXPECT_EQ(ReplaceAll(u"|a\n\nb"_s, u"^"_s, u"# "_s), u"|# a\n# \n# b"_s);
    EXPECT_EQ(ReplaceAll(u"|a\nb"_s, u"$"_s, u";"_s), u"|a;\nb;"_s);
    EXPECT_EQ(ReplaceAll(u"|a\nb"_s, u".*"_s, u"-"_s), u"|-\n-"_s);
    EXPECT_EQ(subject->LastReplaceCount(), 2);
    EXPECT_EQ(ReplaceAll(u"|a,b"_s, u","_s, u"\\n"_s), u"|a\nb"_s);
    EXPECT_EQ(ReplaceAll(u"|\U0001F600x"_s, u"(?=.)"_s, u"-"_s), u"|-\U0001F600-x"_s);
}

// Catches: hits beyond the selection replaced, a selection lost, columns replaced as lines.
TEST_P(SearchTest, ReplaceAllInSelection)
{
    EXPECT_EQ(ReplaceAll(u"a[aab|a"_s, u"a"_s, u"xy"_s, 172), u"a[xyxyb|a"_s);
    EXPECT_EQ(ReplaceAll(u"a|aab[a"_s, u"a"_s, u""_s, 172), u"a|b[a"_s);
    EXPECT_EQ(ReplaceAll(u"[ab|c"_s, u"abc"_s, u"x"_s, 172), u"[ab|c"_s);
    subject->SetText(u"aaa\naaa\naaa"_s);
    subject->SetSel({0, 1, 1, 2, true}, false);
    subject->SetFindText(u"a"_s);
    subject->SetReplaceText(u"b"_s);
    EXPECT_TRUE(subject->ExecuteCmd(172));
    EXPECT_EQ(subject->Text(), u"aba\r\naba\r\naaa"_s);
    EXPECT_EQ(subject->LastReplaceCount(), 2);
    if (subject->ExecuteCmd(CmdUndo)) {
        EXPECT_EQ(subject->Text(), u"aaa\r\naaa\r\naaa"_s);
    }
}

// Catches: a hit across the edge of two pieces that is missed, replaced twice or seen without its neighbours; an empty
// hit that counts at the end of one piece and at the start of the next; text that moves when hits grow or shrink.
TEST_P(SearchTest, ReplaceAllIsTheSameInPieces)
{
    const struct
    {
        QString Wanted, With;
        bool Expression;
    } rows[] = {{u"ab"_s, u"X"_s, false},        {u"a"_s, u"aaa"_s, false}, {u"b\nb"_s, {}, false},
                {u"^"_s, u"> "_s, true},         {u"a*"_s, u"-"_s, true},   {u"b$"_s, u"\\n"_s, true},
                {u"(a)(b)"_s, u"\\2\\1"_s, true}};
    QRandomGenerator random(7);
    for (const auto& row : rows)
        for (const bool words : {false, true}) {
            SCOPED_TRACE(row.Wanted.toStdString() + (words ? ", words" : ""));
            const FindOptions options{.WholeWord = words, .RegularExpression = row.Expression};
            QString sample;
            while (sample.size() < 40'000)
                sample += random.bounded(200) == 0 ? u"\n"_s : QString(u"abb a."_s[random.bounded(6)]);
            sample.replace(u"bb."_s, u"b\nb."_s);
            subject->SetText(sample);
            subject->SetFindText(row.Wanted);
            subject->SetReplaceText(row.With);
            subject->SetFindOptions(options);
            const QByteArray before = subject->Bytes().toByteArray();
            const Replaced whole =
                Search(row.Wanted, options, subject->LineEnd()).ReplaceAll(before, {0, before.size()}, row.With);
            EXPECT_EQ(subject->ExecuteCmd(CmdReplaceAll), whole.Count > 0);
            EXPECT_EQ(subject->LastReplaceCount(), whole.Count);
            EXPECT_GT(whole.Count, 0);
            EXPECT_TRUE(subject->Bytes() == whole.Bytes);
            if (OnPane() && whole.Bytes != before)
                subject->ExecuteCmd(CmdUndo);
            EXPECT_TRUE(!OnPane() || subject->Bytes() == before) << "one step back";
        }
}

// Catches: a stop that leaves half of the hits replaced.
TEST_F(PaneTest, AStoppedReplaceAllLeavesTheTextAsItWas)
{
    const QByteArray line = "abcdefghij\n";
    pane->LoadBytes(line.repeated(400'000));
    pane->SetFindText(u"a"_s);
    pane->SetReplaceText(u"bb"_s);
    QTimer stop;
    QObject::connect(&stop, &QTimer::timeout, [] { StopRuns(StopReason::Esc); });
    stop.start(0);
    EXPECT_FALSE(pane->ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(pane->LastReplaceCount(), 0);
    EXPECT_TRUE(pane->Bytes() == line.repeated(400'000));
    stop.stop();
    EXPECT_TRUE(pane->ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(pane->LastReplaceCount(), 400'000);
}

// Catches: a first press that replaces what only happens to be selected, a count that is not the press's own.
TEST_P(SearchTest, ReplaceFoundReplacesAHitAndGoesOn)
{
    Put(u"x|ab ab"_s);
    subject->SetFindText(u"ab"_s);
    subject->SetReplaceText(u"abc"_s);
    EXPECT_TRUE(subject->ReplaceFound());
    EXPECT_EQ(Shown(), u"x[ab| ab"_s);
    EXPECT_EQ(subject->LastReplaceCount(), 0);
    EXPECT_TRUE(subject->ReplaceFound());
    EXPECT_EQ(Shown(), u"xabc [ab|"_s);
    EXPECT_EQ(subject->LastReplaceCount(), 1);
    EXPECT_TRUE(subject->ReplaceFound());
    EXPECT_EQ(Shown(), u"xabc abc|"_s);
    EXPECT_FALSE(subject->ReplaceFound());
}

// Catches: a history that holds a text twice, oldest first or cut in lines, a plain search that leaves a trace.
TEST_P(SearchTest, HistoriesAreNewestFirst)
{
    Put(u"|one two"_s);
    for (const QString& what : {u"one"_s, u"two"_s, u"a\r\nb"_s, u"one"_s})
        Find(what);
    EXPECT_EQ(Frame.Globals.FindMRUList, OnPane() ? u"one\na\\nb\ntwo"_s : QString());
    EXPECT_EQ(Frame.Globals.ReplaceMRUList, QString());
    ReplaceAll(u"x|"_s, u"x"_s, u"y"_s);
    EXPECT_EQ(Frame.Globals.ReplaceMRUList, OnPane() ? u"y"_s : QString());
    Put(u"|#~- #~-"_s);
    subject->SetFindOptions({.MatchCase = true, .RegularExpression = true, .Wrap = true});
    EXPECT_TRUE(subject->FindPlain(u"#~-"_s, true));
    EXPECT_TRUE(subject->FindPlain(u"#~-"_s, true));
    EXPECT_FALSE(subject->FindPlain(u"#~-"_s, true));
    EXPECT_TRUE(subject->FindPlain(u"#~-"_s, false));
    EXPECT_EQ(Shown(), u"[#~-| #~-"_s);
    EXPECT_EQ(Frame.Globals.FindMRUList.count('\n'_L1), OnPane() ? 3 : 0);
    EXPECT_EQ(subject->FindText(), u"x"_s);
}

// Catches: a step too far in the case-blind search, a hit lost at the edge of a backward stretch.
TEST(Search, FastSearchAgreesWithAPlainOne)
{
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (int round = 0; round < 400; ++round) {
        QString text;
        for (int i = random.bounded(round < 390 ? 60 : 60'000); i > 0; --i)
            text += u"aAbB_."_s[random.bounded(6)];
        const QString what = text.mid(random.bounded(int(text.size()) + 1), 1 + random.bounded(4));
        if (what.isEmpty())
            continue;
        const bool exact = random.bounded(2);
        const Search search(what, {.MatchCase = exact}, LineBreak::Lf);
        const Qt::CaseSensitivity cases = exact ? Qt::CaseSensitive : Qt::CaseInsensitive;
        const QByteArray bytes = text.toUtf8();
        const qsizetype from = random.bounded(int(text.size()) + 1);
        SCOPED_TRACE(testing::Message() << "seed " << seed << " from " << from << " what " << what.toStdString());
        const auto next = search.Next(bytes, {from, bytes.size()});
        ASSERT_EQ(next ? next->At.Start : -1, text.indexOf(what, from, cases));
        const auto last = search.Previous(bytes, {0, from});
        const qsizetype start = from < what.size() ? -1 : text.lastIndexOf(what, from - what.size(), cases);
        ASSERT_EQ(last ? last->At.Start : -1, start);
    }
}

} // namespace
