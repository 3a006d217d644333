#pragma once

#include "frame/media/media_request.h"

#include <tl/expected.hpp>

class DocumentText;

/// Why LocateElementImage found nothing.
enum NotLocated : int {
    TextSelected, ///< while these commands go by the caret's line
    NoKey,        ///< in the caret's line
    NoMainLine,
    NoImageName,
    ImageNotInLists,
};

/// Finds the image or sound that the block (in other modes than graphics: the line) at the caret names in the media
/// lists. The caret goes to the start of its line.
tl::expected<MediaRequest, NotLocated> LocateElementImage(DocumentText& pane);

/// "Quick Preview" and "Edit Animation": what LocateElementImage finds is shown in the media lists and opened in the
/// tool of the mode; returns when that has closed. What it lacked comes as a message, a place without anything to open
/// as a notice.
void QuickPreview();
void EditAnimation();
