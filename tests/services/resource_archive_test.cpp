#include "platform/archives/zip_archive.h"
#include "services/archive_tool.h"
#include "services/made_archive.h"
#include "test_support.h"

#include <QFile>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

constexpr qint64 Enough = 1 << 20;

class ResourceArchive : public testing::Test
{
protected:
    QString File(const char* name) const { return folder.Path(QLatin1String(name)); }
    QByteArray Resource(const char* name) const
    {
        return ReadResource(QLatin1String(name), macro, Enough).value_or("<no such resource>");
    }

    const TestFolder folder;
    const QString macro = folder.Path(QStringLiteral("Macro.gfb"));
};

ResourceFault FaultOf(const ResourceResult<>& result)
{
    EXPECT_FALSE(result);
    return result ? ResourceFault::Other : result.error().What;
}

} // namespace

// Catches: a source that is not found by its place, a resource kept beside the one that was to replace it.
TEST_F(ResourceArchive, LifeOfAMacro)
{
    const QString picture = folder.Write(QStringLiteral("art/Pic.pcx"), "picture");
    ASSERT_TRUE(AddToResource(picture, macro));
    ASSERT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "print 1\r\n", macro));
    ASSERT_TRUE(AddToResource(folder.Write(QStringLiteral("\u00FC.level"), "level"), macro));
    EXPECT_EQ(*ListResource(macro),
              ArchiveList({QStringLiteral("basic.txt"), QStringLiteral("Pic.pcx"), QStringLiteral("\u00FC.level")}));
    EXPECT_EQ(folder.Read(QStringLiteral("Macro.gfb")).mid(30, 9), "basic.txt") << "tells what the file is";

    ASSERT_TRUE(AddToResource(folder.Write(QStringLiteral("pic.PCX"), "newer"), File("MACRO.GFB")));
    ASSERT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "", macro));
    EXPECT_EQ(*ListResource(macro),
              ArchiveList({QStringLiteral("basic.txt"), QStringLiteral("pic.PCX"), QStringLiteral("\u00FC.level")}));
    EXPECT_EQ(Resource("PIC.PCX"), "newer");
    EXPECT_EQ(Resource("basic.txt"), "");

    ASSERT_TRUE(DeleteFromResource(QStringLiteral("pic.pcx"), macro));
    ASSERT_TRUE(DeleteFromResource(QStringLiteral("basic.txt"), macro));
    EXPECT_EQ(*ListResource(macro), ArchiveList({QStringLiteral("\u00FC.level")}));
    ASSERT_TRUE(DeleteFromResource(QStringLiteral("\u00FC.level"), macro));
    EXPECT_EQ(ListResource(macro)->size(), 0) << "an empty archive, no missing file";
    EXPECT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "back", macro));
    EXPECT_EQ(Resource("basic.txt"), "back");
}

// Each fault has its own message, and none of them changes anything.
TEST_F(ResourceArchive, Faults)
{
    ASSERT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "end", macro));
    const QByteArray before = folder.Read(QStringLiteral("Macro.gfb"));
    EXPECT_EQ(FaultOf(AddToResource(File("none"), macro)), ResourceFault::CannotAdd);
    EXPECT_EQ(FaultOf(AddToResource(folder.Path(), macro)), ResourceFault::CannotAdd);
    EXPECT_EQ(FaultOf(AddToResource(File("macro.gfb"), macro)), ResourceFault::CannotAdd);
    EXPECT_EQ(FaultOf(ExtractFromResource(QStringLiteral("none"), File("x"), macro)), ResourceFault::NotFound);
    EXPECT_EQ(FaultOf(ExtractFromResource(QStringLiteral("basic.txt"), File("no/x"), macro)),
              ResourceFault::NoOutputFolder);
    EXPECT_EQ(FaultOf(ExtractFromResource(QStringLiteral("basic.txt"), folder.Path(), macro)), ResourceFault::Other);
    EXPECT_EQ(FaultOf(ExtractFromResource(QStringLiteral("basic.txt"), File("x"), File("y"))), ResourceFault::Other);
    EXPECT_EQ(FaultOf(DeleteFromResource(QStringLiteral("none"), macro)), ResourceFault::NotFound);
    EXPECT_FALSE(QFile::exists(File("x")) || QFile::exists(File("y")));
    EXPECT_EQ(folder.Read(QStringLiteral("Macro.gfb")), before);

    const QString text = folder.Write(QStringLiteral("text.gfb"), "no archive");
    EXPECT_EQ(FaultOf(AddToResource(macro, text)), ResourceFault::Other);
    EXPECT_EQ(FaultOf(DeleteFromResource(QStringLiteral("basic.txt"), text)), ResourceFault::Other);
    EXPECT_FALSE(ListResource(text));
    EXPECT_EQ(folder.Read(QStringLiteral("text.gfb")), "no archive");
    EXPECT_EQ(FaultOf(AddToResource(text, folder.Path(QStringLiteral("no/m.gfb")))), ResourceFault::Other);
}

