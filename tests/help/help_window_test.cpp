#include "help/contents_pane.h"
#include "help/help_window.h"
#include "help/page_view.h"
#include "help/window_memory.h"
#include "help_test_support.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTreeWidget>
#include <memory>

namespace {

/// Keeps what windows remember in a folder of the test's own.
class HelpWindowTest : public testing::Test
{
protected:
    HelpWindowTest() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path())); }

    static PageView& View(HelpWindow& window) { return *window.findChild<PageView*>(); }

    static QString File(HelpWindow& window) { return PageView::PlaceOf(View(window).source()).File; }

    static void Press(QWidget& target, int key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QKeyEvent down(QEvent::KeyPress, key, held);
        QApplication::sendEvent(&target, &down);
    }

    QTemporaryDir folder;
};

} // namespace

// Catches: a window that crashes or stays blank where the pages cannot be read.
TEST_F(HelpWindowTest, AFailureIsShownWithPathAndReason)
{
    HelpWindow window(HelpBook::Open(QStringLiteral("/nowhere/Help.zip")));
    window.ShowId(QStringLiteral("H_main_save"));
    const QString shown = View(window).toPlainText();
    EXPECT_TRUE(shown.contains(QLatin1String("/nowhere/Help.zip"))) << shown;
    EXPECT_TRUE(shown.contains(QLatin1String("No such file"))) << shown;
}

// Catches: an open window that goes on showing its old error, or old pages, when the pages have come or changed.
TEST_F(HelpWindowTest, ChangedPagesAreTakenByTheOpenWindow)
{
    const QString archive = folder.filePath(QStringLiteral("Help.zip"));
    HelpWindow window(HelpBook::Open(archive));
    window.Follow(archive);
    window.ShowId(QStringLiteral("H_main_save"));
    const TestArchive shipped(ShippedFiles());
    ASSERT_TRUE(QFile::copy(shipped.Path(), archive));
    window.ShowIdInFront(QStringLiteral("H_main_save"));
    EXPECT_EQ(File(window), QStringLiteral("h_main_save.html"));
    EXPECT_TRUE(View(window).toPlainText().contains(QLatin1String("Save")));
    EXPECT_TRUE(window.findChild<ContentsPane*>()->isEnabled());
    ASSERT_TRUE(QFile::remove(archive));
    window.ShowIdInFront(QStringLiteral("H_main_save"));
    EXPECT_TRUE(View(window).toPlainText().contains(QLatin1String("No such file")));
}

// Catches: a word's page that opens at its top, back that loses the place, a link out of the help that is followed.
TEST_F(HelpWindowTest, ShowsPlacesGoesBackAndStaysInside)
{
    HelpWindow window(ShippedBook());
    window.resize(700, 400);
    window.show();
    window.ShowId(QStringLiteral("!graphics info\\spring"));
    QApplication::processEvents();
    EXPECT_EQ(File(window), QStringLiteral("words_graphics_info.html"));
    const int line = View(window).verticalScrollBar()->value();
    EXPECT_GT(line, 1000);
    EXPECT_TRUE(window.windowTitle().startsWith(QLatin1String("Words of graphicsinfo.conf")));

    window.ShowId(QStringLiteral("H_main_save"));
    EXPECT_EQ(File(window), QStringLiteral("h_main_save.html"));
    View(window).backward();
    QApplication::processEvents();
    EXPECT_EQ(File(window), QStringLiteral("words_graphics_info.html"));
    EXPECT_EQ(View(window).verticalScrollBar()->value(), line);

    auto* contents = window.findChild<QTreeWidget*>();
    QTreeWidgetItem* page = contents->findItems(QStringLiteral("Save"), Qt::MatchExactly | Qt::MatchRecursive).value(0);
    ASSERT_TRUE(page);
    contents->scrollToItem(page);
    const QPointF place = contents->visualItemRect(page).center();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent click(type, place, contents->viewport()->mapToGlobal(place), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
        QApplication::sendEvent(contents->viewport(), &click);
    }
    EXPECT_EQ(File(window), QStringLiteral("h_main_save.html"));
    View(window).backward();

    int refused = 0;
    QObject::connect(&View(window), &PageView::LinkRefused, &window, [&refused] { ++refused; });
    for (const char* link : {"https://example.org/", "file:///etc/passwd", "help:/no_such_page.html"})
        View(window).setSource(QUrl(QLatin1String(link)));
    EXPECT_EQ(refused, 3);
    EXPECT_EQ(File(window), QStringLiteral("words_graphics_info.html"));
}

