#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// A game of the user's list. The one whose path is RNDPath is in use.
struct GameEntry
{
    QString Name;
    QString Program; ///< absolute
    QStringList Arguments;
};

/// The list as user.ini has it; a game in use that is not in it stands first.
std::vector<GameEntry> LoadGames();
void SaveGames(const std::vector<GameEntry>& games);

/// The game in use: RNDPath with the arguments that the list has for it.
GameEntry GameInUse();

/// Arguments as a person writes them: words with blanks in double quotes.
QString ArgumentText(const QStringList& arguments);
