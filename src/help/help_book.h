#pragma once

#include "help/page_id.h"
#include "help/page_text.h"
#include "platform/result.h"

#include <QHash>

/// One line of the contents: a heading (no place) or a page below it.
struct ContentsLine
{
    QString Title;
    HelpPlace Place;
};

struct SearchHit
{
    HelpPlace Place;
    QString Title;     ///< of the section
    QString PageTitle; ///< of the page it stands on
    QString Excerpt;   ///< text around the first word found
};

/// All pages of the help, in memory.
class HelpBook
{
public:
    /// A book without pages: every page is missing.
    HelpBook() = default;

    /// Reads all pages of the archive. Failure: path and reason, also when it holds no contents page.
    [[nodiscard]] static Result<HelpBook> Open(const QString& archive);

    /// Where an id leads: its page, the section of its word if the page has one, else the contents.
    HelpPlace Resolve(const QString& id) const;

    bool Has(const QString& file) const;
    QByteArray Bytes(const QString& file) const;
    const PageText& Page(const QString& file) const; ///< of a page there is
    QStringList Pages() const;                       ///< files of all pages, sorted

    /// The links of the contents page, below the headings they stand under there.
    std::vector<ContentsLine> Contents() const;

    /// Sections that hold every one of the blank-parted words, in any case, best first: words in titles count more
    /// than words in text.
    std::vector<SearchHit> Search(const QString& words, int most = 200) const;

private:
    QHash<QString, QByteArray> files;
    QHash<QString, PageText> pages;
};
