#include "conf/element_record.h"
#include "editor/make_pane.h"
#include "frame/media/inject_path.h"
#include "frame/media/media_lists.h"
#include "level/level_files.h"
#include "level/level_palette.h"
#include "level/palette_maker.h"
#include "platform/sound/audio.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/main/dropped_files.h"
#include "windows/main/main_window_test.h"
#include "windows/media/extra_page.h"
#include "windows/media/folder_tree.h"
#include "windows/media/macro_tree.h"
#include "windows/media/media_actions.h"
#include "windows/media/media_tabs.h"
#include "windows/media/media_tip.h"
#include "windows/media/media_view.h"
#include "windows/parts/dialog_support.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

namespace {

/// Stands in for the desktop's programs.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QStringList Opened;

public slots:
    void Open(const QUrl& url) { Opened << url.toLocalFile(); }
};

/// The real window; counts the silences.
class ListeningWindow : public frmmain
{
public:
    void StopPlayers() override
    {
        ++Silenced;
        frmmain::StopPlayers();
    }

    int Silenced = 0;
};

class MediaWindow : public MainWindowTest
{
protected:
    std::unique_ptr<frmmain> MakeWindow() override { return std::make_unique<ListeningWindow>(); }

    void SetUp() override
    {
        QImage sheet(64, 32, QImage::Format_RGB32);
        sheet.fill(Qt::red);
        for (const char* name : {"a.png", "b.png", "c.png"})
            ASSERT_TRUE(sheet.save(Run.Work.Path(QString::fromLatin1(name))));
        const QString conf = Run.Work.Write(QStringLiteral("graphicsinfo.conf"), "one two\n");
        Open({conf});
    }

    void TearDown() override
    {
        audio::End();
        MainWindowTest::TearDown();
    }

    MediaView& List(MediaSource source = MediaSource::PCXBrowser) const { return Window->Media().View(source); }
    QRect PlaceOf(int row, MediaSource source = MediaSource::PCXBrowser) const
    {
        return List(source).visualRect(List(source).model()->index(row, 0));
    }
    void Click(int row, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton) const
    {
        QTest::mouseClick(List().viewport(), button, keys, PlaceOf(row).center());
        QCoreApplication::processEvents();
    }
    void DoubleClick(int row, MediaSource source = MediaSource::PCXBrowser) const
    {
        QTest::mouseDClick(List(source).viewport(), Qt::LeftButton, {}, PlaceOf(row, source).center());
    }
    /// Another window takes the focus, something happens, the focus comes back.
    void WhileAway(const std::function<void()>& act) const
    {
        QWidget other;
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        act();
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        QTest::qWait(20);
    }
    /// Waits for a modal window and closes it; its title.
    QString TitleOfModal() const
    {
        QString title;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal || !modal->isVisible())
                return;
            title = modal->windowTitle();
            modal->close();
        });
        look.start(5);
        WaitUntil([&] { return !title.isEmpty() && !QApplication::activeModalWidget(); });
        Window->activateWindow(); // as a window manager does
        EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        return title;
    }
    QStringList Shown(MediaSource source = MediaSource::PCXBrowser) const
    {
        QStringList names;
        for (int row = 0; row < List(source).model()->rowCount(); ++row)
            names << List(source).model()->index(row, 0).data().toString();
        return names;
    }
    bool TextHasTheKeyboard() const { return Window->focusWidget() == WidgetOf(CurrentPane()); }
    int Silenced() const { return static_cast<ListeningWindow&>(*Window).Silenced; }
};

QString FirstLine()
{
    return CurrentPane().GetLine(0);
}

} // namespace

// Catches: a name written beside the selection or without the caret after it, a Ctrl that takes the entry's selection
// back, a list that keeps the keyboard or lets a sound play on.
TEST_F(MediaWindow, CtrlClickWritesTheNameAndTheTextKeepsTheKeyboard)
{
    CurrentPane().SetSel({0, 4, 0, 7}, false);
    Window->Bars().cmbFind()->setFocus();
    const int before = Silenced();
    Click(1, Qt::ControlModifier);
    EXPECT_EQ(FirstLine(), QStringLiteral("one b.png"));
    EXPECT_EQ(CurrentPane().GetSel(true), (Range{0, 9, 0, 9}));
    EXPECT_TRUE(TextHasTheKeyboard());
    EXPECT_EQ(Silenced(), before + 1);
    Click(1, Qt::ControlModifier);
    EXPECT_EQ(FirstLine(), QStringLiteral("one b.pngb.png"));
    Click(2);
    EXPECT_EQ(List().Selected(), QStringLiteral("c.png"));
    EXPECT_EQ(FirstLine(), QStringLiteral("one b.pngb.png"));
    CurrentPane().SetSel({0, 0, 0, 3}, false);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ControlModifier, {5, List().viewport()->height() - 5});
    EXPECT_EQ(CurrentPane().SelText(), QStringLiteral("one")) << "nothing under the mouse, nothing replaced";
    QTest::mouseClick(Window->Media().tabBar(), Qt::LeftButton, {}, Window->Media().tabBar()->tabRect(2).center());
    QCoreApplication::processEvents();
    EXPECT_TRUE(TextHasTheKeyboard());
    EXPECT_GT(Silenced(), before + 3);
}

