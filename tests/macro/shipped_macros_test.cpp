#include "macro_scope.h"

#include "frame/frame_state.h"
#include "frame/settings/settings.h"
#include "frame/vocabulary.h"
#include "services/archive_tool.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The macros that come with the program, on small texts and on the example set.
struct ShippedMacrosTest : testing::Test
{
    ShippedMacrosTest()
    {
        Frame.DataFolder = ProjectFile(u"data/"_s);
        MakeLanguages();
        scope.Text().SetLineEnd(LineBreak::Lf);
    }

    static QByteArray Source(const QString& name)
    {
        QFile file(ProjectFile(u"macros/"_s + name + u".gfbasic"_s));
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << name;
        return file.readAll();
    }
    MacroTrial Run(const QString& name, const QStringList& answers = {})
    {
        const MacroTrial trial = scope.Run(QString::fromUtf8(Source(name)), answers);
        EXPECT_FALSE(trial.Error) << name << ": line " << trial.Error->Line << ": " << trial.Error->Text;
        EXPECT_TRUE(trial.Told.filter(u"MISFIT"_s).isEmpty()) << name << ": " << trial.Told.join(u'\n');
        return trial;
    }
    void Start(const QByteArray& text)
    {
        scope.Text().LoadBytes(text);
        scope.Text().SetSel({0, 0, 0, 0}, false);
    }
    /// The text that a macro makes of another.
    QByteArray Made(const QString& name, const QByteArray& text, const QStringList& answers = {})
    {
        Start(text);
        last = Run(name, answers);
        return scope.Text().Bytes().toByteArray().replace("\r", "");
    }
    QString LastMessage() const { return last.Told.isEmpty() ? QString() : last.Told.last(); }

    /// A copy of a folder of the example set, one of its texts opened.
    void OpenExample(const QString& sub, const QString& file)
    {
        const QDir from(ProjectFile(u"examples/"_s + sub));
        for (const QString& name : from.entryList(QDir::Files))
            QFile::copy(from.filePath(name), scope.Folder.Path(name));
        Frame.CurrentFolder = scope.Folder.Path();
        Frame.CurrentFile = file;
        ASSERT_TRUE(scope.Text().OpenFile(scope.Folder.Path(file)));
    }
    QByteArrayList Lines() const { return const_cast<MacroScope&>(scope).Text().Bytes().toByteArray().split('\n'); }

    MacroScope scope;
    MacroTrial last;
};

constexpr auto Blocks = "sand: a.pcx\nsand.xpos: 3\nsand.ypos: 0 # top\nsand.digging: A.PNG\nsand.digging.frames: 1\n"
                        "# kept\nwall: a.pcx\nwall.xpos: 2\nwall.ypos: 2\nwall.frames: 1\nwall.delay: 1\n";

} // namespace

// Catches: a macro that ships without a word on what it does, or without an author for the question of SystemSafe.
TEST_F(ShippedMacrosTest, EachTellsWhatItDoes)
{
    const QStringList files = QDir(ProjectFile(u"macros"_s)).entryList({u"*.gfbasic"_s});
    EXPECT_GE(files.size(), 16);
    for (const QString& file : files) {
        const QByteArray source = Source(file.chopped(8));
        EXPECT_TRUE(source.startsWith("# ")) << file;
        EXPECT_TRUE(source.contains("\nsetauthor Gemforge\n")) << file;
        const QString key = file.startsWith(u'$') ? u"Alt+"_s + file.at(1).toUpper() + u" starts it."_s : QString();
        EXPECT_TRUE(source.contains(key.toUtf8())) << file;
    }
}

