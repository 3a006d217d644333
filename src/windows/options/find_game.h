#pragma once

#include <QString>
#include <optional>

/// Asks for the game's program, beginning in the folder of `known`. Nothing if the user cancels.
std::optional<QString> AskForGame(const QString& known);

/// Is it the game, by the proof that it gives? Else the message that it is not has been shown.
bool IsTheGame(const QString& program);

/// Shows the graphics folder of a game in the list of the game's files; tells what folders are missing.
void ShowGameFolders(const QString& program);
