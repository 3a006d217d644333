#pragma once

#include "windows/parts/dropped_paths.h"

struct Range;

/// Opens files as a user would: a file that a tab holds is shown there; the current tab is used if it is empty and
/// unchanged, else a new one; without a free tab the current one, after message 8.
void OpenDroppedFiles(const QStringList& files);

/// Is one of the files of a kind that a media list holds?
bool AnyLeavesItsName(const QStringList& files);

/// Files dropped into the current pane: those that a media list holds leave their names in place of `at`, parted by
/// blanks; the others are opened.
void DropIntoText(const QStringList& files, const Range& at);