// Catches: a comment, a heading or a value that moves, a "|" or a note that is lost, values of other lines than those
// selected.
TEST_F(ShippedMacrosTest, AlignValuesMovesValuesOnly)
{
    const QByteArray text = "a: 1 | 2 # n\n#~ b: c\n# words: x\n#key:\tx\nlonger_than_column: y\nempty:\n";
    EXPECT_EQ(Made(u"$a Align Values"_s, text, {u"Other"_s, u"10"_s}),
              "a:       1 | 2 # n\n#~ b: c\n# words: x\n#key:    x\nlonger_than_column: y\nempty:\n");
    Frame.Settings.SpacerWidth = 6;
    Frame.Settings.SuperTab = 0;
    Start("a:1\nb:1\nc:1\n");
    scope.Text().SetSel({1, 0, 2, 0}, false);
    Run(u"$a Align Values"_s, {u"Options"_s});
    EXPECT_EQ(scope.Text().Bytes(), "a:1\nb:   1\nc:1\n");
}

// Catches: a Tab that becomes as many blanks wherever it stands.
TEST_F(ShippedMacrosTest, ConvertTabsKeepsTheColumns)
{
    EXPECT_EQ(Made(u"Convert Tabs"_s, "ab:\tx\n12345678\t|\n\ty\tz\n", {u"8"_s}),
              "ab:     x\n12345678        |\n        y       z\n");
    EXPECT_EQ(Made(u"Convert Tabs"_s, "ab:\tx\n", {u"4"_s}), "ab: x\n");
    EXPECT_EQ(Made(u"Convert Tabs"_s, "ab:\tx\n", {u"Cancel"_s}), "ab:\tx\n");
}

// Catches: a line that goes although the game would show something else without it.
TEST_F(ShippedMacrosTest, StripDefaultLinesTakesWhatSaysNothing)
{
    EXPECT_EQ(Made(u"Strip Default Lines"_s, Blocks),
              "sand: a.pcx\nsand.xpos: 3\nsand.digging: A.PNG\nsand.digging.frames: 1\n# kept\n"
              "wall: a.pcx\nwall.xpos: 2\nwall.ypos: 2\n");
    EXPECT_EQ(LastMessage(), u"MESSAGE Strip Default Lines|Lines removed: 3|OK"_s);
    const QByteArray others = "x.delay: 1\nsand: a.pcx\nwall.delay: 1\nsand.delay: 10\n#sand.delay: 1\n";
    EXPECT_EQ(Made(u"Strip Default Lines"_s, others), others);
}

// Catches: lines for a state or for an element that has them, in the wrong place, for another place of the sheet.
TEST_F(ShippedMacrosTest, EditorLinesStandBehindTheirBlock)
{
    const QByteArray made = Made(u"Editor Lines"_s, Blocks + QByteArray("wall.EDITOR: b.pcx\nacid: c.png"));
    EXPECT_EQ(
        made.simplified().replace("# top ", ""),
        "sand: a.pcx sand.xpos: 3 sand.ypos: 0 sand.EDITOR: a.pcx sand.EDITOR.xpos: 3 sand.EDITOR.ypos: 0 "
        "sand.digging: A.PNG sand.digging.frames: 1 # kept wall: a.pcx wall.xpos: 2 wall.ypos: 2 wall.frames: 1 "
        "wall.delay: 1 wall.EDITOR: b.pcx acid: c.png acid.EDITOR: c.png acid.EDITOR.xpos: 0 acid.EDITOR.ypos: 0");
    EXPECT_EQ(Made(u"Editor Lines"_s, made), made);
    EXPECT_EQ(Made(u"Editor Lines"_s, "toon_1: a.pcx\n[title]: b.pcx\n"), "toon_1: a.pcx\n[title]: b.pcx\n");
}

// Catches: frames for a block that tells them, names for each block of an element, a second comment.
TEST_F(ShippedMacrosTest, FramesAndNamesComeOnce)
{
    const QByteArray made = Made(u"Add Missing Frames"_s, Blocks);
    EXPECT_TRUE(made.contains("sand.ypos: 0 # top\nsand.frames:                              1\nsand.digging:"))
        << made.constData();
    EXPECT_EQ(made.count("frames:"), 3);
    EXPECT_EQ(Made(u"Add Missing Frames"_s, made), made);
    const QByteArray named = Made(u"Names To Blocks"_s, Blocks + QByteArray("magic_wall.active: a.pcx\n"));
    EXPECT_EQ(named, "# Sand\n" + QByteArray(Blocks) + "# Magic wall\nmagic_wall.active: a.pcx\n");
    EXPECT_EQ(Made(u"Names To Blocks"_s, named), named);
}

