#include "conf/inject.h"

#include "conf/block_commands.h"
#include "conf/conf_lines.h"
#include "conf/edit_element.h"
#include "conf_fixture.h"
#include "frame/program_scope.h"

#include <QRandomGenerator>

namespace {

class Inject : public ConfTest
{
protected:
    const QStringList& Commands() const { return Frame.WordLists.at(ModeGfx).at(KindGraphicComs); }
    const QStringList Directions = {QStringLiteral("left"), QStringLiteral("right"), QStringLiteral("up"),
                                    QStringLiteral("down")};

    QList<bool> Wanted(const QStringList& names) const
    {
        QList<bool> wanted(qsizetype(KnownCommands), false);
        for (const QString& name : names)
            wanted[Commands().indexOf(name)] = true;
        return wanted;
    }

    QString Rebuilt(const QString& text, const QStringList& wanted, const KeyParts& parts) const
    {
        return RebuildBlock(ParseBlock(text, Directions), parts, Wanted(wanted), Commands(), CurrentValueColumn());
    }

    QString Rebuilt(const QString& text, const QStringList& wanted) const
    {
        return Rebuilt(text, wanted, ParseBlock(text, Directions).Parts);
    }

    /// What SelectBlockToEdit selects at a line; "-" if it refuses.
    QString Edited(const QByteArray& text, int line)
    {
        Load(text, line);
        Request = SelectBlockToEdit(Pane());
        return Request ? Pane().SelText() : QStringLiteral("-");
    }

    std::optional<InjectRequest> Request;
};

const KeyParts Other{QStringLiteral("mole"), QStringLiteral("digging"), QStringLiteral("up")};

} // namespace

// Catches: a direction taken for an action, a sub group shown as a part, further parts of a key lost in a rename.
TEST_F(Inject, SplitsAndRenamesKeys)
{
    const struct
    {
        const char *Key, *Element, *Action, *Direction, *Renamed;
    } cases[] = {{"yamyam", "yamyam", "<None>", "<None>", "mole.digging.up"},
                 {"yamyam.moving.right", "yamyam", "moving", "right", "mole.digging.up"},
                 {"yamyam.LEFT", "yamyam", "<None>", "LEFT", "mole.digging.up"},
                 {"yamyam.CRUMBLED", "yamyam", "<None>", "<None>", "mole.digging.up.CRUMBLED"},
                 {"yamyam.left.CRUMBLED", "yamyam", "<None>", "left", "mole.digging.up.CRUMBLED"},
                 {"yamyam.moving.Crumbled", "yamyam", "moving", "<None>", "mole.digging.up.Crumbled"},
                 {"gfx.name.right.TITLE", "gfx", "name", "right", "mole.digging.up.TITLE"}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Key);
        const QString line = QLatin1String(one.Key) + QStringLiteral(":  D:x.png");
        const InjectBlock block = ParseBlock(line, Directions);
        EXPECT_EQ(block.Parts.Element, QLatin1String(one.Element));
        EXPECT_EQ(block.Parts.Action, QLatin1String(one.Action));
        EXPECT_EQ(block.Parts.Direction, QLatin1String(one.Direction));
        EXPECT_EQ(block.MainValue, QStringLiteral("D:x.png"));
        EXPECT_EQ(RenameKey(line, block, block.Parts), line) << "the same parts change nothing";
        EXPECT_EQ(RenameKey(line, block, Other), QLatin1String(one.Renamed) + QStringLiteral(":  D:x.png"));
        EXPECT_EQ(RenameKey(QLatin1String(one.Key) + QStringLiteral(".xpos:  3"), block, Other),
                  QLatin1String(one.Renamed) + QStringLiteral(".xpos:  3"));
    }
    EXPECT_EQ((KeyParts{NoPart, QStringLiteral("a"), NoPart}.Key()), QStringLiteral("a"));
}

// Catches: lines out of order, a default or a sub group's lines missing, values or notes touched, a line of a command
// without a box lost, a line in two places.
TEST_F(Inject, RebuildKeepsOrderAndAddsAtTheEnd)
{
    const QString text = QStringLiteral("zip:  a.png\nzip.EDITOR: e.png\nzip.ypos:\t2 # note\nZIP.frames: 4\nzip.x: 7\n"
                                        "zip.frames_per_line: 3\nzip.foo: 1\n\nzip.EDITOR.xpos: 5");
    EXPECT_EQ(
        Rebuilt(text, {QStringLiteral("ypos"), QStringLiteral("frames"), QStringLiteral("delay"),
                       QStringLiteral("EDITOR"), QStringLiteral("CRUMBLED")}),
        QStringLiteral("zip:  a.png\r\nzip.ypos:\t2 # note\r\nzip.frames: 4\r\nzip.x: 7\r\nzip.frames_per_line: 3\r\n"
                       "zip.EDITOR: e.png\r\nzip.EDITOR.xpos: 5\r\nzip.delay:         1\r\n"
                       "zip.CRUMBLED:      a.png\r\nzip.CRUMBLED.xpos: 0\r\nzip.CRUMBLED.ypos: 0\r\n"
                       "zip.CRUMBLED.frames:1\r\nzip.CRUMBLED.delay:1\r\nzip.CRUMBLED.anim_mode:loop\r\n"));
    EXPECT_EQ(Rebuilt(text, {}, Other), QStringLiteral("mole.digging.up:  a.png\r\nmole.digging.up.x: 7\r\n"
                                                       "mole.digging.up.frames_per_line: 3\r\n"));
    EXPECT_EQ(ForeignLines(ParseBlock(text, Directions), Commands()), 1);
    EXPECT_EQ(Rebuilt(QStringLiteral("zip.CRUMBLED: c.png\nzip.CRUMBLED.xpos: 1"),
                      {QStringLiteral("xpos"), QStringLiteral("border_size")}),
              QStringLiteral("zip.CRUMBLED: c.png\r\nzip.CRUMBLED.xpos: 1\r\nzip.CRUMBLED.border_size:4\r\n"));
}

