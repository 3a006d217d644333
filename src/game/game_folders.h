#pragma once

#include <QString>

/// A value of compat.ini's section for the game; `shipped` if it is missing.
QString GameCompat(const QString& key, const QString& shipped = {});

/// The player's own folder of the game, "/" at the end, and its name in a home folder.
QString GameUserFolder();
QString GameUserFolderName();

/// What is started for a game that is set: the file itself, or that behind a link where the game's data lie beside that
/// alone, since the game seeks them in the folder it is started from.
QString ProgramToStart(const QString& program);

/// Where the launcher leaves what the game printed: the folder of its executable, or, where that cannot be written,
/// the user's data folder. "/" at the end.
QString OutputFolder();
QString PrintedFile();  ///< "stdout.txt" there
QString ErrorLogFile(); ///< "stderr.txt" there

/// The nearest folder upward that holds levelinfo.conf, "/" at the end; empty if there is none.
QString SetFolderOf(const QString& folder);