// Catches: a table with the fields of another block, a text that is left longer or shorter than it was.
TEST_F(ShippedMacrosTest, TableOfBlocksGoesWhereItIsWanted)
{
    const QByteArray table = "Key\tImage\txpos\typos\tframes\tdelay\tmode\nsand\ta.pcx\t3\t0\t\t\t\n"
                             "sand.digging\tA.PNG\t\t\t1\t\t\nwall\ta.pcx\t2\t2\t1\t1\t\n";
    EXPECT_EQ(Made(u"$b Table Of Blocks"_s, Blocks, {u"Behind The Text"_s}), Blocks + table);
    const QByteArray open = QByteArray(Blocks).chopped(1);
    EXPECT_EQ(Made(u"$b Table Of Blocks"_s, open, {u"Clipboard"_s}), open);
    EXPECT_EQ(scope.Clipboard.Text().remove(u'\r').toUtf8(), table);
}

// Catches: lines that are lost or doubled, comments that lose their block, sections that are mixed, empty lines that
// wander; a clipboard that is not put back.
TEST_F(ShippedMacrosTest, SortBlocksKeepsEveryLine)
{
    scope.Clipboard.SetText(u"mine"_s);
    EXPECT_EQ(Made(u"Sort Blocks By Element"_s,
                   "name: x\n\n# of the wall\nwall: w.pcx\nwall.delay: 2\n\nsand: a|b.pcx\n"
                   "odd: o.pcx\nacid: a.pcx\n\n#~--- two ---\nsand.digging: a.pcx\nacid.x: 1"),
              "name: x\n\nacid: a.pcx\n\nsand: a|b.pcx\n# of the wall\nwall: w.pcx\nwall.delay: 2\nodd: o.pcx\n\n"
              "#~--- two ---\nacid.x: 1\nsand.digging: a.pcx\n");
    EXPECT_EQ(scope.Clipboard.Text(), u"mine"_s);
    OpenExample(u"graphics"_s, u"graphicsinfo.conf"_s);
    QByteArrayList before = Lines();
    Run(u"Sort Blocks By Element"_s);
    QByteArrayList after = Lines();
    EXPECT_NE(before, after);
    std::ranges::sort(before);
    std::ranges::sort(after);
    EXPECT_EQ(before, after);
}

// Catches: numbers that are taken for their beginning, that are moved twice, or that go beyond the game's 256.
TEST_F(ShippedMacrosTest, RenumberMovesEachNumberOnce)
{
    const QByteArray text = "custom_1: custom_1.png\ncustom_12.x: [custom_2] custom_1\ncustom_2.moving.xpos: 2\n";
    EXPECT_EQ(Made(u"Renumber Custom Elements"_s, text, {u"1"_s, u"2"_s, u"2"_s}),
              "custom_2: custom_1.png\ncustom_12.x: [custom_3] custom_2\ncustom_3.moving.xpos: 2\n");
    EXPECT_EQ(Made(u"Renumber Custom Elements"_s, text, {u"1"_s, u"20"_s, u"250"_s}), text);
    EXPECT_TRUE(LastMessage().contains(u"1 to 256"_s)) << LastMessage();
    EXPECT_EQ(Made(u"Renumber Custom Elements"_s, text, {u"1"_s, QString()}), text);
}

