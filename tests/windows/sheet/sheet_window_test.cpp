#include "windows/sheet/frm_pcx.h"

#include "conf/element_record.h"
#include "frame/program_scope.h"
#include "graphics/animation.h"
#include "graphics/picks.h"
#include "graphics/sheet.h"
#include "windows/parts/dialog_support.h"
#include "windows/sheet/sheet_view.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr QSize SmallSheet{4 * TileSize, 3 * TileSize};

QString Text(QWidget& window, const char* box)
{
    return Part<QLineEdit>(window, box).text();
}

void Click(SheetView& view, QPoint tile, Qt::MouseButton button)
{
    const QPoint scrolled(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
    const int side = TileSize * view.Zoom();
    QTest::mouseClick(view.viewport(), button, {}, tile * side + QPoint(side / 2, side / 2) - scrolled);
}

} // namespace

class SheetWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        ResetConf();
        ResetSheet();
        ResetAnimation();
        Run.OpenInNewTab(Run.Work.Write(QStringLiteral("graphicsinfo.conf"), "one\ntwo\n"));
    }

    void WriteSheet(QSize size, Qt::GlobalColor colour = Qt::blue) const
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(colour);
        image.setPixelColor(size.width() - 1, size.height() - 1, Qt::red); // with none opaque all would count so
        ASSERT_TRUE(image.save(Run.Work.Path() + QStringLiteral("/a.png")));
    }

    /// Puts a block into the text that names the sheet; `more` of its lines, with all fields but start_frame.
    void HoldBlock(int x, int y, int frames, const QByteArray& more = "zip.delay: 1\nzip.name:\n")
    {
        const QByteArray place =
            QStringLiteral("zip.xpos: %1\nzip.ypos: %2\nzip.frames: %3\n").arg(x).arg(y).arg(frames).toLatin1();
        CurrentPane().LoadBytes("one\ntwo\nzip: a.png\n" + place +
                                "zip.anim_mode: loop\nzip.global_sync: false\nzip.offset: 0\n" + more);
        Request.Block = BlockPlace{2, 2};
    }

    void Open(const std::function<void(QWidget&, SheetView&)>& act)
    {
        OnModal([act](QWidget& window) { act(window, Part<SheetView>(window, "picScroll")); });
        OpenSheet(nullptr, Request);
    }

    SheetRequest Request{.File = QStringLiteral("a.png"), .Block = {}, .Prompt = {}};
    ProgramScope Run;
};

// Catches: buttons of the mouse exchanged, boxes that do not follow the marks, an end of play the game would not take.
TEST_F(SheetWindow, ClicksMarkTheAnimation)
{
    WriteSheet(SmallSheet);
    HoldBlock(1, 0, 2);
    Open([](QWidget& window, SheetView& view) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("zip - a.png"));
        EXPECT_EQ(Text(window, "txtXpos"), QStringLiteral("1"));
        EXPECT_EQ(Text(window, "txtStart"), QStringLiteral("None"));
        Click(view, {2, 0}, Qt::LeftButton);
        Click(view, {1, 2}, Qt::RightButton);
        EXPECT_EQ(Text(window, "txtXpos") + Text(window, "txtYpos"), QStringLiteral("20"));
        EXPECT_EQ(Text(window, "txtFrames"), QStringLiteral("8"));
        Click(view, {0, 1}, Qt::MiddleButton);
        EXPECT_EQ(Text(window, "txtStart"), QStringLiteral("2"));
        EXPECT_EQ(Animation.CurrentFrame, 2 + 2 - 1) << "the run starts over in front of the marked tile";
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Right);
        EXPECT_EQ(Text(window, "txtXpos"), QStringLiteral("3"));
        EXPECT_EQ(Text(window, "txtFrames"), QStringLiteral("7"));
        EXPECT_TRUE(Part<QPushButton>(window, "cmdQuit2").isEnabled());
        auto& name = Part<QLineEdit>(window, "txtName");
        name.setFocus();
        name.setText(QStringLiteral("whole"));
        name.home(false);
        QTest::keyClick(&name, Qt::Key_D, Qt::ControlModifier);
        EXPECT_FALSE(window.isVisible()) << "wherever the focus is";
        EXPECT_EQ(name.text(), QStringLiteral("whole"));
    });
    EXPECT_EQ(Conf.Element.ImageFile, QStringLiteral("a.png"));
}

