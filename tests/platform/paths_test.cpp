#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

// Pure text: a separator of the other kind, a path without folder, one that is a folder.
TEST(Paths, PartsOfAPath)
{
    struct Row
    {
        const char *Path, *Folder, *Name, *Parent;
    };
    const Row rows[] = {{"/a/b/c.conf", "/a/b/", "c.conf", "b"},
                        {"C:\\levels\\x\\y.pcx", "C:\\levels\\x\\", "y.pcx", "x"},
                        {"/a/b/", "/a/b/", "", "b"},
                        {"name", "", "name", ""},
                        {"/name", "/", "name", ""},
                        {"", "", "", ""},
                        {"a\\b/c", "a\\b/", "c", "b"}};
    for (const Row& row : rows) {
        const QString path = QString::fromLatin1(row.Path);
        EXPECT_EQ(paths::FolderOfPath(path).toStdString(), row.Folder) << row.Path;
        EXPECT_EQ(paths::FileNameOfPath(path).toStdString(), row.Name) << row.Path;
        EXPECT_EQ(paths::ParentName(path).toStdString(), row.Parent) << row.Path;
    }
    EXPECT_EQ(paths::Inside(QStringLiteral("~\\game\\a")), QDir::homePath() + QLatin1String("/game/a"));
    EXPECT_EQ(paths::Inside(QStringLiteral("a~/b")), QStringLiteral("a~/b"));
    EXPECT_EQ(paths::Closed(QStringLiteral("/a")), QStringLiteral("/a/"));
    EXPECT_EQ(paths::Closed(QString()), QString());
}

// Lower-cased and "\"-parted paths must find what is there, exactly spelled names must win, and a guess between two
// names must never be made.
TEST(Paths, LookUpWithoutRegardToCase)
{
    const TestFolder folder;
    const QString file = folder.Write(QStringLiteral("Levels/My Set/Graphics/Ünder.PCX"), "x");
    const QString base = folder.Path();
    EXPECT_EQ(paths::Existing(file), file);
    EXPECT_EQ(paths::Existing(base + QStringLiteral("levels\\my set\\graphics\\üNDER.pcx")), file);
    EXPECT_EQ(paths::Existing(base + QStringLiteral("LEVELS/my set/")), base + QStringLiteral("Levels/My Set/"));
    EXPECT_EQ(paths::Existing(base + QStringLiteral("levels/my set/graphics/under.pcx")), QString());
    EXPECT_EQ(paths::Existing(base + QStringLiteral("levels/my set/graphics/ünder.pcx/")), QString()) << "no folder";
    EXPECT_EQ(paths::Existing(QString()), QString());
    EXPECT_TRUE(paths::FileExists(base + QStringLiteral("LEVELS/MY SET/GRAPHICS/ÜNDER.PCX")));
    EXPECT_FALSE(paths::FileExists(base + QStringLiteral("LEVELS")));
    EXPECT_TRUE(paths::FolderExists(base + QStringLiteral("LEVELS")));

    folder.Write(QStringLiteral("levels/other"), "y");
    EXPECT_EQ(paths::Existing(base + QStringLiteral("levels/other")), base + QStringLiteral("levels/other"));
    EXPECT_EQ(paths::Existing(base + QStringLiteral("LEVELS/other")), QString()) << "Levels or levels?";
    folder.Write(QStringLiteral("odd\\name"), "z");
    EXPECT_EQ(paths::Existing(base + QStringLiteral("odd\\name")), base + QStringLiteral("odd\\name"));
}

