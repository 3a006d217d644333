#include "conf/line_pass.h"
#include "conf/tidy_up.h"
#include "frame/run_scope.h"
#include "platform/files/paths.h"

#include "host_scope.h"

#include <QDir>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

/// The slow twin: line by line on texts, by the words of the command.
QString TidyOneLine(const QString& line, const ValueColumn& column)
{
    const qsizetype colon = line.indexOf(QLatin1Char(':'));
    if (colon < 0)
        return line;
    const QString key = line.left(colon + 1);
    const QString rest = line.mid(colon + 1);
    return key + PadAfterKey(key, column) + (rest.isEmpty() ? QStringLiteral("[MISSING VALUE!]") : CleanValue(rest));
}

QString RandomLine(QRandomGenerator& random)
{
    static const QString alphabet = QStringLiteral("ab.:: \t#é€\U0001F48E~");
    QString line;
    for (int left = random.bounded(30); left > 0; --left) {
        const qsizetype at = random.bounded(int(alphabet.size()));
        const QChar c = alphabet.at(at);
        if (c.isHighSurrogate())
            line += alphabet.mid(at, 2);
        else if (!c.isLowSurrogate())
            line += c;
    }
    return line;
}

} // namespace

// Catches: any change of what a tidied file looks like: breaks, comments, missing values, wide keys, letters.
TEST(TidyLines, EachExampleGivesItsTidiedTwin)
{
    const QDir folder(ProjectFile(QStringLiteral("tests/data/tidy_up")));
    const QStringList names = folder.entryList({QStringLiteral("*.conf")});
    ASSERT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        const auto before = paths::ReadWhole(folder.filePath(name), 1 << 20);
        const auto wanted = paths::ReadWhole(folder.filePath(name + QStringLiteral(".tidy")), 1 << 20);
        ASSERT_TRUE(before && wanted) << name;
        EXPECT_EQ(TidyLines(*before, {.SpacerWidth = 43}).toStdString(), wanted->toStdString()) << name;
        EXPECT_EQ(TidyLines(*wanted, {.SpacerWidth = 43}), *wanted) << name << " tidied twice";
    }
}

// Catches: the fast pass on bytes disagreeing with the rules on texts.
TEST(TidyLines, AgreesWithTheSlowTwinOnRandomLines)
{
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (int round = 0; round < 2000; ++round) {
        const QString line = RandomLine(random);
        const ValueColumn column{10 + random.bounded(40), random.bounded(8) == 0};
        EXPECT_EQ(QString::fromUtf8(TidyLines(line.toUtf8(), column)), TidyOneLine(line, column)) << "seed " << seed;
    }
}

// Catches: lines outside the selection touched, as the one in whose first column it ends, more than one undo step, a
// progress bar left standing, a moved caret.
TEST(TidyUp, ChangesTheSelectedLinesInOneUndoStep)
{
    HostScope scope;
    EditorPane& pane = CurrentPane();
    const QByteArray before = "a: 1\r\nb:  2\r\nc:   3\r\nd: 4\r\n";
    pane.LoadBytes(before);
    pane.SetSel({.StartLine = 1, .StartCol = 2, .EndLine = 3, .EndCol = 0}, false);
    TidyUp();
    const QByteArray pad(40, ' ');
    EXPECT_EQ(pane.FileBytes(), "a: 1\r\nb:" + pad + "2\r\nc:" + pad + "3\r\nd: 4\r\n");
    EXPECT_EQ(pane.GetSel(true), (Range{.StartLine = 1, .EndLine = 1}));
    EXPECT_GT(scope.Host.ProgressCalls, 0);
    EXPECT_FALSE(scope.Host.ProgressShown);
    pane.ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane.FileBytes(), before);

    pane.SetSel({}, false);
    TidyUp();
    EXPECT_TRUE(pane.GetLine(0).endsWith(QLatin1Char('1')));
    EXPECT_EQ(pane.GetLine(1), QStringLiteral("b:  2"));
}

// Catches: a pass that writes half of its work, or leaves an undo step or the progress bar, when it is stopped.
TEST(LinePass, StoppedPassLeavesTheText)
{
    const HostScope scope;
    DocumentText& text = CurrentPane();
    text.LoadBytes("a:1\nb:2\n");
    text.ExecuteCmd(CmdSelectAll);
    RunPassOnSelection(text, QStringLiteral("Test"), [](QByteArrayView, const PassProgress& progress) {
        StopRuns(StopReason::Esc);
        EXPECT_FALSE(progress(1));
        return QByteArray("half");
    });
    EXPECT_EQ(text.Bytes(), "a:1\nb:2\n");
    EXPECT_FALSE(text.CanUndo() || text.Modified() || scope.Host.ProgressShown);
    EXPECT_EQ(scope.Host.Notices.size(), 1);
    EXPECT_EQ(RunningWork(), 0);
}
