#include "sets/set_archives.h"

#include "fault_steps.h"
#include "platform/archives/zip_archive.h"
#include "services/archive_tool.h"
#include "services/made_archive.h"
#include "test_support.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A level set that is zipped and unzipped in a folder of levels.
class SetArchives : public testing::Test
{
protected:
    SetArchives()
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(State.Path()));
        MakeFolder();
    }
    ~SetArchives() override { qunsetenv("XDG_STATE_HOME"); }

    void MakeFolder() const
    {
        Levels.Write(QStringLiteral("Dig/levelinfo.conf"), "name: dig\n");
        Levels.Write(QStringLiteral("Dig/001.level"), QByteArray(70000, 'r'));
        Levels.Write(QStringLiteral("Dig/graphics/a.pcx"), "pixels");
        Levels.Write(QStringLiteral("Dig/.hidden"), "kept too");
        QDir(Levels.Path()).mkpath(QStringLiteral("Dig/empty"));
    }
    /// Only the folder, or only the archive, stands.
    void Begin(bool zipped) const
    {
        QDir(Folder).removeRecursively();
        QFile::remove(Archive);
        for (const QString& left : Hidden())
            QDir(Levels.Path(left)).removeRecursively();
        MakeFolder();
        if (!zipped)
            return;
        const FileStepsScope fast(Table());
        ASSERT_TRUE(ZipFiles(Folder, Archive));
        QDir(Folder).removeRecursively();
    }
    QStringList Hidden() const
    {
        QStringList names = QDir(Levels.Path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        names.removeIf([](const QString& name) { return !name.startsWith(u'.'); });
        return names;
    }

    static QMap<QString, QByteArray> BytesIn(const QString& folder)
    {
        QMap<QString, QByteArray> files;
        QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext()) {
            QFile file(all.next());
            const QString name = file.fileName().mid(folder.size());
            files.insert(name, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("folder"));
        }
        return files;
    }
    bool FolderIsWhole() const { return BytesIn(Folder) == Whole; }
    bool ArchiveIsWhole() const
    {
        const FileStepsScope fast(Table());
        const TestFolder out;
        return UnzipFiles(QStringLiteral("/"), Archive, out.Path()) &&
               BytesIn(out.Path(QStringLiteral("Dig"))) == Whole;
    }

    static Failure WhyNot(const Result<SwappedSet>& outcome) { return outcome ? Failure() : outcome.error(); }

    /// The system's calls without the waits of a sync.
    static FileSteps Table()
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = steps.SyncAll = [](int) { return 0; };
        return steps;
    }

    const TestFolder Levels, State;
    const QString Folder = Levels.Path(QStringLiteral("Dig")), Archive = Folder + QStringLiteral(".levzip");
    const QMap<QString, QByteArray> Whole = [this] {
        MakeFolder();
        return BytesIn(Folder);
    }();
};

/// What changes a set's form, and what it starts from.
struct FormChange
{
    const char* Name;
    bool FromArchive;
    bool OverOther; ///< of the other form something stands there already
    bool Deletes;   ///< the folder goes in the end
    Result<SwappedSet> (*Do)(const QString& folder, const QString& archive);
};

const FormChange FormChanges[] = {
    {"zip", false, false, false, [](const QString& folder, const QString& archive) { return ZipSet(folder, archive); }},
    {"zip over an archive", false, true, false,
     [](const QString& folder, const QString& archive) { return ZipSet(folder, archive); }},
    {"unzip", true, false, false, [](const QString&, const QString& archive) { return UnzipSet(archive, false); }},
    {"unzip over a folder", true, true, false,
     [](const QString&, const QString& archive) { return UnzipSet(archive, false); }},
    {"unzip to play", true, false, false,
     [](const QString&, const QString& archive) { return UnzipSet(archive, true); }},
    {"play and delete", true, false, true,
     [](const QString& folder, const QString& archive) {
         return UnzipSet(archive, true)
             .and_then([&](const SwappedSet&) { return RemoveUnzipped(folder, archive); })
             .map([](bool) { return SwappedSet(); });
     }},
};

} // namespace