// A new file must land in the folder that is there, not in a second one of other case; an existing one is written
// under its own name.
TEST(Paths, ForWriting)
{
    const TestFolder folder;
    const QString file = folder.Write(QStringLiteral("Levels/Old.conf"), "x");
    const QString base = folder.Path();
    EXPECT_EQ(paths::ForWriting(base + QStringLiteral("levels/New.CONF")), base + QStringLiteral("Levels/New.CONF"));
    EXPECT_EQ(paths::ForWriting(base + QStringLiteral("levels\\old.conf")), file);
    EXPECT_EQ(paths::ForWriting(base + QStringLiteral("levels/No/x")), base + QStringLiteral("Levels/No/x"));
    EXPECT_EQ(paths::ForWriting(base + QStringLiteral("levels/No/")), base + QStringLiteral("Levels/No/"));
    ASSERT_TRUE(paths::WriteWhole(base + QStringLiteral("LEVELS\\old.CONF"), "y"));
    EXPECT_EQ(folder.Read(QStringLiteral("Levels/Old.conf")), "y");
}

// Two spellings of one file must not open as two documents, nor a file that is not there yet.
TEST(Paths, CanonicalOfLinksAndMissingFiles)
{
    const TestFolder folder;
    const QString file = folder.Write(QStringLiteral("real/a.conf"), "x");
    const QString base = folder.Path();
    QFile::link(QStringLiteral("real"), base + QStringLiteral("link"));
    QFile::link(QStringLiteral("a.conf"), base + QStringLiteral("real/b.conf"));
    const QString real = QFileInfo(file).canonicalFilePath();
    for (const char* other : {"link/a.conf", "link/b.conf", "real/../link/./a.conf", "LINK/A.CONF", "real//a.conf"})
        EXPECT_EQ(paths::Canonical(base + QLatin1String(other)), real) << other;
    const QString parent = paths::FolderOfPath(real);
    EXPECT_EQ(paths::Canonical(base + QStringLiteral("link/new.conf")), parent + QStringLiteral("new.conf"));
    EXPECT_EQ(paths::Canonical(base + QStringLiteral("link/no/../new.conf")), parent + QStringLiteral("new.conf"));
    EXPECT_EQ(paths::Canonical(QStringLiteral("/no such/./new.conf")), QStringLiteral("/no such/new.conf"));
    // The look of a file system without letter case: the same file under the swapped name.
    QFile::link(QStringLiteral("a.conf"), base + QStringLiteral("real/A.CONF"));
    EXPECT_EQ(paths::Canonical(file), real);

    const QString before = QDir::currentPath();
    paths::ChangeToFolder(base + QStringLiteral("REAL/none"));
    EXPECT_EQ(QDir::currentPath(), before);
    paths::ChangeToFolder(base + QStringLiteral("REAL/a.conf"));
    EXPECT_EQ(QDir::currentPath() + u'/', parent);
    EXPECT_EQ(paths::Canonical(QStringLiteral("a.conf")), real) << "relative";
    EXPECT_EQ(paths::Existing(QStringLiteral("A.conf")), QString()) << "a.conf and A.CONF";
    EXPECT_EQ(paths::Existing(QStringLiteral("B.conf")), QStringLiteral("b.conf")) << "relative";
    paths::ChangeToFolder(before + u'/');
    EXPECT_EQ(QDir::currentPath(), before);

    EXPECT_EQ(paths::Root(QStringLiteral("/proc/self/status")), QStringLiteral("/proc/"));
    EXPECT_EQ(paths::Root(QStringLiteral("/no such folder/x")), QStringLiteral("/"));
}

// The desktop's folders follow their variables, a relative one is to be ignored, and others cannot read them.
TEST(Paths, StandardFolders)
{
    const TestFolder folder;
    qputenv("XDG_CACHE_HOME", QFile::encodeName(folder.Path(QStringLiteral("deep/cache"))));
    qputenv("XDG_DATA_HOME", "relative");
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(folder.Path(QStringLiteral("home"))));
    const QString cache = folders::Cache(), data = folders::Data();
    qputenv("HOME", home);
    qunsetenv("XDG_CACHE_HOME");
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(cache, folder.Path(QStringLiteral("deep/cache/gemforge/")));
    EXPECT_EQ(data, folder.Path(QStringLiteral("home/.local/share/gemforge/")));
    EXPECT_EQ(QFile::permissions(cache) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    folder.Write(QStringLiteral("file"), "x");
    EXPECT_FALSE(folders::MakePrivate(folder.Path(QStringLiteral("file/below"))));
}
