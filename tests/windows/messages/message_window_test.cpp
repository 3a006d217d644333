#include "windows/messages/frm_mess.h"

#include "frame/run_scope.h"
#include "windows/messages/message_layout.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/dialog_support.h"

#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

namespace {

MessageRecord Record(const char* buttons, const char* text = "Text")
{
    MessageRecord record;
    record.MessageTitle = QStringLiteral("Title");
    record.MessageText = QString::fromUtf8(text);
    record.MessageButtons = QString::fromUtf8(buttons);
    return record;
}

Pressed AnswerTo(const MessageRecord& record, std::function<void(QWidget&)> act)
{
    OnModal(std::move(act));
    return frmMess(record, nullptr).Ask();
}

void Press(QWidget& window, std::initializer_list<Qt::Key> keys)
{
    for (const Qt::Key key : keys)
        QTest::keyClick(window.focusWidget(), key);
}

MessageParts Parts(QSize text, std::vector<int> captions)
{
    MessageParts parts;
    parts.MeasureText = [text](int widest) { return QSize(qMin(text.width(), widest), text.height()); };
    parts.Title = QSize(100, 16);
    parts.Captions = std::move(captions);
    parts.ButtonHeight = 25;
    parts.ScrollBar = 15;
    parts.Screen = QSize(1000, 700);
    return parts;
}

} // namespace

// Catches: a window that ignores the told sizes: standard for short texts, else text + 90 by text + 92, buttons at
// text + 59, 76 wide or caption + 20, and as wide as its buttons.
TEST(MessageLayout, GrowsByTheToldSteps)
{
    const MessageLayout plain = LayoutMessage(Parts({371, 26}, {20, 57}));
    EXPECT_EQ(plain.Window, QSize(461, 118));
    ASSERT_EQ(plain.Buttons.size(), 2U);
    EXPECT_EQ(plain.Buttons[0].top(), 85);
    EXPECT_EQ(plain.Buttons[0].width(), 76);
    EXPECT_EQ(plain.Buttons[1].width(), 77);
    EXPECT_EQ(plain.Buttons[0].left(), 461 / 2 - (76 + 5 + 77 + 5) / 2);
    EXPECT_EQ(plain.Buttons[1].left(), plain.Buttons[0].left() + 76 + 5);

    const MessageLayout large = LayoutMessage(Parts({372, 27}, {20}));
    EXPECT_EQ(large.Window, QSize(372 + 90, 27 + 92));
    EXPECT_EQ(large.Buttons[0].top(), 27 + 59);

    const MessageLayout wide = LayoutMessage(Parts({10, 10}, {280, 280}));
    EXPECT_EQ(wide.Window.width(), 2 * (300 + 5) + 10);

    MessageParts twice = Parts({2 * 371, 2 * 26}, {40});
    twice.Scale = 2;
    EXPECT_EQ(LayoutMessage(twice).Window, QSize(2 * 461, 2 * 118)) << "not in proportion on a screen of 192 dpi";
}

// Catches: a long text, title or list of buttons that leads off the screen, where nobody can press a button.
TEST(MessageLayout, NothingLeavesTheScreen)
{
    MessageParts parts = Parts({5000, 5000}, std::vector<int>(40, 90));
    parts.Title = QSize(3000, 16);
    const MessageLayout layout = LayoutMessage(parts);
    EXPECT_TRUE(layout.Scrolls);
    const QRect window(QPoint(), layout.Window);
    EXPECT_TRUE(QRect(QPoint(), parts.Screen).contains(window));
    EXPECT_TRUE(window.contains(layout.Text));
    for (size_t i = 0; i < layout.Buttons.size(); ++i) {
        EXPECT_TRUE(window.contains(layout.Buttons[i])) << i;
        EXPECT_FALSE(layout.Buttons[i].intersects(layout.Text)) << i;
        EXPECT_TRUE(i == 0 || !layout.Buttons[i].intersects(layout.Buttons[i - 1])) << i;
    }
}