// Catches: a window on a file that is no picture, warnings lost or shown against the user's wish.
TEST_F(SheetWindow, TellsWhatIsWrongWithTheImage)
{
    Run.Work.Write(QStringLiteral("a.png"), "no picture");
    EXPECT_EQ(frmPCX::Run(nullptr, Request).Outcome, SheetOutcome::NotShown);
    EXPECT_EQ(Run.TakeMessages(), QStringList(QStringLiteral("Not a valid PCX image!")));

    Request.File = QStringLiteral("A.PNG");
    EXPECT_EQ(frmPCX::Run(nullptr, Request).Outcome, SheetOutcome::NotShown);
    EXPECT_EQ(Run.TakeMessages(), QStringList(QStringLiteral("Not a valid PCX image!"))) << "found by other letters";
    Request.File = QStringLiteral("a.png");

    WriteSheet({40, 31});
    HoldBlock(0, 0, 1);
    Open([this](QWidget& window, SheetView& view) {
        QCoreApplication::processEvents();
        const QStringList shown = Run.TakeMessages();
        ASSERT_EQ(shown.size(), 1);
        EXPECT_TRUE(shown.constFirst().startsWith(QStringLiteral("Image is smaller than 32 pixels.")));
        EXPECT_FALSE(view.isEnabled());
        for (const char* button : {"cmdQuit1", "cmdQuit2"})
            EXPECT_FALSE(Part<QPushButton>(window, button).isEnabled()) << button;
        EXPECT_TRUE(Part<QPushButton>(window, "cmdQuit0").isEnabled());
    });
    Request.Purpose = SheetPurpose::Quick;
    Open([this](QWidget&, SheetView&) {
        QCoreApplication::processEvents();
        EXPECT_EQ(Run.TakeMessages().size(), 1) << "the small window tells too";
    });
    Frame.Settings.Nags[2] = 0;
    Open([this](QWidget&, SheetView&) {
        QCoreApplication::processEvents();
        EXPECT_TRUE(Run.TakeMessages().isEmpty());
    });
}

// Catches: a value taken at each key or never, a step of the wrong width, a number that overflows.
TEST_F(SheetWindow, DelayIsTakenWhenItIsWhole)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 4, "zip.delay: 4\n");
    Open([](QWidget& window, SheetView&) {
        auto& box = Part<QLineEdit>(window, "txtDelay");
        const QColor taken = box.palette().color(QPalette::Text);
        box.selectAll();
        QTest::keyClicks(&box, QStringLiteral("1x2"));
        EXPECT_EQ(Conf.Element.Delay, 1) << "a letter applies what was typed before it";
        QTest::keyClicks(&box, QStringLiteral("3"));
        EXPECT_EQ(box.palette().color(QPalette::Text), QColor(Qt::red));
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(Conf.Element.Delay, 123);
        EXPECT_EQ(box.palette().color(QPalette::Text), taken);
        box.setText(QStringLiteral("12345678"));
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(Conf.Element.Delay, 1);
        auto* up = window.findChild<QWidget*>(QStringLiteral("cmdDelaySpin0"));
        auto* down = window.findChild<QWidget*>(QStringLiteral("cmdDelaySpin1"));
        QTest::mouseClick(up, Qt::RightButton);
        QTest::mouseClick(up, Qt::MiddleButton);
        QTest::mouseClick(down, Qt::LeftButton);
        EXPECT_EQ(box.text(), QStringLiteral("15"));
        QTest::mouseClick(down, Qt::RightButton);
        QTest::mouseClick(down, Qt::RightButton);
        EXPECT_EQ(Conf.Element.Delay, 1);
    });
}

