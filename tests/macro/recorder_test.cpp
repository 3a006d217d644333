#include "macro/recorder.h"

#include "macro_scope.h"
#include "text/command_numbers.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A person at a text who is recorded, and a run of what came of it on the same start.
struct RecorderTest : testing::Test
{
    void Begin(const QString& text, const Range& selection = {})
    {
        start = text;
        startSelection = selection;
        Prepare(person);
        recorder.emplace(MomentOf(person));
    }
    void Prepare(DocumentText& text) const
    {
        text.LoadBytes(start.toUtf8());
        text.SetSel(startSelection, false);
    }
    void Do(int number, int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            person.ExecuteCmd(number);
            recorder->Command(number, MomentOf(person), person.FindText(), person.ReplaceText());
        }
    }
    void Type(const QString& text)
    {
        for (const char32_t key : text.toUcs4()) {
            person.ReplaceSel(QString::fromUcs4(&key, 1));
            recorder->Changed(MomentOf(person));
        }
    }
    void Select(const Range& range)
    {
        const Range before = person.GetSel(false);
        person.SetSel(range, false);
        recorder->Changed(MomentOf(person));
        if (before == person.GetSel(false)) // what moves nothing is not told, and yet ends a walk through lines
            Do(CmdLineEnd);
    }
    void Find(const QString& text, int number = CmdFindNext)
    {
        person.SetFindText(text);
        Do(number);
    }
    QStringList Lines() const { return recorder->Source().split(u'\n', Qt::SkipEmptyParts); }

    /// What the source makes of the start: "" if it is what the person has made, else both.
    QString Differs()
    {
        Prepare(scope.Text());
        scope.Clipboard.SetText(u"clip|board"_s);
        const MacroTrial trial = scope.Run(recorder->Source());
        if (trial.Error)
            return u"line %1: %2\n"_s.arg(trial.Error->Line).arg(trial.Error->Text) + recorder->Source();
        const TextMoment made = MomentOf(scope.Text()), wanted = MomentOf(person);
        if (made.Text == wanted.Text && made.Selection == wanted.Selection)
            return {};
        return u"wanted %1\nmade %2\n%3"_s.arg(Shown(wanted), Shown(made), recorder->Source());
    }
    static QString Shown(const TextMoment& moment)
    {
        const Range& at = moment.Selection;
        return u"\"%1\" %2,%3 to %4,%5"_s.arg(moment.Text)
            .arg(at.StartLine)
            .arg(at.StartCol)
            .arg(at.EndLine)
            .arg(at.EndCol);
    }

    MacroScope scope; ///< in which macros run
    OwnClipboard clipboard;
    LineText person{clipboard};
    std::optional<MacroRecorder> recorder;
    QString start;
    Range startSelection;
};

constexpr auto Poem = "one two\n\nthree (four) five\nsix\nseven eight";

} // namespace

// Catches: a character that the language takes for something else, blanks that are lost at an end, a line that breaks
// elsewhere.
TEST_F(RecorderTest, WhatIsTypedIsPrinted)
{
    const QString texts[] = {
        u"plain"_s,         u"two words"_s,     u"  ends  "_s,     u"\"q\" \"\""_s,
        u"[br] [chr:65]"_s, u"$a $"_s,          u"(1+2) ((3*4)"_s, u"&5 & &x a&3"_s,
        u"# no comment"_s,  u"?group @label"_s, u"a\nb\n\nc"_s,    u"\ttab\u00A0hard\u00E4\u263A"_s,
        u"007"_s,           u"print x"_s,       u"[null]"_s,       u"^ \\ / {} ; ' _"_s};
    for (const QString& text : texts) {
        Begin(u"start\n"_s, {0, 2, 0, 4});
        Type(text);
        EXPECT_EQ(Differs(), QString());
        EXPECT_TRUE(recorder->NotReplayed().isEmpty()) << text;
    }
    Begin({});
    Type(u"two words here"_s);
    EXPECT_EQ(Lines(), QStringList{u"print \"two words here\""_s});
}

// Catches: a "|" that is passed over in silence.
TEST_F(RecorderTest, ABarIsToldAndLeavesABlank)
{
    Begin({});
    Type(u"a|b"_s);
    EXPECT_EQ(Lines(), (QStringList{u"# The character | cannot be replayed"_s, u"print \"a b\""_s}));
    EXPECT_EQ(recorder->NotReplayed(), QStringList{u"The character |"_s});
}

