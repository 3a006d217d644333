#include "windows/main/command_keys.h"
#include "windows/options/key_line.h"
#include "windows/options/options_fixture.h"
#include "windows/options/shortcut_page.h"

#include <QLabel>
#include <QListWidget>
#include <QTreeWidget>

namespace {

class ShortcutPageTest : public OptionsWindow
{
protected:
    void Keys(const std::function<void(frmOptions&, ShortcutPage&)>& act)
    {
        Options([&](frmOptions& window) {
            auto* page = window.findChild<ShortcutPage*>();
            window.SSTab()->setCurrentWidget(page);
            act(window, *page);
        });
    }

    static void Press(QWidget& window, const char* line, int key, Qt::KeyboardModifiers modifiers = {})
    {
        auto& box = Part<KeyLine>(window, line);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key(key), modifiers);
    }

    static QString Chosen(QWidget& window)
    {
        const QTreeWidgetItem* item = Part<QTreeWidget>(window, "treeCommands").currentItem();
        return item ? item->text(0) + u'|' + item->text(1) : QString();
    }

    static QString Told(QWidget& window) { return Part<QLabel>(window, "lblKey").text(); }

    /// Commands that the tree shows.
    static QStringList ShownCommands(QWidget& window)
    {
        QStringList shown;
        const auto& tree = Part<QTreeWidget>(window, "treeCommands");
        for (int group = 0; group < tree.topLevelItemCount(); ++group)
            for (int row = 0; row < tree.topLevelItem(group)->childCount(); ++row)
                if (!tree.topLevelItem(group)->isHidden() && !tree.topLevelItem(group)->child(row)->isHidden())
                    shown << tree.topLevelItem(group)->child(row)->text(0);
        return shown;
    }
};

} // namespace

// Catches: a key that is only shown, one that needs another start, that leaves the old key live, that a text pane keeps
// for itself, a menu that names the old key; a way back that does not lead to what is shipped.
TEST_F(ShortcutPageTest, AChangedKeyWorksAtOnceAndGoesBack)
{
    Keys([](frmOptions& window, ShortcutPage&) {
        Press(window, "txtFindKey", Qt::Key_L, Qt::ControlModifier);
        EXPECT_EQ(Chosen(window), QStringLiteral("Select Line|Ctrl+L"));
        Press(window, "txtNewKey", Qt::Key_Home, Qt::ControlModifier);
        EXPECT_TRUE(Told(window).contains(QStringLiteral("text itself")));
        Click(window, "cmdGive");
        EXPECT_EQ(Chosen(window), QStringLiteral("Select Line|Ctrl+Home, Ctrl+L"));
        Part<QListWidget>(window, "lstKeys").setCurrentRow(1);
        Click(window, "cmdTake");
        Click(window, "cmblApply3");
    });
    EXPECT_EQ(MenuOf("mnuSelectLine")->shortcuts(), (QList<QKeySequence>{QKeySequence(Qt::CTRL | Qt::Key_Home)}));
    CurrentPane().LoadBytes("a\nb c\n");
    CurrentPane().SetSel({1, 1, 1, 1}, false);
    CurrentPane().FocusPane();
    MainWindowTest::Press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(CurrentPane().SelText(), QString());
    MainWindowTest::Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(CurrentPane().SelText(), QStringLiteral("b c")) << "the caret went instead";
    Keys([](frmOptions& window, ShortcutPage&) {
        Click(window, "cmdResetAll");
        Click(window, "cmblApply3");
    });
    EXPECT_EQ(MenuOf("mnuSelectLine")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_L));
    EXPECT_FALSE(Run.UserIni().contains("mnuSelectLine"));
}

// Catches: a conflict that is not told, or after which two commands answer to one key; a fixed key or a letter that can
// be given; a change that rules without Apply.
TEST_F(ShortcutPageTest, ConflictsAreToldBeforeTheyAreMade)
{
    Keys([](frmOptions& window, ShortcutPage& page) {
        Press(window, "txtFindKey", Qt::Key_S, Qt::ControlModifier);
        Press(window, "txtNewKey", Qt::Key_O, Qt::ControlModifier);
        EXPECT_TRUE(Told(window).startsWith(QStringLiteral("\"Open\" has this key")));
        Click(window, "cmdGive");
        Press(window, "txtFindKey", Qt::Key_O, Qt::ControlModifier);
        EXPECT_EQ(Chosen(window), QStringLiteral("Save|Ctrl+O, Ctrl+S"));
        EXPECT_EQ(page.Table().OwnerOf(QKeySequence(Qt::CTRL | Qt::Key_O)),
                  page.Table().OwnerOf(QKeySequence(Qt::CTRL | Qt::Key_S)));
        for (const auto& [key, modifiers] :
             {std::pair(Qt::Key_F6, Qt::NoModifier), std::pair(Qt::Key_A, Qt::ShiftModifier),
              std::pair(Qt::Key_F, Qt::AltModifier), std::pair(Qt::Key_Tab, Qt::ControlModifier)}) {
            Press(window, "txtNewKey", key, modifiers);
            EXPECT_FALSE(Part<QPushButton>(window, "cmdGive").isEnabled()) << key;
            EXPECT_FALSE(Told(window).isEmpty());
        }
        Press(window, "txtNewKey", Qt::Key_Backspace);
        EXPECT_TRUE(Told(window).isEmpty());
        Click(window, "cmdReset");
        EXPECT_EQ(Chosen(window), QStringLiteral("Save|Ctrl+S"));
    });
    EXPECT_EQ(MenuOf("mnuOpen")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
}

// Catches: a search that hides what fits or shows groups without a command, a list that is not what was exported.
TEST_F(ShortcutPageTest, CommandsAreFoundByNameAndExported)
{
    WriteIni(QStringLiteral("My Macro.gfb"), QStringLiteral("Macro Buttons"), QStringLiteral("File1"));
    Window->ShowStarted();
    Keys([this](frmOptions& window, ShortcutPage& page) {
        auto& find = Part<QLineEdit>(window, "txtFindCommand");
        QTest::keyClicks(&find, QStringLiteral("goto com"));
        EXPECT_EQ(ShownCommands(window), QStringList{QStringLiteral("Goto Comment")});
        find.clear();
        EXPECT_GT(ShownCommands(window).size(), 40);
        const auto& tree = Part<QTreeWidget>(window, "treeCommands");
        QStringList groups;
        for (int group = 0; group < tree.topLevelItemCount(); ++group)
            groups << tree.topLevelItem(group)->text(0);
        EXPECT_TRUE(groups.contains(QStringLiteral("File")) && groups.contains(QStringLiteral("RnD")));
        EXPECT_EQ(groups.removeDuplicates(), 0);
        EXPECT_TRUE(ShownCommands(window).contains(QStringLiteral("My Macro")));
        const QString file = Run.Work.Path(QStringLiteral("keys.html"));
        Run.Scope.Answers.Next.emplace_back(file);
        Click(window, "cmdExport");
        EXPECT_EQ(Run.Work.Read(QStringLiteral("keys.html")), page.Table().Printable());
    });
}

// Catches: two rows with one key, a row with the window's own or with a key that the page itself would refuse.
TEST_F(ShortcutPageTest, ShippedKeysAreFreeOfConflicts)
{
    const ShortcutTable table = CommandShortcuts();
    QSet<QKeySequence> seen;
    for (const ShortcutEntry& entry : table.Entries())
        for (const QKeySequence& key : entry.Shipped) {
            EXPECT_FALSE(seen.contains(key)) << entry.Caption;
            EXPECT_EQ(table.WhyNot(key), QString()) << entry.Caption;
            seen.insert(key);
        }
}
