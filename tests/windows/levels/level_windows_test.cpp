#include "windows/levels/frm_make_preview.h"
#include "windows/levels/frm_quick_map_view.h"

#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "frame/program_scope.h"
#include "level/level_palette.h"
#include "level/level_record.h"
#include "level/palette_maker.h"
#include "windows/images/picture_viewer.h"
#include "windows/parts/dialog_support.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A program with a default palette and a set with one sheet: red, green and blue tiles from left to right.
class LevelWindows : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        QFile palette(ProjectFile(u"previews/gfx_classic.gif"_s));
        ASSERT_TRUE(palette.open(QIODevice::ReadOnly));
        Run.Program.Write(u"previews/gfx_classic.gif"_s, palette.readAll());
    }
    ~LevelWindows() override { ResetLevel(); }

    void OpenConf(const QByteArray& text)
    {
        QImage sheet(96, 32, QImage::Format_RGB32);
        const QRgb colours[] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255)};
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 96; ++x)
                sheet.setPixel(x, y, colours[x / 32]);
        Run.Work.Write(u"My Set/graphics/tiles.png"_s, "");
        ASSERT_TRUE(sheet.save(Run.Work.Path(u"My Set/graphics/tiles.png"_s)));
        ASSERT_TRUE(OpenDocument(Run.Work.Write(u"My Set/graphics/graphicsinfo.conf"_s, text), false));
        ShowMedia();
    }

    QImage Written() const { return ReadPalette(PreviewsFolder() + u"my set.gif"_s).value_or(QImage()); }

    static QColor Cell(const QImage& palette, int element)
    {
        return palette.isNull() ? QColor() : palette.pixelColor(PaletteRect(element).center());
    }

    static void Press(QWidget& target, Qt::MouseButton button, const QPoint& place = {5, 5})
    {
        QTest::mousePress(&target, button, {}, place);
    }

    ProgramScope Run;
};

constexpr int Rock = 4, Emerald = 6, Diamond = 14;

} // namespace

// Catches: a palette under the wrong name, one made of the text on disk instead of the pane's, editor blocks taken
// without the tick, elements of the default palette that are lost.
TEST_F(LevelWindows, MakesAPaletteOfTheSet)
{
    OpenConf("rock: tiles.png\r\nrock.xpos: 1\r\nrock.ypos: 0\r\nrock.EDITOR: tiles.png\r\nrock.EDITOR.xpos: 2\r\n"
             "rock.EDITOR.ypos: 0\r\nemerald: gone.png\r\n.xpos: 0\r\n.ypos: 0\r\n");
    const QImage classic = ReadPalette(DefaultPalette()).value_or(QImage());
    OnModal([&](QWidget& window) {
        EXPECT_TRUE(Part<QPushButton>(window, "cmdGO").isEnabled());
        Part<QPushButton>(window, "cmdGO").click();
        EXPECT_EQ(Cell(Written(), Rock), QColor(Qt::green));
        EXPECT_EQ(Cell(Written(), Diamond), Cell(classic, Diamond));
        EXPECT_EQ(Cell(Written(), Emerald), Cell(classic, Emerald));
        Part<QCheckBox>(window, "chkEditor").click();
        Part<QPushButton>(window, "cmdGO").click();
        EXPECT_EQ(Cell(Written(), Rock), QColor(Qt::blue));
        EXPECT_TRUE(window.isVisible());
    });
    frmMakePreview::Run(nullptr);
    EXPECT_EQ(Run.TakeMessages(), QStringList());
}

// Catches: a test in the wrong order, or one after which the window still works.
TEST_F(LevelWindows, WhatIsMissingDisablesThePalette)
{
    const auto told = [this] {
        OnModal([](QWidget& window) {
            for (const char* part : {"cmdGO", "chkEditor"})
                EXPECT_FALSE(Part<QWidget>(window, part).isEnabled());
        });
        frmMakePreview::Run(nullptr);
        return Run.TakeMessages().join(u'|');
    };
    EXPECT_TRUE(told().contains(u"You need to save this file before making a palette."_s));
    QFile::remove(Run.Program.Path(u"data/mapele.ini"_s));
    EXPECT_TRUE(told().contains(u"The file 'mapele.ini' is missing."_s));
    QFile::remove(DefaultPalette());
    EXPECT_TRUE(told().contains(u"'gfx_classic.gif' is missing."_s));
}

// Catches: a map that cannot be left, a drag that closes it or moves it by the wrong way, a missing palette that is
// told nobody.
TEST_F(LevelWindows, TheMapClosesAndDrags)
{
    Level.Map = LevelMap(30, 20);
    Level.Map.At(29, 19) = Rock;
    const auto shown = [](std::function<void(QWidget&, QLabel&)> act) {
        bool closed = false;
        OnModal([&](QWidget& window) {
            act(window, Part<QLabel>(window, "picMap"));
            closed = !window.isVisible();
        });
        frmQuickMapView::Run(u"Look"_s, u"no such set.gif"_s, nullptr);
        return closed;
    };
    EXPECT_TRUE(shown([](QWidget& window, QLabel& map) {
        EXPECT_EQ(map.size(), QSize(480, 320));
        EXPECT_EQ(window.windowTitle(), u"Look"_s);
        QTest::keyClick(&window, Qt::Key_A);
    }));
    EXPECT_TRUE(shown([](QWidget&, QLabel& map) { Press(map, Qt::LeftButton); }));
    EXPECT_TRUE(shown([](QWidget& window, QLabel&) { Press(window, Qt::RightButton); }));
    EXPECT_FALSE(shown([](QWidget&, QLabel& map) {
        const QPoint before = map.pos();
        Press(map, Qt::RightButton, {5, 5});
        QTest::mouseMove(&map, {15, 8});
        QMouseEvent move(QEvent::MouseMove, QPointF(15, 8), map.mapToGlobal(QPointF(15, 8)), Qt::NoButton,
                         Qt::RightButton, {});
        QApplication::sendEvent(&map, &move);
        EXPECT_NE(map.pos(), before);
        const QPoint moved = map.pos();
        QTest::mouseRelease(&map, Qt::RightButton, {}, {5, 5});
        QTest::mouseMove(&map, {40, 40});
        EXPECT_EQ(map.pos(), moved);
    }));
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    QFile::remove(DefaultPalette());
    EXPECT_TRUE(shown([](QWidget&, QLabel& map) {
        EXPECT_EQ(map.pixmap().toImage().pixelColor(470, 310), QColor(QRgb(MissingCell)));
        Press(map, Qt::LeftButton);
    }));
    EXPECT_TRUE(Run.TakeMessages().join(u'|').contains(u"going to look very.....pink!"_s));
}
