#include "either_text.h"

#include <QRandomGenerator>

namespace {

/// Does the same on a pane and on a text without a view.
class Twins
{
public:
    Twins()
    {
        pane->SetPaneFont(u"Liberation Mono"_s, 10);
        pane->SetTabSize(8);
        lines.SetTabSize(8);
    }
    DocumentText* Both[2] = {nullptr, nullptr};

    template <class Step>
    void Do(Step step)
    {
        step(static_cast<DocumentText&>(*pane));
        step(static_cast<DocumentText&>(lines));
    }

    static std::string Seen(const DocumentText& text)
    {
        const Range range = text.GetSel(false), normal = text.GetSel(true);
        return QStringLiteral("%1\n%2,%3 %4,%5 %6 / %7,%8 %9,%10 / sel '%11' %12 / word '%13' / lines %14 %15")
            .arg(text.Text())
            .arg(range.StartLine)
            .arg(range.StartCol)
            .arg(range.EndLine)
            .arg(range.EndCol)
            .arg(range.ColumnSel)
            .arg(normal.StartLine)
            .arg(normal.StartCol)
            .arg(normal.EndLine)
            .arg(normal.EndCol)
            .arg(text.SelText())
            .arg(text.SelLength())
            .arg(text.CurrentWord())
            .arg(text.LineCount())
            .arg(text.Modified())
            .toStdString();
    }
    std::string Pane() const { return Seen(*pane); }
    std::string Lines() const { return Seen(lines); }

    HostScope host;
    DesktopClipboard clipboard;
    std::unique_ptr<EditorPane> pane = MakePane();
    LineText lines{clipboard};
};

constexpr int Numbers[] = {101, 102, 103, 107, 108, 136, 137, 140, 141, 142, 148, 149, 152, 153,
                           154, 155, 156, 157, 158, 159, 160, 161, 164, 165, 184, 188, 189, 190,
                           191, 194, 195, 197, 198, 199, 200, 201, 202, 203, 210, 212, 229};

QString RandomText(QRandomGenerator& random, const QString& alphabet, int longest)
{
    QString text;
    for (int left = random.bounded(longest + 1); left > 0; --left) {
        const char32_t code = alphabet.toUcs4().at(random.bounded(int(alphabet.toUcs4().size())));
        text += QString::fromUcs4(&code, 1);
    }
    return text;
}

Range RandomRange(QRandomGenerator& random, int lineCount)
{
    Range range{random.bounded(lineCount + 1), random.bounded(9), random.bounded(lineCount + 1), random.bounded(9)};
    if (random.bounded(2)) {
        range.EndLine = range.StartLine;
        range.EndCol = range.StartCol;
    }
    return range;
}

/// One random step, the same on both.
struct RandomStep
{
    RandomStep(QRandomGenerator& random, const QString& alphabet, int lineCount)
        : Kind(random.bounded(14)),
          Number(Numbers[random.bounded(int(std::size(Numbers)))]),
          Count(random.bounded(1, 4)),
          Text(RandomText(random, alphabet, 6)),
          With(RandomText(random, alphabet, 3)),
          Where(RandomRange(random, lineCount))
    {
    }

    void operator()(DocumentText& text) const
    {
        switch (Kind) {
        case 0:
            text.SetSel(Where, false);
            break;
        case 1:
            text.ReplaceSel(Text);
            break;
        case 2:
            text.SetSelText(Text);
            break;
        case 3:
            text.InsertLine(Where.StartLine, Text);
            break;
        case 4:
            text.DeleteLine(Where.StartLine);
            break;
        case 5:
            text.InsertText(Text, Where);
            break;
        case 6:
            text.SetFindText(With);
            text.SetReplaceText(Text);
            text.ExecuteCmd(Count == 1 ? CmdFindNext : Count == 2 ? CmdFindPrevious : CmdReplaceAllInSelection);
            break;
        case 7:
            text.SetFindText(With);
            text.SetReplaceText(Text);
            text.ExecuteCmd(CmdReplaceAll);
            break;
        default:
            text.Repeat(Number, Count);
            break;
        }
    }
    QString Told() const
    {
        return QStringLiteral("kind %1 number %2 count %3 text '%4' with '%5' at %6,%7 %8,%9")
            .arg(Kind)
            .arg(Number)
            .arg(Count)
            .arg(Text, With)
            .arg(Where.StartLine)
            .arg(Where.StartCol)
            .arg(Where.EndLine)
            .arg(Where.EndCol);
    }

