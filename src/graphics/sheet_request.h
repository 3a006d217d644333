#pragma once

#include "conf/element_record.h"
#include "frame/media/media_request.h"

/// What a tile sheet is opened for.
enum class SheetPurpose {
    Edit,  ///< to mark and change an element
    Quick, ///< the small preview of an element
    Pick,  ///< to pick tiles and values under a prompt; the text is left alone
    Show   ///< the sheet alone
};

struct SheetRequest
{
    MediaSource Source = MediaSource::PCXBrowser;
    QString File;                    ///< a name in the list of the source; from any other source a whole path
    std::optional<BlockPlace> Block; ///< of the current document: what describes the sheet
    SheetPurpose Purpose = SheetPurpose::Edit;
    QString Prompt; ///< of a pick

    bool IsPick() const { return Purpose == SheetPurpose::Pick || Purpose == SheetPurpose::Show; }
};

enum class SheetOutcome {
    NotShown, ///< the file is no picture, or nobody is there to look; the reason was shown
    Closed,
    Update,     ///< the block of the request is to take the element
    NewElement, ///< a block of Key is wanted
    GoTo        ///< the block at Line of the text is wanted in view
};

struct SheetAnswer
{
    SheetOutcome Outcome = SheetOutcome::NotShown;
    ElementRecord Element; ///< as it was when the window closed
    QString Key;           ///< of a new element
    bool Full = false;     ///< every field of it, or those of the quick element settings
    FieldFlags Added{};    ///< of an update: fields whose line the block is to get if it has none
    int Line = 0;          ///< to go to
};
