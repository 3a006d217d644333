#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QHash>

/// Texts that are not saved yet, by the canonical path of their file.
using UnsavedTexts = QHash<QString, QByteArray>;

/// The text of every tab that has a file, as it would be saved.
UnsavedTexts TextsOfTabs();

struct CopyCount
{
    int Copied = 0, Linked = 0;
};

/// Makes a level set anew in the folder `to` (made by this): unsaved texts, copies of what the game may write, links to
/// media and to all else that is large. Links inside the set are followed. Fails for a set of more than MostSetFiles.
[[nodiscard]] Result<CopyCount> CopySet(const QString& from, const QString& to, const UnsavedTexts& texts);

constexpr int MostSetFiles = 100'000;
