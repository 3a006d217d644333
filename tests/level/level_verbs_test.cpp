#include "batch/answer_list.h"
#include "batch/verbs.h"
#include "frame/frame_state.h"
#include "level_builder.h"
#include "test_support.h"

#include <QFile>
#include <QImage>
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

// Catches: a tab in a name that shifts the columns, numbers with zeros in front, an order that puts 10 before 9, a
// broken file that ends the list.
TEST(LevelVerbs, ListPrintsALineALevel)
{
    const TestFolder folder;
    folder.Write(QStringLiteral("set/010.level"), BuildLevel({.Form = "1.0", .Name = "ten"}).Bytes);
    folder.Write(QStringLiteral("set/009.level"),
                 BuildLevel({.Width = 3, .Time = 0, .Name = "a name", .Author = "Ann"}).Bytes);
    folder.Write(QStringLiteral("set/Extra.LEVEL"), BuildLevel({.Form = "rnd1-3"}).Bytes);
    const QString set = folder.Path(QStringLiteral("set"));
    const Ran fine = Batch("level list", {set});
    EXPECT_EQ(fine.Out, QStringLiteral("9\ta name\tAnn\t3\t4\t0\t12\trnd1-2\n10\tten\tNA\t5\t4\t100\t12\t1.0\n"
                                       "Extra\ta cave\tsomebody\t5\t4\t100\t12\trnd1-3\n"));
    EXPECT_EQ(fine.End, VerbDone);
    folder.Write(QStringLiteral("set/001.level"), "nothing");
    const Ran broken = Batch("level list", {set});
    EXPECT_EQ(broken.Out, fine.Out);
    EXPECT_EQ(broken.End, VerbFound);
    const QString nowhere = folder.Path(QStringLiteral("nowhere")), file = set + QStringLiteral("/009.level");
    for (const auto& [wrong, error] : {std::pair(nowhere, ENOENT), std::pair(file, ENOTDIR)}) {
        const Ran refused = Batch("level list", {wrong});
        EXPECT_EQ(refused.Err, QString(wrong + u": " + qt_error_string(error) + u'\n'));
        EXPECT_EQ(refused.End, VerbFailed);
    }
}

// Catches: differences that are not seen (settings, what stands after the map), coordinates from 0, levels that differ
// only in bytes that nobody reads and are called different.
TEST(LevelVerbs, DiffTellsFieldsAndCells)
{
    const TestFolder folder;
    const LevelPlan plan{.Name = "old", .Tail = ChunkBytes("CUS4", 20)};
    BuiltLevel built = BuildLevel(plan);
    const QString before = folder.Write(QStringLiteral("a.level"), built.Bytes);
    EXPECT_EQ(Batch("level diff", {before, before}).Out, QString());
    EXPECT_EQ(Batch("level diff", {before, before}).End, VerbDone);
    built.Bytes[built.At.Mapdata + 2 * 7 + 1] = 77; // column 3, row 2 of a map 5 wide
    built.Bytes[built.At.Cavename] = 'c';
    built.Bytes[built.At.Cavename + 40] = char(built.Bytes[built.At.Cavename + 40] + 1);
    built.Bytes.chop(1);
    const QString after = folder.Write(QStringLiteral("b.level"), built.Bytes);
    const Ran ran = Batch("level diff", {before, after});
    EXPECT_EQ(ran.Out, QStringLiteral("name: old -> cld\n3,2: 145 -> 77\nsettings: 1 bytes -> 1 other bytes\n"
                                      "customs: 28 bytes -> 27 bytes\n"));
    EXPECT_EQ(ran.End, VerbFound);
    const QString old = folder.Write(QStringLiteral("c.level"), BuildLevel({.Form = "1.4"}).Bytes);
    EXPECT_TRUE(Batch("level diff", {before, old}).Out.contains(QStringLiteral("form: rnd1-2 -> 1.4\n")));
    EXPECT_EQ(Batch("level diff", {before}).End, VerbFailed);
}

// Catches: a picture without a cell for every cell of the map, a palette that is not the one asked for, wrong calls
// that write something all the same.
TEST(LevelVerbs, PictureDrawsTheMap)
{
    const TestFolder folder;
    const QString level = folder.Write(QStringLiteral("1.level"), BuildLevel({.Form = "1.0"}).Bytes);
    const QString out = folder.Path(QStringLiteral("out.png"));
    QImage palette(400, 256, QImage::Format_RGB32);
    palette.fill(qRgb(9, 99, 199));
    const QString own = folder.Path(QStringLiteral("own.png"));
    ASSERT_TRUE(palette.save(own));
    EXPECT_EQ(Batch("level picture", {level, out, QStringLiteral("--palette"), own}).Err, QString());
    const QImage drawn(out);
    EXPECT_EQ(drawn.size(), QSize(5 * 16, 4 * 16));
    EXPECT_EQ(drawn.pixel(70, 50), qRgb(9, 99, 199));
    for (const QStringList& wrong :
         {QStringList{level}, QStringList{level, folder.Path(QStringLiteral("x.gif"))},
          QStringList{own, folder.Path(QStringLiteral("x.png")), QStringLiteral("--palette"), own},
          QStringList{level, folder.Path(QStringLiteral("x.png")), QStringLiteral("--set"), folder.Path()}})
        EXPECT_EQ(Batch("level picture", wrong).End, VerbFailed);
    EXPECT_FALSE(QFile::exists(folder.Path(QStringLiteral("x.gif"))));
    EXPECT_FALSE(QFile::exists(folder.Path(QStringLiteral("x.png"))));
}
