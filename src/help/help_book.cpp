#include "help/help_book.h"

#include "platform/archives/zip_archive.h"

#include <algorithm>

namespace {

constexpr QLatin1StringView PageEnding(".html");
constexpr qint64 MostBytes = qint64(64) << 20; // of all pages together

/// What a word may be called on its page, best first: as it stands, then without brackets, then its parts.
QStringList NamesOf(const QString& word)
{
    QString bare = word;
    bare.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
    return {word, bare, word.section(QLatin1Char('.'), 0, 0), word.section(QLatin1Char('['), 0, 0)};
}

QString AnchorFor(const PageText& page, const QString& word)
{
    for (const Qt::CaseSensitivity sense : {Qt::CaseSensitive, Qt::CaseInsensitive})
        for (const QString& name : NamesOf(word)) {
            const QString wanted = WordAnchor(name);
            for (const QString& anchor : page.Anchors)
                if (anchor.compare(wanted, sense) == 0)
                    return anchor;
        }
    return {};
}

/// How well a section answers; 0: not at all.
int Score(const PageSection& section, const QString& pageTitle, const QStringList& words)
{
    QString title = section.Title;
    title.replace(QLatin1Char('_'), QLatin1Char(' '));
    QString asked = words.join(QLatin1Char(' '));
    asked.replace(QLatin1Char('_'), QLatin1Char(' '));
    int score = title.compare(asked, Qt::CaseInsensitive) == 0 ? 200 : 1;
    bool own = false; // a page's title alone would bring all of its sections
    for (const QString& word : words) {
        if (section.Title.startsWith(word, Qt::CaseInsensitive))
            score += 60;
        else if (section.Title.contains(word, Qt::CaseInsensitive))
            score += 40;
        else if (section.Text.contains(word, Qt::CaseInsensitive))
            score += 1;
        else if (pageTitle.contains(word, Qt::CaseInsensitive))
            continue;
        else
            return 0;
        own = true;
    }
    return own ? score : 0;
}

QString ExcerptOf(const QString& text, const QString& word)
{
    constexpr qsizetype Length = 90;
    const qsizetype hit = std::max<qsizetype>(text.indexOf(word, 0, Qt::CaseInsensitive), 0);
    qsizetype start = hit <= Length / 3 ? 0 : text.indexOf(QLatin1Char(' '), hit - Length / 3) + 1;
    start = std::min(start, hit);
    const QString cut = text.mid(start, Length);
    return (start > 0 ? QStringLiteral("… ") : QString()) + cut +
           (start + Length < text.size() ? QStringLiteral(" …") : QString());
}

} // namespace

Result<HelpBook> HelpBook::Open(const QString& archive)
{
    const Result<ZipArchive> zip = ZipArchive::Open(archive);
    if (!zip)
        return tl::unexpected(zip.error());
    HelpBook book;
    qint64 left = MostBytes;
    for (int i = 0; i < int(zip->Entries().size()); ++i) {
        const QString& name = zip->Entries()[size_t(i)].Name;
        if (name.endsWith(QLatin1Char('/')))
            continue;
        const Result<QByteArray> bytes = zip->Read(i, left);
        if (!bytes)
            return Fail(archive, QStringLiteral("%1: %2").arg(name, bytes.error().Reason));
        left -= bytes->size();
        book.files.insert(name, *bytes);
    }
    if (!book.files.contains(ContentsPage))
        return Fail(archive, QStringLiteral("The archive holds no page \"%1\".").arg(ContentsPage));
    for (auto file = book.files.cbegin(); file != book.files.cend(); ++file)
        if (file.key().endsWith(PageEnding))
            book.pages.insert(file.key(), ReadPage(QString::fromUtf8(file.value())));
    return book;
}

HelpPlace HelpBook::Resolve(const QString& id) const
{
    const QString file = PageFile(id);
    if (!Has(file))
        return {ContentsPage, QString()};
    const QString word = WordOfId(id);
    return {file, word.isEmpty() ? QString() : AnchorFor(Page(file), word)};
}

bool HelpBook::Has(const QString& file) const
{
    return files.contains(file);
}

QByteArray HelpBook::Bytes(const QString& file) const
{
    return files.value(file);
}

const PageText& HelpBook::Page(const QString& file) const
{
    return *pages.constFind(file);
}

QStringList HelpBook::Pages() const
{
    QStringList names = pages.keys();
    names.sort();
    return names;
}

std::vector<ContentsLine> HelpBook::Contents() const
{
    std::vector<ContentsLine> lines;
    if (!Has(ContentsPage))
        return lines;
    const PageText& page = Page(ContentsPage);
    int section = -1;
    for (const PageLink& link : page.Links) {
        const bool inChapter = page.Sections[size_t(link.Section)].Title != page.Title;
        if (!inChapter || !Has(link.Target))
            continue;
        if (section != link.Section)
            lines.push_back({page.Sections[size_t(link.Section)].Title, {}});
        section = link.Section;
        lines.push_back({link.Text, {link.Target, QString()}});
    }
    return lines;
}

std::vector<SearchHit> HelpBook::Search(const QString& words, int most) const
{
    const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (wanted.isEmpty())
        return {};
    struct Scored
    {
        int Score;
        const QString* File;
        const PageSection* Section;
    };
    std::vector<Scored> found;
    for (auto page = pages.cbegin(); page != pages.cend(); ++page)
        for (const PageSection& section : page->Sections)
            if (const int score =
                    section.Title.isEmpty() || page.key() == ContentsPage ? 0 : Score(section, page->Title, wanted))
                found.push_back({score, &page.key(), &section});
    std::sort(found.begin(), found.end(), [](const Scored& a, const Scored& b) {
        if (a.Score != b.Score)
            return a.Score > b.Score;
        return *a.File != *b.File ? *a.File < *b.File : a.Section < b.Section;
    });
    if (found.size() > size_t(most))
        found.resize(size_t(most));

    std::vector<SearchHit> hits;
    hits.reserve(found.size());
    for (const Scored& one : found)
        hits.push_back({{*one.File, one.Section->Anchor},
                        one.Section->Title,
                        pages[*one.File].Title,
                        ExcerptOf(one.Section->Text, wanted.first())});
    return hits;
}
