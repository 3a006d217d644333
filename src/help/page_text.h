#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// A heading and the text below it, up to the next heading.
struct PageSection
{
    QString Anchor; ///< first anchor of the heading; empty: the page's top
    QString Title;
    QString Text; ///< without tags, blanks collapsed
};

struct PageLink
{
    QString Target, Text;
    int Section = 0; ///< index of the section it stands in
};

/// What search, contents and tests need to know of a page.
struct PageText
{
    QString Title;
    std::vector<PageSection> Sections; ///< never empty; the first holds what stands before the first heading
    std::vector<PageLink> Links;
    QStringList Anchors; ///< of `name` and `id` attributes, in order
};

/// How many tags stand inside each other at most; those that nobody needs to close do not count.
int DeepestNesting(const QString& html);

/// Reads a page. Unclosed tags and unknown entities are taken as text, never a failure.
PageText ReadPage(const QString& html);