// Catches: a sheet that opens with the block of an earlier one, the wrong list's file, levels that open as sheets.
TEST_F(MediaWindow, DoubleClickOpensByMode)
{
    Conf.Element.ElementOpen = true;
    Conf.FieldFound.fill(0);
    DoubleClick(1);
    EXPECT_EQ(TitleOfModal(), QStringLiteral("b.png"));
    EXPECT_FALSE(Conf.Element.ElementOpen);
    EXPECT_EQ(Conf.FieldFound[8], 1);
    EXPECT_EQ(Lists().SavedListIndex[1], 1);
    EXPECT_TRUE(TextHasTheKeyboard());
    EXPECT_EQ(Run.TakeMessages(), QStringList());

    Run.Work.Write(QStringLiteral("001.level"), "level");
    RefreshMedia();
    SetMode(ModeLvl);
    Level.Viewer = Run.Work.Path(QStringLiteral("no viewer"));
    Click(0); // the refresh of the window's return is still to come
    DoubleClick(0);
    EXPECT_TRUE(WaitUntil([&] { return !Run.Scope.Answers.Asked.empty(); }));
    ResetLevel();
    EXPECT_TRUE(Run.TakeMessages().value(0).contains(QLatin1String("Mapglass")));
    SetMode(ModeTxt);
    EXPECT_EQ(Shown(), QStringList());
}

// Catches: music that a double click does not start, that plays on after another choice, a sound that opens a window;
// one that cannot be played and nobody is told.
TEST_F(MediaWindow, SoundsPlayUntilTheNextPress)
{
    Run.Work.Write(QStringLiteral("tune.mid"), "no music");
    Run.Work.Write(QStringLiteral("z.mod"), "no music");
    for (const auto& [mode, row] : {std::pair(ModeMus, 0), std::pair(ModeMus, 1)}) {
        SetMode(mode);
        DoubleClick(row);
        EXPECT_TRUE(WaitUntil([] { return audio::IsPlaying(); })) << row;
        Click(row);
        EXPECT_TRUE(WaitUntil([] { return !audio::IsPlaying(); })) << row;
    }
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    const QSignalSpy notices(&Events(), &FrameEvents::Noticed);
    DoubleClick(1);
    EXPECT_TRUE(WaitUntil([&] {
        return std::ranges::any_of(notices, [](const QVariantList& notice) {
            return notice[0].toString().startsWith(QLatin1String("z.mod can not be played"));
        });
    }));
}

// Catches: a selection lost by the refresh, one that comes back where it must not, lists that do not see what came
// while the window was away.
TEST_F(MediaWindow, SelectionComesBackWithTheFocus)
{
    Click(2);
    WhileAway([&] { Run.Work.Write(QStringLiteral("d.png"), "new"); });
    EXPECT_EQ(Shown().size(), 4);
    EXPECT_EQ(List().SelectedRow(), 2);
    Click(0);
    WhileAway([] {});
    EXPECT_EQ(List().SelectedRow(), -1);
    Click(3);
    WhileAway([&] { QFile::remove(Run.Work.Path(QStringLiteral("d.png"))); });
    EXPECT_EQ(List().SelectedRow(), -1);
}

