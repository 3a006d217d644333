#include "game/finding_places.h"
#include "game/game_messages.h"
#include "mutated.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

const QByteArray Rule = "[WARN] -------------------------------------------------------------------------\n";
const QString Graphics = QStringLiteral("/sets/a/graphics/graphicsinfo.conf");

QByteArray OutOfImage(const QByteArray& key, const QByteArray& error)
{
    return "[WARN] error found in config file:\n"
           "[WARN] - config file: '/sets/a/graphics/graphicsinfo.conf'\n"
           "[WARN] - config token: '" +
           key + "'\n[WARN] - image file: '/sets/a/graphics/it's mine.png'\n[WARN] - frame size: 32, 32\n[WARN] " +
           error +
           "\n[WARN] custom graphic rejected for this element/action\n"
           "[WARN] fallback done to 'char_exclam' for this graphic\n";
}

std::string Row(const GameFinding& finding)
{
    return QString(finding.Key + u'|' + finding.File + u'|' + finding.Picture + u'|' + finding.Text).toStdString();
}

// Catches: blocks that share a rule read as one, the same finding told twice, a block at the end without its rule,
// paths with apostrophes cut.
TEST(GameMessages, EveryFormIsOneFinding)
{
    const QByteArray printed =
        "words of a library\n" + Rule +
        "[WARN] unknown token(s) found in config file:\n"
        "[WARN] - config file: '/sets/a/graphics/graphicsinfo.conf'\n"
        "[WARN] - dynamic token: 'nosuch.frames'\n"
        "[WARN] - dynamic token: 'other'\n" +
        Rule +
        "[WARN] undefined values found in config file:\n"
        "[WARN] - config file: '/sets/a/graphics/graphicsinfo.conf'\n"
        "[WARN] - undefined value for token: 'yamyam.frames'\n"
        "[WARN] - undefined value for token: 'yamyam.frames'\n" +
        Rule + "[WARN] cannot find artwork file 'gone.png'\n[WARN] trying default artwork file 'RocksDC.png'\n" + Rule +
        "[WARN] invalid value 0 for 'sand.width' (fallback done to 32)\n" + Rule +
        "[WARN] error found in config file:\n"
        "[WARN] - config file: '/sets/a/graphics/graphicsinfo.conf'\n"
        "[WARN] error: invalid graphic token 'nothing'\n"
        "[WARN] custom graphic rejected for this element/action\n"
        "[WARN] fallback done to 'char_exclam' for this graphic\n" +
        Rule + OutOfImage("bd_wall", "error: first animation frame out of bounds (9600, 0) [512, 512]") + Rule +
        OutOfImage("bd_diamond", "error: last animation frame (998) out of bounds (192, 1984) [512, 512]") +
        "[WARN] configuration file '/sets/a/./music/musicinfo.conf' is empty\r\n"
        "[WARN] configuration file '/sets/a/music/musicinfo.conf' is empty\n"
        "[WARN] cannot read level '/sets/a/005.level' -- using empty level\n"
        "[ERROR] something of another kind\n"
        "[FATAL] IMG_Load('bad.png') failed: Couldn't open it\n[FATAL] aborting\n" +
        Rule + OutOfImage("last", "error: cut off");
    const std::string places[] = {
        "nosuch.frames|/sets/a/graphics/graphicsinfo.conf||unknown key",
        "other|/sets/a/graphics/graphicsinfo.conf||unknown key",
        "yamyam.frames|/sets/a/graphics/graphicsinfo.conf||no value behind the key",
        "||gone.png|cannot find artwork file 'gone.png'",
        "sand.width|||invalid value 0 for 'sand.width' (fallback done to 32)",
        "|/sets/a/graphics/graphicsinfo.conf||invalid graphic token 'nothing'",
        "bd_wall|/sets/a/graphics/graphicsinfo.conf|/sets/a/graphics/it's mine.png|"
        "first animation frame out of bounds (9600, 0) [512, 512]",
        "bd_diamond|/sets/a/graphics/graphicsinfo.conf|/sets/a/graphics/it's mine.png|"
        "last animation frame (998) out of bounds (192, 1984) [512, 512]",
        "|/sets/a/music/musicinfo.conf||configuration file is empty",
        "|/sets/a/005.level||cannot read level -- using empty level",
        "|||something of another kind",
        "||bad.png|IMG_Load('bad.png') failed: Couldn't open it",
        "last|/sets/a/graphics/graphicsinfo.conf|/sets/a/graphics/it's mine.png|cut off",
    };
    const std::vector<GameFinding> found = FindingsOf(printed);
    ASSERT_EQ(found.size(), std::size(places));
    for (size_t i = 0; i < found.size(); ++i)
        EXPECT_EQ(Row(found[i]), places[i]);
    EXPECT_EQ(found[10].Severity, GameSeverity::Error);
    EXPECT_EQ(found[11].Severity, GameSeverity::Fatal);
    EXPECT_TRUE(HasGivenUp(printed));
    EXPECT_FALSE(HasGivenUp("[WARN] [FATAL] in a warning\n[FATAL]no mark\n"));
}