// Catches: blocks of another image that move, a default place that is not written, a sign or a note that is lost.
TEST_F(ShippedMacrosTest, MoveTilesMovesTheBlocksOfOneImage)
{
    const QByteArray text = "a: s.pcx\na.xpos:  3\na.ypos: 10 # n\na.x: s.png\nb: s.pcx\n";
    EXPECT_EQ(Made(u"$m Move Tiles"_s, text, {u"s.pcx"_s, u"2"_s, u"-3"_s}),
              "a: s.pcx\na.xpos:  5\na.ypos: 7 # n\na.x: s.png\nb: s.pcx\n");
    EXPECT_TRUE(LastMessage().contains(u"left alone: 1"_s)) << LastMessage();
    EXPECT_EQ(Made(u"$m Move Tiles"_s, "b: s.pcx\nc: t.pcx\n", {u"s.pcx"_s, u"1"_s, u"2"_s}).simplified(),
              "b: s.pcx b.xpos: 1 b.ypos: 2 c: t.pcx");
    EXPECT_EQ(last.Lists, QStringList{u"Image that moved|s.pcx|t.pcx"_s});
}

// Catches: fields of the next block that come along, tiles that the block before uses.
TEST_F(ShippedMacrosTest, NextBlockTakesTheNextTiles)
{
    const QByteArray made =
        Made(u"$n Next Block"_s, "sand: a.pcx\nsand.xpos: 3\nsand.frames: 4\nsand.digging: b.pcx\n", {u"acid"_s});
    EXPECT_EQ(made.simplified(), "sand: a.pcx sand.xpos: 3 sand.frames: 4 acid: a.pcx acid.xpos: 7 acid.frames: 4 "
                                 "sand.digging: b.pcx");
    EXPECT_EQ(Made(u"$n Next Block"_s, "sand.digging: a.pcx\nsand.digging.delay: 4\n", {u"acid"_s}).simplified(),
              "sand.digging: a.pcx sand.digging.delay: 4 acid.digging: a.pcx acid.digging.delay: 4");
    EXPECT_EQ(Made(u"$n Next Block"_s, "# none\n"), "# none\n");
}

// Catches: a file that is there and told missing, a used one told unused, a choice that leads to another line.
TEST_F(ShippedMacrosTest, CheckFilesComparesTextAndFolder)
{
    OpenExample(u"graphics"_s, u"graphicsinfo.conf"_s);
    scope.Folder.Write(u"spare.png"_s, "x");
    scope.Text().AddText(u"nut: Gone.pcx\nnut.broken: gone.PCX # again\nacid: spare.pcx\n"_s);
    const int line = scope.Text().LineCount() - 3; // of the first that was added, counted from 1
    const QString missing = u"Line %1: Gone.pcx is missing"_s.arg(line);
    const MacroTrial trial = Run(u"$k Check Files"_s, {missing});
    EXPECT_EQ(trial.Lists, QStringList{u"Missing and unused files|"_s + missing +
                                       u"|Not used: grotto_creatures.pcx|Not used: grotto_tiles.png"_s});
    EXPECT_EQ(scope.Text().CaretLine(), line - 1);
    EXPECT_EQ(scope.Text().SelText(), u"nut: Gone.pcx"_s);
}

// Catches: keys in comments that count, letter case that is not minded, a value told wrong that the game takes.
TEST_F(ShippedMacrosTest, ChecksOfKeysAndSounds)
{
    Start("a: 1\n#a: 2\nA: 3\nb : 1\na:4\n");
    EXPECT_EQ(Run(u"$d Double Keys"_s).Lists, QStringList{u"Double keys|Line 5: a"_s});
    scope.Folder.Write(u"here.wav"_s, "x");
    Frame.CurrentFolder = scope.Folder.Path();
    Start(
        "name: x\na: HERE.WAV # \na.volume: 101\na.priority: x\na.mode_loop: yes\nb: [NONE]\nc: no.ogg\nd: e.txt\nf:\n"
        "f.volume: 100\n");
    EXPECT_EQ(Run(u"Check Sounds And Music"_s).Lists,
              QStringList{u"Faults|Line 3: a volume is a number from 0 to 100|"
                          "Line 4: this is no number|Line 5: true or false is wanted|Line 7: no.ogg is missing|"
                          "Line 8: e.txt is no file that the game plays|Line 9: there is no value"_s});
    OpenExample(u"sounds"_s, u"soundsinfo.conf"_s);
    EXPECT_EQ(Run(u"Check Sounds And Music"_s).Told.size(), 1);
}