// Catches: a table of words in another order than the program's, by which a command is added with the value of another.
TEST(InjectTable, DefaultsAreThoseOfTheShippedCommands)
{
    ProgramScope program;
    program.Start();
    const QStringList& shipped = Frame.WordLists.at(ModeGfx).at(KindGraphicComs);
    const std::pair<const char*, const char*> told[] = {{"xpos", "0"},
                                                        {"ypos", "0"},
                                                        {"frames", "1"},
                                                        {"delay", "1"},
                                                        {"anim_mode", "loop"},
                                                        {"start_frame", "0"},
                                                        {"global_sync", "true"},
                                                        {"offset", "32"},
                                                        {"name", "Element's Full Name"},
                                                        {"crumbled_like", "sand"},
                                                        {"diggable_like", "sand"},
                                                        {"anim_delay_fixed", "0"},
                                                        {"anim_delay_random", "0"},
                                                        {"post_delay_fixed", "0"},
                                                        {"post_delay_random", "0"},
                                                        {"EDITOR", "a.png"},
                                                        {"PREVIEW", "a.png"},
                                                        {"CRUMBLED", "a.png"},
                                                        {"border_size", "4"}};
    const InjectBlock block = ParseBlock(QStringLiteral("mole: a.png"), {});
    QList<bool> wanted(qsizetype(KnownCommands), false);
    for (const auto& [word, value] : told) {
        const qsizetype row = shipped.indexOf(QLatin1StringView(word));
        ASSERT_TRUE(row >= 0 && row < wanted.size()) << word;
        wanted[row] = true;
        const QStringList lines =
            RebuildBlock(block, block.Parts, wanted, shipped, CurrentValueColumn()).split(QStringLiteral("\r\n"));
        wanted[row] = false;
        EXPECT_EQ(lines.value(1).simplified().remove(u' '),
                  QStringLiteral("mole.%1:%2").arg(QLatin1StringView(word), QLatin1StringView(value)).remove(u' '));
    }
}

// Catches: a rebuild that loses, doubles or changes lines of some block, against a plain twin: every line of a command
// whose box is ticked stands in the result exactly once, and ticking all that are there gives all lines.
TEST_F(Inject, RebuildLosesNothingOfRandomBlocks)
{
    QRandomGenerator random(20240611);
    for (int round = 0; round < 200; ++round) {
        QStringList lines{QStringLiteral("zip.moving: a.png")};
        QStringList present;
        const int count = random.bounded(120);
        for (int line = 0; line < count; ++line) {
            const QString& command = Commands().at(random.bounded(int(Commands().size())));
            present << command;
            lines << QStringLiteral("zip.moving.%1: %2").arg(command).arg(line);
        }
        present.removeIf([&](const QString& name) { return Commands().indexOf(name) >= qsizetype(KnownCommands); });
        QStringList rebuilt = Rebuilt(lines.join(u'\n'), present).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
        ASSERT_EQ(rebuilt.size(), lines.size()) << "round " << round;
        rebuilt.sort();
        lines.sort();
        ASSERT_EQ(rebuilt, lines) << "round " << round;
    }
}

// Catches: a wrong end of the block, commands that are not noted, a block at the end of the text, a short line "x"
// taken for "xpos", a selection that is no whole lines.
TEST_F(Inject, EditElementTakesTheBlock)
{
    EXPECT_EQ(
        Edited("top\nzip: a.png\nzip.xpos: 1\n# note\nZIP.ypos: 2\nzip.xylophone: 3\nzip.foo: 4\nzip.delay: 5\n", 3),
        QStringLiteral("zip: a.png\r\nzip.xpos: 1\r\n# note\r\nZIP.ypos: 2\r\n"));
    QList<bool> present(Commands().size(), false);
    present[0] = present[1] = true;
    ASSERT_TRUE(Request);
    EXPECT_EQ(Request->Present, present);
    EXPECT_EQ(Request->Block.Lines.size(), 4);
    EXPECT_FALSE(Request->Crumbled);
    EXPECT_EQ(Edited("zip.Crumbled: a.png\nzip.crumbled.border_size: 1", 0),
              QStringLiteral("zip.Crumbled: a.png\r\nzip.crumbled.border_size: 1\r\n"));
    EXPECT_TRUE(Request && Request->Crumbled);
    QByteArray whole = "zip: a.png\n";
    for (int line = 0; line < 150; ++line)
        whole += "zip.xpos: 1\n";
    EXPECT_EQ(Edited(whole, 100).count(u'\n'), 102);
    EXPECT_EQ(Edited(whole, 101), QStringLiteral("-"));
}

// Catches: a window on a sub group or a line without a colon; the wrong message.
TEST_F(Inject, EditElementRefusesSubGroups)
{
    EXPECT_EQ(Edited("zip.xpos: 1\n", 0), QStringLiteral("-"));
    EXPECT_EQ(Shown(), 0);
    EXPECT_EQ(Edited("see a.pcx\n", 0), QStringLiteral("-"));
    EXPECT_EQ(Title(), QStringLiteral("Missing Colon"));
    for (const char* text : {"zip.Editor: a.pcx\n", "zip.PREVIEW: a.pcx\n"}) {
        EXPECT_EQ(Edited(text, 0), QStringLiteral("-"));
        EXPECT_EQ(Title(), QStringLiteral("Sub Commands Can't Have Graphic Commands"));
    }
}
