#include "mapglass/mapglass_window.h"

#include "frame/frame_state.h"
#include "level/level_builder.h"
#include "mapglass/element_list.h"
#include "mapglass/level_strip.h"
#include "mapglass/map_view.h"
#include "mutated.h"
#include "platform/images/images.h"
#include "test_support.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The viewer on levels of a folder of its own.
class MapglassTest : public testing::Test
{
protected:
    MapglassTest()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.Path(u"config"_s)));
        Frame.ProgramFolder = folder.Path();
        Frame.DataFolder = ProjectFile(u"data/"_s);
        QFile palette(ProjectFile(u"previews/gfx_classic.gif"_s));
        EXPECT_TRUE(palette.open(QIODevice::ReadOnly));
        folder.Write(u"previews/gfx_classic.gif"_s, palette.readAll());
        window.resize(1000, 700);
    }
    ~MapglassTest() override
    {
        ResetFrame();
        ResetLevel();
    }

    QString Write(const QString& name, const LevelPlan& plan)
    {
        return folder.Write(u"set/"_s + name, BuildLevel(plan).Bytes);
    }

    void Show(const QString& path)
    {
        window.OpenLevel(path);
        window.show();
        QApplication::processEvents();
    }

    template <class Part>
    Part& In(const char* name = "")
    {
        return *window.findChild<Part*>(QLatin1StringView(name).isEmpty() ? QString() : QString::fromLatin1(name));
    }
    MapView& View() { return In<MapView>(); }

    void Press(int key)
    {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&View(), &down);
        QApplication::processEvents();
    }

    /// A place of the viewport in the middle of a cell of a map that fits.
    QPoint Cell(int x, int y, int width, int height)
    {
        const QSize room = View().viewport()->size() - QSize(width, height) * View().Side();
        return QPoint(qMax(room.width() / 2, 0), qMax(room.height() / 2, 0)) + QPoint(x, y) * View().Side() +
               QPoint(1, 1) * (View().Side() / 2);
    }
    void Mouse(QEvent::Type type, const QPoint& place, Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent event(type, place, View().viewport()->mapToGlobal(place), button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
        QApplication::sendEvent(View().viewport(), &event);
    }

    TestFolder folder;
    MapglassWindow window;
};

} // namespace

// Catches: a header of another level, counts that do not add up, cells counted from 0, a cell of the former level or
// zoom that is still told, a file that is none and leaves the former level standing as if it were it.
TEST_F(MapglassTest, ShowsALevelOrWhyItIsNone)
{
    Show(Write(u"001.level"_s, {.Form = "1.0", .Width = 5, .Height = 4, .Name = "A cave"}));
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(u"A cave"_s));
    EXPECT_TRUE(texts.contains(u"5 by 4"_s));
    int cells = 0;
    ElementList& elements = In<ElementList>();
    for (int i = 0; i < elements.topLevelItemCount(); ++i)
        cells += elements.topLevelItem(i)->text(2).toInt();
    EXPECT_EQ(cells, 20);
    Mouse(QEvent::MouseMove, Cell(2, 1, 5, 4), Qt::NoButton);
    EXPECT_TRUE(In<QLabel>("cellText").text().startsWith(u"3, 2:  145  "_s)) << In<QLabel>("cellText").text();

    Mouse(QEvent::MouseMove, Cell(0, 0, 5, 4), Qt::NoButton);
    EXPECT_TRUE(In<QLabel>("cellText").text().startsWith(u"1, 1: "_s));
    View().Zoom(-4); // away from under the mouse
    EXPECT_EQ(In<QLabel>("cellText").text(), QString());
    Show(Write(u"003.level"_s, {.Form = "1.0", .Width = 30, .Height = 40}));
    EXPECT_NE(In<QLabel>("cellText").text(), QString());
    EXPECT_FALSE(In<QLabel>("cellText").text().startsWith(u"1, 1: "_s));
    Show(folder.Write(u"set/002.level"_s, "no level at all"));
    EXPECT_EQ(In<QLabel>("cellText").text(), QString());
    EXPECT_EQ(elements.topLevelItemCount(), 0);
    texts.clear();
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_FALSE(texts.contains(u"A cave"_s));
    Mouse(QEvent::MouseMove, Cell(2, 1, 5, 4), Qt::NoButton);
    Mouse(QEvent::MouseButtonPress, Cell(2, 1, 5, 4));
    EXPECT_EQ(In<QLabel>("cellText").text(), QString());
}