// Catches: an empty line or a rule of dashes for the last that the game has said.
TEST(GameMessages, TheLastLineIsOneWithWords)
{
    EXPECT_EQ(LastLineOf("first\nloading b.png \n\n" + Rule + "half a l"), QStringLiteral("loading b.png"));
    EXPECT_EQ(LastLineOf("no end"), QString());
}

// Catches: a crash or an endless loop on output that is cut, torn or no text at all; a place outside the conf; other
// words when they are read piece by piece.
TEST(GameMessages, TornOutputIsSurvived)
{
    QRandomGenerator random(20251125);
    const QByteArray whole = Rule +
                             "[WARN] unknown token(s) found in config file:\n[WARN] - config file: '/a/b.conf'\n" +
                             "[WARN] - dynamic token: 'x'\n" + Rule + OutOfImage("bd_wall", "error: invalid 'x'") +
                             "[FATAL] IMG_Load('b.png') failed: no\n[WARN] cannot find artwork file 'c.png'\n";
    for (int turn = 0; turn < 2000; ++turn) {
        const QByteArray printed = Mutated(whole, random), conf = Mutated("x: c.png\nbd_wall.clone_from: x\n", random);
        const auto lines = conf.count('\n') + conf.count('\r') + 1;
        for (const PlacedFinding& placed :
             PlaceFindings(FindingsOf(printed), QStringLiteral("/a/"), [&](const QString&) { return conf; }))
            ASSERT_LT(placed.Line, lines);
        PartedOutput(printed, {});
        LastLineOf(printed);
        FindingReader reader;
        for (qsizetype size = 0; size < printed.size(); size += 1 + random.bounded(60))
            reader.Read(printed.first(size), 1 + random.bounded(100));
        while (!reader.Read(printed, 50)) {
        }
        reader.ReadPiece(QByteArrayView(printed).sliced(printed.lastIndexOf('\n') + 1));
        ASSERT_EQ(reader.Findings(), FindingsOf(printed)) << printed.toStdString();
    }
}

// Catches: a game that complains without end and fills the memory, or is cut off without a word.
TEST(GameMessages, HaveALimit)
{
    QByteArray printed;
    for (int i = 0; i < 30'000; ++i)
        printed += "[WARN] thing " + QByteArray::number(i) + '\n';
    const auto found = FindingsOf(printed);
    ASSERT_EQ(found.size(), 20'001U);
    EXPECT_EQ(found[19'999].Text, QStringLiteral("thing 19999"));
    EXPECT_TRUE(found.back().Text.contains(QLatin1StringView("more")));
}

// Catches: messages left in what is taken for a conf, which starts at its first own line.
TEST(GameMessages, AreParted)
{
    const GameOutput parted = PartedOutput("[WARN] cannot write\n# line 1\n# [WARN] no message\nlast", {});
    EXPECT_EQ(parted.Printed, "# line 1\n# [WARN] no message\nlast\n");
    EXPECT_EQ(parted.Messages, "[WARN] cannot write\n");
}

// Catches: a row that leads to a line that the game does not read: behind "#", the earlier of two, a longer key.
TEST(FindingPlaces, TheLineIsTheOneThatCounts)
{
    const QByteArray conf = "# nosuch: 1\n"
                            "nosuch.frames: 2\n"
                            "nosuch = 3\n"
                            "  nosuch   : 4 # note\n"
                            "bug: gone.png\n"
                            "player 5\n"
                            "rock.clone_from: nothing\n"
                            "sub: folder/deep.png\n";
    const ConfIndex index(conf);
    EXPECT_EQ(index.LineOfKey(QStringLiteral("nosuch")), 3);
    EXPECT_EQ(index.LineOfKey(QStringLiteral("player")), 5);
    EXPECT_EQ(index.LineOfKey(QStringLiteral("Bug")), -1);

    const auto text = [&](const QString& path) { return path == Graphics ? conf : QByteArray(); };
    const std::vector<PlacedFinding> placed = PlaceFindings(
        {{GameSeverity::Warning, {}, {}, QStringLiteral("gone.png"), QStringLiteral("cannot find")},
         {GameSeverity::Warning, {}, Graphics, {}, QStringLiteral("invalid graphic token 'nothing'")},
         {GameSeverity::Warning, QStringLiteral("nosuch"), {}, {}, QStringLiteral("invalid value 0")},
         {GameSeverity::Warning, {}, {}, QStringLiteral("folder/deep.png"), QStringLiteral("cannot find")},
         {GameSeverity::Warning, QStringLiteral("derived"), Graphics, {}, QStringLiteral("out of bounds")},
         {GameSeverity::Warning, {}, {}, {}, QStringLiteral("no place")}},
        QStringLiteral("/sets/a/"), text);
    const std::pair<const char*, int> expected[] = {{"bug", 4}, {"rock.clone_from", 6}, {"nosuch", 3},
                                                    {"sub", 7}, {"derived", -1},        {"", -1}};
    for (size_t i = 0; i < placed.size(); ++i) {
        EXPECT_EQ(placed[i].Finding.Key, QLatin1String(expected[i].first));
        EXPECT_EQ(placed[i].Line, expected[i].second) << expected[i].first;
        EXPECT_EQ(placed[i].Finding.File, i == 5 ? QString() : Graphics);
    }
}

} // namespace
