#include "editor/make_pane.h"
#include "frame/frame_events.h"
#include "frame/host_ports.h"
#include "platform/sound/audio.h"
#include "windows/main/dropped_files.h"
#include "windows/main/main_window_test.h"
#include "windows/main/pane_split.h"
#include "windows/media/media_tabs.h"
#include "windows/parts/screen_reader.h"
#include "windows/parts/window_position.h"

#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QScreen>
#include <QUrl>

using MainWindowParts = MainWindowTest;

// Catches: a caption without the startup time, or one that keeps it when the mode changes.
TEST_F(MainWindowParts, CaptionTellsTheStartupTimeUntilTheModeChanges)
{
    EXPECT_TRUE(Window->windowTitle().contains(
        QRegularExpression(QStringLiteral("^Gemforge - Graphics Mode    \\(Startup Time MS = \\d+\\)$"))))
        << Window->windowTitle();
    NewDocument(ModeMus);
    EXPECT_EQ(Window->windowTitle(), QStringLiteral("Gemforge - Music Mode  "));
}

// Catches: a message at the start that stands over a window without text, caption or focus.
TEST_F(MainWindowParts, MessagesOfTheStartWaitForTheWindow)
{
    TearDown();
    ResetFrame();
    ASSERT_TRUE(Run.Prepare({Run.Work.Path(QStringLiteral("none.conf"))}));
    Window = std::make_unique<frmmain>();
    InstallHost(*Window, Run.Scope.Answers);
    Window->show();
    FinishStart();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    EXPECT_EQ(Window->StatusBar().PanelText(1), ModeName(ModeGfx));
    ShowHeldMessages();
    const QStringList told = Run.TakeMessages();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains(QLatin1String("none.conf")));
    ShowMessage(message::PathError);
    EXPECT_EQ(Run.TakeMessages().size(), 1);
}

