#pragma once

#include "game/game_messages.h"

#include <QHash>
#include <functional>

/// The lines of one conf text by their keys and by their values, as the game reads them: a key ends at ":", "=" or,
/// without both, at a blank; "#" cuts the line; of two equal keys the later counts.
class ConfIndex
{
public:
    explicit ConfIndex(QByteArrayView utf8);

    int LineOfKey(const QString& key) const;      ///< from 0; -1 for none
    QString ValueOfKey(const QString& key) const; ///< empty without one
    /// The first line whose value is `value` and whose key ends with `ending`.
    int LineOfValue(const QString& value, const QString& ending = {}) const;
    QString KeyOf(int line) const;

private:
    struct Entry
    {
        int Line;
        QString Key;
    };
    QHash<QString, int> keys;
    QMultiHash<QString, Entry> values;
    QHash<int, QString> keyOfLine;
    QHash<QString, QString> valueOfKey;
};

/// A finding with its line, which leads to it.
struct PlacedFinding
{
    GameFinding Finding;
    int Line = -1; ///< from 0; -1: not found

    bool operator==(const PlacedFinding&) const = default;
};

/// The bytes of a file as the author has it now (UTF-8), none if it cannot be read.
using ConfText = std::function<QByteArray(const QString& path)>;

/// Finds file, key and line of each finding of a level set as far as they can be told: a missing picture stands in the
/// line that names it. `setFolder` ends with "/".
std::vector<PlacedFinding> PlaceFindings(std::vector<GameFinding> findings, const QString& setFolder,
                                         const ConfText& text);