// Catches: a resource written through a link to a file that the macro's user never named.
TEST_F(ResourceArchive, TargetIsReplacedNotFollowed)
{
    ASSERT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "new", macro));
    const QString target = folder.Write(QStringLiteral("target"), "old");
    EXPECT_TRUE(ExtractFromResource(QStringLiteral("basic.txt"), File("TARGET"), macro));
    EXPECT_EQ(folder.Read(QStringLiteral("target")), "new");

    const QString precious = folder.Write(QStringLiteral("precious"), "precious");
    QFile::remove(target);
    QFile::link(precious, target);
    EXPECT_TRUE(ExtractFromResource(QStringLiteral("basic.txt"), target, macro));
    EXPECT_EQ(folder.Read(QStringLiteral("target")), "new");
    EXPECT_EQ(folder.Read(QStringLiteral("precious")), "precious");
}

// An archive by another program: what is not touched keeps name, time, permissions, comment and packed bytes.
TEST_F(ResourceArchive, OtherEntriesStayAsTheyAre)
{
    MakeArchive(macro, {{"gr\x81n.pcx", QByteArray(5000, 'g'), 0, true},
                        {"stored.wav", QByteArray(500, 's'), S_IFREG | 0444, false, false, true},
                        {"noted", "n", S_IFREG | 0755, false, false, false, "a note"},
                        {"folder/", "", S_IFDIR | 0700},
                        {"link", "elsewhere", S_IFLNK | 0777}});
    const std::vector<ZipEntry> before = ZipArchive::Open(macro)->Entries();
    EXPECT_EQ(before[0].Name, QStringLiteral("gr\u00FCn.pcx"));
    ASSERT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "end", macro));
    const auto archive = ZipArchive::Open(macro);
    ASSERT_EQ(archive->Entries().size(), before.size() + 1);
    for (size_t i = 0; i < before.size(); ++i) {
        const ZipEntry &now = archive->Entries()[i + 1], &old = before[i];
        SCOPED_TRACE(old.Name.toStdString());
        EXPECT_EQ(now.Name, old.Name);
        EXPECT_EQ(now.Crc, old.Crc);
        EXPECT_EQ(now.Size, old.Size);
        EXPECT_EQ(now.PackedSize, old.PackedSize);
        EXPECT_EQ(now.Changed.toSecsSinceEpoch(), MadeTime);
        EXPECT_EQ(now.Mode, old.Mode);
        EXPECT_EQ(archive->Read(int(i + 1), Enough).has_value(), true);
    }
    EXPECT_TRUE(folder.Read(QStringLiteral("Macro.gfb")).contains("a note"));
    EXPECT_FALSE(ListResource(macro)->contains(QStringLiteral("folder/")));
}

// An archive behind a program, as those that unpack themselves are: the program would be lost.
TEST_F(ResourceArchive, WhatStandsBeforeAnArchiveStays)
{
    MakeArchive(macro, {{"basic.txt", "end"}});
    const QByteArray program = "#!/bin/sh\n";
    QByteArray both = program + folder.Read(QStringLiteral("Macro.gfb"));
    const auto moveBehind = [&](const char* record,
                                qsizetype offset) { // where things are is told from the file's start
        char* const field = both.data() + both.lastIndexOf(record) + offset;
        qToLittleEndian(quint32(qFromLittleEndian<quint32>(field) + quint32(program.size())), field);
    };
    moveBehind("PK\1\2", 42);
    moveBehind("PK\5\6", 16);
    folder.Write(QStringLiteral("Macro.gfb"), both);
    EXPECT_EQ(Resource("basic.txt"), "end");
    EXPECT_EQ(FaultOf(AddBytesToResource(QStringLiteral("x"), "", macro)), ResourceFault::Other);
    EXPECT_EQ(folder.Read(QStringLiteral("Macro.gfb")), both);
}

// A secret entry can neither be read nor taken over.
TEST_F(ResourceArchive, SecretsAreRefused)
{
    MakeArchive(macro, {{"basic.txt", "end"}, {"secret", "s", 0, false, true}});
    const QByteArray before = folder.Read(QStringLiteral("Macro.gfb"));
    EXPECT_EQ(Resource("basic.txt"), "end");
    EXPECT_EQ(FaultOf(ExtractFromResource(QStringLiteral("secret"), File("x"), macro)), ResourceFault::Other);
    EXPECT_EQ(FaultOf(AddBytesToResource(QStringLiteral("basic.txt"), "", macro)), ResourceFault::Other);
    EXPECT_EQ(FaultOf(DeleteFromResource(QStringLiteral("secret"), macro)), ResourceFault::Other);
    EXPECT_EQ(folder.Read(QStringLiteral("Macro.gfb")), before);
    EXPECT_FALSE(QFile::exists(File("x")));
}
