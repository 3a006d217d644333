#include "frame/settings/shortcuts.h"

#include "frame/program_scope.h"

namespace {

class Shortcuts : public FrameTest
{
protected:
    static QKeySequence Key(const char* text) { return {QString::fromLatin1(text), QKeySequence::PortableText}; }

    static ShortcutTable Table()
    {
        const auto keys = [](const char* text) { return KeysOfText(QString::fromLatin1(text)); };
        const QString file = QStringLiteral("File"), edit = QStringLiteral("Edit");
        return {{{QStringLiteral("mnuOpen"), file, QStringLiteral("Open <x>"), keys("Ctrl+O")},
                 {QStringLiteral("mnuSave"), file, QStringLiteral("Save"), keys("Ctrl+S; Shift+F2")},
                 {QStringLiteral("mnuRedo"), edit, QStringLiteral("Redo"), {}}},
                {{Key("F1"), QStringLiteral("Help")}}};
    }

    static QString KeysOf(const ShortcutTable& table, size_t entry) { return TextOfKeys(table.Entries()[entry].Keys); }
};

} // namespace

// Catches: two commands with one key after a change or a way back, a reset that takes keys it does not need.
TEST_F(Shortcuts, AKeyBelongsToOneCommand)
{
    Run.Start();
    ShortcutTable table = Table();
    EXPECT_EQ(table.OwnerOf(Key("Ctrl+S")), 1U);
    table.Give(0, Key("Ctrl+S"), true);
    EXPECT_EQ(KeysOf(table, 0), QStringLiteral("Ctrl+S; Ctrl+O"));
    EXPECT_EQ(KeysOf(table, 1), QStringLiteral("Shift+F2"));
    EXPECT_FALSE(table.IsShipped(0) || table.IsShipped(1));
    table.Reset(1);
    EXPECT_EQ(KeysOf(table, 1), QStringLiteral("Ctrl+S; Shift+F2"));
    EXPECT_EQ(KeysOf(table, 0), QStringLiteral("Ctrl+O"));
    EXPECT_TRUE(table.IsShipped(0) && table.IsShipped(1));
    table.Take(0, Key("Ctrl+O"));
    EXPECT_EQ(table.OwnerOf(Key("Ctrl+O")), std::nullopt);
    table.ResetAll();
    EXPECT_EQ(table.OwnerOf(Key("Ctrl+O")), 0U);
}

// Catches: a letter or caret key as a shortcut, so that it can no more be typed; a fixed key given away.
TEST_F(Shortcuts, KeysOfTheTextAndFixedOnesAreRefused)
{
    Run.Start();
    const ShortcutTable table = Table();
    for (const char* key : {"A", "Shift+A", "Space", "Return", "Left", "Shift+Home", "Delete", "F1"})
        EXPECT_FALSE(table.WhyNot(Key(key)).isEmpty()) << key;
    EXPECT_TRUE(table.WhyNot(Key("F1")).contains(QStringLiteral("Help")));
    EXPECT_FALSE(table.WhyNot({}).isEmpty());
    for (const char* key : {"Ctrl+A", "Alt+9", "F5", "Shift+F5", "Meta+X", "Ctrl+;", "Media Play"})
        EXPECT_EQ(table.WhyNot(Key(key)), QString()) << key;
}

// Catches: keys that are not found again at the next start ("Ctrl+;" beside a "; " between keys), a command without any
// key that gets its shipped one back, a section that grows with what is shipped or keeps what is shipped again.
TEST_F(Shortcuts, OnlyWhatDiffersIsStored)
{
    Run.Start();
    ShortcutTable table = Table();
    table.Give(2, Key("Ctrl+;"), false);
    table.Give(2, Key("Ctrl+="), false);
    table.Take(0, Key("Ctrl+O"));
    table.Store();
    EXPECT_FALSE(Run.UserIni().contains("mnuSave="));
    const ShortcutTable again = Table();
    EXPECT_EQ(again.Entries()[2].Keys, table.Entries()[2].Keys);
    EXPECT_TRUE(again.Entries()[0].Keys.isEmpty());
    table.ResetAll();
    table.Store();
    EXPECT_FALSE(Run.UserIni().contains("mnuRedo="));
    WriteIni(QStringLiteral("Nonsense+Foo; F7"), QStringLiteral("Shortcuts"), QStringLiteral("mnuRedo"));
    EXPECT_EQ(KeysOf(Table(), 2), QStringLiteral("F7"));
}

// Catches: a printed list without the changed keys, with commands that have none, or broken by a caption.
TEST_F(Shortcuts, TheListCanBePrinted)
{
    Run.Start();
    ShortcutTable table = Table();
    table.Give(0, Key("F6"), true);
    const QByteArray page = table.Printable();
    EXPECT_TRUE(page.contains("<td>Open &lt;x&gt;</td><td>F6, Ctrl+O</td>"));
    EXPECT_TRUE(page.contains("<td>Help</td><td>F1</td>"));
    EXPECT_FALSE(page.contains("Redo") || page.contains("<h2>Edit"));
}
