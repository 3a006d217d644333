#pragma once

#include <QString>
#include <optional>

/// Where a media file comes from.
enum class MediaSource {
    None,
    PCXBrowser, ///< the list of the document's folder
    Extra,      ///< the list of the folder that the user chose
    Rnd,        ///< the list of the game's graphics
    Macro,      ///< from here on a whole path: of a macro's command
    Palette,
    Film,
    PCXLab,
};

/// An entry of the media lists.
struct MediaHit
{
    MediaSource Source = MediaSource::PCXBrowser;
    int Row = 0;
    QString Name;
};

/// A block of the current document: its main line, and the line that the caret goes back to.
struct BlockPlace
{
    int MainLine = 0, CaretLine = 0;
};

/// A file of the media lists, to be opened by the tool of the current mode.
struct MediaRequest
{
    MediaHit Entry;
    std::optional<BlockPlace> Block; ///< what names the file there; nothing if it was picked from its list
    bool Quick = false;              ///< the small preview of a sheet
};