// Catches: seven numbers read in the wrong order, a short list or a word read as numbers, bands outside 0 to 255, and
// a narrow window whose bands are 0 wide, so that drawing never ends.
TEST(MessageColour, CodesNumbersAndBands)
{
    EXPECT_EQ(ColoursOf(QStringLiteral("bro")).Band(10), QColor(120, 50, 20));
    EXPECT_EQ(ColoursOf(QStringLiteral("blu")).Title, QColor(200, 255, 255));
    const MessageColours told = ColoursOf(QStringLiteral("0_10_20_250_-1_2_3"));
    EXPECT_EQ(told.Direction, 0);
    EXPECT_EQ(told.Band(2), QColor(8, 24, 255));
    EXPECT_EQ(told.Band(1000), QColor(0, 255, 255));
    for (const char* odd : {"", "1_2_3", "1_2_3_4_5_6_7_8", "green"}) {
        const MessageColours colours = ColoursOf(QString::fromLatin1(odd));
        EXPECT_EQ(colours.Direction, 1) << odd;
        EXPECT_EQ(colours.Band(1), QColor(47, 47, 47)) << odd;
    }
    QImage strip(50, 30, QImage::Format_RGB32);
    strip.fill(Qt::red);
    QPainter painter(&strip);
    PaintForm(painter, strip.size(), 18, ColoursOf(QStringLiteral("whi")));
    EXPECT_EQ(strip.pixelColor(0, 17), QColor(2, 2, 2));
    EXPECT_EQ(strip.pixelColor(49, 0), QColor(100, 100, 100));
    EXPECT_EQ(strip.pixelColor(49, 18), QColor(Qt::red));
    PaintForm(painter, strip.size(), 18, told);
    EXPECT_EQ(strip.pixelColor(49, 29), told.Band(29));
}

// Catches: an answer that is the wrong caption or index, a default that is not the first button, and arrow or Tab keys
// that do not reach the others.
TEST(MessageWindow, AnswersByMouseAndKeys)
{
    const MessageRecord record = Record("Yes_No & Never_Cancel__Lost");
    const auto expect = [](Pressed answer, int place) { EXPECT_EQ(answer.Place, place); };
    expect(AnswerTo(record,
                    [](QWidget& window) {
                        EXPECT_EQ(window.findChildren<QPushButton*>().size(), 3) << "an empty caption ends the list";
                        QTest::mouseClick(&Part<QPushButton>(window, "cmdButton3"), Qt::LeftButton);
                    }),
           2);
    expect(AnswerTo(record, [](QWidget& window) { Press(window, {Qt::Key_Return}); }), 1);
    expect(AnswerTo(record, [](QWidget& window) { Press(window, {Qt::Key_Right, Qt::Key_Return}); }), 2);
    expect(AnswerTo(record, [](QWidget& window) { Press(window, {Qt::Key_Left, Qt::Key_Space}); }), 3);
    expect(AnswerTo(record, [](QWidget& window) { Press(window, {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space}); }), 3);
    expect(AnswerTo(Record(""), [](QWidget& window) { Press(window, {Qt::Key_Return}); }), 1);
    QGuiApplication::clipboard()->clear();
    AnswerTo(record, [](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
    });
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(record.MessageTitle));
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(record.MessageText));
}

// Catches: Esc, the close box or the program's end answering with "", with the first button although that would lose
// something, or not at all.
TEST(MessageWindow, ClosingIsTheWayOut)
{
    const auto escape = [](QWidget& window) { Press(window, {Qt::Key_Escape}); };
    const auto close = [](QWidget& window) { window.close(); };
    EXPECT_EQ(AnswerTo(Record("Overwrite_Cancel"), escape).Place, 2);
    EXPECT_EQ(AnswerTo(Record("Next Step_Continue_Break"), close).Place, 3);
    EXPECT_EQ(AnswerTo(Record("Yippie!"), escape).Place, 1);
    MessageRecord welcome = Record("OK_Options");
    welcome.WayOut = 2;
    EXPECT_EQ(AnswerTo(welcome, [](QWidget&) { CloseModalWindows(); }).Place, 2);
}

// Catches: text of a macro or a file name taken as rich text, "&" eaten or made a shortcut letter, and "^" not broken.
TEST(MessageWindow, ShowsTextsAsTheyAre)
{
    MessageRecord record = Record("No_C&ut", "<b>x</b>^^a & b");
    record.MessageTitle = QStringLiteral("<i>t</i> && u");
    const Pressed answer = AnswerTo(record, [](QWidget& window) {
        EXPECT_EQ(Part<QPlainTextEdit>(window, "lblTEXT").toPlainText(), QStringLiteral("<b>x</b>\n\na & b"));
        const auto& title = Part<QLabel>(window, "lblTitle");
        EXPECT_EQ(title.textFormat(), Qt::PlainText);
        EXPECT_EQ(title.text(), QStringLiteral("      <i>t</i> && u"));
        EXPECT_EQ(Part<QPushButton>(window, "cmdButton3").text(), QStringLiteral("C&&ut"));
        QTest::keyClick(&window, Qt::Key_U, Qt::AltModifier);
        EXPECT_TRUE(window.isVisible());
    });
    EXPECT_EQ(answer.Place, 1);
}

