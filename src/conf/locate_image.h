#pragma once

/// Why LocateElementImage found nothing.
enum LocateResult : int {
    ImageOpened = 1,
    NothingToLocate = 0, ///< text is selected, or the caret's line has no key
    NoMainLine = -1,
    NoImageName = -2,
    ImageNotInLists = -3,
};

/// Finds the image or sound that the block (in other modes than graphics: the line) at the caret names, shows it in
/// the media lists and opens it in the tool of the mode; returns when that has closed. In graphics mode the block is
/// read into Conf.Element first.
LocateResult LocateElementImage();

/// "Quick Preview" and "Edit Animation": LocateElementImage, what it lacked told as a message.
void QuickPreview();
void EditAnimation();
