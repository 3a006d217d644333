#include "level/level_files.h"

#include "frame/frame_state.h"
#include "level_builder.h"
#include "platform/files/paths.h"
#include "test_support.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

const QString NoLevel =
    QStringLiteral("Either this isn't an RND level or it isn't supported. LoadLevel currently supports:-^^V1.0,  V1.2,"
                   "  V1.4  and RND1 type levels");

/// No level, the shipped tables, and a folder for files.
class LevelFiles : public testing::Test
{
protected:
    LevelFiles() { Frame.DataFolder = ProjectFile(QStringLiteral("data/")); }
    ~LevelFiles() override
    {
        ResetLevel();
        ResetFrame();
    }

    QString Write(const LevelPlan& plan) const
    {
        return Folder.Write(QString::fromLatin1(plan.Form) + QStringLiteral(".level"), BuildLevel(plan).Bytes);
    }
    /// Why the open level can not take a custom element file; empty if it can.
    QString Judge(const QByteArray& bytes) const
    {
        return Reason(TestCustomFile(Folder.Write(QStringLiteral("a.cust"), bytes)));
    }

    static QString Reason(const Result<>& done) { return done ? QString() : done.error().Text(); }

    static QByteArray Working(const QString& name)
    {
        return paths::ReadWhole(WorkingPath(name), 1 << 20).value_or("none");
    }

    TestFolder Folder;
};

} // namespace

// Catches: a tail in the wrong working file or lost at a save, working files that outlive the level or that others on
// the machine can read.
TEST_F(LevelFiles, LoadAndSaveGoThroughTheWorkingFiles)
{
    for (const LevelPlan& plan : EveryForm()) {
        SCOPED_TRACE(plan.Form.constData());
        const QByteArray bytes = BuildLevel(plan).Bytes;
        ASSERT_TRUE(LoadLevel(Write(plan), false));
        EXPECT_EQ(Working(WorkingLevel), bytes.chopped(plan.Tail.size()));
        EXPECT_EQ(Working(WorkingTail), plan.Tail.isEmpty() ? QByteArray("none") : plan.Tail);
        const QString folder = paths::FolderOfPath(WorkingPath(WorkingLevel));
        EXPECT_FALSE(QFileInfo(folder).permissions() & (QFile::ReadGroup | QFile::ReadOther));
        EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("out.level")), false));
        EXPECT_EQ(Folder.Read(QStringLiteral("out.level")), bytes);
        EXPECT_FALSE(paths::FolderExists(folder));
    }
}

// Catches: a save that closes a level which is to stay open, a later save without the change, a second save that writes
// an empty file.
TEST_F(LevelFiles, KeepOpenLeavesTheLevelOpenAndASaveEndsIt)
{
    const LevelPlan plan{.Tail = ChunkBytes("CUS4", 30)};
    ASSERT_TRUE(LoadLevel(Write(plan), false));
    EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("view.level")), true));
    EXPECT_EQ(Folder.Read(QStringLiteral("view.level")), BuildLevel(plan).Bytes);
    Level.Map.At(0, 0) = 3;
    EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("out.level")), false));
    ASSERT_TRUE(LoadLevel(Folder.Path(QStringLiteral("out.level")), false));
    EXPECT_EQ(Level.Map.At(0, 0), 3);
    EXPECT_EQ(Working(WorkingTail), plan.Tail);
    EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("out.level")), false));
    EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("again.level")), false)) << "nothing to do is no failure";
    EXPECT_FALSE(QFile::exists(Folder.Path(QStringLiteral("again.level"))));
}

// Catches: a failed save that loses the level: the old file gone, the working files removed, no word about it.
TEST_F(LevelFiles, AFailedSaveKeepsTheOldFileAndTheWorkingFiles)
{
    ASSERT_TRUE(LoadLevel(Write({.Tail = ChunkBytes("CUS4", 30)}), false));
    const QString target = Folder.Write(QStringLiteral("full.level"), "old");
    {
        const FileSizeLimit disk(50);
        const Result<> saved = SaveLevel(target, false);
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().Path, target);
        EXPECT_FALSE(saved.error().Reason.isEmpty());
    }
    EXPECT_EQ(Folder.Read(QStringLiteral("full.level")), "old");
    Level.Map.At(0, 0) = 70000;
    const Result<> wide = SaveLevel(target, false);
    ASSERT_FALSE(wide);
    EXPECT_EQ(wide.error().Path, target);
    EXPECT_EQ(Folder.Read(QStringLiteral("full.level")), "old");
    Level.Map.At(0, 0) = 7;
    EXPECT_TRUE(SaveLevel(target, false));
    EXPECT_EQ(Folder.Read(QStringLiteral("full.level")).size(), BuildLevel({}).Bytes.size() + 38);
}

