#include "batch/call_verb.h"
#include "host_scope.h"

#include <gtest/gtest.h>

namespace {

struct ConfVerbs : testing::Test
{
    ConfVerbs()
    {
        Frame.ConfNames[ModeGfx] = QStringLiteral("graphicsinfo.conf");
        Frame.Settings.SheetKinds = {QStringLiteral("pcx"), QStringLiteral("png")};
    }

    HostScope scope;
    TestFolder folder;
};

} // namespace

// Catches: a wrong line number or form, images looked for in the wrong folders, an exit code that hides a finding.
TEST_F(ConfVerbs, CheckPrintsTheFirstBadLineOfEachFile)
{
    const QString good = folder.Write(QStringLiteral("notes.conf"), "a: none.pcx\nend\n");
    const QString conf = folder.Write(QStringLiteral("graphicsinfo.conf"), "a: here.PCX\nb: twin.png\nc :\n");
    folder.Write(QStringLiteral("here.pcx"), "x");
    folder.Write(QStringLiteral("twin.pcx"), "x");
    EXPECT_EQ(Called({QStringLiteral("check"), good}).Code, VerbDone);
    EXPECT_EQ(Called({QStringLiteral("check"), good}).Out, QString());
    const Spoken found = Called({QStringLiteral("check"), good, conf});
    EXPECT_EQ(found.Code, VerbFound);
    EXPECT_EQ(Called({QStringLiteral("check"), conf, good}).Code, VerbFound);
    EXPECT_EQ(Called({QStringLiteral("check"), folder.Path(QStringLiteral("none.conf")), good}).Code, VerbFailed);
    EXPECT_EQ(found.Out, conf + QStringLiteral(":3: Missing value after the colon.\n") + conf +
                             QStringLiteral(":3: Spaces where found on the left side of the colon.\n"));

    folder.Write(QStringLiteral("far/there.pcx"), "x");
    QString stored = folder.Path(QStringLiteral("far"));
    const QByteArray inject = "#!*" + stored.replace(u'/', u'*').toUtf8() + "\n";
    folder.Write(QStringLiteral("graphicsinfo.conf"), inject + "a: there.pcx\n");
    EXPECT_EQ(Called({QStringLiteral("check"), conf}).Code, VerbDone);
}

// Catches: letters of an old file widened or misaligned, breaks changed, lines beside the wanted ones touched.
TEST_F(ConfVerbs, PassesChangeTheirLinesInPlace)
{
    const QString name = QStringLiteral("old.conf");
    const QString path = folder.Write(name, "caf\xe9:  1\r\nb: 2\n");
    EXPECT_EQ(Called({QStringLiteral("tidy"), path}).Code, VerbDone);
    EXPECT_EQ(folder.Read(name), "caf\xe9:" + QByteArray(37, ' ') + "1\r\nb:" + QByteArray(40, ' ') + "2\n");

    folder.Write(name, "a\r\nb\nc");
    EXPECT_EQ(Called({QStringLiteral("comment"), path, QStringLiteral("2"), QStringLiteral("3")}).Code, VerbDone);
    EXPECT_EQ(folder.Read(name), "a\r\n#b\n#c");
    EXPECT_EQ(Called({QStringLiteral("uncomment"), path, QStringLiteral("1"), QStringLiteral("2")}).Code, VerbDone);
    EXPECT_EQ(folder.Read(name), "a\r\nb\n#c");
    const Spoken beyond = Called({QStringLiteral("comment"), path, QStringLiteral("2"), QStringLiteral("4")});
    EXPECT_EQ(beyond.Code, VerbFailed);
    EXPECT_TRUE(beyond.Err.startsWith(path));
    EXPECT_EQ(folder.Read(name), "a\r\nb\n#c");
}

// Catches: a wrong call that ends as if all were well, or that says nothing.
TEST_F(ConfVerbs, WrongCallsEndWithTwo)
{
    const QStringList calls[] = {
        {},
        {QStringLiteral("fly")},
        {QStringLiteral("tidy")},
        {QStringLiteral("check"), folder.Path(QStringLiteral("none.conf"))},
        {QStringLiteral("check"), folder.Path()},
        {QStringLiteral("comment"), QStringLiteral("f"), QStringLiteral("2")},
        {QStringLiteral("comment"), QStringLiteral("f"), QStringLiteral("2"), QStringLiteral("1")}};
    for (const QStringList& call : calls) {
        const Spoken spoken = Called(call);
        EXPECT_EQ(spoken.Code, VerbFailed) << call.join(u' ');
        EXPECT_FALSE(spoken.Err.isEmpty()) << call.join(u' ');
    }
    for (const Verb& verb : Verbs()) {
        const Spoken help = Called({QString::fromLatin1(verb.Name), QStringLiteral("--help")});
        EXPECT_EQ(help.Code, VerbDone);
        EXPECT_TRUE(help.Out.contains(QString::fromLatin1(verb.Help)));
    }
}