// Catches: a page that shows a file of the disk by the address of an image; pages whose tags are nested so deep that
// the window stands still.
TEST_F(HelpWindowTest, AForeignPageReachesNothingAndEnds)
{
    QImage wide(3000, 10, QImage::Format_RGB32);
    wide.fill(Qt::red);
    const QString outside = folder.filePath(QStringLiteral("wide.png"));
    ASSERT_TRUE(wide.save(outside));
    QByteArray images = "<h1>Images</h1>";
    for (const QString& address :
         QStringList({outside, QStringLiteral("file://") + outside, QStringLiteral("help:/../") + outside}))
        images += "<p><img src=\"" + QFile::encodeName(address) + "\"></p>";
    QHash<QString, QByteArray> files = ShippedFiles();
    files.insert(QStringLiteral("images.html"), images);
    for (const char* tag : {"div", "b", "table", "ul", "blockquote"}) {
        const QByteArray open = '<' + QByteArray(tag) + '>', close = "</" + QByteArray(tag) + '>';
        files.insert(QStringLiteral("deep_%1.html").arg(QLatin1String(tag)),
                     "<title>Deep</title>" + open.repeated(30'000) + "at the bottom" + close.repeated(30'000));
    }
    const TestArchive archive(files);
    const HelpBook book = HelpBook::Open(archive.Path()).value();
    PageView view(book);
    view.resize(400, 300);
    view.show();
    view.ShowPlace({QStringLiteral("images.html"), {}});
    QApplication::processEvents();
    EXPECT_LT(view.document()->idealWidth(), 1000);
    for (const char* tag : {"div", "b", "table", "ul", "blockquote"}) {
        view.ShowPlace({QStringLiteral("deep_%1.html").arg(QLatin1String(tag)), {}});
        QApplication::processEvents();
        EXPECT_TRUE(view.toPlainText().contains(QLatin1String("at the bottom"))) << tag;
    }
}

// Catches: a search that needs the mouse.
TEST_F(HelpWindowTest, SearchIsAllKeyboard)
{
    HelpWindow window(ShippedBook());
    window.show();
    auto* side = window.findChild<ContentsPane*>();
    auto* box = side->findChild<QLineEdit*>();
    auto* hits = side->findChild<QListWidget*>();
    box->setText(QStringLiteral("cut append"));
    ASSERT_GT(hits->count(), 1);
    Press(*box, Qt::Key_Return);
    EXPECT_EQ(File(window), QStringLiteral("h_main_cut_append.html"));
    Press(*box, Qt::Key_Down);
    EXPECT_EQ(hits->currentRow(), 0);
    Press(*hits, Qt::Key_Down);
    Press(*hits, Qt::Key_Return);
    EXPECT_EQ(File(window), hits->item(1)->data(Qt::UserRole).toString());
    box->setText(QStringLiteral("no such thing anywhere"));
    EXPECT_EQ(hits->count(), 0);
    Press(*box, Qt::Key_Return);
    EXPECT_FALSE(File(window).isEmpty());
}

// Catches: a find that does not go round, or stays on the match it already shows.
TEST_F(HelpWindowTest, FindOnThePageGoesRound)
{
    HelpWindow window(ShippedBook());
    window.ShowId(QStringLiteral("H_main_tidy_up"));
    PageView& view = View(window);
    const QString word = QStringLiteral("colon");
    ASSERT_TRUE(view.Find(word, false, true));
    const int first = view.textCursor().selectionStart();
    EXPECT_TRUE(view.Find(word, false, true));
    EXPECT_EQ(view.textCursor().selectionStart(), first);
    EXPECT_TRUE(view.Find(word, false, false));
    EXPECT_GT(view.textCursor().selectionStart(), first);
    EXPECT_TRUE(view.Find(word, true, false));
    EXPECT_TRUE(view.Find(word, true, false));
    EXPECT_GT(view.textCursor().selectionStart(), first);
    EXPECT_FALSE(view.Find(QStringLiteral("xyzzy"), false, false));
}

// Catches: size and zoom that are forgotten, or broken settings that make the window unusable.
TEST_F(HelpWindowTest, RemembersSizeAndZoomAndSurvivesBrokenOnes)
{
    {
        HelpWindow window(ShippedBook());
        window.show();
        window.resize(620, 410);
        View(window).SetZoom(140);
        window.close();
    }
    {
        HelpWindow window(ShippedBook());
        EXPECT_EQ(window.size(), QSize(620, 410));
        EXPECT_EQ(View(window).Zoom(), 140);
    }
    KeepWindow({"rubbish", "more rubbish", 100000});
    HelpWindow window(ShippedBook());
    EXPECT_GT(window.width(), 200);
    EXPECT_EQ(View(window).Zoom(), 300);
}

// Catches: a dark desktop that leaves the page's colours light until the next page.
TEST_F(HelpWindowTest, FollowsAChangeOfThePalette)
{
    HelpWindow window(ShippedBook());
    window.ShowId(QStringLiteral("H_main_save"));
    const QString light = View(window).document()->defaultStyleSheet();
    QPalette dark = window.palette();
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, Qt::white);
    window.setPalette(dark);
    EXPECT_NE(View(window).document()->defaultStyleSheet(), light);
    EXPECT_EQ(File(window), QStringLiteral("h_main_save.html"));
}