// Catches: a key put together in the wrong order, a block written beside the caret's line or in several undo steps.
TEST_F(SheetWindow, MakesANewElement)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 1);
    CurrentPane().SetSel({.StartLine = 1, .EndLine = 1}, false);
    const QString before = CurrentPane().Text();
    Open([this](QWidget& window, SheetView& view) {
        Click(view, {2, 1}, Qt::LeftButton);
        Part<QPushButton>(window, "cmdQuit1").click();
        EXPECT_FALSE(view.isEnabled());
        Part<QPushButton>(window, "cmdMakeElement").click();
        EXPECT_EQ(Run.TakeMessages().size(), 1) << "no element chosen";
        const auto choose = [&window](const char* list, const char* word) {
            auto& words = Part<QListWidget>(window, list);
            const auto found = words.findItems(QString::fromLatin1(word), Qt::MatchExactly);
            ASSERT_EQ(found.size(), 1) << list << ' ' << word;
            words.setCurrentItem(found.constFirst());
        };
        choose("lstElement", "yamyam");
        choose("lstAction", "moving");
        choose("lstDirection", "left");
        for (QRadioButton* option : window.findChildren<QRadioButton*>())
            option->setChecked(option->text() == QStringLiteral("Make A Full Element"));
        Part<QPushButton>(window, "cmdMakeElement").click();
        EXPECT_FALSE(window.isVisible());
    });
    const QStringList lines = CurrentPane().Text().split(QStringLiteral("\r\n"));
    EXPECT_EQ(lines.at(0), QStringLiteral("one"));
    EXPECT_TRUE(lines.at(1).startsWith(QStringLiteral("yamyam.moving.left:"))) << lines.at(1).toStdString();
    EXPECT_TRUE(lines.at(2).startsWith(QStringLiteral("yamyam.moving.left.xpos:")));
    EXPECT_TRUE(lines.contains(QStringLiteral("two")));
    CurrentPane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(CurrentPane().Text(), before);
    EXPECT_TRUE(Conf.Element.ImageFile.isEmpty());
}

// Catches: a block that an update does not reach, one that it leaves half written, a mode that the preview does not
// know lost although the user picked no other.
TEST_F(SheetWindow, UpdatesTheBlockInTheText)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 1);
    CurrentPane().LoadBytes(CurrentPane().Bytes().toByteArray().replace("loop", "wobble"));
    const QByteArray wobbling = CurrentPane().Bytes().toByteArray();
    Open([this](QWidget& window, SheetView& view) {
        QCoreApplication::processEvents();
        EXPECT_EQ(Run.TakeMessages().size(), 1) << "the mode is not known";
        Click(view, {2, 1}, Qt::LeftButton);
        Part<QPushButton>(window, "cmdQuit2").click();
    });
    EXPECT_EQ(CurrentPane().GetLine(3).simplified(), QStringLiteral("zip.xpos: 2"));
    EXPECT_EQ(CurrentPane().GetLine(6).simplified(), QStringLiteral("zip.anim_mode: wobble"));
    CurrentPane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(CurrentPane().Bytes(), wobbling);
}

// Catches: scrolling that begins a pixel early or late.
TEST_F(SheetWindow, ScrollsFromOnePixelTooMany)
{
    for (const int more : {0, 1}) {
        WriteSheet({770 + more, 521 + more});
        HoldBlock(0, 0, 1);
        Open([more](QWidget& window, SheetView& view) {
            window.resize(window.sizeHint()); // the screen of the tests may be smaller
            EXPECT_EQ(view.viewport()->size(), QSize(770, 521));
            EXPECT_EQ(view.horizontalScrollBar()->maximum(), more);
            EXPECT_EQ(view.verticalScrollBar()->maximum(), more);
        });
    }
}

