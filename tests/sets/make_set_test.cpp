#include "sets/make_set.h"

#include "conf/check.h"
#include "fault_steps.h"
#include "game/game_scope.h"
#include "level/level_files.h"
#include "platform/files/beside_folder.h"
#include "platform/processes/counted_turn.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <sys/wait.h>

namespace {

/// A wizard that has been filled in, its place in a folder of the test.
class MakeSetTest : public GameTest
{
protected:
    MakeSetTest()
    {
        Set.GameName = NewSetText(QStringLiteral("  The Dig Of DOOM "));
        Set.ShortName = FilterFileName(NewSetText(QStringLiteral("The Dig!")));
        Set.Author = NewSetText(QStringLiteral("Ann Ä"));
        Set.Path = Place.Path();
    }

    void Want(std::initializer_list<SetExtra> extras)
    {
        Set.Extras.fill(false);
        for (const SetExtra extra : extras)
            Set.Extras.at(size_t(extra)) = true;
    }
    QByteArray Read(const char* name) const { return Place.Read(Set.ShortName + u'/' + QLatin1String(name)); }
    QStringList Lines(const char* name) const { return QString::fromUtf8(Read(name)).split(QStringLiteral("\r\n")); }
    /// Every file and folder of the place, hidden ones left out.
    QStringList Made() const
    {
        QStringList names;
        QDirIterator all(Place.Path(), QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (all.hasNext())
            names << all.next().mid(Place.Path().size());
        names.sort();
        return names;
    }
    static Result<QByteArray> NoDump(int) { return Fail({}, QStringLiteral("no game")); }

    const TestFolder Place;
    NewSet Set;
};

QByteArray Dump(const char* what, int lines)
{
    QByteArray text =
        QByteArray("# head ") + what + "\n# more\n\nname:    x\n\nsort_priority:                          100\n\n";
    for (int i = 0; i < lines; ++i)
        text += "# entry_" + QByteArray::number(i) + ":    a.png\n";
    return text;
}

} // namespace

// Catches: a name that is no folder's name on every system; a title that keeps its capitals; a start value that counts
// as filled in; a value that has left its column.
TEST_F(MakeSetTest, TextsAreFilteredAndLinedUp)
{
    EXPECT_EQ(Set.ShortName, QStringLiteral("the_dig_"));
    EXPECT_EQ(FilterFileName(QStringLiteral("a-b_c[1] é.x/y")), QStringLiteral("a-b_c[1]___x_y"));
    EXPECT_TRUE(Set.IsFinished());
    for (QString NewSet::*text : {&NewSet::GameName, &NewSet::ShortName, &NewSet::Author, &NewSet::Path}) {
        NewSet open = Set;
        open.*text = NewSet().*text;
        EXPECT_FALSE(open.IsFinished());
        (open.*text).clear();
        EXPECT_FALSE(open.IsFinished());
    }
    const QStringList lines = LevelinfoText(Set).split(QStringLiteral("\r\n"));
    ASSERT_EQ(lines.size(), 14); // the last break ends the last line
    for (const QString& line : lines.first(13)) {
        EXPECT_EQ(line.at(41), u' ') << line;
        EXPECT_NE(line.at(42), u' ') << line;
    }
    EXPECT_EQ(lines.at(1).mid(42), QStringLiteral("the dig of doom"));
    EXPECT_EQ(lines.at(10), QStringLiteral("graphics_set:                             the_dig__gfx"));
    Want({});
    for (const ArtworkRow& row : Artworks())
        EXPECT_EQ(ArtworkText(row, Set).count(QStringLiteral("\r\n")), 3) << row.Folder;
}

// Catches: a placeholder or a head of the dump that stays, an entry that goes with it, whichever of the boxes are
// ticked.
TEST_F(MakeSetTest, ADumpTakesThePlaceOfItsPlaceholder)
{
    for (const bool example : {false, true}) {
        Want({SetExtra::GraphicsDump, SetExtra::SoundsDump, SetExtra::MusicDump});
        for (const ArtworkRow& row : Artworks())
            Set.Extras.at(size_t(row.Example)) = example;
        Set.ShortName = example ? QStringLiteral("with") : QStringLiteral("without");
        ASSERT_TRUE(MakeSet(Set, [](int index) { return Result<QByteArray>(Dump("d", index)); }));
        int printed = 0;
        for (const ArtworkRow& row : Artworks()) {
            SCOPED_TRACE(row.Folder);
            const QByteArray conf = QByteArray(row.Folder) + '/' + row.Folder + "info.conf";
            QStringList lines = Lines(conf);
            const qsizetype examples = example ? QString::fromLatin1(row.ExampleLines).count(u'\n') : 0;
            // name, priority, an empty line, the example, two empty lines, the entries, what the last break ends
            constexpr int empty = 2;
            ASSERT_EQ(lines.size(), 3 + examples + empty + ++printed + 1);
            EXPECT_EQ(lines.at(3 + examples + empty), QStringLiteral("# entry_0:    a.png"));
            EXPECT_EQ(lines.filter(QStringLiteral("sort_priority")).size(), 1);
            EXPECT_EQ(lines.filter(QRegularExpression(QStringLiteral("will be here|head|more"))).size(), 0);
        }
    }
}

// Catches: a file that is missing, changed on its way or made without being wanted; a conf that the check complains of;
// an example that its reader refuses; a printed conf under another's name.
TEST_F(MakeSetTest, EverythingTickedIsThereAndPassesTheCheck)
{
    Set.Extras.fill(true);
    const auto made = MakeSet(Set, DumpOfGame);
    ASSERT_TRUE(made) << made.error().Text();
    EXPECT_EQ(made->NotPrinted, QStringList());
    const QStringList files = {QStringLiteral("001.level"),
                               QStringLiteral("editorsetup.conf"),
                               QStringLiteral("graphics"),
                               QStringLiteral("graphics/example.pcx"),
                               QStringLiteral("graphics/graphicsinfo.conf"),
                               QStringLiteral("helpanim.conf"),
                               QStringLiteral("helptext.conf"),
                               QStringLiteral("levelinfo.conf"),
                               QStringLiteral("music"),
                               QStringLiteral("music/example.mod"),
                               QStringLiteral("music/example.txt"),
                               QStringLiteral("music/musicinfo.conf"),
                               QStringLiteral("readme.txt"),
                               QStringLiteral("sounds"),
                               QStringLiteral("sounds/example.wav"),
                               QStringLiteral("sounds/soundsinfo.conf")};
    QStringList wanted{Set.ShortName};
    for (const QString& file : files)
        wanted << Set.ShortName + u'/' + file;
    EXPECT_EQ(Made(), wanted);
    EXPECT_EQ(Read("levelinfo.conf"), LevelinfoText(Set).toUtf8());
    EXPECT_TRUE(Read("helptext.conf").startsWith("# You can configure different element help "));
    EXPECT_TRUE(Read("helpanim.conf").startsWith("# You can configure different element animation "));
    EXPECT_TRUE(Read("editorsetup.conf").startsWith("# You can configure your personal editor "));

    CheckContext context;
    context.LookForImages = true;
    context.SheetKinds = Frame.Settings.SheetKinds;
    context.Images = {QStringLiteral("example.pcx")};
    EXPECT_FALSE(FirstBadLine(Read("graphics/graphicsinfo.conf"), context));
    for (const char* conf : {"levelinfo.conf", "sounds/soundsinfo.conf", "music/musicinfo.conf", "helptext.conf",
                             "helpanim.conf", "editorsetup.conf"})
        EXPECT_FALSE(FirstBadLine(Read(conf), {})) << conf;

    const auto level = ReadLevelFile(made->Folder + QStringLiteral("/001.level"));
    ASSERT_TRUE(level);
    EXPECT_EQ(level->Record.Info.Cavename, QStringLiteral("gemforge example level"));
    constexpr int Custom1 = 360;
    EXPECT_EQ(level->Record.Map.At(0, 0), Custom1);
    EXPECT_EQ(level->Bytes.sliced(level->Record.MapEnd, 4), "CUS4");
    EXPECT_EQ(Read("graphics/example.pcx").first(4), QByteArray("\x0A\x05\x01\x01"));
    EXPECT_EQ(Read("music/example.mod").sliced(1080, 4), "M.K.");
    EXPECT_TRUE(Read("music/example.txt")
                    .contains("title:                                                     "
                              "Gemforge Example Tune\r\n"));
}

// Catches: a placeholder that stays where the game has printed nothing; a stop or a name that is taken already which
// leaves something behind or changes what stands there.
TEST_F(MakeSetTest, WithoutADumpOrAfterAStop)
{
    Set.Extras.fill(true);
    const auto made = MakeSet(Set, NoDump);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->NotPrinted.size(), 6);
    EXPECT_EQ(Lines("sounds/soundsinfo.conf").size(), 5);
    EXPECT_FALSE(Made().contains(Set.ShortName + QStringLiteral("/helptext.conf")));

