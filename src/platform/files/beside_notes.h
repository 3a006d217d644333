#pragma once

#include <QByteArray>

/// Where this process has put hidden files beside others, noted in the user's state folder: what a killed process has
/// left is found at the next start, wherever it lies.
namespace beside {

/// Before the first hidden file in `folder` (with "/" at its end). That it cannot be noted stops nobody.
void Note(const QByteArray& folder);

/// Takes away the hidden files of processes that have ended, and their notes.
void SweepNoted();

/// This process ends well, and has left none.
void ForgetNotes();

} // namespace beside
