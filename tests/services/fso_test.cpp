#include "fault_steps.h"
#include "services/folder_tree.h"
#include "services/fso.h"
#include "test_support.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

struct FsoTest : testing::Test
{
    FsoTest()
    {
        folder.Write(u"from/a.txt"_s, "a");
        folder.Write(u"from/deep/er/b.txt"_s, "bb");
        folder.Write(u"outside/keep.txt"_s, "keep");
        QFile::link(folder.Path(u"outside"_s), folder.Path(u"from/out"_s));
        QFile::link(u"."_s, folder.Path(u"from/deep/circle"_s));
    }

    QStringList Tree(const QString& of) const
    {
        QStringList names;
        for (const TreeEntry& entry : FolderTree(folder.Path(of)).value_or(std::vector<TreeEntry>()))
            names << (entry.IsLink() ? u'@' + entry.Path : entry.Path);
        names.sort();
        return names;
    }

    TestFolder folder;
    const QStringList whole{u"@deep/circle"_s, u"@out"_s, u"a.txt"_s, u"deep"_s, u"deep/er"_s, u"deep/er/b.txt"_s};
};

} // namespace

// Catches: a link that is followed (its target copied, emptied, walked for ever), permissions or times lost, a merge
// that writes through a link or loses what stands there.
TEST_F(FsoTest, FoldersWithLinksAreCopiedAndRemovedWhole)
{
    chmod(QFile::encodeName(folder.Path(u"from/deep"_s)), 0555);
    ASSERT_TRUE(fso::CopyFolder(folder.Path(u"from"_s), folder.Path(u"to/"_s), false));
    EXPECT_EQ(Tree(u"to"_s), whole);
    EXPECT_EQ(folder.Read(u"to/deep/er/b.txt"_s), "bb");
    EXPECT_FALSE(QFileInfo(folder.Path(u"to/deep"_s)).permission(QFile::WriteOwner));
    EXPECT_EQ(QFileInfo(folder.Path(u"to/a.txt"_s)).lastModified(),
              QFileInfo(folder.Path(u"from/a.txt"_s)).lastModified());
    EXPECT_FALSE(fso::DeleteFolder(folder.Path(u"to"_s), false)) << "one of its folders is read-only";
    EXPECT_EQ(Tree(u"to"_s), whole);
    ASSERT_TRUE(fso::DeleteFolder(folder.Path(u"to"_s), true));
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"to"_s)));
    ASSERT_TRUE(fso::DeleteFolder(folder.Path(u"from/out"_s), true)) << "the link alone";
    EXPECT_EQ(folder.Read(u"outside/keep.txt"_s), "keep");

    folder.Write(u"into/own.txt"_s, "own");
    QFile::link(folder.Path(u"outside/keep.txt"_s), folder.Path(u"into/a.txt"_s));
    EXPECT_FALSE(fso::CopyFolder(folder.Path(u"from"_s), folder.Path(u"into"_s), false));
    EXPECT_EQ(Tree(u"into"_s), (QStringList{u"@a.txt"_s, u"own.txt"_s}));
    ASSERT_TRUE(fso::CopyFolder(folder.Path(u"from"_s), folder.Path(u"into"_s), true));
    EXPECT_EQ(folder.Read(u"into/a.txt"_s), "a");
    EXPECT_EQ(folder.Read(u"outside/keep.txt"_s), "keep");
    EXPECT_TRUE(Tree(u"into"_s).contains(u"own.txt"_s));
}

// Catches: a copy into itself that never ends (by another spelling too), a target that is overwritten by a move, a copy
// in the place of a folder, a file copied over itself and lost.
TEST_F(FsoTest, WhatMustNotBeIsRefused)
{
    QFile::link(folder.Path(u"from"_s), folder.Path(u"alias"_s));
    const QString from = folder.Path(u"from"_s), file = folder.Path(u"from/a.txt"_s);
    for (const QString& to : {from, folder.Path(u"from/deep/new"_s), folder.Path(u"alias/new"_s)})
        EXPECT_FALSE(fso::CopyFolder(from, to, true)) << to.toStdString();
    for (const QString& to : {folder.Path(u"outside"_s), folder.Path(u"from/deep/new"_s), folder.Path(u"none/x"_s)})
        EXPECT_FALSE(fso::MoveFolder(from, to)) << to.toStdString();
    for (const QString& to : {file, folder.Path(u"alias/a.txt"_s), folder.Path(u"outside"_s), folder.Path(u"none/x"_s)})
        EXPECT_FALSE(fso::CopyFile(file, to, true)) << to.toStdString();
    EXPECT_FALSE(fso::MoveFile(file, folder.Path(u"outside/keep.txt"_s)));
    EXPECT_FALSE(fso::DeleteFile(from, true));
    EXPECT_FALSE(fso::CreateFolder(from));
    mkfifo(QFile::encodeName(folder.Path(u"pipe"_s)), 0600);
    EXPECT_FALSE(fso::CopyFile(folder.Path(u"pipe"_s), folder.Path(u"copy"_s), false));
    EXPECT_EQ(Tree(u"from"_s), whole);
    EXPECT_EQ(folder.Read(u"from/a.txt"_s), "a");
    EXPECT_EQ(folder.Read(u"outside/keep.txt"_s), "keep");
}

// Catches: half a copy left by a stop or a full disk, a source that suffers.
TEST_F(FsoTest, ACopyThatEndsEarlyLeavesNothing)
{
    int turns = 0;
    const Result<> stopped = fso::CopyFolder(folder.Path(u"from"_s), folder.Path(u"to"_s), false,
                                             [&turns](int, int) { return ++turns < 11; });
    ASSERT_FALSE(stopped);
    EXPECT_TRUE(WasStopped(stopped.error()));
    EXPECT_FALSE(QFileInfo::exists(folder.Path(u"to"_s)));
    bool done = false;
    for (int nth = 1; !done; ++nth) {
        const FileStepsScope scope(FailingAt(FileSteps::OfSystem(), nth, ENOSPC, std::make_shared<int>(0)));
        done = fso::CopyFolder(folder.Path(u"from"_s), folder.Path(u"to"_s), false).has_value();
        ASSERT_LT(nth, 200);
        if (done)
            break;
        EXPECT_LE(Tree(u"to"_s).size(), 1) << nth; // a file whose removal was what failed
        QDir(folder.Path(u"to"_s)).removeRecursively();
    }
    EXPECT_EQ(Tree(u"to"_s), whole);
    EXPECT_EQ(Tree(u"from"_s), whole);
}
