#include "frame/frame_events.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "macro/start_macro.h"
#include "windows/main/command_keys.h"
#include "windows/main/main_window_test.h"
#include "windows/messages/window_asker.h"

#include <QFile>
#include <QMenu>
#include <QTimer>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

struct MacroStartTest : MainWindowTest
{
    void SetUp() override
    {
        MainWindowTest::SetUp();
        Frame.Settings.RNDPath = Run.Work.Write(u"game"_s, "program");
    }
    void Write(const char* name, const QByteArray& source)
    {
        QFile file(Frame.MacrosFolder + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(source);
        file.close();
        RefreshMedia();
    }
};

} // namespace

// Catches: a key that opens a menu instead, one that no macro has and that is taken away from the menus, one by its
// letter case.
TEST_F(MacroStartTest, AltWithAKeyStartsItsMacro)
{
    Write("$E_first.gfb", "docstart\r\nprint e!\r\n");
    Write("$7.gfb", "docstart\r\nprint seven!\r\n");
    Press(Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(WaitUntil([] { return CurrentPane().GetLine(0).startsWith(u"e!"_s); }));
    EXPECT_FALSE(Window->Menus().Find(u"mnuEdit"_s)->isVisible());
    Press(Qt::Key_7, Qt::AltModifier);
    EXPECT_TRUE(WaitUntil([] { return CurrentPane().GetLine(0).startsWith(u"seven!e!"_s); }));
    EXPECT_EQ(MacroOfKey(u'x'), QString());
}

// Catches: an entry that starts another macro, one of a missing file that looks alive or stays grey when the file
// comes, a section that is not read.
TEST_F(MacroStartTest, ButtonsStandOnMenuAndBar)
{
    Write("one.gfb", "docstart\r\nprint one!\r\n");
    for (const auto& [key, value] : {std::pair("File1", "one.gfb"), {"Caption1", "Do & Don't"}, {"File3", "two.gfb"}})
        WriteIni(QLatin1String(value), u"Macro Buttons"_s, QLatin1String(key));
    Window->ShowStarted();
    const QList<QAction*> entries = Window->Menus().Find(u"mnuExtra"_s)->actions().last(2);
    const QList<QAction*> buttons = Window->Bars().Bar(ToolStrip::tbExtra)->actions().last(2);
    EXPECT_EQ(entries, buttons);
    EXPECT_EQ(entries.at(0)->text(), u"Do && Don't"_s);
    EXPECT_EQ(entries.at(1)->text(), u"two"_s);
    EXPECT_TRUE(entries.at(0)->isEnabled());
    EXPECT_FALSE(entries.at(1)->isEnabled());
    Write("two.gfb", "docstart\r\nprint two!\r\n");
    EXPECT_TRUE(WaitUntil([&] { return entries.at(1)->isEnabled(); }));
    entries.at(1)->trigger();
    EXPECT_TRUE(WaitUntil([] { return CurrentPane().GetLine(0).startsWith(u"two!"_s); }));
}

// Catches: a key given to a macro that is dead over the text, or that stays with the place when the macros change
// theirs; a name that breaks the settings.
TEST_F(MacroStartTest, AKeyGoesWithItsMacro)
{
    Write("a=b 50%.gfb", "docstart\r\nprint mine!\r\n");
    Write("two.gfb", "docstart\r\nprint two!\r\n");
    const auto place = [this](const char* first, const char* second) {
        WriteIni(QLatin1String(first), u"Macro Buttons"_s, u"File1"_s);
        WriteIni(QLatin1String(second), u"Macro Buttons"_s, u"File2"_s);
        Window->ShowStarted();
        return Window->Menus().Find(u"mnuExtra"_s)->actions().last(2);
    };
    ShortcutTable table = CommandShortcuts(place("a=b 50%.gfb", "two.gfb"));
    const auto mine = std::ranges::find(table.Entries(), u"a=b 50%"_s, &ShortcutEntry::Caption);
    ASSERT_NE(mine, table.Entries().end());
    const QKeySequence key(Qt::CTRL | Qt::Key_Home); // one of the text's own
    table.Give(size_t(mine - table.Entries().begin()), key, true);
    table.Store();
    emit Events().ShortcutsChanged();
    EXPECT_EQ(place("two.gfb", "a=b 50%.gfb").at(1)->shortcut(), key);
    Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([] { return CurrentPane().GetLine(0).startsWith(u"mine!"_s); }));
}