// Catches: a tile that is lost when zoomed or scrolled, a first tile that is out of view, a press on less than a tile
// that marks one the sheet has not.
TEST_F(SheetWindow, ZoomsAndScrolls)
{
    WriteSheet({771 + 64, 1021});
    HoldBlock(24, 30, 1);
    Open([](QWidget& window, SheetView& view) {
        const QRect seen = view.viewport()->rect();
        const auto& bars = std::pair(view.horizontalScrollBar(), view.verticalScrollBar());
        const auto place = [&](QPoint pixel) {
            return pixel * view.Zoom() - QPoint(bars.first->value(), bars.second->value());
        };
        const QPoint first = QPoint(24, 30) * TileSize;
        EXPECT_TRUE(seen.contains(place(first + QPoint(31, 31)))) << "at opening";
        view.SetZoom(4);
        EXPECT_TRUE(seen.contains(place(first)) && seen.contains(place(first + QPoint(31, 31))));
        EXPECT_EQ(bars.first->maximum(), (771 + 64) * 4 - seen.width());
        view.SetZoom(2);
        QTest::mouseMove(view.viewport(), {100, 120});
        auto* const spot = window.findChild<QLabel*>(QStringLiteral("place"));
        const QString before = spot->text();
        QWheelEvent wheel({100, 120}, view.viewport()->mapToGlobal(QPointF(100, 120)), {}, {0, 120}, {},
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &wheel);
        EXPECT_EQ(view.Zoom(), 4);
        EXPECT_EQ(spot->text(), before) << "the pixel under the mouse stays there";
        bars.second->setValue(bars.second->value() - TileSize);
        EXPECT_NE(spot->text(), before) << "the sheet moved under the mouse";

        bars.first->setValue(bars.first->maximum());
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, seen.topRight() - QPoint(3, -9));
        EXPECT_EQ(Sheet.Start, QPoint(24, 30)) << "the last column is cut";
        view.horizontalScrollBar()->setValue(TileSize * 4 * 3 + 5);
        view.verticalScrollBar()->setValue(TileSize * 4 + 1);
        Click(view, {4, 2}, Qt::LeftButton);
        EXPECT_EQ(Sheet.Start, QPoint(4, 2));
    });
}

// Catches: see-through pixels of the preview on the window's grey.
TEST_F(SheetWindow, PreviewStandsOnTheChosenGround)
{
    WriteSheet(SmallSheet, Qt::transparent);
    HoldBlock(0, 0, 1);
    Open([](QWidget& window, SheetView&) {
        const auto& shown = Part<QLabel>(window, "picPreview");
        ASSERT_TRUE(QTest::qWaitFor([&shown] { return !shown.pixmap().isNull(); })) << "the first tick";
        const std::pair<const char*, QColor> grounds[] = {
            {"White", Qt::white}, {"Black", Qt::black}, {"Checker", QColor(0x99, 0x99, 0x99)}};
        for (const auto& [name, colour] : grounds)
            for (QAction* action : window.findChildren<QAction*>()) {
                if (action->text() != QLatin1String(name))
                    continue;
                action->trigger();
                EXPECT_EQ(shown.pixmap().toImage().pixelColor(1, 1), colour) << name;
            }
    });
}

// Catches: a sheet that still shows what was painted over outside, marks lost by it.
TEST_F(SheetWindow, FollowsTheFile)
{
    WriteSheet(SmallSheet, Qt::blue);
    HoldBlock(1, 1, 2);
    Open([this](QWidget&, SheetView&) {
        QTest::qWait(20); // another second or size for the file's facts
        WriteSheet({SmallSheet.width() * 2, SmallSheet.height()}, Qt::red);
        EXPECT_TRUE(QTest::qWaitFor([] { return Sheet.Picture.pixelColor(1, 1) == QColor(Qt::red); }));
        EXPECT_EQ(Sheet.SheetColumns, 8);
        EXPECT_EQ(Sheet.Start, QPoint(1, 1));
    });
}

