#include "level/level_bytes.h"

#include "frame/frame_state.h"
#include "level/level_header.h"
#include "level_builder.h"
#include "test_support.h"

#include <QtEndian>
#include <gtest/gtest.h>

namespace {

LevelRecord Parsed(const QByteArray& bytes)
{
    const Result<LevelRecord> level = ParseLevel(bytes, KnownOffsets);
    EXPECT_TRUE(level) << (level ? QString() : level.error().Reason);
    return level.value_or(LevelRecord());
}

/// What a save makes of the bytes a level was read from.
QByteArray Saved(const LevelRecord& level, const QByteArray& bytes)
{
    Result<QByteArray> saved = PatchLevel(level, QByteArrayView(bytes).first(level.MapEnd));
    EXPECT_TRUE(saved) << (saved ? QString() : saved.error().Reason);
    return saved ? saved->append(bytes.sliced(level.MapEnd)) : QByteArray();
}

/// `bytes` with `with` written over it at `at`.
QByteArray Over(QByteArray bytes, qint32 at, const QByteArray& with)
{
    return bytes.replace(at, with.size(), with);
}

QString Refusal(const QByteArray& bytes)
{
    const Result<LevelRecord> level = ParseLevel(bytes, KnownOffsets);
    return level ? QStringLiteral("taken") : level.error().Reason;
}

/// Opens a level as the state, gives it a new size and saves it.
QByteArray SavedInSize(const QByteArray& bytes, int width, int height)
{
    static_cast<LevelRecord&>(Level) = Parsed(bytes);
    Level.Info.Width = QString::number(width);
    Level.Info.Height = QString::number(height);
    ResizeLevelMap(false);
    const QByteArray saved = Saved(Level, bytes);
    ResetLevel();
    return saved;
}

} // namespace

// Catches: a wrong offset in any form, a signed byte or word, rows and columns exchanged, bytes lost on the way back.
TEST(ParseLevel, ReadsEveryFormAndGivesItBackUnchanged)
{
    const std::pair<int, int> sizes[] = {{1, 1}, {3, 5}, {129, 1}, {255, 255}};
    for (LevelPlan plan : EveryForm()) {
        for (const auto& [width, height] : sizes) {
            SCOPED_TRACE(testing::Message() << plan.Form.constData() << ' ' << width << " by " << height);
            plan.Width = width;
            plan.Height = height;
            plan.Time = 0x8001;
            plan.Count = 0xff7f;
            plan.Name = "Gr\xfc\xdf"
                        "e\xa0";
            plan.Author = QByteArray(32, 'x');
            const BuiltLevel built = BuildLevel(plan);
            const LevelRecord level = Parsed(built.Bytes);
            const bool hasAuthor = built.At.Author != NoField;
            EXPECT_EQ(level.Info.Cavename, QString::fromLatin1(plan.Name));
            EXPECT_EQ(level.Info.Author, hasAuthor ? QString(32, u'x') : QStringLiteral("NA"));
            EXPECT_EQ(level.Info.Time, QString::number(0x8001));
            EXPECT_EQ(level.Info.Count, QString::number(0xff7f));
            EXPECT_EQ(level.Info.Double, QString::number(IsWide(plan)));
            EXPECT_EQ(level.Form, QString::fromLatin1(plan.Form.left(plan.Form.startsWith('r') ? 6 : 3)));
            ASSERT_EQ(level.Map.Width(), width);
            ASSERT_EQ(level.Map.Height(), height);
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    ASSERT_EQ(level.Map.At(x, y), CellOf(plan, x, y)) << x << ' ' << y;
            EXPECT_TRUE(Saved(level, built.Bytes) == built.Bytes);
        }
    }
}