// Catches: any message of the table whose text, title or captions do not fit, or an icon that is not there.
TEST(MessageWindow, EveryMessageFits)
{
    const QString path = QStringLiteral("/home/author/rocksndiamonds/levels/Some_Levels/graphics/graphicsinfo.conf");
    for (const MessageRow& row : Messages()) {
        MessageRecord record = Record(row.Buttons, row.Text);
        record.MessageText.replace(QStringLiteral("%1"), path).replace(QStringLiteral("%2"), path);
        record.MessageTitle = QString::fromUtf8(row.Title);
        record.MessageIcon = row.Icon;
        AnswerTo(record, [&](QWidget& window) {
            const auto& text = Part<QPlainTextEdit>(window, "lblTEXT");
            EXPECT_EQ(text.verticalScrollBar()->maximum(), 0) << row.Number;
            EXPECT_FALSE(text.verticalScrollBar()->isVisible()) << row.Number;
            const auto& title = Part<QLabel>(window, "lblTitle");
            EXPECT_TRUE(title.text().endsWith(record.MessageTitle)) << row.Number;
            EXPECT_LE(title.sizeHint().width(), window.width()) << row.Number;
            for (const QPushButton* button : window.findChildren<QPushButton*>())
                EXPECT_LT(button->fontMetrics().horizontalAdvance(button->accessibleName()), button->width() - 8)
                    << row.Number;
            EXPECT_FALSE(Part<QLabel>(window, "imgIcon").pixmap().isNull()) << row.Number;
        });
    }
}

// Catches: a text longer than the screen that can not be read to its end, by mouse or by keys.
TEST(MessageWindow, AHugeTextScrolls)
{
    MessageRecord record = Record("OK");
    for (int i = 0; i < 500; ++i)
        record.MessageText += QStringLiteral("line %1^").arg(i);
    record.MessageText += QString(3000, QLatin1Char('x'));
    AnswerTo(record, [](QWidget& window) {
        EXPECT_TRUE(window.screen()->geometry().contains(window.frameGeometry()));
        auto& text = Part<QPlainTextEdit>(window, "lblTEXT");
        EXPECT_TRUE(text.verticalScrollBar()->isVisible());
        EXPECT_FALSE(text.horizontalScrollBar()->isVisible());
        QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
        ASSERT_TRUE(text.hasFocus());
        QTest::keyClick(&text, Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(text.verticalScrollBar()->value(), text.verticalScrollBar()->maximum());
    });
}

// Catches: a message that can not be answered because the main window is disabled while a pass runs, one that does
// not count as running work, and one under the hourglass.
TEST(MessageWindow, WorksAboveADisabledWindow)
{
    QWidget owner;
    owner.show();
    owner.setEnabled(false);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const int work = RunningWork();
    OnModal([&](QWidget& window) {
        EXPECT_EQ(window.parentWidget(), &owner);
        EXPECT_EQ(RunningWork(), work + 1);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        QTest::mouseClick(&Part<QPushButton>(window, "cmdButton3"), Qt::LeftButton);
    });
    EXPECT_EQ(frmMess(Record("A_B_Cancel"), &owner).Ask().Place, 2);
    EXPECT_EQ(RunningWork(), work);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
}

// Catches: a window without a title bar that can not be moved out of the way.
TEST(MessageWindow, MovesByItsTitle)
{
    AnswerTo(Record("OK"), [](QWidget& window) {
        auto& title = Part<QLabel>(window, "lblTitle");
        const QPoint before = window.pos();
        QTest::mousePress(&title, Qt::LeftButton, {}, {20, 5});
        QTest::mouseMove(&title, {35, 12});
        QTest::mouseRelease(&title, Qt::LeftButton, {}, {20, 5});
        EXPECT_EQ(window.pos(), before + QPoint(15, 7));
    });
}