// Catches: files that show only after a change of windows, a file replaced by a save that is lost, a selection that
// goes to another file when one comes before it.
TEST_F(MediaWindow, ListsFollowTheDisk)
{
    Click(1);
    Run.Work.Write(QStringLiteral("aa.png.new"), "picture");
    const auto replace = [&] {
        return std::rename(qPrintable(Run.Work.Path(QStringLiteral("aa.png.new"))),
                           qPrintable(Run.Work.Path(QStringLiteral("aa.png"))));
    };
    ASSERT_EQ(replace(), 0);
    EXPECT_TRUE(WaitUntil([&] { return Shown().contains(QStringLiteral("aa.png")); }));
    EXPECT_EQ(List().Selected(), QStringLiteral("b.png"));
    Run.Work.Write(QStringLiteral("aa.png.new"), "picture");
    ASSERT_EQ(replace(), 0);
    QFile::remove(Run.Work.Path(QStringLiteral("a.png")));
    EXPECT_TRUE(WaitUntil([&] { return Shown().size() == 3; }));
    EXPECT_EQ(List().Selected(), QStringLiteral("b.png"));
}

// Catches: lists that only the mouse reaches, a filter that hides what Enter opens, that stays after Esc or comes
// along into another folder.
TEST_F(MediaWindow, KeysReachOpenNarrowAndLeave)
{
    List().setFocus();
    EXPECT_EQ(List().Selected(), QStringLiteral("a.png"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(FirstLine(), QStringLiteral("b.pngone two"));
    EXPECT_TRUE(TextHasTheKeyboard());
    List().setFocus();
    QTest::keyClicks(&List(), QStringLiteral("C"));
    QTest::keyClicks(List().Filter(), QStringLiteral("."));
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("c.png")});
    Press(Qt::Key_Down);
    QTest::keyClick(List().Filter(), Qt::Key_Return);
    EXPECT_EQ(TitleOfModal(), QStringLiteral("c.png"));
    List().setFocus();
    Press(Qt::Key_Escape);
    EXPECT_TRUE(TextHasTheKeyboard());
    EXPECT_EQ(Shown().size(), 3);
    EXPECT_FALSE(List().Filter()->isVisible());
    List().OpenFilter(QStringLiteral("nothing"));
    EXPECT_EQ(Shown(), QStringList());
    Tools().ShowMediaEntry({MediaSource::PCXBrowser, 0, QStringLiteral("a.png")});
    EXPECT_EQ(List().Selected(), QStringLiteral("a.png")) << "found in the text, hidden in the list";
    List().OpenFilter(QStringLiteral("nothing"));
    ASSERT_TRUE(OpenDocument(Run.Work.Write(QStringLiteral("sub/graphicsinfo.conf"), "x\n"), true));
    EXPECT_TRUE(List().Filter()->text().isEmpty());
}

// Catches: entries of the menu that do nothing since the menu has gone by then, a folder that shows only where file
// managers listen.
TEST_F(MediaWindow, TheMenuWorksOnTheEntryUnderIt)
{
    Click(2, {}, Qt::RightButton);
    QContextMenuEvent press(QContextMenuEvent::Mouse, PlaceOf(2).center(), QCursor::pos());
    QCoreApplication::sendEvent(List().viewport(), &press);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->defaultAction()->text(), QStringLiteral("Preview"));
    menu->setActiveAction(menu->actions().at(1));
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([] { return FirstLine() == QLatin1String("c.pngone two"); }));
    EXPECT_TRUE(TextHasTheKeyboard());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    const Desktop desktop;
    ShowInFolder(List().Path());
    EXPECT_EQ(desktop.Opened, QStringList{Run.Work.Path()});
}

// Catches: a tree that cannot show where the game keeps its files, a list that does not follow it, a path that is
// written so that it cannot be read back, a folder that is gone and stays chosen.
TEST_F(MediaWindow, ExtraFollowsTreeDriveAndText)
{
    Run.Work.Write(QStringLiteral(".hidden/set/deep.png"), "no image");
    const QString deep = Run.Work.Path(QStringLiteral(".hidden/set/"));
    Window->Media().setCurrentIndex(1);
    SetExtraFolder(Run.Work.Path(QStringLiteral(".hidden/")));
    FolderTree& tree = *Window->Media().Extra().Folders();
    auto* current = tree.currentItem();
    ASSERT_EQ(current->text(0), QStringLiteral(".hidden"));
    current->setExpanded(true);
    ASSERT_EQ(current->childCount(), 1);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(current->child(0)).center());
    EXPECT_EQ(Frame.Media.ExtraFolder, deep);
    EXPECT_EQ(Shown(MediaSource::Extra), QStringList{QStringLiteral("deep.png")});
    DoubleClick(0, MediaSource::Extra);
    EXPECT_TRUE(WaitUntil([&] { return !Run.Scope.Answers.Asked.empty(); }));
    EXPECT_TRUE(Run.TakeMessages().value(0).startsWith(QLatin1String("Not a valid")));
    QTest::mouseClick(&Part<QPushButton>(*Window, "cmdInjectPath"), Qt::LeftButton);
    EXPECT_EQ(FirstLine(), QStringLiteral("#!*") + deep.chopped(1).replace(u'/', u'*'));
    EXPECT_TRUE(TextHasTheKeyboard());
    auto& drives = Part<QComboBox>(*Window, "extraDrive");
    drives.setCurrentIndex(0);
    emit drives.activated(0);
    EXPECT_EQ(Frame.Media.ExtraFolder, QStringLiteral("/"));
    ApplyInjectPath(FirstLine().mid(3));
    EXPECT_EQ(Frame.Media.ExtraFolder, deep);
    EXPECT_EQ(tree.currentItem()->text(0), QStringLiteral("set"));
    WhileAway([&] { QDir(deep).removeRecursively(); });
    EXPECT_EQ(Frame.Media.ExtraFolder, Run.Work.Path(QStringLiteral(".hidden/")));
}

