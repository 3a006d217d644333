#include "conf/value_list.h"

#include "conf_fixture.h"
#include "frame/media/media_lists.h"
#include "frame/vocabulary.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

/// The caret is at "|".
OfferedValues At(QString marked)
{
    const int column = int(marked.indexOf(u'|'));
    return ValuesAt(marked.remove(u'|'), 7, column);
}

class ValueList : public ConfTest
{
protected:
    ValueList()
    {
        Frame.WordLists.at(ModeGfx).at(KindElements) = QStringList{QStringLiteral("zip"), QStringLiteral("mole")};
        Frame.Settings.AnimModes = QStringList{QStringLiteral("loop"), QStringLiteral("linear")};
        Frame.Settings.AutoCompleteTemplate = {1, 1, 1, 1};
        for (const char* name : {"/b.pcx", "/a.pcx", "/other.txt"})
            EXPECT_TRUE(QFile(Folder.path() + QLatin1String(name)).open(QIODevice::WriteOnly));
        Lists().Base.Show(Folder.path(), QStringLiteral("*.pcx"));
    }
    ~ValueList() override { Lists().Base.Show({}, {}); }

    QTemporaryDir Folder;
};

} // namespace

// Catches: values of another kind than the key takes, any in a key, a note or a title of the set.
TEST_F(ValueList, IsWhatTheKeyTakes)
{
    const QStringList truth{QStringLiteral("true"), QStringLiteral("false")};
    const QStringList files{QStringLiteral("a.pcx"), QStringLiteral("b.pcx")};
    EXPECT_EQ(At(QStringLiteral("zip.global_sync: |")).Items, truth);
    EXPECT_EQ(At(QStringLiteral("zip.moving.crumbled_like:|")).Items, Frame.WordLists.at(ModeGfx).at(KindElements));
    EXPECT_TRUE(At(QStringLiteral("zip.anim_mode: |")).Items.startsWith(QStringLiteral("loop")));
    EXPECT_TRUE(At(QStringLiteral("zip.frames: |")).Items.isEmpty());
    for (const char* line : {"zip: |", "zip.moving.left: |", "zip.EDITOR: |"}) {
        EXPECT_EQ(At(QString::fromLatin1(line)).Items, files) << line;
        EXPECT_TRUE(At(QString::fromLatin1(line)).Files);
    }
    for (const char* line : {"name: |", "zip.name: |", "zip|: a", "zip: a.pcx # |", "# zip: |", "zip|", ""})
        EXPECT_TRUE(At(QString::fromLatin1(line)).Items.isEmpty()) << line;
    Frame.CurrentMode = ModeSfx;
    EXPECT_TRUE(At(QStringLiteral("zip.global_sync: |")).Items.isEmpty()) << "no such parameter there";
}

// Catches: a pick that leaves a piece of the old value, or takes a note or another mode of the value with it.
TEST_F(ValueList, KnowsWhatAPickReplaces)
{
    struct
    {
        const char *Line, *Typed;
        int From, Until;
    } const cases[] = {
        {"zip:  gr|otto.pcx   # note", "gr", 6, 16}, {"zip.anim_mode: loop, li|n ,once", "li", 21, 24},
        {"zip.anim_mode: l|oop,once", "l", 15, 19},  {"zip:   |", "", 7, 7},
        {"zip: two words|", "two words", 5, 14},
    };
    for (const auto& row : cases) {
        const OfferedValues offered = At(QString::fromLatin1(row.Line));
        EXPECT_EQ(offered.Typed, QLatin1String(row.Typed)) << row.Line;
        EXPECT_EQ(offered.Place, (Range{7, row.From, 7, row.Until})) << row.Line;
    }
    EXPECT_TRUE(At(QStringLiteral("zip: |  a.pcx")).Items.isEmpty()) << "a pick would stand in front of it";
}

// Catches: values offered against the user's ticks.
TEST_F(ValueList, FollowsTheTicks)
{
    Frame.Settings.AutoCompleteTemplate = {0, 1, 0, 0};
    for (const char* line : {"zip.global_sync: |", "zip.anim_mode: |", "zip.crumbled_like: |"})
        EXPECT_TRUE(At(QString::fromLatin1(line)).Items.isEmpty()) << line;
    EXPECT_FALSE(At(QStringLiteral("zip: |")).Items.isEmpty());
    Frame.Settings.AutoCompleteTemplate = {0, 0, 0, 0};
    EXPECT_TRUE(At(QStringLiteral("zip: |")).Items.isEmpty());
}