// Catches: an order other than people's, keys that lead past the ends or are eaten by the part with the keyboard, a
// strip that never becomes whole, a broken level that looks there like one without a cell of note.
TEST_F(MapglassTest, KeysLeadThroughTheFolder)
{
    const QString second = Write(u"2.level"_s, {.Name = "two"}), tenth = Write(u"10.level"_s, {.Name = "ten"});
    folder.Write(u"set/11.level"_s, "no level at all");
    folder.Write(u"set/12.level"_s, {});
    Show(second);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(window.Path(), second);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(window.Path(), tenth);
    LevelStrip& strip = In<LevelStrip>();
    QElapsedTimer clock;
    clock.start();
    while (!strip.Levels().IsWhole() && clock.elapsed() < 20'000)
        QApplication::processEvents();
    EXPECT_TRUE(strip.Levels().IsWhole());
    int shownAnew = 0;
    QObject::connect(strip.model(), &QAbstractItemModel::dataChanged, &strip, [&shownAnew] { ++shownAnew; });
    strip.Levels().MakeAnew(u"2.level"_s);
    while (!strip.Levels().IsWhole() && clock.elapsed() < 20'000)
        QApplication::processEvents();
    EXPECT_EQ(shownAnew, 1) << "a picture is there and does not show";
    EXPECT_EQ(strip.currentIndex().row(), 1);
    const auto shown = [&](int row, int role) { return strip.model()->index(row, 0).data(role); };
    const auto tile = [&](int row) { return shown(row, Qt::DecorationRole).value<QIcon>().pixmap(112, 84).toImage(); };
    EXPECT_NE(tile(1), tile(2));
    EXPECT_EQ(tile(2), tile(3));
    EXPECT_TRUE(shown(2, Qt::ToolTipRole).toString().startsWith(u"11.level\nno level: "_s));
    strip.setCurrentIndex(strip.model()->index(0, 0));
    EXPECT_EQ(window.Path(), second);
    for (int i = 0; i < 5; ++i)
        Press(Qt::Key_PageDown);
    EXPECT_TRUE(window.Path().endsWith(u"/12.level"_s));
}

// Catches: marks that stay with the former level's elements, a palette of the set that is made of another folder,
// elements called drawn that the set has no block for.
TEST_F(MapglassTest, TheSetsGraphicsAndWhatTheyLack)
{
    QImage sheet(64, 64, QImage::Format_RGB32);
    sheet.fill(qRgb(10, 200, 10));
    const QString level = Write(u"001.level"_s, {.Form = "1.0", .Width = 3, .Height = 1});
    ASSERT_TRUE(sheet.save(folder.Path(u"set/graphics.png"_s)));
    folder.Write(u"set/graphicsinfo.conf"_s, "amoeba_dead: graphics.png\n");
    Show(level); // cells 220, 7, 14
    EXPECT_EQ(In<QComboBox>("palettes").currentText(), u"The Set's Graphics"_s);
    ElementList& elements = In<ElementList>();
    EXPECT_EQ(elements.Undrawn(), 3);
    elements.SelectUndrawn();
    EXPECT_EQ(elements.Selected(), (std::set<int>{7, 14, 220}));
    folder.Write(u"set/graphicsinfo.conf"_s, "diamond: graphics.png\n");
    Show(Write(u"other/002.level"_s, {.Form = "1.0", .Width = 3, .Height = 1}));
    EXPECT_EQ(In<QComboBox>("palettes").currentText(), u"Classic"_s);
    Show(level);
    EXPECT_EQ(elements.Undrawn(), 2);
    auto& palettes = In<QComboBox>("palettes");
    const QImage before = In<MapView>().viewport()->grab().toImage();
    QKeyEvent other(QEvent::KeyPress, palettes.currentIndex() > 0 ? Qt::Key_Up : Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(&palettes, &other);
    EXPECT_NE(In<MapView>().viewport()->grab().toImage(), before) << palettes.currentText().toStdString();
}

// Catches: names that are cut to nothing by the numbers beside them where there is little room, a number that is then
// told nowhere.
TEST_F(MapglassTest, NamesOfElementsKeepTheirRoom)
{
    ElementList elements(nullptr);
    LevelMap map(1, 1);
    map.At(0, 0) = 860; // dc_magic_wall
    elements.ShowElements(map, {});
    elements.SetDrawn(std::set<int>());
    elements.show();
    const int letters = elements.fontMetrics().averageCharWidth();
    for (const int room : {36, 46, 60}) {
        elements.resize(letters * room, letters * 30);
        QApplication::processEvents();
        EXPECT_GE(elements.columnWidth(0), letters * 16) << room;
        EXPECT_EQ(elements.isColumnHidden(1), room < 40) << room;
    }
    EXPECT_TRUE(elements.topLevelItem(0)->toolTip(0).endsWith(u", 860"_s));
}

// Catches: a level that was saved meanwhile and is still shown as it was, a view that jumps because of it.
TEST_F(MapglassTest, AChangedFileIsReadAgain)
{
    LevelPlan plan{.Form = "1.0", .Width = 5, .Height = 4, .Name = "before"};
    const QString path = Write(u"001.level"_s, plan);
    Show(path);
    View().Zoom(-2);
    const int side = View().Side();
    plan.Name = "after";
    Write(u"001.level"_s, plan);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));
    file.close();
    QApplication::setActiveWindow(&window);
    QEvent back(QEvent::ActivationChange);
    QApplication::sendEvent(&window, &back);
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains(u"after"_s));
    EXPECT_EQ(View().Side(), side);
}