// Catches: the system's own mounts among the volumes, a stick with a blank in its name that cannot be chosen.
TEST_F(MediaWindow, VolumesAreThoseForPeople)
{
    const QByteArray table = "25 1 8:1 / / rw - ext4 /dev/a rw\n26 25 0:5 / /proc rw - proc proc rw\n"
                             "90 25 8:17 / /media/me/My\\040Stick rw - vfat /dev/b rw\n\nbroken\n";
    EXPECT_EQ(MountedForPeople(table),
              (QList<Volume>{{QStringLiteral("My Stick"), QStringLiteral("/media/me/My Stick/")}}));
    EXPECT_EQ(Volumes().first().Folder, QStringLiteral("/"));
}

// Catches: a picture or sound that opens as text, its name at the caret instead of where it fell, a conf that is not
// opened any more.
TEST_F(MediaWindow, DroppedMediaLeaveTheirNames)
{
    CurrentPane().SetSel({0, 0, 0, 7}, false);
    DropIntoText({Run.Work.Path(QStringLiteral("a.png")), QStringLiteral("/far/noise.WAV")}, {0, 3, 0, 3});
    EXPECT_EQ(FirstLine(), QStringLiteral("onea.png noise.WAV two"));
    const QString conf = Run.Work.Write(QStringLiteral("musicinfo.conf"), "m\n");
    DropIntoText({conf}, {0, 0, 0, 0});
    EXPECT_EQ(Frame.Documents[1].Path, conf);
}

// Catches: a hot key macro without its key, names in another letter case than given, an ending that is lost with the
// name, a macro that the mouse does not start by way of the gate, a choice that goes with a refresh.
TEST_F(MediaWindow, MacrosShowWithTheirKeys)
{
    const auto write = [](const char* name) {
        QFile file(Frame.MacrosFolder + QLatin1StringView(name));
        return file.open(QIODevice::WriteOnly) && file.write("print ran") > 0;
    };
    ASSERT_TRUE(write("Align.All.GFB") && write("$Knights.gfb") && write("notes.txt"));
    RefreshMedia();
    MacroTree& tree = Window->Media().Macros();
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(Window.get(), &activate);
    QCoreApplication::processEvents();
    EXPECT_EQ(tree.SelectedRow(), -1) << "nobody has chosen one yet";
    QStringList shown;
    for (int row = 0; row < tree.topLevelItemCount(); ++row)
        shown << tree.topLevelItem(row)->text(0);
    EXPECT_EQ(shown, QStringList({QStringLiteral("(Alt+k) - nights"), QStringLiteral("align.all")}));
    Window->Media().setCurrentIndex(3);
    Window->Bars().cmbFind()->setFocus();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(tree.topLevelItem(1)).center());
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
    ASSERT_TRUE(write("zoo.gfb"));
    RefreshMedia();
    EXPECT_EQ(tree.SelectedRow(), 1);
    const auto doubleClick = [&tree] {
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(tree.topLevelItem(1)).center());
    };
    doubleClick();
    EXPECT_TRUE(WaitUntil([&] { return !Run.Scope.Answers.Asked.empty(); }));
    EXPECT_TRUE(Run.TakeMessages().value(0).startsWith(QLatin1String("The path for Rocks'n'Diamonds")));
    Frame.Settings.RNDPath = Run.Work.Write(QStringLiteral("game"), "program");
    const QString before = CurrentPane().Text();
    doubleClick();
    EXPECT_TRUE(WaitUntil([&] { return CurrentPane().Text() == QStringLiteral("ran") + before; }));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_TRUE(WaitUntil([&] { return CurrentPane().Text() == QStringLiteral("ranran") + before; }));
    QString opened;
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, tree.visualItemRect(tree.topLevelItem(1)).center());
    OnModal([&](QWidget& workbench) {
        opened = static_cast<frmMacroEdit&>(workbench).txtEdit(frmMacroEdit::Code).Text();
        workbench.close();
    });
    EXPECT_TRUE(WaitUntil([&] { return opened == QStringLiteral("print ran"); }));
}