// Catches: a window that opens on a screen that is gone, too small to use, or larger than the screen.
TEST_F(MainWindowParts, StoredPositionIsBroughtOntoTheScreen)
{
    const QRect room = Window->screen()->availableGeometry();
    EXPECT_EQ(OnScreen({20, 30, 600, 450}, {500, 400}), QRect(20, 30, 600, 450));
    EXPECT_TRUE(room.contains(OnScreen({90'000, 90'000, 600, 450}, {500, 400})));
    EXPECT_EQ(OnScreen({0, 0, 10, 10}, {500, 400}).size(), QSize(500, 400));
    EXPECT_LE(OnScreen({0, 0, 50'000, 450}, {500, 400}).width(), room.width());
    WriteIni(2, QStringLiteral("Window Positions"), QStringLiteral("Max"));
    WriteIni(QStringLiteral("wide"), QStringLiteral("Window Positions"), QStringLiteral("Width"));
    EXPECT_EQ(StoredPosition().State, Qt::WindowMaximized);
    EXPECT_EQ(StoredPosition().Place.width(), 1240);
}

// Catches: an edit that clears or forgets Modified; a caret status that another tab's pane writes.
TEST_F(MainWindowParts, PaneEventsReachFrameAndStatusBar)
{
    EXPECT_FALSE(CurrentPane().Modified());
    ProgramScope::Type(QStringLiteral("x"));
    EXPECT_TRUE(CurrentPane().Modified());
    CurrentPane().SetSel({3, 2, 3, 2}, false);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Window->StatusBar().PanelText(2).startsWith(QLatin1String("X:2    Y:3    Lines:")));
    Window->Pane(5).SetText(QStringLiteral("elsewhere"));
    QCoreApplication::processEvents();
    EXPECT_TRUE(Window->StatusBar().PanelText(2).startsWith(QLatin1String("X:2    Y:3    Lines:")));
}

// Catches: a path that never comes back behind a notice, a bar that runs without end for a single step.
TEST_F(MainWindowParts, StatusBarShowsNoticesAndProgress)
{
    ShowNotice(QStringLiteral("told"));
    EXPECT_EQ(Window->StatusBar().PanelText(3), QStringLiteral("told"));
    emit Events().PathChanged(QStringLiteral("/path"));
    EXPECT_EQ(Window->StatusBar().PanelText(3), QStringLiteral("/path"));
    ShowNotice(QStringLiteral("told"));
    EXPECT_TRUE(WaitUntil([this] { return Window->StatusBar().PanelText(3) == QLatin1String("/path"); }));
    Busy().ShowProgress(0, 0);
    const QProgressBar* bar = Window->StatusBar().Progress();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->maximum(), 1);
    EXPECT_EQ(bar->width(), Window->StatusBar().width());
    Busy().HideProgress();
    EXPECT_FALSE(bar->isVisible());
}

// Catches: a splitter that squeezes text or lists out of sight, a layout that leaves the parts of another size, lists
// that keep a place for which the window has become too small.
TEST_F(MainWindowParts, TextAndListsShareEveryWidth)
{
    EXPECT_EQ(PaneSplit::SplitFor(99'999, 12'000), 12'000 - 350);
    EXPECT_EQ(PaneSplit::SplitFor(0, 12'000), 6000);
    EXPECT_EQ(PaneSplit::SplitFor(0, 7500), 4995);
    const QWidget* text = Window->ssTxtWindows().parentWidget();
    const QWidget* lists = &Window->Media();
    auto* handle = Window->findChild<QWidget*>(QStringLiteral("picSplit"));
    for (const QSize size : {QSize(1000, 700), QSize(500, 400)}) {
        Window->resize(size);
        QCoreApplication::processEvents();
        const QRect whole = Window->Split().rect();
        EXPECT_EQ(lists->x(), whole.width() - qRound(2500 / 15.0)) << size.width();
        EXPECT_EQ(text->geometry().right() + 1, lists->x() - 5);
        EXPECT_TRUE(whole.contains(lists->geometry()) && whole.contains(text->geometry()));
        EXPECT_GT(text->height(), whole.height() - 20);
        QTest::mousePress(handle, Qt::LeftButton, {}, {2, 50});
        QMouseEvent drag(QEvent::MouseMove, QPointF(-900, 50), handle->mapToGlobal(QPointF(-900, 50)), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(handle, &drag);
        EXPECT_EQ(handle->x(), qMax(whole.width() / 2, 333));
        EXPECT_EQ(text->width(), handle->x() - 4);
        EXPECT_EQ(lists->x(), handle->geometry().right() + 1);
        EXPECT_GT(lists->width(), 100);
    }
}

// Catches: a window that keeps the layout of another size when it is maximised or restored.
TEST_F(MainWindowParts, MaximiseAndRestoreAreLaidOut)
{
    const QWidget* text = Window->ssTxtWindows().parentWidget();
    const int before = text->width();
    Window->showMaximized();
    EXPECT_TRUE(WaitUntil([&] { return text->width() == Window->Split().width() - 177; }));
    EXPECT_GT(Window->width(), before);
    Window->showNormal();
    EXPECT_TRUE(WaitUntil([&] { return text->width() == before; }));
}

// Catches: a dropped file that replaces unsaved or open text, opens twice, or leaves an empty tab behind.
TEST_F(MainWindowParts, DroppedFilesTakeEmptyTabsFirst)
{
    const QString a = Run.Work.Write(QStringLiteral("a.conf"), "a: 1\n");
    const QString b = Run.Work.Write(QStringLiteral("b.conf"), "b: 1\n");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(a), QUrl(QStringLiteral("http://nowhere/c.conf")), QUrl::fromLocalFile(b)});
    EXPECT_EQ(LocalFiles(data), QStringList({a, b}));
    QDropEvent moved(QPointF(), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    moved.setDropAction(Qt::MoveAction);
    AcceptAsCopy(moved);
    EXPECT_EQ(moved.dropAction(), Qt::CopyAction) << "a source that hears of a move takes its file away";
    OpenDroppedFiles({a, b, a});
    EXPECT_EQ(Frame.Documents[0].Path, a);
    EXPECT_EQ(Frame.Documents[1].Path, b);
    EXPECT_FALSE(Frame.Documents[2].Face.Visible);
    EXPECT_EQ(Panes().SelectedTab(), 0);
    OpenDroppedFiles({Run.Work.Path({})});
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_FALSE(Frame.Documents[2].Face.Visible) << "a folder takes no tab";
}

// Catches: a screen reader that starts after the program and finds panes without text, a setting that is not obeyed.
TEST_F(MainWindowParts, PanesTellTheirTextWhileAReaderIsActive)
{
    const auto tells = [] {
        return QAccessible::queryAccessibleInterface(WidgetOf(CurrentPane()))->textInterface() != nullptr;
    };
    {
        const ScreenReader automatic(0);
        QAccessible::setActive(false);
        EXPECT_FALSE(tells());
        QAccessible::setActive(true);
        EXPECT_TRUE(tells());
        QAccessible::setActive(false);
        EXPECT_FALSE(tells());
    }
    const ScreenReader never(2);
    QAccessible::setActive(true);
    EXPECT_FALSE(tells());
    QAccessible::setActive(false);
}

// Catches: an unsaved text that neither its tab nor the status bar shows, a mark that stays after the save or goes to
// another tab, a save that does not say what it did.
TEST_F(MainWindowTest, UnsavedTextsShow)
{
    const TestFolder work;
    ASSERT_TRUE(OpenDocument(work.Write(QStringLiteral("a.conf"), "a: 1\n"), false));
    const auto picture = [this](int tab) { return Tabs()->tabIcon(tab).pixmap(16).toImage(); };
    const auto status = [this] { return Window->StatusBar().PanelText(3); };
    const QImage saved = picture(0);
    CurrentPane().AddText(QStringLiteral("x"));
    QCoreApplication::processEvents();
    EXPECT_NE(picture(0), saved);
    EXPECT_TRUE(status().startsWith(QStringLiteral("Not saved: ")));
    Frame.Settings.BackupOnSave = 1;
    SaveCommand();
    QCoreApplication::processEvents();
    EXPECT_EQ(picture(0), saved);
    EXPECT_EQ(status(), QStringLiteral("Saved, backup _000"));
    ShowNotice({});
    EXPECT_TRUE(status().endsWith(QStringLiteral("a.conf")) && !status().startsWith(QStringLiteral("Not")));
}

// Catches: a line of which only the front is shown and that nobody tells of, since its file's path follows at once.
TEST_F(MainWindowParts, TellsOfALineThatIsTooLongWhenItsFileOpens)
{
    const TestFolder work;
    ASSERT_TRUE(OpenDocument(work.Write(QStringLiteral("a.conf"), "a: " + QByteArray(300'000, 'x') + "\n"), false));
    EXPECT_TRUE(WaitUntil([this] { return Window->StatusBar().PanelText(3).startsWith(QLatin1String("Line 1 is")); }));
}

// Catches: a sound that nobody sees or can stop, a sign that stays when it is over.
TEST_F(MainWindowParts, TellsWhatPlaysAndStopsIt)
{
    qputenv("SDL_AUDIODRIVER", "dummy");
    QByteArray wave("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x40\x1f\0\0\1\0\x08\0data\0\0\1\0", 44);
    wave += QByteArray(0x10000, '\x80'); // eight seconds
    const QString path = Run.Work.Write(QStringLiteral("long song.wav"), wave);
    auto& sign = *Window->findChild<QWidget*>(QStringLiteral("SoundSign"));
    const auto becomes = [&sign](bool shown) { return QTest::qWaitFor([&] { return sign.isVisible() == shown; }); };
    EXPECT_FALSE(sign.isVisible());
    const std::function<void()> ways[] = {
        [this] { Press(Qt::Key_Escape); },
        [&sign] { QTest::mouseClick(sign.findChild<QWidget*>(QStringLiteral("cmdStopSound")), Qt::LeftButton); }};
    for (const auto& stop : ways) {
        ASSERT_TRUE(audio::PlayMedia(path));
        ASSERT_TRUE(becomes(true));
        EXPECT_TRUE(sign.findChild<QLabel*>()->text().contains(QStringLiteral("long song.wav")));
        stop();
        EXPECT_TRUE(becomes(false));
        EXPECT_FALSE(audio::IsPlaying());
    }
    audio::End();
}

// Catches: entries that keep their pictures until the next start.
TEST_F(MainWindowParts, MenuIconsFollowAtEachActivation)
{
    for (const int wanted : {1, 0, 1}) {
        Frame.Settings.MenuIcons = wanted;
        QEvent activate(QEvent::WindowActivate);
        QCoreApplication::sendEvent(Window.get(), &activate);
        QCoreApplication::processEvents();
        EXPECT_EQ(MenuOf("mnuUndo")->isIconVisibleInMenu(), wanted == 1);
    }
}