// Catches: a set that is nowhere whole while it changes its form, whichever step the process ends at; a failure that
// is told as a success, or one that takes the form away that it started from.
TEST_F(SetArchives, ASetIsWholeInOneFormAtEachStep)
{
    for (const FormChange& change : FormChanges) {
        const auto begin = [&] {
            Begin(change.FromArchive);
            if (!change.OverOther)
                return;
            if (change.FromArchive)
                Levels.Write(QStringLiteral("Dig/older.txt"), "to be overwritten");
            else
                MakeArchive(Archive, {{"Dig/older.txt", "to be overwritten"}});
        };
        int killed = 0, status = 0;
        for (int nth = 1; status == 0; ++nth, ++killed) {
            SCOPED_TRACE(std::string(change.Name) + ", killed at step " + std::to_string(nth));
            begin();
            const pid_t child = fork();
            if (child == 0) {
                const FileStepsScope scope(FailingAt(Table(), nth, -1, std::make_shared<int>(0)));
                _exit(change.Do(Folder, Archive) ? 1 : 2);
            }
            waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            ASSERT_TRUE(FolderIsWhole() || ArchiveIsWhole());
        }
        EXPECT_EQ(WEXITSTATUS(status), 1) << change.Name;
        std::printf("%-20s %d points at which it was killed\n", change.Name, killed - 1);
        EXPECT_GT(killed, 20) << change.Name;

        int calls = 0;
        for (int nth = 1; nth == calls + 1; ++nth) {
            SCOPED_TRACE(std::string(change.Name) + ", failing at step " + std::to_string(nth));
            begin();
            const auto count = std::make_shared<int>(0);
            bool done = false;
            {
                const FileStepsScope scope(FailingAt(Table(), nth, ENOSPC, count));
                const auto outcome = change.Do(Folder, Archive);
                done = outcome && !outcome->OldFormStays;
            }
            calls = std::min(*count, nth);
            ASSERT_TRUE(FolderIsWhole() || ArchiveIsWhole());
            if (done)
                EXPECT_TRUE(change.FromArchive && !change.Deletes ? FolderIsWhole() : ArchiveIsWhole());
            else
                EXPECT_TRUE(change.FromArchive ? ArchiveIsWhole() : FolderIsWhole() || ArchiveIsWhole());
        }
    }
}

// Catches: what was written into a folder while it was packed going with it, if its name is taken by then.
TEST_F(SetArchives, AFolderThatWasWrittenToMeanwhileComesBackBesideANewOne)
{
    FileSteps steps = Table();
    const QByteArray folder = QFile::encodeName(Folder);
    steps.RenameNew = [&, real = steps.RenameNew](const char* from, const char* to) {
        const int outcome = real(from, to);
        if (from == folder && outcome == 0) { // another program keeps on writing, and makes the folder anew
            QFile late(QFile::decodeName(to) + QStringLiteral("/late.txt"));
            if (late.open(QIODevice::WriteOnly))
                late.write("work");
            QDir().mkpath(Folder);
        }
        return outcome;
    };
    const FileStepsScope scope(steps);
    const auto zipped = ZipSet(Folder, Archive);
    ASSERT_TRUE(zipped && zipped->OldFormStays);
    EXPECT_EQ(zipped->Why.Path, Folder + QStringLiteral("_1"));
    EXPECT_EQ(Levels.Read(QStringLiteral("Dig_1/late.txt")), "work");
    EXPECT_EQ(Levels.Read(QStringLiteral("Dig_1/levelinfo.conf")), "name: dig\n");
    EXPECT_TRUE(ArchiveIsWhole() && Hidden().isEmpty());
}

// Catches: a form that stays beside its replacement, or that goes although it is to be kept; work left behind.
TEST_F(SetArchives, TheFormsTakeEachOthersPlace)
{
    ASSERT_TRUE(ZipSet(Folder, Archive));
    EXPECT_TRUE(ArchiveIsWhole());
    EXPECT_FALSE(QFileInfo::exists(Folder));
    ASSERT_TRUE(UnzipSet(Archive, true));
    EXPECT_TRUE(FolderIsWhole() && ArchiveIsWhole());
    EXPECT_TRUE(IsSameSet(Folder, Archive).value_or(false));
    Levels.Write(QStringLiteral("Dig/stray.txt"), "goes with the consent to overwrite");
    ASSERT_TRUE(UnzipSet(Archive, false));
    EXPECT_TRUE(FolderIsWhole());
    EXPECT_FALSE(QFileInfo::exists(Archive));
    EXPECT_EQ(Hidden(), QStringList());
}

