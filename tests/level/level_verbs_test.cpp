#include "batch/answer_list.h"
#include "batch/verbs.h"
#include "frame/frame_state.h"
#include "level_builder.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

struct Ran
{
    VerbResult End = VerbDone;
    QString Out, Err;
};

/// Runs a verb of one or two words on files.
Ran Batch(const char* verb, const QStringList& files = {})
{
    Frame.DataFolder = ProjectFile(QStringLiteral("data/"));
    Ran ran;
    AnswerList answers;
    QTextStream out(&ran.Out), err(&ran.Err);
    ran.End = RunVerb(QString::fromLatin1(verb).split(u' ') + files, {out, err, answers});
    ResetFrame();
    return ran;
}

} // namespace

// Catches: keys or their order changed under scripts that read them, "NA" for a field that is there, rows of the map
// printed as columns.
TEST(LevelVerbs, InfoAndMapPrintWhatScriptsRead)
{
    const TestFolder folder;
    const LevelPlan plan{.Form = "1.0",
                         .Width = 3,
                         .Height = 2,
                         .Name = "\xdc"
                                 "ber"};
    const QString level = folder.Write(QStringLiteral("1.level"), BuildLevel(plan).Bytes);
    EXPECT_EQ(Batch("level info", {level}).Out,
              QStringLiteral("version: ROCKSNDIAMONDS_LEVEL_FILE_VERSION_1.0\nname: \u00dcber\nauthor: NA\nwidth: 3\n"
                             "height: 2\nsize: NA\nbit: 2bit\ntime: 100\ncount: 12\nform: 1.0\n"));
    EXPECT_EQ(Batch("level map", {level}).Out, QStringLiteral("220 7 14\n131 138 145\n"));
    const QString wide = folder.Write(QStringLiteral("3.level"), BuildLevel({.Form = "rnd1-3"}).Bytes);
    const QString info = Batch("level info", {wide}).Out;
    EXPECT_TRUE(info.contains(QStringLiteral("\nsize: 40\nbit: 4bit\n")));
    EXPECT_TRUE(info.endsWith(QStringLiteral("\nform: rnd1-3\n")));
}

// Catches: a file that is no level and yet ends with 0, a verdict without the file's name, a word of the name taken as
// a file.
TEST(LevelVerbs, VerifyCountsAndTellsOnlyWhatIsWrong)
{
    const TestFolder folder;
    const QString good = folder.Write(QStringLiteral("1.level"), BuildLevel({}).Bytes);
    const QString bad = folder.Write(QStringLiteral("2.level"), BuildLevel({}).Bytes.first(200));
    const Ran fine = Batch("level verify", {good, good});
    EXPECT_EQ(fine.Out, QStringLiteral("2 files: 2 the same, 0 different, 0 no level\n"));
    EXPECT_EQ(fine.End, VerbDone);
    const Ran mixed = Batch("level verify", {good, bad});
    EXPECT_EQ(mixed.Out, QString(bad + u": no level: it ends inside its map\n"
                                       u"2 files: 1 the same, 0 different, 1 no level\n"));
    EXPECT_EQ(mixed.End, VerbFailed);
    for (const char* verb : {"level info", "level map"}) {
        const Ran refused = Batch(verb, {bad});
        EXPECT_EQ(refused.Err, QString(bad + u": it ends inside its map\n"));
        EXPECT_EQ(refused.End, VerbFailed);
        EXPECT_EQ(refused.Out, QString());
    }
    EXPECT_EQ(Batch("level").End, VerbFailed);
}
