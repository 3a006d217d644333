#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "macro/start_macro.h"
#include "windows/main/main_window_test.h"

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