// Catches: a rectangle off by one or outside the map, an answer given twice or not at all, a close that counts as
// consent, a key that leads to other levels.
TEST_F(MapglassTest, AMacroGetsItsRectangle)
{
    QList<ViewAnswer> answers;
    const auto take = [&answers](const ViewAnswer& answer) -> Result<> {
        answers << answer;
        return {};
    };
    window.ServeMacro({u"Draw"_s, {}}, take);
    Show(Write(u"001.level"_s, {.Width = 6, .Height = 5}));
    Mouse(QEvent::MouseButtonPress, Cell(4, 3, 6, 5));
    Mouse(QEvent::MouseMove, Cell(1, -40, 6, 5));
    Mouse(QEvent::MouseButtonRelease, Cell(1, -40, 6, 5));
    In<QPushButton>("ok").click();
    ASSERT_EQ(answers.size(), 1);
    EXPECT_FALSE(answers.first().Cancelled);
    EXPECT_EQ(answers.first().Box, (LevelBox{1, 0, 4, 3}));
    EXPECT_FALSE(window.isVisible());

    MapglassWindow keyed;
    keyed.ServeMacro({u"Draw"_s, {}}, take);
    keyed.OpenLevel(window.Path());
    keyed.show();
    for (const QAction* action : keyed.findChildren<QAction*>()) // the strip leads to other levels
        EXPECT_FALSE(action->isVisible() && action->shortcut() == QKeySequence(Qt::Key_F9));
    MapView& map = *keyed.findChild<MapView*>();
    const auto press = [&map](int key, Qt::KeyboardModifiers held, int times) {
        for (int i = 0; i < times; ++i) {
            QKeyEvent down(QEvent::KeyPress, key, held);
            QApplication::sendEvent(&map, &down);
        }
    };
    press(Qt::Key_Up, Qt::NoModifier, 9);
    press(Qt::Key_Left, Qt::NoModifier, 9);
    press(Qt::Key_Right, Qt::ShiftModifier, 2);
    press(Qt::Key_Down, Qt::ShiftModifier, 99);
    press(Qt::Key_Down, Qt::NoModifier, 1);
    press(Qt::Key_Return, Qt::NoModifier, 1);
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(answers.last().Box, (LevelBox{0, 0, 2, 4}));

    MapglassWindow closed;
    closed.ServeMacro({u"Draw"_s, {}}, take);
    closed.OpenLevel(window.Path());
    closed.show();
    closed.close();
    ASSERT_EQ(answers.size(), 3);
    EXPECT_TRUE(answers.last().Cancelled);
}

// Catches: a stranger's file that is taken as a level and that the drawing, the list or the strip stumbles over.
TEST_F(MapglassTest, MutatedLevelsAreShownOrRefused)
{
    QRandomGenerator random(20240613);
    const int rounds = FuzzRounds(150);
    int shown = 0;
    const QList<LevelPlan> forms = EveryForm();
    for (int round = 0; round < rounds; ++round) {
        const QByteArray bytes = Mutated(BuildLevel(forms.at(round % forms.size())).Bytes, random);
        Show(folder.Write(u"set/%1.level"_s.arg(round % 7), bytes));
        View().Zoom(round % 3 - 1);
        shown += In<ElementList>().topLevelItemCount() > 0;
    }
    EXPECT_GT(shown, 30);
    EXPECT_LT(shown, rounds - 1);
}
