#pragma once

#include "platform/result.h"

#include <QStringList>

/// Proves that a file is the game: runs it with the proof's argument, in a home of its own, and looks for its banner.
/// Gives back its version. A failure tells why it is not. What it printed is kept in the data folder.
constexpr qint64 ProofLimit = 10'000; // ms
[[nodiscard]] Result<QString> ProveGame(const QString& program, qint64 limitMs = ProofLimit);

/// The version in what the proof printed; empty if there is no banner.
QString VersionIn(const QByteArray& printed, const QString& banner);

/// The first file that is the game: in the folders of PATH, then in the usual ones. Empty if there is none.
QString FindGame();

/// Where FindGame looks, in its order: files that are there and may be run.
QStringList GameCandidates();

/// Sets RNDPath if it is empty and a game is found; tells it in the status bar.
void FindGameAtStart();

/// Makes `program` the game in use: RNDPath, what is derived from it, and user.ini.
void UseGame(const QString& program);