// Catches: a writer that touches more than the field that was changed: padding after a name, settings, the tail.
TEST(PatchLevel, ChangesOnlyTheBytesOfTheChangedField)
{
    for (const LevelPlan& plan : EveryForm()) {
        SCOPED_TRACE(plan.Form.constData());
        const auto [bytes, at] = BuildLevel(plan);
        const auto saved = [&bytes = bytes](const auto& change) {
            LevelRecord level = Parsed(bytes);
            change(level);
            return Saved(level, bytes);
        };
        const auto name = [&](const QString& text) {
            return saved([&](LevelRecord& level) { level.Info.Cavename = text; });
        };
        EXPECT_EQ(name(QStringLiteral("cave")), Over(bytes, at.Cavename, QByteArray("cave\0", 5)));
        EXPECT_EQ(name(QString(32, u'\u00e4')), Over(bytes, at.Cavename, QByteArray(32, '\xe4')));
        EXPECT_EQ(name(QString(40, u'n')), Over(bytes, at.Cavename, QByteArray(32, 'n')));
        EXPECT_EQ(name({}), Over(bytes, at.Cavename, QByteArray(1, '\0')));
        EXPECT_EQ(saved([](LevelRecord& level) { level.Info.Author = QStringLiteral("me"); }),
                  at.Author == NoField ? bytes : Over(bytes, at.Author, QByteArray("me\0", 3)));
        EXPECT_EQ(saved([](LevelRecord& level) { level.Info.Time = QStringLiteral("9999"); }),
                  Over(bytes, at.Time, "\x27\x0f"));
        EXPECT_EQ(saved([](LevelRecord& level) { level.Info.Count = QStringLiteral("1"); }),
                  Over(bytes, at.Count, QByteArray("\0\1", 2)));
        const int cell = IsWide(plan) ? 2 : 1;
        EXPECT_EQ(saved([](LevelRecord& level) { level.Map.At(2, 1) = 200; }),
                  Over(bytes, at.Mapdata + (plan.Width + 2) * cell, QByteArray("\0\xc8", 2).right(cell)));
    }
}

// Catches: a level that got another size and then a body size that the game does not take, or a tail in the wrong
// place.
TEST(PatchLevel, BodySizeAndTailFollowAChangedMap)
{
    for (const LevelPlan& plan : EveryForm()) {
        SCOPED_TRACE(plan.Form.constData());
        const QByteArray bytes = BuildLevel(plan).Bytes;
        LevelPlan other = plan;
        other.Width = 7;
        other.Height = 3;
        const BuiltLevel wanted = BuildLevel(other);
        QByteArray saved = SavedInSize(bytes, 7, 3);
        ASSERT_EQ(saved.size(), wanted.Bytes.size());
        EXPECT_EQ(saved.first(wanted.At.Mapdata), wanted.Bytes.first(wanted.At.Mapdata));
        EXPECT_TRUE(saved.endsWith(plan.Tail));
        const LevelMap map = Parsed(saved).Map;
        EXPECT_EQ(map.At(6, 2), 0);
        EXPECT_EQ(map.At(4, 2), CellOf(plan, 4, 2));
    }
}

// Catches: cells cut to their low byte, a tail left after the old end, a form without the flag that loses its cells.
TEST(ResizeLevelMap, ClipsToOneByteOnlyWhereTheFormHasTheFlag)
{
    for (const char* form : {"rnd1-2", "rnd1-3", "1.4"}) {
        SCOPED_TRACE(form);
        LevelPlan plan{.Form = form, .Tail = ChunkBytes("CUS4", 20)};
        const auto [bytes, at] = BuildLevel(plan);
        static_cast<LevelRecord&>(Level) = Parsed(bytes);
        Level.Info.Double = QStringLiteral("0");
        ResizeLevelMap(true);
        const QByteArray saved = Saved(Level, bytes);
        const bool clipped = at.Double != NoField;
        EXPECT_EQ(Level.Info.Double, clipped ? QStringLiteral("0") : QStringLiteral("1"));
        EXPECT_EQ(Level.Map.At(0, 0), clipped ? 190 : CellOf(plan, 0, 0));
        EXPECT_EQ(Level.Map.At(1, 0), 7);
        EXPECT_EQ(Level.Info.Mapsize, clipped ? QStringLiteral("20") : QStringLiteral("40"));
        EXPECT_EQ(saved.size(), bytes.size() - (clipped ? 20 : 0));
        EXPECT_TRUE(saved.endsWith(plan.Tail));
        ResetLevel();
    }
}

// Catches: a short file that is read beyond its end, or taken as a level with an empty rest.
TEST(ParseLevel, RefusesAFileThatEndsBeforeItsMapDoes)
{
    for (const LevelPlan& plan : EveryForm()) {
        const QByteArray bytes = BuildLevel(plan).Bytes;
        const qsizetype mapEnd = bytes.size() - plan.Tail.size();
        for (qsizetype length = 0; length < mapEnd; ++length) {
            // A copy of exactly that length, so that the sanitizer sees a read beyond it.
            const std::vector<char> cut(bytes.begin(), bytes.begin() + length);
            ASSERT_FALSE(ParseLevel(QByteArrayView(cut.data(), length), KnownOffsets))
                << plan.Form.constData() << " of " << length << " bytes";
        }
        EXPECT_EQ(Parsed(bytes.first(mapEnd)).MapEnd, mapEnd);
    }
}

