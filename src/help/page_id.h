#pragma once

#include <QString>

/// A place in the help: a page's file and an anchor in it (may be empty).
struct HelpPlace
{
    QString File, Anchor;

    bool operator==(const HelpPlace&) const = default;
};

/// The page that opens when nothing else fits.
inline const QString ContentsPage = QStringLiteral("contents.html");

/// File of the page for an id. "H_main_save" gives "h_main_save.html", "!graphics info\yamyam" the page of its folder,
/// "words_graphics_info.html"; an empty id gives the contents. Never names anything outside the pages' own folder.
QString PageFile(const QString& id);

/// The word of an id "!FOLDER\WORD"; empty for any other id.
QString WordOfId(const QString& id);

/// Anchor of a word on a word page: "w_" and the word, with all but letters, digits and "_" as "-" and two hex digits.
QString WordAnchor(const QString& word);