// Catches: members missing or in another order, a line number from 0, a text that breaks the JSON, bytes of a file in
// Windows-1252 taken for UTF-8, comments printed as blocks.
TEST_F(ConfVerbs, BlocksPrintsAnObjectALine)
{
    const QString conf = folder.Write(QStringLiteral("x.conf"), "# a: no.png\nzip:\tb.png\nzip.xpos: 4\n"
                                                                "zip.anim_mode: reverse\nzip.name: \"K\xF6nig\"\n");
    const Spoken spoken = Called({QStringLiteral("blocks"), conf});
    EXPECT_EQ(spoken.Code, VerbDone);
    EXPECT_EQ(spoken.Out,
              QStringLiteral("{\"key\":\"zip\",\"line\":2,\"image\":\"b.png\",\"xpos\":4,\"ypos\":0,\"frames\":1,"
                             "\"delay\":1,\"anim_mode\":\"loop\",\"start_frame\":-1,\"global_sync\":false,"
                             "\"offset\":0,\"name\":\"\\\"König\\\"\",\"reverse\":true}\n"));
    EXPECT_EQ(Called({QStringLiteral("blocks")}).Code, VerbFailed);
    EXPECT_EQ(Called({QStringLiteral("blocks"), folder.Path(QStringLiteral("none.conf"))}).Code, VerbFailed);
}

// Catches: blocks that are not counted, a file that is changed or whose failure is forgotten behind a good one.
TEST_F(ConfVerbs, BlocksVerifyCountsAllFiles)
{
    const QByteArray text = "zip: b.png\nzip.xpos: 4 # note\nzip.frames:9\nzip.moving: b.png\n";
    const QString conf = folder.Write(QStringLiteral("x.conf"), text);
    const Spoken good = Called({QStringLiteral("blocks"), QStringLiteral("--verify"), conf, conf});
    EXPECT_EQ(good.Code, VerbDone);
    EXPECT_EQ(good.Out, QStringLiteral("4 blocks: 4 the same, 0 different\n"));
    EXPECT_EQ(folder.Read(QStringLiteral("x.conf")), text);
    const QString none = folder.Path(QStringLiteral("none.conf"));
    EXPECT_EQ(Called({QStringLiteral("blocks"), QStringLiteral("--verify"), none, conf}).Code, VerbFailed);
}

// Catches: a byte order mark taken for text (it stops being one in front of which "#" was put), a file of two-byte
// letters spoiled.
TEST_F(ConfVerbs, ByteOrderMarksAreNoText)
{
    const QString file = folder.Write(QStringLiteral("a.conf"), "\xEF\xBB\xBFk:1\n");
    EXPECT_EQ(Called({QStringLiteral("comment"), file, QStringLiteral("1"), QStringLiteral("1")}).Code, VerbDone);
    EXPECT_EQ(folder.Read(QStringLiteral("a.conf")), "\xEF\xBB\xBF#k:1\n");
    EXPECT_EQ(Called({QStringLiteral("uncomment"), file, QStringLiteral("1"), QStringLiteral("1")}).Code, VerbDone);
    EXPECT_EQ(Called({QStringLiteral("tidy"), file}).Code, VerbDone);
    EXPECT_EQ(folder.Read(QStringLiteral("a.conf")), "\xEF\xBB\xBFk:" + QByteArray(40, ' ') + "1\n");
    folder.Write(QStringLiteral("a.conf"), "\xEF\xBB\xBF: 1\n");
    EXPECT_EQ(Called({QStringLiteral("check"), file}).Code, VerbFound);
    const QByteArray wide("\xFF\xFEk\0:\0 \0"
                          "1\0",
                          10);
    folder.Write(QStringLiteral("a.conf"), wide);
    EXPECT_EQ(Called({QStringLiteral("tidy"), file}).Code, VerbFailed);
    EXPECT_EQ(folder.Read(QStringLiteral("a.conf")), wide);
}
