#include "conf/value_hints.h"

#include "conf/line_hints.h"

#include <gtest/gtest.h>

namespace {

QString OfValue(const char* key, const char* value)
{
    return ValueHint(key, value, {QStringLiteral("emerald"), QStringLiteral("custom_1")}).Message;
}

QString OfBlock(const QByteArray& block, QSize sheet)
{
    QStringList said;
    for (const BlockHint& hint : BlockHints(block, sheet))
        said << QString::number(hint.Line) + QStringLiteral(": ") + hint.Message.section(u' ', 0, 3);
    return said.join(u'|');
}

constexpr QSize Sheet(16 * 32, 4 * 32);

} // namespace

// Catches: a slip in a value that goes unseen, what the game knows marked, notes behind "#" read as part of a value,
// keys of one part and the game's own defaults looked at.
TEST(ValueHints, TellWhatTheGameTakesOtherwise)
{
    EXPECT_EQ(OfValue("emerald.anim_mode", " Linear, reverse # note"), QString());
    EXPECT_TRUE(OfValue("emerald.anim_mode", "pingpnog").contains(QStringLiteral("Did you mean \"pingpong\"?")));
    EXPECT_TRUE(OfValue("emerald.EDITOR.anim_mode", "loop,,").startsWith(QStringLiteral("The mode \"\"")));
    EXPECT_EQ(OfValue("emerald.xpos", "-3"), QString());
    EXPECT_EQ(OfValue("emerald.frames", "4x"), QStringLiteral("\"4x\" is no number; the game takes 4."));
    EXPECT_TRUE(OfValue("emerald.frames", "four").endsWith(QStringLiteral("takes 0.")));
    EXPECT_TRUE(OfValue("emerald.frames", "Yes").endsWith(QStringLiteral("takes 1.")));
    EXPECT_TRUE(OfValue("emerald.anim_mode", "pingpong,revers").contains(QStringLiteral("passes it over. Did")));
    EXPECT_TRUE(OfValue("emerald.anim_mode", "lop,reverse").contains(QStringLiteral("plays loop. Did")));
    EXPECT_TRUE(OfValue("emerald.global_sync", "ture").contains(QStringLiteral("\"true\"")));
    EXPECT_EQ(OfValue("emerald.vertical", "Yes"), QString());
    EXPECT_EQ(OfValue("emerald.clone_from", "custom_1.moving"), QString());
    EXPECT_TRUE(OfValue("emerald.clone_from", "emerlad").contains(QStringLiteral("\"emerald\"")));
    for (const auto& [key, value] : {std::pair("delay", "x"), std::pair("emerald.delay", "[DEFAULT]"),
                                     std::pair("emerald.delay", ""), std::pair("emerald.name", "4x")})
        EXPECT_EQ(OfValue(key, value), QString()) << key << ' ' << value;
}

// Catches: a run that is taken to end at the sheet's edge, rows and columns exchanged, lines of a sub group or of
// another block counted, a block of the game's windows without a place looked at.
TEST(ValueHints, TellFramesOutsideTheSheet)
{
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 14\na.frames: 4\n", Sheet), QString()) << "goes on in the next row";
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 14\na.ypos: 3\na.frames: 3\n", Sheet), QStringLiteral("0: The last of 3"));
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 16\na.ypos: 0\n", Sheet), QStringLiteral("0: The first frame lies"));
    EXPECT_EQ(OfBlock("a: s.png\na.x: 0\na.ypos: 2\na.frames: 3\na.vertical: true\n", Sheet), QString());
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 15\na.ypos: 2\na.frames: 3\na.vertical: true\n", Sheet),
              QStringLiteral("0: The last of 3"));
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 12\na.ypos: 3\na.frames: 8\na.frames_per_line: 4\n", Sheet),
              QStringLiteral("0: The last of 8"));
    EXPECT_EQ(OfBlock("a: s.png\na.EDITOR.xpos: 99\nb.xpos: 99\na.xpos: 99\n", Sheet), QString());
    EXPECT_EQ(OfBlock("a: s.png\na.frames: 99\n", Sheet), QString());
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 99\n", {}), QString());
}