// Catches: colours of a dark desktop in a list that has its own, pictures that do not come or that the setting does
// not bring, tips without the size.
TEST_F(MediaWindow, ListsLookAsTheSettingsSay)
{
    EXPECT_EQ(List().palette().color(QPalette::Base), QColor(0xEA, 0xE8, 0xF4));
    EXPECT_EQ(List().palette().color(QPalette::Text), QColor(Qt::black));
    const int plain = PlaceOf(0).height();
    ToggleView(7);
    const auto picture = [this] {
        const QImage seen = List().viewport()->grab(PlaceOf(0)).toImage();
        for (int x = 0; x < seen.width(); ++x)
            if (seen.pixelColor(x, seen.height() / 2) == QColor(Qt::red))
                return true;
        return false;
    };
    EXPECT_TRUE(WaitUntil(picture));
    EXPECT_GT(PlaceOf(0).height(), plain);
    ToggleView(7);
    QCoreApplication::processEvents();
    EXPECT_EQ(PlaceOf(0).height(), plain);
    const QString tip = MediaTip(Run.Work.Path(QStringLiteral("a.png")));
    const QString level = Run.Work.Write(QStringLiteral("a.level"), LevelImage(QStringLiteral("LEVEL")));
    EXPECT_TRUE(MediaTip(level).contains(QLatin1String("gemforge example level by ")) &&
                MediaTip(level).contains(QLatin1String("15 x 15 cells, 0 gems, no time limit")))
        << MediaTip(level);
    EXPECT_TRUE(MediaTip(Run.Work.Write(QStringLiteral("b.LEVEL"), "x")).contains(QLatin1String("No level: ")));
    EXPECT_TRUE(tip.contains(QLatin1String("64 x 32 pixels")) && tip.contains(QLatin1String(" bytes"))) << tip;
    const QByteArray head = QByteArray("RIFF\0\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x22\x56\0\0\x22\x56\0\0\1\0\x08\0", 36);
    EXPECT_NEAR(WaveSeconds(head + QByteArray("data\x22\x56\0\0", 8)), 1, 1e-9);
    EXPECT_EQ(WaveSeconds(head + QByteArray("LIST\xff\xff\xff\xff", 8)), 0);
    EXPECT_EQ(WaveSeconds(head.first(22)), 0);
}

// Catches: levels without pictures, or with those of another set's palette; a palette that is read anew for each level.
TEST_F(MediaWindow, LevelsHavePicturesInThePaletteOfTheirFolder)
{
    QImage palette(400, 1040, QImage::Format_RGB32);
    palette.fill(Qt::green);
    Run.Program.Write(QStringLiteral("previews/gfx_classic.gif"), "no palette");
    const QString own = PaletteName(Run.Work.Path(QStringLiteral("1.level")));
    ASSERT_TRUE(WritePalette(Run.Program.Path(QStringLiteral("previews/") + own), palette));
    for (const char* name : {"1.level", "2.level"})
        Run.Work.Write(QString::fromLatin1(name), LevelImage(QStringLiteral("LEVEL")));
    Run.Work.Write(QStringLiteral("3.level"), "no level");
    SetMode(ModeLvl);
    ToggleView(7);
    const auto isGreen = [this](int row) {
        const QImage seen = List().viewport()->grab(PlaceOf(row)).toImage();
        for (int x = 0; x < seen.width(); ++x)
            if (seen.pixelColor(x, seen.height() / 2) == QColor(Qt::green))
                return true;
        return false;
    };
    EXPECT_TRUE(WaitUntil([&] { return isGreen(0) && isGreen(1); }));
    EXPECT_FALSE(isGreen(2));
    ToggleView(7);
}

#include "frame/frame_events.h"
#include "frame/host_ports.h"
#include "media_window_test.moc"
