#include "platform/files/file_steps.h"
#include "services/archive_tool.h"
#include "services/made_archive.h"
#include "services/wildcard.h"
#include "test_support.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <fcntl.h>
#include <gtest/gtest.h>

namespace {

/// Everything below a folder: path to bytes, a folder's with "/" to its number of entries.
QMap<QString, QByteArray> Tree(const QString& folder)
{
    QMap<QString, QByteArray> tree;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next(), name = QDir(folder).relativeFilePath(path);
        if (walk.fileInfo().isDir()) {
            tree.insert(name + QLatin1Char('/'), {});
            continue;
        }
        QFile file(path);
        tree.insert(name, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>"));
    }
    return tree;
}

class ZipFolder : public testing::Test
{
protected:
    QString In(const char* name) const { return folder.Path(QLatin1String(name)); }
    /// A fresh folder to unpack into.
    QString Target() const
    {
        const QString target = folder.Path(QStringLiteral("target"));
        QDir(target).removeRecursively();
        QDir().mkpath(target);
        return target;
    }

    const TestFolder folder;
    const QString archive = folder.Path(QStringLiteral("Set.levzip"));
};

} // namespace

// Catches anything of a set that does not come back: hidden and empty, names, bytes, permissions, times.
TEST_F(ZipFolder, ThereAndBackAgain)
{
    folder.Write(QStringLiteral("Set/levelinfo.conf"), "name: set\n");
    folder.Write(QStringLiteral("Set/001.level"), QByteArray(3 << 20, '\1'));
    folder.Write(QStringLiteral("Set/graphics/.hidden"), "");
    folder.Write(QStringLiteral("Set/graphics/b\u00E4r \u4E2D.png"), "png");
    folder.Write(QStringLiteral("Set/graphics/B\u00C4R \u4E2D.png"), "another by letter case");
    QDir().mkpath(In("Set/music"));
    const QByteArray name = QFile::encodeName(In("Set/levelinfo.conf"));
    chmod(name, 0640);
    const timespec times[] = {{MadeTime, 0}, {MadeTime, 0}};
    utimensat(AT_FDCWD, name, times, 0);

    const auto before = Tree(In("Set"));
    ASSERT_TRUE(ZipFiles(In("SET/"), archive));
    const QString target = Target();
    const Result<> back = UnzipFiles(QStringLiteral("set\\"), archive, target + QLatin1Char('/'));
    ASSERT_TRUE(back) << back.error().Text();
    EXPECT_EQ(Tree(target + QStringLiteral("/Set")), before);
    FileFacts facts{};
    ASSERT_EQ(stat(QFile::encodeName(target + QStringLiteral("/Set/levelinfo.conf")), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, mode_t(0640));
    EXPECT_EQ(facts.st_mtime, MadeTime);

    // Added to what there is: what has gone from the folder stays in the archive, what has changed is replaced.
    folder.Write(QStringLiteral("Set/levelinfo.conf"), "name: changed\n");
    QFile::remove(In("Set/001.level"));
    ASSERT_TRUE(ZipFiles(In("Set"), archive));
    ASSERT_TRUE(ZipFiles(folder.Write(QStringLiteral("readme.txt"), "alone"), archive));
    ASSERT_TRUE(UnzipFiles(QStringLiteral("/"), archive, Target()));
    auto after = Tree(target);
    EXPECT_EQ(after.take(QStringLiteral("readme.txt")), "alone");
    EXPECT_EQ(after.take(QStringLiteral("Set/levelinfo.conf")), "name: changed\n");
    EXPECT_EQ(after.size(), before.size()) << "with the folder itself, without that file";
}

TEST_F(ZipFolder, LinksAndOddFiles)
{
    folder.Write(QStringLiteral("Set/real/a"), "a");
    QFile::link(QStringLiteral("real"), In("Set/other"));
    QFile::link(QStringLiteral("real/a"), In("Set/b"));
    ASSERT_TRUE(ZipFiles(In("Set"), archive));
    ASSERT_TRUE(UnzipFiles(QStringLiteral("/"), archive, Target()));
    EXPECT_EQ(folder.Read(QStringLiteral("target/Set/other/a")), "a");
    EXPECT_EQ(folder.Read(QStringLiteral("target/Set/b")), "a");
    EXPECT_TRUE(QFileInfo(In("target/Set/b")).isFile() && !QFileInfo(In("target/Set/b")).isSymLink());

    const QByteArray before = folder.Read(QStringLiteral("Set.levzip"));
    folder.Write(QStringLiteral("outside"), "not to be given away");
    const auto refuses = [&](const char* name) {
        const auto result = ZipFiles(In("Set"), archive);
        EXPECT_TRUE(!result && result.error().Path.contains(QLatin1String(name))) << name;
        EXPECT_EQ(folder.Read(QStringLiteral("Set.levzip")), before) << name;
        QFile::remove(In("Set/real/odd"));
    };
    QFile::link(In("outside"), In("Set/real/odd"));
    refuses("odd");
    QFile::link(QStringLiteral(".."), In("Set/real/odd")); // the set itself: a circle
    refuses("odd");
    QFile::link(QStringLiteral("nothing"), In("Set/real/odd"));
    refuses("odd");
    mkfifo(QFile::encodeName(In("Set/real/odd")), 0600);
    refuses("odd");
    EXPECT_FALSE(ZipFiles(In("none"), archive));
    EXPECT_FALSE(ZipFiles(QString(), archive));

    const QString inside = In("Set/own.zip"); // the archive lies in the folder: not packed into itself
    ASSERT_TRUE(ZipFiles(In("Set"), inside));
    ASSERT_TRUE(ZipFiles(In("Set"), inside));
    EXPECT_EQ(ListZip(inside)->filter(QStringLiteral("own")), QStringList());
    EXPECT_FALSE(ZipFiles(inside, inside));
}

// Which entries a pattern means, and whether their folders come along.
TEST_F(ZipFolder, Patterns)
{
    MakeArchive(archive, {{"Set/", ""},
                          {"Set/one.pcx", "1"},
                          {"Set/sub/two.PCX", "2"},
                          {"Set/sub/deep/plain", "3"},
                          {"Setup/x.txt", "4"},
                          {"win\\dows.txt", "5"},
                          {"one.pcx", "6"}});
    const struct
    {
        const char* Pattern;
        QStringList Files;
    } Cases[] = {
        {"set\\",
         {QStringLiteral("Set/one.pcx"), QStringLiteral("Set/sub/deep/plain"), QStringLiteral("Set/sub/two.PCX")}},
        {"SET/sub/", {QStringLiteral("Set/sub/deep/plain"), QStringLiteral("Set/sub/two.PCX")}},
        {"setu?/", {QStringLiteral("Setup/x.txt")}},
        {"one.pcx", {QStringLiteral("one.pcx")}},
        {"Set\\one.pcx", {QStringLiteral("one.pcx")}},
        {"set\\sub\\TWO.pcx", {QStringLiteral("two.PCX")}},
        {"plain", {QStringLiteral("plain")}},
        {"*.pcx", {QStringLiteral("one.pcx"), QStringLiteral("two.PCX")}},
        {"set/*.*", {QStringLiteral("one.pcx")}},
        {"win/", {QStringLiteral("win/dows.txt")}},
        {"none", {}},
        {"on/", {}},
        {"Set", {}},
        {"", {}},
    };
    for (const auto& [pattern, files] : Cases) {
        SCOPED_TRACE(pattern);
        const QString target = Target();
        EXPECT_EQ(UnzipFiles(QLatin1String(pattern), archive, target).has_value(), !files.isEmpty());
        auto tree = Tree(target);
        tree.removeIf([](const auto& entry) { return entry.key().endsWith(QLatin1Char('/')); });
        EXPECT_EQ(tree.keys(), files);
    }
    EXPECT_EQ(folder.Read(QStringLiteral("target/one.pcx")), "<no such file>");
    ASSERT_TRUE(UnzipFiles(QStringLiteral("one.pcx"), archive, Target()));
    EXPECT_EQ(folder.Read(QStringLiteral("target/one.pcx")), "6") << "the whole name counts before the short one";
    EXPECT_FALSE(UnzipFiles(QStringLiteral("/"), archive, In("nowhere")));
    EXPECT_FALSE(UnzipFiles(QStringLiteral("/"), In("nowhere"), Target()));
    EXPECT_EQ(ListZip(archive)->last(), QStringLiteral("win\\dows.txt"));
    EXPECT_EQ(ListZip(archive)->first(), QStringLiteral("Set/"));
    EXPECT_FALSE(ListZip(In("nowhere")));

    EXPECT_TRUE(FitsWildcard(u"aXbXc", u"*x*C") && FitsWildcard(u"", u"*") && FitsWildcard(u"none", u"*.*"));
    EXPECT_FALSE(FitsWildcard(u"abc", u"*b") || FitsWildcard(u"", u"?") || FitsWildcard(u"ab", u"a?b"));
}

// Letters of another system's code page, and a name with a mark that it is UTF-8.
TEST_F(ZipFolder, NamesOfBothCodings)
{
    MakeArchive(archive, {{"\x81"
                           "ber.txt",
                           "1", 0, true},
                          {"\xC3\xBC\xE4\xB8\xAD.txt", "2"}});
    ASSERT_TRUE(UnzipFiles(QStringLiteral("*"), archive, Target()));
    EXPECT_EQ(folder.Read(QStringLiteral("target/\u00FCber.txt")), "1");
    EXPECT_EQ(folder.Read(QStringLiteral("target/\u00FC\u4E2D.txt")), "2");
}

TEST_F(ZipFolder, TenThousandEntries)
{
    std::vector<MadeEntry> entries;
    for (int i = 0; i < 10000; ++i)
        entries.push_back({"Set/" + QByteArray::number(i % 100) + '/' + QByteArray::number(i), QByteArray::number(i)});
    MakeArchive(archive, entries);
    ASSERT_TRUE(ZipFiles(folder.Write(QStringLiteral("one"), "more"), archive));
    EXPECT_EQ(ListZip(archive)->size(), 10001);
    ASSERT_TRUE(UnzipFiles(QStringLiteral("set/7?/"), archive, Target()));
    const auto tree = Tree(In("target"));
    EXPECT_EQ(tree.size(), 10 * 100 + 10 + 1);
    for (int i = 70; i < 10000; i += 100)
        EXPECT_EQ(tree.value(QStringLiteral("Set/70/%1").arg(i)), QByteArray::number(i));
}

// A stop wherever it comes leaves archive and target as they were.
TEST_F(ZipFolder, StopsWithoutATrace)
{
    folder.Write(QStringLiteral("Set/a"), QByteArray(1 << 20, 'a'));
    folder.Write(QStringLiteral("Set/b"), QByteArray(1 << 20, 'b'));
    int last = 0, calls = 0;
    ASSERT_TRUE(ZipFiles(In("Set"), archive, [&](int done, int of) {
        EXPECT_TRUE(done <= of && (of == 1 || done >= last));
        last = of == 1 ? last : done;
        return ++calls > 0;
    }));
    EXPECT_GT(last, 0);
    const QByteArray before = folder.Read(QStringLiteral("Set.levzip"));
    folder.Write(QStringLiteral("Set/c"), "c");
    for (int stop = 1; stop <= calls; stop += 5) {
        int count = 0;
        const auto turn = [&](int, int) { return ++count < stop; };
        const auto zipped = ZipFiles(In("Set"), archive, turn);
        EXPECT_TRUE(!zipped && WasStopped(zipped.error()));
        EXPECT_EQ(folder.Read(QStringLiteral("Set.levzip")), before);
        count = 0;
        const auto unzipped = UnzipFiles(QStringLiteral("/"), archive, Target(), turn);
        EXPECT_TRUE(unzipped ? count < stop : WasStopped(unzipped.error()));
        EXPECT_TRUE(unzipped || Tree(In("target")).isEmpty());
    }
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Hidden | QDir::Files), QStringList(QStringLiteral("Set.levzip")));
}