// Catches: a preview with the tools of the big window, one that stays when the mouse has left against the setting.
TEST_F(SheetWindow, QuickPreviewIsSmallAndLeavesWithTheMouse)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 3, "zip.name: A zip\n");
    Request.Purpose = SheetPurpose::Quick;
    Frame.Settings.QuickClose = 1;
    Open([](QWidget& window, SheetView& view) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("A zip"));
        EXPECT_FALSE(view.isVisible());
        EXPECT_TRUE(window.findChild<QWidget*>(QStringLiteral("picPreview"))->isVisible());
        QTest::qWait(50);
        EXPECT_TRUE(window.isVisible()) << "the mouse is over it";
        QCursor::setPos(window.frameGeometry().bottomRight() + QPoint(9, 9));
        EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.isVisible(); })) << "it never was in the window itself";
    });
}

// Catches: a held preview that goes on showing the run before, a single frame that does not move.
TEST_F(SheetWindow, HeldPreviewShowsWhatIsMarked)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 2);
    Open([](QWidget& window, SheetView& view) {
        const auto trigger = [&](const QString& caption) {
            for (QAction* action : window.findChildren<QAction*>())
                if (action->text() == caption)
                    action->trigger();
        };
        const auto& current = Part<QLineEdit>(window, "txtCurrent");
        trigger(QStringLiteral("Pause"));
        Click(view, {1, 0}, Qt::LeftButton);
        Click(view, {3, 0}, Qt::RightButton);
        EXPECT_EQ(current.text(), QStringLiteral("1"));
        trigger(QStringLiteral("Single Frame"));
        EXPECT_EQ(current.text(), QStringLiteral("2"));
    });
}

// Catches: a macro's pick that can write into the text, a prompt that widens the window, a preview that takes presses.
TEST_F(SheetWindow, MacroPicksAndPreviews)
{
    WriteSheet(SmallSheet);
    const QString file = Run.Work.Path() + QStringLiteral("/a.png");
    int width = 0;
    OnModal([&](QWidget& window) {
        width = window.width();
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Gemforge BASIC - PickFromPCX"));
        EXPECT_FALSE(Part<QPushButton>(window, "cmdQuit1").isEnabled());
        EXPECT_FALSE(Part<QPushButton>(window, "cmdQuit2").isEnabled());
        Click(Part<SheetView>(window, "picScroll"), {3, 1}, Qt::LeftButton);
    });
    const SheetAnswer picked = frmPCX::Run(nullptr, MacroSheet(file, QStringLiteral("Pick a tile")));
    EXPECT_EQ(picked.Outcome, SheetOutcome::Closed);
    EXPECT_EQ(std::pair(picked.Element.XPos, picked.Element.YPos), std::pair(3, 1));
    OnModal([&](QWidget& window) { EXPECT_EQ(window.width(), width); });
    frmPCX::Run(nullptr, MacroSheet(file, QStringLiteral("Pick a tile ").repeated(400)));
    OnModal([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Gemforge BASIC - Preview"));
        EXPECT_FALSE(window.findChild<QWidget*>(QStringLiteral("Picture1"))->isVisible());
        Click(Part<SheetView>(window, "picScroll"), {1, 1}, Qt::LeftButton);
        EXPECT_FALSE(Sheet.Start);
    });
    frmPCX::Run(nullptr, MacroSheet(file, QStringLiteral("PREVIEW")));
}

