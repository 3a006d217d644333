#include "help/page_style.h"
#include "help_test_support.h"
#include "platform/images/contrast.h"

namespace {

QHash<QString, QByteArray> SmallBook()
{
    return {{QStringLiteral("contents.html"),
             "<html><head><title>Help</title></head><body><h1>Help</h1><p><a href=\"save.html\">x</a></p>"
             "<h2>Files</h2><a href=\"save.html\">Save &amp; go</a><a href=\"gone.html\">Gone</a></body></html>"},
            {QStringLiteral("save.html"), "<title>Save</title><h1>Save</h1><p>Writes <b>the</b>file.</p>"
                                          "<h2><a name=\"late\"></a>Late words</h2><p>A &lt;backup&gt; first.</p>"},
            {QStringLiteral("other.html"), "<title>Save it all</title><h1>Other</h1><p>nothing of note</p>"}};
}

QString FirstHit(const HelpBook& book, const char* words)
{
    const std::vector<SearchHit> hits = book.Search(QLatin1String(words));
    return hits.empty() ? QStringLiteral("none") : hits.front().Place.File + hits.front().Place.Anchor;
}

} // namespace

// Catches: contents that list what does not exist or repeat the links of the page's introduction.
TEST(HelpBook, ContentsAreTheLinksBelowTheHeadings)
{
    const TestArchive archive(SmallBook());
    const HelpBook book = HelpBook::Open(archive.Path()).value();
    const std::vector<ContentsLine> lines = book.Contents();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].Title, QStringLiteral("Files"));
    EXPECT_TRUE(lines[0].Place.File.isEmpty());
    EXPECT_EQ(lines[1].Title, QStringLiteral("Save & go"));
    EXPECT_EQ(lines[1].Place.File, QStringLiteral("save.html"));
}

// Catches: a search that minds case, finds tags or half the words, looks at one word only, puts a page whose text
// holds the word before the page of that name, or brings every section of a page whose title fits.
TEST(HelpBook, SearchFindsAllWordsAndPutsTitlesFirst)
{
    const TestArchive archive(SmallBook());
    const HelpBook book = HelpBook::Open(archive.Path()).value();
    EXPECT_EQ(FirstHit(book, "SAVE"), QStringLiteral("save.html"));
    EXPECT_EQ(FirstHit(book, "<backup>"), QStringLiteral("save.htmllate"));
    EXPECT_EQ(FirstHit(book, "  backup   late "), QStringLiteral("save.htmllate"));
    EXPECT_EQ(FirstHit(book, "backup missing"), QStringLiteral("none"));
    EXPECT_EQ(FirstHit(book, "href"), QStringLiteral("none"));
    EXPECT_EQ(FirstHit(book, " "), QStringLiteral("none"));
    EXPECT_EQ(book.Search(QStringLiteral("save")).size(), 1U);
    EXPECT_EQ(FirstHit(book, "save note"), QStringLiteral("other.html"));
    EXPECT_EQ(FirstHit(ShippedBook(), "anim mode"), QStringLiteral("words_graphics_info.htmlw_anim_mode"));
    EXPECT_EQ(FirstHit(ShippedBook(), "tidy"), QStringLiteral("h_main_tidy_up.html"));
    EXPECT_EQ(ShippedBook().Search(QStringLiteral("a"), 7).size(), 7U);
}

// Catches: a crash or an empty window where the archive is missing, cut short, damaged inside, or another file.
TEST(HelpBook, ABrokenArchiveIsToldWithPathAndReason)
{
    const auto told = [](const QString& path) {
        const Result<HelpBook> book = HelpBook::Open(path);
        return !book && book.error().Path.contains(QLatin1String("Help.zip")) && book.error().Reason.size() > 5;
    };
    const TestArchive archive(SmallBook());
    const QByteArray whole = archive.Bytes();
    ASSERT_TRUE(HelpBook::Open(archive.Path()).has_value());
    EXPECT_TRUE(told(QStringLiteral("/nowhere/Help.zip")));
    for (const qsizetype length : {qsizetype(0), qsizetype(10), whole.size() / 2, whole.size() - 10}) {
        archive.Overwrite(whole.left(length));
        EXPECT_TRUE(told(archive.Path())) << length;
    }
    QByteArray damaged = whole;
    damaged[damaged.indexOf("Late words")] = 'W';
    archive.Overwrite(damaged);
    EXPECT_TRUE(told(archive.Path()));
    archive.Overwrite(QByteArray(5000, 'x'));
    EXPECT_TRUE(told(archive.Path()));

    auto pages = SmallBook();
    pages.remove(ContentsPage);
    EXPECT_TRUE(told(TestArchive(pages).Path()));
}

// Catches: two words with one anchor, an anchor that a link cannot carry, and an id that names a file elsewhere.
TEST(PageId, NamesAreSafeAndDistinct)
{
    EXPECT_EQ(WordAnchor(QStringLiteral("page[1]")), QStringLiteral("w_page-5b1-5d"));
    EXPECT_NE(WordAnchor(QStringLiteral("a.b")), WordAnchor(QStringLiteral("a-2eb")));
    EXPECT_EQ(PageFile(QStringLiteral("H_main_Save")), QStringLiteral("h_main_save.html"));
    EXPECT_EQ(PageFile(QStringLiteral("!Graphics Info\\a\\b")), QStringLiteral("words_graphics_info.html"));
    EXPECT_EQ(WordOfId(QStringLiteral("!graphics info\\a\\b")), QStringLiteral("a\\b"));
    EXPECT_FALSE(PageFile(QStringLiteral("../x/y")).contains(QLatin1Char('/')));
}

// Catches: text or links that can hardly be read on a dark desktop.
TEST(PageStyle, LinksStandOutOnLightAndDark)
{
    const QColor blue(0, 0, 255);
    EXPECT_EQ(Legible(blue, Qt::white), blue);
    EXPECT_GT(Legible(blue, QColor(27, 30, 32)).lightness(), blue.lightness());
    EXPECT_LT(Legible(QColor(200, 200, 255), Qt::white).lightness(), 180);
}