// Catches: a macro for ever that Esc or the close box does not end, a window that closes under it or never.
TEST_F(MacroStartTest, EscAndCloseEndIt)
{
    Write("$f.gfb", "docstart\r\nprint for\r\nlabel @a1\r\ngotolabel @a1\r\n");
    QTimer::singleShot(150, Window.get(), [this] {
        EXPECT_EQ(RunningWork(), 1);
        EXPECT_FALSE(Window->centralWidget()->isEnabled());
        Press(Qt::Key_Escape);
    });
    StartMacro(Frame.MacrosFolder + u"$f.gfb"_s);
    EXPECT_TRUE(Window->centralWidget()->isEnabled());
    EXPECT_TRUE(CurrentPane().GetLine(0).startsWith(u"for"_s));
    EXPECT_TRUE(CurrentPane().ExecuteCmd(CmdUndo));
    QTimer::singleShot(150, Window.get(), [this] { Window->close(); });
    StartMacro(Frame.MacrosFolder + u"$f.gfb"_s);
    EXPECT_EQ(RunningWork(), 0);
    EXPECT_TRUE(WaitUntil([this] { return !Window->isVisible(); }));
}

// Catches: the key that a macro waited for, typed into the text behind it.
TEST_F(MacroStartTest, KeysForTheMacroDoNotReachTheText)
{
    Write("$k.gfb", "docend\r\nprint end\r\n");
    const auto typed = [this](QEvent::Type type) {
        QCoreApplication::postEvent(Window->windowHandle(),
                                    new QKeyEvent(type, Qt::Key_Return, Qt::NoModifier, u"\r"_s));
    };
    typed(QEvent::KeyPress);
    typed(QEvent::KeyRelease);
    StartMacro(Frame.MacrosFolder + u"$k.gfb"_s);
    QCoreApplication::processEvents();
    EXPECT_TRUE(CurrentPane().Text().endsWith(u"end"_s));
}

// Catches: a macro that asks for ever and cannot be ended, one that a single Esc at a question ends.
TEST_F(MacroStartTest, HeldEscEndsOneThatAsksForEver)
{
    WindowAsker asker(Window.get());
    InstallHost(*Window, asker);
    Write("$q.gfb", "docstart\r\nlabel @a1\r\nprint q\r\nmessage a\r\ngotolabel @a1\r\n");
    int asked = 0;
    QTimer looks;
    QObject::connect(&looks, &QTimer::timeout, [&asked] {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || !window->windowHandle())
            return;
        const bool held = ++asked == 3;
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {}, {}, held);
        QCoreApplication::sendEvent(window->windowHandle(), &escape);
    });
    looks.start(20);
    StartMacro(Frame.MacrosFolder + u"$q.gfb"_s);
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(CurrentPane().GetLine(0).startsWith(u"qqq"_s));
    EXPECT_FALSE(CurrentPane().GetLine(0).startsWith(u"qqqq"_s));
    InstallHost(*Window, Run.Scope.Answers);
}

// Catches: a file's text that passes for the document's own, one that undo does not bring back, a save that leaves tab
// or flag as they were, makes no backup of what it overwrites, or asks.
TEST_F(MacroStartTest, FilesComeIntoTheTextAndGoOut)
{
    Frame.Settings.SafeSystemBASIC = 0;
    Frame.Settings.BackupOnSave = 1;
    const QString before = CurrentPane().Text();
    const QString other = Run.Work.Write(u"Other.txt"_s, "loaded"), target = Run.Work.Write(u"target.conf"_s, "old");
    Write("$l.gfb", "openfileload " + other.toUtf8() + "\r\n");
    StartMacro(Frame.MacrosFolder + u"$l.gfb"_s);
    EXPECT_EQ(CurrentPane().Text(), u"loaded"_s);
    EXPECT_TRUE(Frame.Documents.at(Frame.CurrentTab).ForeignText);
    EXPECT_TRUE(CurrentPane().ExecuteCmd(CmdUndo));
    EXPECT_EQ(CurrentPane().Text(), before);
    Write("$s.gfb", "selectall\r\nprint new\r\nopenfilesave " + target.toUtf8() + "\r\nprint [openfilefull]\r\n");
    StartMacro(Frame.MacrosFolder + u"$s.gfb"_s);
    EXPECT_EQ(Run.Work.Read(u"target.conf"_s), "new");
    EXPECT_EQ(Run.Work.Read(u"target.conf_000.GemforgeBackup"_s), "old");
    EXPECT_EQ(Frame.Documents.at(Frame.CurrentTab).Path, target);
    EXPECT_FALSE(Frame.Documents.at(Frame.CurrentTab).ForeignText);
    EXPECT_EQ(CurrentPane().Text(), u"newtarget.conf"_s);
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_TRUE(Run.Scope.Answers.Asked.empty());
}