// Catches: a drag that marks its ends only or not at all, a hand that shakes taken for one, a band that stays on the
// tiles of the run before.
TEST_F(SheetWindow, ADragMarksARunFaintly)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 2, 1);
    Open([](QWidget& window, SheetView& view) {
        const auto colour = [&view](QPoint tile) {
            return view.viewport()->grab().toImage().pixelColor(tile * TileSize + QPoint(3, 16));
        };
        const auto drag = [&view](QPoint from, QPoint to) {
            QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
            QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(view.viewport(), &move);
            QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
            QCoreApplication::sendEvent(view.viewport(), &move);
        };
        const QColor plain = colour({2, 1});
        drag({3 * TileSize + 5, 40}, {2 * TileSize + 5, 9});
        EXPECT_EQ(Text(window, "txtXpos") + Text(window, "txtYpos"), QStringLiteral("20"));
        EXPECT_EQ(Text(window, "txtFrames"), QStringLiteral("6")) << "upward, past the edge of the sheet";
        for (const QPoint tile : {QPoint(3, 0), QPoint(0, 1)})
            EXPECT_NE(colour(tile), plain);
        EXPECT_EQ(colour({1, 0}), plain);
        drag({TileSize - 1, 40}, {TileSize + 1, 40});
        EXPECT_EQ(Text(window, "txtFrames"), QStringLiteral("4")) << "a click on the first tile";
        EXPECT_EQ(colour({3, 0}), plain);
        drag({5, 5}, {2000, 2000});
        EXPECT_EQ(Text(window, "txtFrames"), QStringLiteral("12")) << "as far as the sheet goes";
    });
}

// Catches: a field without a line that cannot get one, one that is added unasked, a box not yet taken when the keys of
// the button are pressed.
TEST_F(SheetWindow, AddsTheLinesThatAreWanted)
{
    WriteSheet(SmallSheet);
    CurrentPane().LoadBytes("zip: a.png\nzip.xpos: 0\nzip.ypos: 0\nzip.delay: 2\nend\n");
    Request.Block = BlockPlace{0, 4};
    Open([](QWidget& window, SheetView& view) {
        EXPECT_TRUE(Part<QWidget>(window, "cmdAddDelay").isHidden());
        Click(view, {2, 0}, Qt::RightButton);
        Part<QToolButton>(window, "cmdAddFrames").click();
        EXPECT_EQ(window.focusWidget()->objectName(), QStringLiteral("txtFrames"));
        auto& offset = Part<QLineEdit>(window, "txtOffset");
        EXPECT_FALSE(offset.isEnabled());
        Part<QToolButton>(window, "cmdAddOffset").click();
        EXPECT_EQ(offset.text(), QStringLiteral("32"));
        auto& name = Part<QToolButton>(window, "cmdAddName");
        name.click();
        name.click();
        EXPECT_FALSE(Part<QLineEdit>(window, "txtName").isEnabled()) << "taken back";
        offset.setFocus();
        QTest::keyClicks(&offset, QStringLiteral("0"));
        QTest::keyClick(&offset, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(CurrentPane().Text().replace(QStringLiteral("\r\n"), QStringLiteral("|")).simplified().remove(u' '),
              QStringLiteral("zip:a.png|zip.xpos:0|zip.ypos:0|zip.frames:3|zip.delay:2|zip.offset:320|end|"));
}

// Catches: dots of no block, a tile in use that cannot be marked any more, a way to a block that leads elsewhere or
// changes the text.
TEST_F(SheetWindow, LeadsToTheBlocksThatUseATile)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 1, "mole: a.png\nmole.xpos: 2\nmole.ypos: 1\nmole.frames: 2\n");
    const QByteArray before = CurrentPane().Bytes().toByteArray();
    const auto dotted = [](SheetView& view) {
        const QImage shown = view.viewport()->grab().toImage();
        int found = 0;
        for (int x = 2 * TileSize; x < 3 * TileSize; ++x)
            found += shown.pixelColor(x, TileSize + 1) != shown.pixelColor(x, TileSize + 20);
        return found > 3;
    };
    const auto press = [](SheetView& view, QPoint tile, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys, tile * TileSize + QPoint(9, 9));
    };
    Open([&](QWidget& window, SheetView& view) {
        EXPECT_TRUE(dotted(view));
        QHelpEvent rest(QEvent::ToolTip, {3 * TileSize + 9, TileSize + 9}, window.mapToGlobal(QPoint(9, 9)));
        QCoreApplication::sendEvent(view.viewport(), &rest);
        EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("mole (line 10)"))) << QToolTip::text().toStdString();
        press(view, {2, 1}, {});
        EXPECT_EQ(Sheet.Start, QPoint(2, 1)) << "without Ctrl it is a tile like any other";
        press(view, {1, 1}, Qt::ControlModifier);
        EXPECT_EQ(Sheet.Start, QPoint(1, 1)) << "nothing to lead to";
        for (QAction* action : window.findChildren<QAction*>())
            if (action->text() == QStringLiteral("Dots"))
                action->trigger();
        EXPECT_FALSE(dotted(view));
        for (QAction* action : window.findChildren<QAction*>())
            if (action->text() == QStringLiteral("Dots"))
                action->trigger();
        press(view, {3, 1}, Qt::ControlModifier);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(CurrentPane().CaretLine(), 9);
    EXPECT_EQ(CurrentPane().Bytes(), before);
}