// Catches: moves that are not counted together, a word for another move, a step over the text's edge, which ends a run.
TEST_F(RecorderTest, MovesAreCounted)
{
    Begin(QLatin1StringView(Poem));
    Do(CmdLineUp, 2);
    Do(CmdCharRight, 3);
    Do(CmdLineDown, 2);
    Do(CmdWordRightExtend, 2);
    Do(CmdCopy);
    Do(CmdDocumentEnd);
    Do(CmdLineDown, 3);
    Do(CmdPaste);
    EXPECT_EQ(Lines(), (QStringList{u"cursorright 3"_s, u"cursordown 2"_s, u"wordrightex 2"_s, u"copy"_s, u"docend"_s,
                                    u"paste"_s}));
    EXPECT_EQ(Differs(), QString());
}

// Catches: keys taken back that stay in the macro, or that take more with them.
TEST_F(RecorderTest, BackspaceTakesBackWhatWasTyped)
{
    Begin(u"abc"_s, {0, 0, 0, 2});
    Type(u"hallo"_s);
    Do(CmdDeleteLeft, 4);
    Type(u"ello\n"_s);
    Do(CmdDeleteLeft);
    EXPECT_EQ(Lines(), QStringList{u"print hello"_s});
    EXPECT_EQ(Differs(), QString());
    Do(CmdDeleteLeft, 5);
    EXPECT_EQ(Differs(), QString());
    Do(CmdDeleteRight);
    EXPECT_EQ(Differs(), QString());
}

// Catches: a selection by the mouse in the wrong direction or length, a column selection that loses its form.
TEST_F(RecorderTest, PlacesAndSelectionsCome)
{
    Begin(QLatin1StringView(Poem));
    Select({3, 1, 3, 1});
    Select({2, 4, 0, 2});
    EXPECT_EQ(Lines(), (QStringList{u"locate 4 2"_s, u"cursorleftex 11"_s}));
    EXPECT_EQ(Differs(), QString());
    Type(u"x"_s);
    Select({0, 1, 1, 3});
    EXPECT_EQ(Differs(), QString());
    Select({0, 0, 1, 2, true});
    EXPECT_EQ(Lines().last(), u"selectblock 0 0 2 1"_s);
}

// Catches: an edit beside the caret that is recorded as typed: a word that a list puts in the place of its beginning, a
// word deleted behind the caret, a change of several lines.
TEST_F(RecorderTest, OtherEditsComeByWhatTheyDid)
{
    Begin(u"say em\nmore\nend"_s, {0, 6, 0, 6});
    person.SetSel({0, 4, 0, 6}, false);
    person.ReplaceSel(u"emerald"_s);
    recorder->Changed(MomentOf(person));
    EXPECT_EQ(Lines(), QStringList{u"print erald"_s});
    person.InsertText(u"  "_s, {0, 0, 1, 0});
    person.SetSel({1, 1, 0, 2}, false);
    recorder->Changed(MomentOf(person));
    EXPECT_EQ(Differs(), QString());
    person.SetText(u"all new"_s);
    recorder->Changed(MomentOf(person));
    EXPECT_EQ(Differs(), QString());
    person.AddText(QString(5000, u'x'));
    recorder->Changed(MomentOf(person));
    EXPECT_EQ(recorder->NotReplayed(), QStringList{u"A long edit"_s});
}

// Catches: texts to look for that are no token, a search that went on at the text's start, one replacement of many.
TEST_F(RecorderTest, SearchesCome)
{
    Begin(u"a \"b\" [c]\n12 \"b\" x\n007 (d+e)"_s, {1, 0, 1, 0});
    Find(u"\"b\" "_s);
    Find(u"(d+e)"_s);
    Find(u"[c]"_s, CmdFindPrevious);
    Find(u"none"_s);
    EXPECT_EQ(Differs(), QString());
    person.SetReplaceText(u"12 \"34\""_s);
    Find(u"b"_s, CmdReplaceAll);
    EXPECT_EQ(Differs(), QString());
    Find(u"12"_s);
    person.SetReplaceText({});
    person.ReplaceFound();
    recorder->Command(CmdFindNext, MomentOf(person), person.FindText(), person.ReplaceText());
    EXPECT_EQ(Differs(), QString());
    Find(u"a|b"_s, CmdFindPrevious);
    EXPECT_TRUE(recorder->NotReplayed().isEmpty());
    Begin(u"x y x"_s, {0, 5, 0, 5});
    person.SetSel({0, 0, 0, 1}, false); // the search went on at the start
    recorder->Command(CmdFindNext, MomentOf(person), u"x"_s);
    EXPECT_EQ(Lines(), (QStringList{u"docstart"_s, u"findnext x"_s}));
    EXPECT_EQ(Differs(), QString());
}