    const QStringList before = Made();
    EXPECT_FALSE(MakeSet(Set, NoDump));
    Set.ShortName = QStringLiteral("other");
    int asked = 0;
    const auto stopped = MakeSet(
        Set, [&](int) -> Result<QByteArray> { return ++asked == 2 ? Result<QByteArray>(Stopped()) : Fail({}, {}); });
    ASSERT_FALSE(stopped);
    EXPECT_TRUE(WasStopped(stopped.error()));
    Set.Path = Place.Path(QStringLiteral("nowhere"));
    EXPECT_FALSE(MakeSet(Set, NoDump));
    EXPECT_EQ(Made(), before);
}

// Catches: a step whose failure is not looked at, half a set that shows. A kill may leave what is hidden.
TEST_F(MakeSetTest, AnyFailingStepLeavesAllOrNothing)
{
    Want({SetExtra::GraphicsExample, SetExtra::ExampleLevel, SetExtra::HelpText});
    const auto print = [](int) { return Result<QByteArray>(Dump("d", 3)); };
    ASSERT_TRUE(MakeSet(Set, print));
    const QStringList whole = Made();
    const auto dirty = [&] { return RemoveTree(Set.Folder()) && Made().isEmpty(); };
    ASSERT_TRUE(dirty());
    FileSteps steps = FileSteps::OfSystem();
    steps.Sync = [](int) { return 0; };
    int calls = 0;
    for (int nth = 1; nth == calls + 1; ++nth) {
        SCOPED_TRACE(nth);
        const auto count = std::make_shared<int>(0);
        bool done = false;
        {
            const FileStepsScope scope(FailingAt(steps, nth, ENOSPC, count));
            done = MakeSet(Set, print).has_value();
        }
        calls = std::min(*count, nth);
        EXPECT_EQ(Made(), done ? whole : QStringList());
        ASSERT_TRUE(Made().isEmpty() || dirty());
    }
    EXPECT_GT(calls, 40);
    int status = 0;
    for (int nth = 1; status == 0; ++nth) {
        SCOPED_TRACE(nth);
        const pid_t child = fork();
        if (child == 0) {
            const FileStepsScope scope(FailingAt(steps, nth, -1, std::make_shared<int>(0)));
            _exit(MakeSet(Set, print) ? 1 : 2);
        }
        waitpid(child, &status, 0);
        EXPECT_TRUE(Made().isEmpty() || Made() == whole);
        ASSERT_TRUE(Made().isEmpty() || dirty());
    }
    EXPECT_EQ(WEXITSTATUS(status), 1);
}
