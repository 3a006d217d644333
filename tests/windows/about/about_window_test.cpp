#include "frame/run_scope.h"
#include "platform/sound/audio.h"
#include "windows/about/frm_about.h"
#include "windows/main/main_window_test.h"

#include <QApplication>
#include <QLabel>
#include <set>

namespace {

/// Ticks until something is so; the ticks it took, -1 if it never was.
template <class Condition>
int TicksUntil(AboutScript& script, Condition condition)
{
    for (int ticks = 0; ticks < 10'000; ++ticks) {
        if (condition())
            return ticks;
        script.Tick();
    }
    return -1;
}

} // namespace

// Catches: a line end that types on while the box moves, a box that moves or grows by something else than told, and
// marks that are typed as letters.
TEST(AboutScript, TypesMovesAndGrows)
{
    AboutScript script(QStringLiteral("ab\r\nc"));
    script.Tick();
    script.Tick();
    EXPECT_EQ(script.Typed(), QStringLiteral("ab"));
    EXPECT_EQ(script.Height(), 18);
    script.Tick(); // takes the line end
    for (int tick = 1; tick <= 34; ++tick) {
        script.Tick();
        EXPECT_EQ(script.Top(), -0.5 * tick);
        EXPECT_EQ(script.Height(), tick < 34 ? 18 : 36);
    }
    script.Tick();
    EXPECT_EQ(script.Typed(), QStringLiteral("ab\nc"));
    EXPECT_TRUE(script.Done());
}

// Catches: a smith that jumps, stays when he is sent away or comes a third time; a letter that comes before he left; a
// text that goes on behind the broken stone.
TEST(AboutScript, MarksBringThePictures)
{
    AboutScript script(QStringLiteral(">ab>c>#d"));
    EXPECT_EQ(script.SmithShare(), 0);
    EXPECT_GT(TicksUntil(script, [&] { return script.SmithShare() > 0; }), 0);
    EXPECT_LT(script.SmithShare(), 1);
    EXPECT_FALSE(script.LetterShows());
    EXPECT_GE(TicksUntil(script, [&] { return script.Broken(); }), 0);
    EXPECT_GE(TicksUntil(script, [&] { return script.Done(); }), 0);
    EXPECT_EQ(script.SmithShare(), 0);
    EXPECT_TRUE(script.LetterShows());
    EXPECT_EQ(script.Typed(), QStringLiteral("abc"));
}

using AboutWindow = MainWindowTest;

// Catches: a play without its text, pictures or tune; a tune that goes on behind the stone or the closed window; an
// entry of the Help menu that opens nothing.
TEST_F(AboutWindow, PlaysToItsEnd)
{
    QByteArray tune;
    int stops = 0;
    {
        frmAbout window({[&](const QByteArray& module) { tune = module; }, [&] { ++stops; }}, Window.get());
        window.show();
        EXPECT_EQ(tune.mid(1080, 4), QByteArray("M.K."));
        const auto shows = [&](const char* name) {
            return window.findChild<QLabel*>(QLatin1String(name))->isVisible();
        };
        std::set<QString> seen;
        for (int tick = 0; tick < 10'000 && !window.Script().Done(); ++tick) {
            window.Tick();
            for (const char* name : {"Text1", "picme", "picemail", "picError"}) {
                EXPECT_FALSE(window.findChild<QLabel*>(QLatin1String(name))->pixmap().isNull() && name[0] == 'p');
                if (shows(name))
                    seen.insert(QLatin1String(name));
            }
        }
        EXPECT_EQ(seen.size(), 4U);
        EXPECT_TRUE(window.Script().Broken());
        EXPECT_FALSE(shows("Text1"));
        EXPECT_EQ(stops, 1);
        EXPECT_TRUE(WaitUntil([&] { return !shows("picError"); })) << "does not flash";
    }
    EXPECT_EQ(stops, 2);
    QTimer::singleShot(0, Window.get(), [] {
        QWidget* about = QApplication::activeModalWidget();
        ASSERT_TRUE(about && about->objectName() == QLatin1String("frmAbout"));
        EXPECT_EQ(RunningWork(), 1);
        EXPECT_TRUE(audio::IsPlaying());
        about->close();
    });
    MenuOf("mnuHelpAbout")->trigger();
    EXPECT_FALSE(audio::IsPlaying());
}