// Catches: a search that leaves another element chosen than it shows, keys that do nothing in the panel.
TEST_F(SheetWindow, SearchesTheElements)
{
    WriteSheet(SmallSheet);
    HoldBlock(0, 0, 1);
    Open([this](QWidget& window, SheetView&) {
        QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
        auto& search = Part<QLineEdit>(window, "txtSearch");
        ASSERT_TRUE(search.isVisible());
        QTest::keyClicks(&search, QStringLiteral("amya"));
        auto& list = Part<QListWidget>(window, "lstElement");
        ASSERT_NE(list.currentItem(), nullptr);
        EXPECT_FALSE(list.currentItem()->isHidden());
        EXPECT_TRUE(list.currentItem()->text().contains(QStringLiteral("yamyam")));
        const int first = list.currentRow();
        QTest::keyClick(&search, Qt::Key_Down);
        EXPECT_GT(list.currentRow(), first);
        search.setText(QStringLiteral("no such thing"));
        QTest::keyClick(&search, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_EQ(Run.TakeMessages().size(), 1) << "nothing is chosen";
        search.setText(QStringLiteral("yamyam"));
        QTest::keyClick(&search, Qt::Key_Return, Qt::ControlModifier);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_TRUE(CurrentPane().Text().contains(QStringLiteral("yamyam:")));
}

// Catches: black of a sheet without a channel shown as if the game drew it, black of one with a channel not shown; a
// preview that stays small.
TEST_F(SheetWindow, ShowsWhatTheGameShows)
{
    for (const bool channel : {false, true}) {
        QImage image(SmallSheet, channel ? QImage::Format_ARGB32 : QImage::Format_RGB32);
        image.fill(Qt::black);
        if (channel)
            image.setPixelColor(0, 0, Qt::transparent);
        ASSERT_TRUE(image.save(Run.Work.Path() + QStringLiteral("/a.png")));
        HoldBlock(1, 0, 1);
        Open([channel](QWidget& window, SheetView&) {
            const auto& shown = Part<QLabel>(window, "picPreview");
            ASSERT_TRUE(QTest::qWaitFor([&shown] { return !shown.pixmap().isNull(); }));
            EXPECT_EQ(shown.pixmap().toImage().pixelColor(1, 1) == QColor(Qt::black), channel);
            EXPECT_EQ(shown.size(), QSize(TileSize, TileSize));
            for (const char* zoom : {"4x", "1x"}) {
                for (QAction* action : window.findChildren<QAction*>())
                    if (action->text() == QLatin1String(zoom))
                        action->trigger();
                const int side = zoom[0] == '4' ? 4 * TileSize : TileSize;
                EXPECT_EQ(shown.size(), QSize(side, side));
                EXPECT_TRUE(shown.parentWidget()->rect().contains(shown.geometry())) << "no edge is cut";
            }
        });
    }
}
