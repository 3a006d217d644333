#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <vector>

/// One key to be pressed and released.
struct KeyStroke
{
    QByteArray Key; ///< its X name: "Return", "U0041"
    bool Shift = false, Control = false, Alt = false;

    bool operator==(const KeyStroke&) const = default;
};

/// The keys that a text in the notation for sent keys means: each character itself; "+", "^" and "%" hold Shift, Ctrl
/// and Alt for the next key or the group in round brackets; "~" is Enter; braces hold a named key or a character, each
/// with a count if wanted ("{LEFT 5}", "{+}"). Fails for what is no such text, and for more than 100,000 keys.
[[nodiscard]] Result<std::vector<KeyStroke>> ReadKeyNotation(const QString& text);
