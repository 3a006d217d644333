#include "help_test_support.h"

#include <QSet>
#include <QUrl>

namespace {

const char* const Folders[] = {"graphics info", "sounds info", "music info", "level info", "other infos"};

/// The heading that holds the anchor of a place; empty for a page's top.
QString HeadingAt(const HelpPlace& place)
{
    const QString html = QString::fromUtf8(ShippedBook().Bytes(place.File));
    const qsizetype anchor = html.indexOf(QStringLiteral("<a name=\"%1\">").arg(place.Anchor));
    const qsizetype end = html.indexOf(QLatin1String("</h"), anchor);
    return anchor < 0 ? QString() : html.mid(anchor, end - anchor).section(QLatin1Char('>'), -1);
}

QString At(const QString& file, const QString& target)
{
    return file + QStringLiteral(" -> ") + target;
}

} // namespace

// Catches: a page whose name its id does not lead to, so that F1 shows the contents.
TEST(ShippedPages, EachIdOfTheMainWindowLeadsToItsPage)
{
    int ids = 0;
    for (const QString& file : ShippedBook().Pages()) {
        if (!file.startsWith(QLatin1String("h_main_")))
            continue;
        const QString key = file.mid(7, file.size() - 7 - QStringLiteral(".html").size());
        EXPECT_EQ(ShippedBook().Resolve(QStringLiteral("H_main_") + key), (HelpPlace{file, QString()})) << key;
        ++ids;
    }
    EXPECT_GT(ids, 50);
}

// Catches: a link to a page that was renamed or to a heading that was reworded, and a link that leads out.
TEST(ShippedPages, EveryLinkLeadsToAPageAndAnAnchorThatExist)
{
    const HelpBook& book = ShippedBook();
    int links = 0;
    for (const QString& file : book.Pages())
        for (const PageLink& link : book.Page(file).Links) {
            const QUrl target(link.Target);
            const QString page = target.path().isEmpty() ? file : target.path();
            ASSERT_TRUE(target.scheme().isEmpty() && book.Has(page)) << At(file, link.Target);
            if (target.hasFragment()) {
                EXPECT_TRUE(book.Page(page).Anchors.contains(target.fragment())) << At(file, link.Target);
            }
            EXPECT_FALSE(link.Text.isEmpty()) << At(file, link.Target);
            ++links;
        }
    EXPECT_GT(links, 200);
}

// Catches: a page without a title (an empty line in window title and search), one that no link reaches, an anchor
// that stands twice (the second is never shown), and a section that search leads to the wrong place for.
TEST(ShippedPages, EveryPageHasATitleIsReachableAndNamesEachAnchorOnce)
{
    const HelpBook& book = ShippedBook();
    QSet<QString> listed;
    for (const ContentsLine& line : book.Contents())
        listed.insert(line.Place.File);
    for (const QString& file : book.Pages()) {
        const PageText& page = book.Page(file);
        EXPECT_FALSE(page.Title.isEmpty()) << file;
        EXPECT_TRUE(file == ContentsPage || listed.contains(file)) << file;
        const QSet<QString> distinct(page.Anchors.cbegin(), page.Anchors.cend());
        EXPECT_EQ(distinct.size(), page.Anchors.size()) << file;
        for (size_t i = 2; i < page.Sections.size(); ++i) {
            const bool anchored = !page.Sections[i].Anchor.isEmpty() || file == ContentsPage;
            const bool chapterOfWords = file.startsWith(QLatin1String("words_"));
            EXPECT_TRUE(anchored || chapterOfWords) << At(file, page.Sections[i].Title);
        }
    }
}

// Catches: F1 on a word that opens its page at the top: words with dots, brackets, other letter case, numbered
// families and the words that stand for a whole class.
TEST(ShippedPages, WordsLeadToTheirSection)
{
    const std::pair<const char*, const char*> cases[] = {
        {"!graphics info\\yamyam", "yamyam"},
        {"!graphics info\\custom", "custom_1 to custom_256"},
        {"!graphics info\\char", "char_space to char_down"},
        {"!graphics info\\group", "group_1 to group_32"},
        {"!graphics info\\frames", "frames"},
        {"!graphics info\\pingpong2", "pingpong2"},
        {"!graphics info\\page[7]", "page"},
        {"!graphics info\\robot_wheel.active", "robot_wheel"},
        {"!graphics info\\EDITOR", "EDITOR"},
        {"!graphics info\\editor", "editor"},
        {"!graphics info\\YAMYAM", "yamyam"},
        {"!graphics info\\key_1", "key_1 to key_4"},
        {"!sounds info\\exit", "exit"},
        {"!sounds info\\volume", "volume"},
        {"!music info\\background", "background"},
        {"!level info\\sort_priority", "sort_priority"},
        {"!level info\\graphics_set.old", "graphics_set"},
        {"!other infos\\end", "end"},
        {"!other infos\\mole", "mole"},
    };
    for (const auto& [id, title] : cases) {
        const HelpPlace place = ShippedBook().Resolve(QLatin1String(id));
        EXPECT_EQ(HeadingAt(place), QLatin1String(title)) << id;
    }
    for (const char* folder : Folders) {
        const QString id = QLatin1Char('!') + QLatin1String(folder) + QLatin1Char('\\');
        const HelpPlace top = ShippedBook().Resolve(id);
        EXPECT_NE(top.File, ContentsPage) << id;
        EXPECT_EQ(ShippedBook().Resolve(id + QStringLiteral("no_such_word")), top) << id;
        EXPECT_TRUE(top.Anchor.isEmpty()) << id;
    }
}

// Catches: a game word that has no place on its page, after new tables were laid in and the pages not made again.
TEST(ShippedPages, EveryParameterAndKeyIsExplained)
{
    const auto section = [](const char* folder, const QString& word) {
        const HelpPlace place =
            ShippedBook().Resolve(QLatin1Char('!') + QLatin1String(folder) + QLatin1Char('\\') + word);
        for (const PageSection& one : ShippedBook().Page(place.File).Sections)
            if (one.Anchor == place.Anchor && !place.Anchor.isEmpty())
                return one.Text;
        return QString();
    };
    for (const char* word : {"xpos", "ypos", "frames", "delay", "anim_mode", "start_frame", "name", "global_sync",
                             "offset", "clone_from", "border_size", "crumbled_like"})
        EXPECT_GT(section("graphics info", QLatin1String(word)).size(), 20) << word;
    for (const char* word : {"author", "levels", "first_level", "readonly", "handicap", "filetype"})
        EXPECT_GT(section("level info", QLatin1String(word)).size(), 15) << word;
    EXPECT_TRUE(section("graphics info", QStringLiteral("yamyam")).contains(QLatin1String("11")));
}

// Catches: an id that opens nothing, or that leads out of the pages' own folder.
TEST(ShippedPages, UnknownIdsOpenTheContents)
{
    for (const char* id :
         {"", "  ", "H_main_nothing", "../../etc/passwd", "!no such folder\\word", "contents", "%", "!"})
        EXPECT_EQ(ShippedBook().Resolve(QLatin1String(id)), (HelpPlace{ContentsPage, QString()})) << id;
}