// Catches: numbers whose product does not fit (a row of no width divides by nothing), leading zeros read as another
// base, a block that is followed through the whole text for each of its lines.
TEST(ValueHints, StandAnyNumberAndAnyRun)
{
    EXPECT_EQ(OfBlock("a: s.png\na.xpos: 0\na.frames_per_line: 134217728\n", Sheet), QString());
    for (const char* word : {"xpos", "ypos", "width", "height", "frames", "offset", "frames_per_line"})
        for (const char* number : {"2147483647", "-2147483648", "99999999999", "-1", "0"})
            OfBlock(QByteArray("a: s.png\na.x: 3\na.xpos: 32767\na.") + word + ": " + number + "\n", Sheet);
    EXPECT_EQ(OfValue("emerald.xpos", "08"), QString());
    HintContext context;
    context.Values = true;
    context.Check.SheetKinds = {QStringLiteral("png")};
    const QByteArray text = QByteArray("a: s.png\n").repeated(100'000);
    HintsForLines(text, 0, 0, 100'000, context);
}

// Catches: an offset of 0 that freezes an animation in silence, one of a single frame marked, the mark on another line.
TEST(ValueHints, TellAFrozenAnimationBesideItsOffset)
{
    EXPECT_EQ(OfBlock("a: s.png\na.frames: 2\na.offset: 0\n", {}), QStringLiteral("2: With an offset of"));
    EXPECT_EQ(OfBlock("a: s.png\na.frames: 1\na.offset: 0\n", {}), QString());
    EXPECT_EQ(OfBlock("a: s.png\na.frames: 2\n", {}), QString());
}

// Catches: hints of a block in another order than its lines, the letters of a file's name not told, a level's number in
// music taken for an unknown word.
TEST(ValueHints, StandWithTheOtherHints)
{
    HintContext context;
    context.Values = true;
    context.Check.SheetKinds = {QStringLiteral("png"), QStringLiteral("pcx")};
    context.FileNames = {QStringLiteral("Rocks.png"), QStringLiteral("both.png"), QStringLiteral("Both.png")};
    context.Spelling = {{QStringLiteral("rocks.png"), QStringLiteral("Rocks.png")},
                        {QStringLiteral("both.png"), QStringLiteral("Both.png")}};
    context.SheetSize = [](const QString&) { return QSize(64, 64); };
    const QByteArray text = "x\na: rocks.png\na.offset: 0\na.frames: 2\na.xpos: 9\nb: both.png";
    std::vector<int> lines;
    QStringList said;
    for (const LineHint& hint : HintsForLines(text, 2, 1, 5, context)) {
        lines.push_back(hint.Line);
        said << hint.Message;
    }
    EXPECT_EQ(lines, (std::vector<int>{1, 1, 2}));
    EXPECT_EQ(said.value(0), QStringLiteral("The file is spelled \"Rocks.png\"."));

    HintContext music;
    music.LevelNumbers = true;
    music.Spelling = {{QStringLiteral("a.ogg"), QStringLiteral("A.ogg")}};
    music.FileNames = {QStringLiteral("A.ogg")};
    music.Words = MakeHintWords({QStringList{QStringLiteral("background")},
                                 {},
                                 QStringList{QStringLiteral("mode_loop")},
                                 {QStringLiteral("PLAYING")}});
    const auto count = [&](const QByteArray& line) { return HintsForLines(line, 0, 0, 0, music).size(); };
    EXPECT_EQ(count("background.PLAYING.007: a.mod"), 0U);
    EXPECT_EQ(count("background.PLAYING.007.mode_loop: true"), 0U);
    EXPECT_EQ(count("background.PLAYING.07: a.mod"), 1U);
    EXPECT_EQ(count("background.007.PLAYING: a.mod"), 1U);
    EXPECT_EQ(count("background: a.ogg"), 1U);
    EXPECT_EQ(count("background: A.ogg"), 0U);
}