// Catches: a foreign file whose bytes happen to stand where fields are, version 3 read by the offsets of version 2.
TEST(ParseLevel, RefusesForeignFiles)
{
    const auto [two, at] = BuildLevel({});
    const auto [three, at3] = BuildLevel({.Form = "rnd1-3"});
    const BuiltLevel old = BuildLevel({.Form = "1.2 AUTH"});
    EXPECT_EQ(Refusal(Over(two, 0, "MMII")), QStringLiteral("it does not begin like a level"));
    EXPECT_EQ(Refusal(Over(three, 8, "TAPE")), QStringLiteral("it does not begin like a level"));
    EXPECT_NE(Refusal(Over(old.Bytes, old.At.Author - 8, "WHAT")), QStringLiteral("taken"));
    EXPECT_NE(Refusal(Over(two, at.Mapsize - 6, "WHAT")), QStringLiteral("taken"));
    EXPECT_EQ(Refusal(Over(two, at.Width, QByteArray(1, '\0'))), QStringLiteral("its width is 0"));
    EXPECT_EQ(Refusal(Over(two, at.Height, QByteArray(1, 0))), QStringLiteral("its height is 0"));
    EXPECT_NE(Refusal(Over(three, at3.Width - 1, "\1")), QStringLiteral("taken")) << "a width of 261 is not one of 5";
    const QByteArray long3 = BuildLevel({.Form = "rnd1-3", .Tail = ChunkBytes("CUSX", 300)}).Bytes;
    EXPECT_NE(Refusal(Over(long3, at3.Mapsize, "\1")), QStringLiteral("taken")) << "a body larger than the map";
    EXPECT_NE(Refusal(Over(three, at3.Count + 2, "\x8b")), QStringLiteral("taken")) << "a record cut off";
    EXPECT_NE(Refusal(Over(three, at3.Count - 1, "\x4f")), QStringLiteral("taken")) << "no record of emeralds";
    EXPECT_NE(Refusal(Over(three, at3.Cavename - 8, "WHAT")), QStringLiteral("taken")) << "no name";
    EXPECT_EQ(Parsed(Over(three, at3.Author - 8, "WHAT")).Info.Author, QStringLiteral("NA"));
}

// Catches: a flag byte that is neither 0 nor 1 and makes reader and writer disagree about the width of a cell, a name
// that ends with another byte than 0 and is "mended" by a save.
TEST(PatchLevel, OddBytesComeBack)
{
    const auto [bytes, at] = BuildLevel({.Wide = false});
    for (const QByteArray& odd : {Over(bytes, at.Double, "\7"), Over(bytes, at.Cavename, "x\ny")})
        EXPECT_EQ(Saved(Parsed(odd), odd), odd);
}

// Catches: a value too wide for its bytes that is written as another one.
TEST(PatchLevel, RefusesWhatTheFileCanNotHold)
{
    const QByteArray bytes = BuildLevel({.Wide = false}).Bytes;
    const auto refused = [&](const auto& change) {
        LevelRecord level = Parsed(bytes);
        change(level);
        return !PatchLevel(level, bytes);
    };
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Map.At(1, 1) = 256; }));
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Map.At(1, 1) = -1; }));
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Info.Time = QStringLiteral("65536"); }));
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Info.Count = QStringLiteral("many"); }));
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Info.Width = QStringLiteral("6"); })) << "the map has 5";
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Info.Cavename = QStringLiteral("\u20ac"); }));
    EXPECT_TRUE(refused([](LevelRecord& level) { level.Info.Author = QStringLiteral("a\nb"); }));
    EXPECT_FALSE(PatchLevel(Parsed(bytes), QByteArrayView(bytes).first(100))) << "a working file that was cut off";
}

// Catches: a shipped table that differs from the forms, "NA" read as 0, an unknown text taken as a form.
TEST(ReadLevelOffsets, ShippedTableHasEveryForm)
{
    Frame.DataFolder = ProjectFile(QStringLiteral("data/"));
    const QString old = QStringLiteral("ROCKSNDIAMONDS_LEVEL_FILE_VERSION_");
    for (const QString& section : {QString(old + u"1.0"), QString(old + u"1.2"), QString(old + u"1.2 AUTH"),
                                   QString(old + u"1.4"), QStringLiteral("RND1"), QStringLiteral("MMII")})
        EXPECT_EQ(ReadLevelOffsets(section), KnownOffsets(section)) << section;
    EXPECT_EQ(ReadLevelHeader(old + u"1.0", QStringLiteral("Author")), QStringLiteral("-999"));
    EXPECT_EQ(CustomMarks(LevelFamily::Classic), QStringList({QStringLiteral("CNT"), QStringLiteral("CUS4")}));
    EXPECT_EQ(FamilyOfTail("GRPX"), LevelFamily::Records);
    EXPECT_EQ(FamilyOfTail("GRP1"), LevelFamily::Classic);
    ResetFrame();
}