// Catches: a step that was undone and comes again, a copy that undo takes with it.
TEST_F(RecorderTest, UndoTakesTheStepBack)
{
    Begin(u"start"_s);
    const auto undoTo = [this](const QString& text, const Range& at) {
        person.SetText(text);
        person.SetSel(at, false);
        recorder->Command(CmdUndo, MomentOf(person));
    };
    Type(u"ab"_s);
    Type(u"c"_s);
    Do(CmdCharRight);
    undoTo(u"abstart"_s, {0, 2, 0, 2});
    EXPECT_EQ(Lines(), QStringList{u"print ab"_s});
    recorder->CannotReplay(u"Tidy Up"_s, {u"abSTART"_s, {0, 2, 0, 2}});
    EXPECT_EQ(recorder->NotReplayed(), QStringList{u"Tidy Up"_s});
    undoTo(u"abstart"_s, {0, 0, 0, 0});
    EXPECT_EQ(Lines(), (QStringList{u"print ab"_s, u"locate 0 0"_s}));
    Do(CmdWordRightExtend);
    Do(CmdCopy);
    undoTo(u"start"_s, {0, 0, 0, 0});
    Do(CmdPaste);
    EXPECT_EQ(Differs(), QString());
    EXPECT_TRUE(Lines().contains(u"copy"_s));
}

// Catches: any mix of deeds after which the macro leaves another text or another caret.
TEST_F(RecorderTest, MixedDeedsComeAgain)
{
    constexpr int Numbers[] = {CmdCharRight,
                               CmdCharLeft,
                               CmdCharRightExtend,
                               CmdCharLeftExtend,
                               CmdLineUp,
                               CmdLineDown,
                               CmdLineUpExtend,
                               CmdLineDownExtend,
                               CmdWordRight,
                               CmdWordLeft,
                               CmdWordRightExtend,
                               CmdWordLeftExtend,
                               CmdDeleteRight,
                               CmdDeleteLeft,
                               CmdLineEnd,
                               CmdLineStart,
                               CmdLineEndExtend,
                               CmdLineStartExtend,
                               CmdDocumentStart,
                               CmdDocumentEndExtend,
                               CmdCut,
                               CmdCopy,
                               CmdPaste,
                               CmdCutAppend,
                               CmdCutLine,
                               CmdDeleteLine,
                               CmdSelectLine,
                               CmdSwapChars,
                               CmdOpenLineAbove,
                               CmdOpenLineBelow,
                               CmdDeleteToLineEnd,
                               CmdDeleteToLineStart,
                               CmdParagraphDown,
                               CmdParagraphUp,
                               CmdUndo,
                               CmdRedo};
    const QString typed[] = {u"a"_s, u" "_s, u"\""_s, u"[q]"_s, u"$v"_s, u"\n"_s, u"&2"_s, u"\U0001F600"_s};
    for (uint seed = 0; seed < 1000; ++seed) {
        QRandomGenerator random(seed);
        const auto below = [&random](int limit) { return int(random.bounded(limit)); };
        clipboard.SetText(u"clip|board"_s);
        Begin(QLatin1StringView(Poem), {below(5), below(9), 2, 5});
        for (int deed = 0; deed < 12; ++deed) {
            if (below(3) == 0)
                Type(typed[below(std::size(typed))]);
            else if (below(6) == 0)
                Select({below(3), below(9), below(3), below(9)});
            else if (below(6) == 0)
                Find(u"e"_s, below(2) ? CmdFindNext : CmdFindPrevious);
            else if (const int number = Numbers[below(std::size(Numbers))];
                     number < CmdLineUpExtend || number > CmdLineDown)
                Do(number, 1 + below(3));
            else if (const Range at = person.GetSel(true); at.StartLine > 0 && at.EndLine < person.LineCount() - 1)
                Do(number); // a walk that meets the text's edge is recorded by where it ended
        }
        ASSERT_EQ(Differs(), QString()) << "seed " << seed;
    }
}