// Catches: the level before still open after an error, half a level after an error, a wrong error text.
TEST_F(LevelFiles, AFailedLoadLeavesNoLevel)
{
    for (const QByteArray& bad : {QByteArray(), QByteArray("MMII"), BuildLevel({}).Bytes.first(200)}) {
        ASSERT_TRUE(LoadLevel(Write({}), false));
        EXPECT_EQ(Reason(LoadLevel(Folder.Write(QStringLiteral("bad.level"), bad), false)), NoLevel);
        EXPECT_EQ(Level.Info, LevelInfo());
        EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("out.level")), false));
        EXPECT_FALSE(QFile::exists(Folder.Path(QStringLiteral("out.level"))));
    }
    const QString none = Folder.Path(QStringLiteral("none.level"));
    EXPECT_TRUE(Reason(LoadLevel(none, false)).contains(none));
    const QString good = Write({});
    const FileSizeLimit disk(50);
    EXPECT_TRUE(Reason(LoadLevel(good, false)).contains(WorkingLevel));
    EXPECT_EQ(Level.Info, LevelInfo());
}

// Catches: a blank level with another header or map, and one that drops the tail left from before, or takes one that
// means nothing to it.
TEST_F(LevelFiles, NewLevelKeepsOnlyATailOfItsFamily)
{
    ASSERT_TRUE(LoadNewLevel());
    const LevelInfo blank{QStringLiteral("RND1"), QStringLiteral("64"),     QStringLiteral("32"),
                          QStringLiteral("100"),  QStringLiteral("0"),      QStringLiteral("nameless level"),
                          QStringLiteral("1"),    QStringLiteral("nobody"), QStringLiteral("4096")};
    EXPECT_EQ(Level.Info, blank);
    EXPECT_EQ(Level.Map, LevelMap(64, 32));
    EXPECT_EQ(Working(WorkingTail), "none");
    const QByteArray tail = ChunkBytes("CUS4", 30);
    ASSERT_TRUE(LoadLevel(Write({.Tail = tail}), false));
    ASSERT_TRUE(LoadNewLevel());
    EXPECT_EQ(Working(WorkingTail), tail);
    ASSERT_TRUE(LoadLevel(Write({.Form = "rnd1-3", .Tail = ChunkBytes("CUSX", 30)}), false));
    ASSERT_TRUE(LoadNewLevel());
    EXPECT_EQ(Working(WorkingTail), "none");
}

// Catches: a working level with chunks of a kind not known yet, whose tail is taken for another level's and dropped.
TEST_F(LevelFiles, AWorkingLevelKeepsItsOwnTail)
{
    const LevelPlan plan{.Form = "rnd1-3", .Tail = ChunkBytes("NEWX", 9)};
    ASSERT_TRUE(paths::WriteWhole(WorkingPath(WorkingLevel), BuildLevel(plan).Bytes));
    ASSERT_TRUE(LoadLevel({}, true));
    EXPECT_EQ(Working(WorkingTail), plan.Tail);
    EXPECT_TRUE(SaveLevel(Folder.Path(QStringLiteral("out.level")), false));
    EXPECT_EQ(Folder.Read(QStringLiteral("out.level")), BuildLevel(plan).Bytes);
}

// Catches: an example level that reads otherwise in any field or in its tail.
TEST_F(LevelFiles, ExampleLevelReadsAsItShips)
{
    const QByteArray image = LevelImage(QStringLiteral("LEVEL"));
    EXPECT_EQ(image.size(), 846);
    ASSERT_TRUE(LoadLevel(Folder.Write(QStringLiteral("001.level"), image), false));
    EXPECT_EQ(Level.Info.Cavename, QStringLiteral("gemforge example level"));
    EXPECT_EQ(Level.Info.Mapsize, QStringLiteral("450"));
    LevelMap map(15, 15);
    map.At(0, 0) = 360;
    map.At(7, 6) = 4;
    map.At(7, 7) = 80;
    EXPECT_EQ(Level.Map, map);
    EXPECT_EQ(Working(WorkingTail).first(8), QByteArray("CUS4\0\0\0\xc0", 8));
    EXPECT_EQ(LevelImage(QStringLiteral("BLANKLEVEL")).mid(74, 52), QByteArray(16, '\x0a') + QByteArray(36, '\4'));
}

// Catches: a fourth byte that matters for envelopes, custom elements of one family put after a level of the other.
TEST_F(LevelFiles, CustomFilesGoToLevelsOfTheirFamily)
{
    const QString start = QStringLiteral("This file isn't a custom element file.^Its header doesn't start with ");
    for (const bool open : {false, true}) {
        ASSERT_TRUE(!open || LoadLevel(Write({}), false));
        EXPECT_EQ(Judge("CUS4...."), QString());
        EXPECT_EQ(Judge("CNT?...."), QString());
        for (const char* bad : {"CUS3....", "CUSX....", "CN", ""})
            EXPECT_EQ(Judge(bad), QString(start + u"CNT or CUS4")) << bad;
    }
    ASSERT_TRUE(LoadLevel(Write({.Form = "rnd1-3"}), false));
    EXPECT_EQ(Judge("CUSX...."), QString());
    EXPECT_EQ(Judge("ELEM...."), QString());
    EXPECT_EQ(Judge("CUS4...."), QString(start + u"ELEM, NOTE, CUSX, GRPX or EMPX"));
    const QString none = Folder.Path(QStringLiteral("none.cust"));
    EXPECT_TRUE(Reason(TestCustomFile(none)).contains(none));
}
