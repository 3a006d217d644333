#pragma once

#include "game/prepared_set.h"

/// The level set that the current document lies in: its texts as the tabs hold them, and the level that is selected in
/// the list of the document's folder. Nothing, with the reason told in the status bar, if there is none.
std::optional<SetWish> WishOfCurrentSet();

/// Is the folder a group of sets, which holds no levels itself?
bool IsGroupOfSets(const QString& folder);
