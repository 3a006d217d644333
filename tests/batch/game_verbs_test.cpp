#include "batch/verbs.h"

#include "batch/prepare_tools.h"
#include "frame/start/start_up.h"
#include "game/stand_in_place.h"
#include "host_scope.h"

#include <gtest/gtest.h>

namespace {

class GameVerbs : public testing::Test
{
protected:
    GameVerbs()
    {
        for (const char* table : {"compat", "levelheader", "user"}) {
            const QString name = QStringLiteral("data/%1.ini").arg(QString::fromLatin1(table));
            QFile shipped(ProjectFile(name));
            EXPECT_TRUE(shipped.open(QIODevice::ReadOnly));
            Folder.Write(name, shipped.readAll());
        }
        StartFolders folders;
        folders.ProgramFolder = Folder.Path();
        EXPECT_TRUE(PrepareTools(folders));
    }

    /// Runs a verb; "--game" of the stand-in is added.
    VerbResult Call(QStringList words, bool withGame = true)
    {
        if (withGame)
            words << QStringLiteral("--game") << Place.Program();
        out.clear();
        err.clear();
        QTextStream outStream(&out), errStream(&err);
        return RunVerb(words, VerbStreams{outStream, errStream, Scope.Answers});
    }
    static QStringList Words(const char* call) { return QString::fromLatin1(call).split(u' '); }

    TestFolder Folder;
    HostScope Scope;
    StandInPlace Place;
    QString out, err;
};

// Catches: a file that is no game taken for one, a wrong exit code, settings that are written.
TEST_F(GameVerbs, InfoTellsVersionAndData)
{
    EXPECT_EQ(Call(Words("game info")), VerbDone);
    EXPECT_EQ(out, QStringLiteral("version: 4.4.2.1\ndata: ") + Place.Game.Path() + u'\n');
    EXPECT_EQ(Call(Words("game info --game /bin/true"), false), VerbFailed);
    EXPECT_TRUE(err.startsWith(QLatin1String("/bin/true: ")));
    EXPECT_EQ(Call(Words("game info"), false), VerbFailed); // none is set
    for (const char* wrong : {"game info x", "game info --max-seconds 0", "game info --wibble 1", "game extract",
                              "game extract wibble", "game check", "game check /"})
        EXPECT_EQ(Call(Words(wrong)), VerbFailed) << wrong;
    StandInPlace::ActsAtProof("hang");
    EXPECT_EQ(Call(Words("game info --max-seconds 1")), VerbStopped);
    EXPECT_FALSE(Folder.Read(QStringLiteral("data/user.ini")).contains(QFile::encodeName(Place.Program())));
}

// Catches: another text than the pane's, messages among it, half a conf taken for a whole one.
TEST_F(GameVerbs, ExtractPrintsLiveEntries)
{
    StandInPlace::ActsAtPrint("warn something");
    EXPECT_EQ(Call(Words("game extract music")), VerbDone);
    EXPECT_EQ(out.count(u'\n'), 46);
    EXPECT_TRUE(out.startsWith(QLatin1String("# You can configure")));
    EXPECT_EQ(out.count(u'#'), 2);
    EXPECT_FALSE(out.contains(QLatin1String("[WARN]")));
    StandInPlace::ActsAtPrint("say half;exit 1");
    EXPECT_EQ(Call(Words("game extract music")), VerbFailed);
    EXPECT_EQ(out, QString());
    StandInPlace::ActsAtPrint("hang");
    EXPECT_EQ(Call(Words("game extract music --max-seconds 1")), VerbStopped);
}

// Catches: a line that names the copy, counts from 0 or is lost; an exit code of 0 in spite of complaints; a set that
// is changed.
TEST_F(GameVerbs, CheckPrintsALineAComplaint)
{
    const QString good = Place.MakeSet(QStringLiteral("good"), "name: good\n");
    EXPECT_EQ(Call({QStringLiteral("game"), QStringLiteral("check"), good}), VerbDone);
    EXPECT_EQ(out, QString());
    const QString bad = Place.MakeSet(QStringLiteral("bad"), "name: bad\nnosuch.png: 1\nsand: gone.png\n");
    QFile::remove(bad + QStringLiteral("001.level"));
    const auto before = StandInPlace::Snapshot(bad);
    StandInPlace::Acts("warn of no place;play");
    EXPECT_EQ(Call({QStringLiteral("game"), QStringLiteral("check"), bad.chopped(1)}), VerbFound);
    EXPECT_EQ(out, QStringLiteral("graphics/graphicsinfo.conf:2: nosuch.png: unknown key\n"
                                  "graphics/graphicsinfo.conf:3: sand: cannot find artwork file 'gone.png'\n"
                                  "001.level:0: : cannot read level -- using empty level\n"
                                  "-:0: : of no place\n"));
    EXPECT_EQ(StandInPlace::Snapshot(bad), before);
    StandInPlace::Acts("crash");
    EXPECT_EQ(Call({QStringLiteral("game"), QStringLiteral("check"), good}), VerbFound);
    EXPECT_EQ(out, QStringLiteral("-:0: : the game has crashed\n"));
}

} // namespace