// Catches: a text that names a file under a name which it does not have, because one half was not done.
TEST_F(ShippedMacrosTest, RenameImageRenamesFileAndLines)
{
    OpenExample(u"graphics"_s, u"graphicsinfo.conf"_s);
    const QByteArray before = scope.Text().Bytes().toByteArray();
    const QStringList answers{u"grotto_tiles.pcx"_s, u"ground.pcx"_s};
    EXPECT_TRUE(Run(u"Rename Image"_s, answers).Told.contains(u"REFUSED"_s));
    EXPECT_EQ(scope.Text().Bytes(), before);
    scope.AllowFiles = true;
    Run(u"Rename Image"_s, answers);
    EXPECT_EQ(scope.Text().Bytes(), QByteArray(before).replace("grotto_tiles.pcx", "ground.pcx"));
    EXPECT_TRUE(QFile::exists(scope.Folder.Path(u"ground.pcx"_s)));
    EXPECT_FALSE(QFile::exists(scope.Folder.Path(u"grotto_tiles.pcx"_s)));
    const QByteArray after = scope.Text().Bytes().toByteArray();
    Run(u"Rename Image"_s, {u"ground.pcx"_s, u"grotto_creatures.pcx"_s});
    EXPECT_EQ(scope.Text().Bytes(), after);
}

// Catches: another element that is counted, fields of a level in other columns.
TEST_F(ShippedMacrosTest, LevelsAreCounted)
{
    const QString levels = ProjectFile(u"examples"_s);
    EXPECT_EQ(Made(u"Count Element"_s, "text\n", {u"sand"_s, levels}),
              "# 001.level: 355\n# sand stands 355 times in 1 levels of 1\ntext\n");
    EXPECT_EQ(Made(u"Level Statistics"_s, "", {levels}),
              "# Level        Size      Time  Gems  Name, author\n"
              "# 001.level    32x19     300   18    The first lantern, The Gemforge authors\n");
    EXPECT_EQ(Made(u"Level Statistics"_s, "", {scope.Folder.Path()}), "");
}

// Catches: an archive of another folder, one that is written over.
TEST_F(ShippedMacrosTest, BackupSetPacksTheFolder)
{
    scope.Folder.Write(u"graphics.conf"_s, "x");
    QDir().mkdir(scope.Folder.Path(u"graphics"_s));
    Frame.CurrentFolder = scope.Folder.Path(u"graphics/"_s);
    scope.AllowFiles = true;
    const TestFolder target;
    const QString archive = target.Path(u"back.zip"_s);
    Run(u"Backup Set"_s, {u"The One Above"_s, archive});
    const Result<QStringList> entries = ListZip(archive);
    ASSERT_TRUE(entries);
    EXPECT_EQ(entries->filter(u"graphics.conf"_s).size(), 1) << entries->join(u' ');
    EXPECT_EQ(Run(u"Backup Set"_s, {u"This One"_s, archive}).Told.last().section(u'|', 1, 1),
              u"This archive is there already. Take a name that is free."_s);
}

// Catches: a form that the macro's archive does not carry, places in it that are not filled.
TEST_F(ShippedMacrosTest, SetReadmeFillsItsForm)
{
    scope.Path = scope.Folder.Path(u"readme.gfb"_s);
    ASSERT_TRUE(AddBytesToResource(u"basic.txt"_s, Source(u"Set Readme"_s), scope.Path));
    ASSERT_TRUE(AddToResource(ProjectFile(u"macros/Set Readme/readme.txt"_s), scope.Path));
    scope.AllowFiles = true;
    const QByteArray made = Made(u"Set Readme"_s, "", {ProjectFile(u"examples"_s), u"Grotto"_s, u"Me"_s, u"2026"_s});
    EXPECT_TRUE(made.startsWith("Grotto\nby Me, 2026\n")) << made.constData();
    EXPECT_TRUE(made.contains("\n001: The first lantern\n")) << made.constData();
    EXPECT_FALSE(made.contains('{')) << made.constData();
}