    int Kind, Number, Count;
    QString Text, With;
    Range Where;
};

void CompareRandomly(quint32 seed, const QString& alphabet, const QString& start)
{
    QRandomGenerator random(seed);
    Twins twins;
    twins.Do([&](DocumentText& text) { text.SetText(start); });
    QStringList steps;
    for (int i = 0; i < 400; ++i) {
        const RandomStep step(random, alphabet, twins.lines.LineCount());
        steps << step.Told();
        const std::string before = twins.Lines();
        twins.Do(step);
        ASSERT_EQ(twins.Pane(), twins.Lines())
            << "seed " << seed << ", step " << i << ": " << steps.last().toStdString() << "\nbefore: " << before;
        if (twins.lines.LineCount() > 40)
            twins.Do([&](DocumentText& text) { text.SetText(start); });
    }
}

// Catches: a command of the text without a view that ends elsewhere than the pane's, leaves another text or another
// selection, or a search that finds something else.
TEST(LineText, DoesWhatThePaneDoes)
{
    for (quint32 seed = 1; seed <= 30; ++seed)
        CompareRandomly(seed, u"ab c.\n"_s, u"one two\n\n three.four\nfive"_s);
    for (quint32 seed = 100; seed <= 115; ++seed)
        CompareRandomly(seed, u"a\tb \u00E4\n"_s, u"\tone\ttwo\n\n\u00E4\u00F6 three\nfive\t"_s);
}

// Catches: a hit that lies across the edge of the stretches that a search backward looks through.
TEST(LineText, FindsBackwardAcrossItsStretches)
{
    constexpr int Stretch = 16 * 1024;
    Twins twins;
    for (const int inFront : {1, 3, 5})
        twins.Do([&](DocumentText& text) {
            text.SetText(QString(100, u'.') + u"needle"_s + QString(Stretch - inFront, u'.'));
            text.ExecuteCmd(CmdDocumentEnd);
            text.SetFindText(u"needle"_s);
            text.ExecuteCmd(CmdFindPrevious);
            EXPECT_EQ(text.GetSel(true), (Range{.StartCol = 100, .EndCol = 106})) << inFront;
        });
}

// Catches: a column to which the caret wants to go back from the text before.
TEST(LineText, ALoadForgetsTheWantedColumn)
{
    Twins twins;
    twins.Do([](DocumentText& text) {
        text.LoadBytes("abcdef\nx\nabcdef");
        text.SetSel({0, 5, 0, 5}, false);
        text.ExecuteCmd(CmdLineDown);
        text.LoadBytes("abcdef\nabcdef");
        text.ExecuteCmd(CmdLineDown);
    });
    EXPECT_EQ(twins.Pane(), twins.Lines());
    EXPECT_EQ(twins.lines.CaretColumn(), 0);
}

/// A rectangle, then what may be done to it.
void CompareColumns(quint32 seed)
{
    QRandomGenerator random(seed);
    Twins twins;
    twins.Do([](DocumentText& text) { text.SetText(u"abcdef\nab\n\nabcd\nabcdefgh\nx"_s); });
    for (int i = 0; i < 40; ++i) {
        const int lineCount = twins.lines.LineCount();
        const Range block{random.bounded(lineCount), random.bounded(7), random.bounded(lineCount), random.bounded(7),
                          true};
        if (block.StartCol == block.EndCol)
            continue;
        constexpr int OfBlocks[] = {195, 194, 197, 198, 184, 229, 201, 203, 172, 210};
        const int number = OfBlocks[random.bounded(int(std::size(OfBlocks)))];
        const int then = random.bounded(3);
        const Range place{random.bounded(lineCount), random.bounded(4), 0, 0};
        const auto step = [&](DocumentText& text) {
            text.SetFindText(u"b"_s);
            text.SetReplaceText(u"zz"_s);
            text.SetSel(block, false);
            if (then == 2)
                text.ReplaceSel(u"R"_s);
            else
                text.ExecuteCmd(number);
            if (then == 1 && (number == 197 || number == 198)) {
                text.SetSel({place.StartLine, place.StartCol, place.StartLine, place.StartCol}, false);
                text.ExecuteCmd(140);
            }
        };
        const std::string before = twins.Lines();
        twins.Do(step);
        ASSERT_EQ(twins.Pane(), twins.Lines())
            << "seed " << seed << ", command " << number << " then " << then << " on " << block.StartLine << ','
            << block.StartCol << ' ' << block.EndLine << ',' << block.EndCol << " to " << place.StartLine << ','
            << place.StartCol << "\nbefore: " << before;
    }
}

TEST(LineText, DoesWithColumnsWhatThePaneDoes)
{
    for (quint32 seed = 1; seed <= 60; ++seed)
        CompareColumns(seed);
}

// Catches: a hit beyond the stretch that is looked at first, over the edge between two stretches, or over line ends.
TEST(LineText, FindsWhatThePaneFindsInLongTexts)
{
    QRandomGenerator random(7);
    for (int trial = 0; trial < 30; ++trial) {
        Twins twins;
        QString text;
        for (int line = 0; line < 700; ++line)
            text += RandomText(random, u"abc "_s, 5) + u'\n';
        twins.Do([&](DocumentText& both) { both.SetText(text); });
        for (int i = 0; i < 40; ++i) {
            const QString needle = RandomText(random, u"abc\n"_s, 5);
            const FindOptions options{random.bounded(2) == 0, random.bounded(4) == 0, random.bounded(4) == 0,
                                      random.bounded(2) == 0};
            const int number = random.bounded(2) ? CmdFindNext : CmdFindPrevious;
            const int line = random.bounded(700);
            twins.Do([&](DocumentText& both) {
                both.SetFindOptions(options);
                both.SetFindText(needle);
                if (line % 3 == 0)
                    both.SetSel({line, 0, line, 0}, false);
                if (line % 7 == 0)
                    both.ReplaceSel(u"a\nb"_s);
                both.ExecuteCmd(number);
                both.ExecuteCmd(number);
            });
            ASSERT_EQ(twins.Pane(), twins.Lines()) << needle << ' ' << number;
        }
    }
}

// Catches: changes that do not reach the pane, or reach other lines of it; line ends of lines nobody touched that
// change; a pane that is no longer blank, or should be.
TEST(LineText, ChangesAreWrittenToTheTextItCameFrom)
{
    for (quint32 seed = 1; seed <= 40; ++seed) {
        QRandomGenerator random(seed);
        Twins twins;
        twins.pane->LoadBytes(seed % 5 ? "one\ntwo\r\n\r\nthree\rfour\n" : "");
        twins.lines.CopyFrom(*twins.pane);
        ASSERT_EQ(twins.Pane(), twins.Lines());
        for (int i = 0; i < 60; ++i) {
            for (int steps = random.bounded(4); steps > 0; --steps) {
                const RandomStep step(random, u"ab .\n"_s, twins.lines.LineCount());
                if (random.bounded(20) == 0)
                    twins.lines.SetText({});
                step(twins.lines);
            }
            const QByteArray wanted = twins.lines.FileBytes();
            twins.lines.WriteChangesTo(*twins.pane);
            ASSERT_EQ(twins.pane->FileBytes(), wanted) << "seed " << seed << ", round " << i;
            twins.lines.SetModified(twins.pane->Modified()); // what ends as it began is not modified
            ASSERT_EQ(twins.Pane(), twins.Lines()) << "seed " << seed << ", round " << i;
        }
    }
}

// Catches: an operation over a huge text that nothing can stop, one that is stopped half-way and leaves half a
// replacement, hits at the edges of the pieces that are lost.
TEST(LineText, AHugeTextGivesTurnsAndIsLeftWholeWhenStopped)
{
    DesktopClipboard clipboard;
    LineText text(clipboard);
    const QByteArray line = "left and left again\n";
    const QByteArray bytes = line.repeated(500'000);
    text.LoadBytes(bytes);
    int turns = 0;
    text.SetTurn([&turns] { return ++turns < 2; });
    text.SetFindText(u"left"_s);
    text.SetReplaceText(u"right"_s);
    EXPECT_FALSE(text.ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(turns, 2);
    EXPECT_EQ(text.FileBytes(), bytes);
    text.SetFindText(u"nowhere"_s);
    EXPECT_FALSE(text.ExecuteCmd(CmdFindNext));
    EXPECT_EQ(turns, 3);
    text.SetTurn({});
    text.SetFindText(u"left"_s);
    EXPECT_TRUE(text.ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(text.LastReplaceCount(), 1'000'000);
    EXPECT_EQ(text.FileBytes(), QByteArray(bytes).replace("left", "right"));
}

// Catches: a change of one line that writes all of them.
TEST(LineText, WritesOnlyTheStretchThatChanged)
{
    Twins twins;
    twins.pane->LoadBytes(QByteArray("line\n").repeated(1000));
    twins.lines.CopyFrom(*twins.pane);
    twins.lines.SetSel({500, 2, 500, 2}, false);
    twins.lines.ReplaceSel(u"XY"_s);
    twins.lines.WriteChangesTo(*twins.pane);
    EXPECT_EQ(twins.pane->GetLine(500), u"liXYne"_s);
    EXPECT_TRUE(twins.pane->ExecuteCmd(CmdUndo));
    EXPECT_EQ(twins.pane->GetLine(500), u"line"_s);
    EXPECT_FALSE(twins.pane->CanUndo());
}

} // namespace