// Catches: a comparison that overlooks a byte, a file or one too many.
TEST_F(SetArchives, WhatDiffersIsSeen)
{
    ASSERT_TRUE(ZipFiles(Folder, Archive));
    struct
    {
        const char *File, *Bytes, *Told;
    } const changes[] = {{"Dig/graphics/a.pcx", "pixelz", "graphics/a.pcx"},
                         {"Dig/graphics/a.pcx", "pixels and more", "graphics/a.pcx"},
                         {"Dig/tapes/001.tape", "new", "tapes/001.tape"}};
    for (const auto& change : changes) {
        QDir(Folder).removeRecursively();
        MakeFolder();
        Levels.Write(QString::fromLatin1(change.File), change.Bytes);
        QString difference;
        EXPECT_FALSE(IsSameSet(Folder, Archive, {}, &difference).value_or(true));
        EXPECT_EQ(difference, QString::fromLatin1(change.Told));
    }
    QDir(Folder).removeRecursively();
    MakeFolder();
    QFile::remove(Folder + QStringLiteral("/.hidden"));
    EXPECT_FALSE(IsSameSet(Folder, Archive).value_or(true));
}

// Catches: a set that goes although it could not be packed or unpacked whole, for a full disk, a closed folder, an
// archive of another set, of more than one, or with two files of one name, a link, or a wish to stop; a failure that is
// told of a hidden name instead of the set's, a link to the set's own folder as one that leads out; a file of an old
// name, not in UTF-8, that no list of the folder shows; an archive that could not be unpacked again.
TEST_F(SetArchives, WhatCannotBeDoneChangesNothing)
{
    const auto untouched = [&] { return FolderIsWhole() && !QFileInfo::exists(Archive) && Hidden().isEmpty(); };
    {
        const FileSizeLimit limit(100);
        EXPECT_EQ(WhyNot(ZipSet(Folder, Archive)).Path, Archive);
    }
    EXPECT_TRUE(untouched());
    ASSERT_TRUE(ZipFiles(Folder, Archive));
    QDir(Folder).removeRecursively();
    {
        const FileSizeLimit limit(1000);
        const Failure why = WhyNot(UnzipSet(Archive, false));
        EXPECT_EQ(why.Path, Levels.Path());
        EXPECT_FALSE(why.Text().contains(u".gemforge-")) << why.Text();
    }
    EXPECT_TRUE(ArchiveIsWhole() && !QFileInfo::exists(Folder) && Hidden().isEmpty());
    ASSERT_TRUE(UnzipSet(Archive, false));
    int turns = 0;
    const auto stopped = ZipSet(Folder, Archive, [&](int, int) { return ++turns < 5; });
    ASSERT_FALSE(stopped);
    EXPECT_TRUE(WasStopped(stopped.error()));
    EXPECT_TRUE(untouched());
    const QString link = Levels.Path(QStringLiteral("link"));
    QFile::link(Folder, link);
    EXPECT_FALSE(ZipSet(link, link + QStringLiteral(".levzip")));
    QFile::remove(link);
    QFile::link(QStringLiteral("/etc/passwd"), Folder + QStringLiteral("/leads_out"));
    EXPECT_FALSE(ZipSet(Folder, Archive));
    QFile::remove(Folder + QStringLiteral("/leads_out"));
    const QByteArray old = QFile::encodeName(Folder) + "/graphics/b\xf6se.txt";
    ASSERT_GE(mkdir(old, 0755), 0);
    EXPECT_TRUE(WhyNot(ZipSet(Folder, Archive)).Reason.endsWith(QStringLiteral("b\u00f6se.txt")));
    ASSERT_EQ(rmdir(old), 0);
    const QString slashed = Levels.Write(QStringLiteral("Dig/a\\b.txt"), "would come out in a folder");
    EXPECT_EQ(WhyNot(ZipSet(Folder, Archive)).Path, slashed);
    QFile::remove(slashed);
    QFile::link(Folder, Folder + QStringLiteral("/back"));
    EXPECT_EQ(WhyNot(ZipSet(Folder, Archive)).Reason, QStringLiteral("The link leads to a folder that it lies in."));
    QFile::remove(Folder + QStringLiteral("/back"));
    EXPECT_TRUE(untouched());

    QDir(Folder).removeRecursively();
    for (const std::vector<MadeEntry>& entries : {std::vector<MadeEntry>{{"Other/levelinfo.conf", "x"}},
                                                  {{"Dig/a", "x"}, {"Other/b", "y"}},
                                                  {{"Dig/twice1", "x"}, {"Dig/twice2", "y"}},
                                                  {{"a", "x"}}}) {
        QFile::remove(Archive);
        MakeArchive(Archive, entries);
        const QByteArray before = Levels.Read(QStringLiteral("Dig.levzip")).replace("twice2", "twice1");
        Levels.Write(QStringLiteral("Dig.levzip"), before);
        EXPECT_FALSE(UnzipSet(Archive, false));
        EXPECT_EQ(Levels.Read(QStringLiteral("Dig.levzip")), before);
        EXPECT_FALSE(QFileInfo::exists(Folder));
        EXPECT_EQ(Hidden(), QStringList());
    }
}
