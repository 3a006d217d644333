#include "help/page_text.h"

#include <QHash>
#include <algorithm>

namespace {

struct Tag
{
    QStringView Name;
    bool Closes = false;
    QHash<QString, QString> Attributes;
};

QString Decoded(QStringView text)
{
    static const QHash<QString, QChar> names{{QStringLiteral("amp"), QLatin1Char('&')},
                                             {QStringLiteral("lt"), QLatin1Char('<')},
                                             {QStringLiteral("gt"), QLatin1Char('>')},
                                             {QStringLiteral("quot"), QLatin1Char('"')},
                                             {QStringLiteral("nbsp"), QLatin1Char(' ')}};
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype end = text[i] == QLatin1Char('&') ? text.indexOf(QLatin1Char(';'), i) : -1;
        const auto found = end < 0 ? names.cend() : names.constFind(text.mid(i + 1, end - i - 1).toString());
        if (found == names.cend()) {
            plain += text[i];
            continue;
        }
        plain += *found;
        i = end;
    }
    return plain;
}

bool IsBlank(QChar c)
{
    return c.isSpace();
}

/// `inside` is what stands between "<" and ">".
Tag ReadTag(QStringView inside)
{
    Tag tag;
    qsizetype at = 0;
    if (inside.startsWith(QLatin1Char('/'))) {
        tag.Closes = true;
        at = 1;
    }
    const qsizetype nameStart = at;
    while (at < inside.size() && !IsBlank(inside[at]))
        ++at;
    tag.Name = inside.mid(nameStart, at - nameStart);
    while (true) {
        const qsizetype equals = inside.indexOf(QStringView(u"=\""), at);
        const qsizetype end = equals < 0 ? -1 : inside.indexOf(QLatin1Char('"'), equals + 2);
        if (end < 0)
            return tag;
        tag.Attributes.insert(inside.mid(at, equals - at).trimmed().toString(),
                              Decoded(inside.mid(equals + 2, end - equals - 2)));
        at = end + 1;
    }
}

bool IsHeading(QStringView name)
{
    return name.size() == 2 && name[0] == QLatin1Char('h') && name[1] >= QLatin1Char('1') &&
           name[1] <= QLatin1Char('6');
}

bool IsInline(QStringView name)
{
    static const QStringList names{QStringLiteral("a"),   QStringLiteral("b"),    QStringLiteral("i"),
                                   QStringLiteral("em"),  QStringLiteral("code"), QStringLiteral("strong"),
                                   QStringLiteral("kbd"), QStringLiteral("span")};
    return names.contains(name.toString());
}

/// Takes tags and text in turn and builds the page.
class Reader
{
public:
    Reader() { page.Sections.emplace_back(); }

    void Take(const Tag& tag)
    {
        if (tag.Name == u"title")
            inTitle = !tag.Closes;
        if (IsHeading(tag.Name)) {
            inHeading = !tag.Closes;
            if (inHeading)
                page.Sections.emplace_back();
        }
        for (const char* key : {"name", "id"})
            TakeAnchor(tag.Attributes.value(QLatin1String(key)), tag.Name);
        if (tag.Name == u"a")
            TakeLink(tag);
        if (!IsInline(tag.Name))
            page.Sections.back().Text += QLatin1Char(' ');
    }

    void Take(QStringView text)
    {
        const QString plain = Decoded(text);
        if (inTitle)
            page.Title += plain;
        else if (inHeading)
            page.Sections.back().Title += plain;
        else
            page.Sections.back().Text += plain;
        if (inLink)
            page.Links.back().Text += plain;
    }

    PageText Finished()
    {
        page.Title = page.Title.simplified();
        for (PageSection& section : page.Sections) {
            section.Title = section.Title.simplified();
            section.Text = section.Text.simplified();
        }
        return std::move(page);
    }

private:
    void TakeAnchor(const QString& anchor, QStringView tagName)
    {
        if (anchor.isEmpty() || tagName == u"meta")
            return;
        page.Anchors += anchor;
        if (inHeading && page.Sections.back().Anchor.isEmpty())
            page.Sections.back().Anchor = anchor;
    }

    void TakeLink(const Tag& tag)
    {
        const QString target = tag.Attributes.value(QStringLiteral("href"));
        inLink = !tag.Closes && !target.isEmpty();
        if (inLink)
            page.Links.push_back({target, QString(), int(page.Sections.size()) - 1});
    }

    PageText page;
    bool inTitle = false, inHeading = false, inLink = false;
};

/// Calls `text` and `tag` in turn with what stands between the tags and inside them.
template <class TakeText, class TakeTag>
void WalkPage(QStringView all, TakeText text, TakeTag tag)
{
    for (qsizetype at = 0; at < all.size();) {
        const qsizetype open = all.indexOf(QLatin1Char('<'), at);
        const qsizetype close = open < 0 ? -1 : all.indexOf(QLatin1Char('>'), open);
        if (close < 0) {
            text(all.mid(at));
            return;
        }
        text(all.mid(at, open - at));
        tag(all.mid(open + 1, close - open - 1));
        at = close + 1;
    }
}

/// Tags without an end, or whose end may be left out.
bool MayStayOpen(QStringView name)
{
    static const QStringList names{QStringLiteral("br"), QStringLiteral("hr"),    QStringLiteral("img"),
                                   QStringLiteral("p"),  QStringLiteral("input"), QStringLiteral("meta"),
                                   QStringLiteral("li"), QStringLiteral("link"),  QStringLiteral("!doctype"),
                                   QStringLiteral("dt"), QStringLiteral("dd"),    QStringLiteral("td"),
                                   QStringLiteral("th"), QStringLiteral("tr")};
    return names.contains(name.toString(), Qt::CaseInsensitive);
}

} // namespace

int DeepestNesting(const QString& html)
{
    int depth = 0, deepest = 0;
    WalkPage(
        html, [](QStringView) {},
        [&](QStringView inside) {
            const Tag tag = ReadTag(inside);
            if (MayStayOpen(tag.Name) || inside.endsWith(QLatin1Char('/')))
                return;
            depth = tag.Closes ? std::max(0, depth - 1) : depth + 1;
            deepest = std::max(deepest, depth);
        });
    return deepest;
}

PageText ReadPage(const QString& html)
{
    Reader reader;
    WalkPage(
        html, [&](QStringView text) { reader.Take(text); }, [&](QStringView inside) { reader.Take(ReadTag(inside)); });
    return reader.Finished();
}
