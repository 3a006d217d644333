#include "batch/call_verb.h"
#include "batch/prepare_tools.h"
#include "game/stand_in_place.h"
#include "host_scope.h"

#include <QDirIterator>
#include <gtest/gtest.h>

namespace {

class SetVerbs : public testing::Test
{
protected:
    SetVerbs()
    {
        StartFolders folders;
        folders.ProgramFolder = ProjectFile({});
        EXPECT_TRUE(PrepareTools(folders));
    }

    Spoken New(const char* shortName, const QStringList& more = {}) const
    {
        return Called(QStringList{QStringLiteral("set"), QStringLiteral("new"), QStringLiteral("--title"),
                                  QStringLiteral("The Dig"), QStringLiteral("--short"), QLatin1String(shortName),
                                  QStringLiteral("--author"), QStringLiteral("Ann"), QStringLiteral("--in"),
                                  Levels.Path()} +
                      more);
    }
    Spoken Call(const char* verb, const QString& path) const
    {
        return Called({QStringLiteral("set"), QString::fromLatin1(verb), path});
    }
    int FilesIn(const char* set) const
    {
        int files = 0;
        QDirIterator all(Levels.Path(QString::fromLatin1(set)), QDir::Files, QDirIterator::Subdirectories);
        for (; all.hasNext(); all.next())
            ++files;
        return files;
    }

    HostScope Scope;
    StandInPlace Place;
    const TestFolder Levels;
};

} // namespace

// Catches: extras that are made without being named, or named ones that are not; a set that is half made without a
// game, or over another; a wrong call that is told as a failure; a name that the wizard would not take.
TEST_F(SetVerbs, NewMakesWhatIsNamed)
{
    EXPECT_EQ(New("Dig It").Out, Levels.Path(QStringLiteral("dig_it\n")));
    EXPECT_EQ(FilesIn("dig_it"), 4 + 6); // four confs; PCX, WAV, MOD with its text, level, readme
    EXPECT_EQ(New("dig it").Code, VerbFound);
    EXPECT_EQ(New("bare", {QStringLiteral("--with"), QString()}).Code, VerbDone);
    EXPECT_EQ(FilesIn("bare"), 4);
    const QStringList dumps{QStringLiteral("--with"), QStringLiteral("helptext,music-dump")};
    EXPECT_EQ(New("full", dumps).Code, VerbFound); // no game is set
    EXPECT_EQ(FilesIn("full"), 0);
    EXPECT_EQ(New("full", dumps + QStringList{QStringLiteral("--game"), Place.Program()}).Code, VerbDone);
    EXPECT_EQ(FilesIn("full"), 5);
    EXPECT_EQ(New("x", {QStringLiteral("--with"), QStringLiteral("nonsense")}).Code, VerbFailed);
    EXPECT_EQ(New("x", {QStringLiteral("--title")}).Code, VerbFailed);
    EXPECT_EQ(New("x", {QStringLiteral("stray")}).Code, VerbFailed);
    EXPECT_EQ(New("").Code, VerbFailed);
    EXPECT_EQ(New("fifteen-letters").Code, VerbDone);
    EXPECT_TRUE(New("sixteen-letters-").Err.contains(QStringLiteral("--short takes 15 characters")));
    EXPECT_EQ(FilesIn("sixteen-letters-"), 0);
    EXPECT_EQ(New("lines", {QStringLiteral("--title"), QStringLiteral("The\nDig")}).Code, VerbDone);
    EXPECT_TRUE(Levels.Read(QStringLiteral("lines/levelinfo.conf")).contains(" the dig\r\n"));
}

// Catches: a form that stays beside the other, one that takes another's place, a path that is told wrongly.
TEST_F(SetVerbs, ZipAndUnzipTakeEachOthersPlace)
{
    ASSERT_EQ(New("dig").Code, VerbDone);
    const QString folder = Levels.Path(QStringLiteral("dig")), archive = folder + QStringLiteral(".levzip");
    EXPECT_TRUE(
        Call("list", Levels.Path()).Out.startsWith(QStringLiteral("folder\t") + folder + QStringLiteral("\tdig")));
    EXPECT_EQ(Call("zip", folder + u'/').Out, archive + u'\n');
    EXPECT_EQ(FilesIn("dig"), 0);
    EXPECT_TRUE(Call("list", Levels.Path()).Out.startsWith(QStringLiteral("zip\t") + archive));
    Levels.Write(QStringLiteral("dig/stands.txt"), "in the way");
    EXPECT_EQ(Call("unzip", archive).Code, VerbFound);
    EXPECT_EQ(FilesIn("dig"), 1);
    EXPECT_EQ(Call("zip", folder).Code, VerbFound);
    QDir(folder).removeRecursively();
    EXPECT_EQ(Call("unzip", archive).Out, folder + u'\n');
    EXPECT_EQ(FilesIn("dig"), 10);
    EXPECT_EQ(Call("unzip", archive).Code, VerbFailed);
    EXPECT_EQ(Call("zip", Levels.Path(QStringLiteral("nowhere"))).Code, VerbFailed);
    EXPECT_EQ(Call("list", Levels.Path(QStringLiteral("nowhere"))).Code, VerbFailed);
}

// Catches: a folder that is no level set and goes into an archive, a wrong call that ends without a word.
TEST_F(SetVerbs, ZipTakesOnlyLevelSets)
{
    Levels.Write(QStringLiteral("papers/letter.txt"), "dear all");
    EXPECT_EQ(Call("zip", Levels.Path(QStringLiteral("papers"))).Code, VerbFound);
    EXPECT_EQ(FilesIn("papers"), 1);
    Levels.Write(QStringLiteral("papers/001.LEVEL"), "x");
    EXPECT_EQ(Call("zip", Levels.Path(QStringLiteral("papers"))).Code, VerbDone);
    for (const char* verb : {"list", "zip", "unzip"}) {
        const Spoken spoken = Call(verb, {});
        EXPECT_EQ(spoken.Code, VerbFailed);
        EXPECT_FALSE(spoken.Err.isEmpty()) << verb;
    }
}
