#pragma once

#include <QString>

/// A value of compat.ini's section for the game; `shipped` if it is missing.
QString GameCompat(const QString& key, const QString& shipped = {});

/// The player's own folder of the game, "/" at the end, and its name in a home folder.
QString GameUserFolder();
QString GameUserFolderName();

/// Where the launcher leaves what the game printed: the folder of its executable, or, where that cannot be written,
/// the user's data folder. "/" at the end.
QString OutputFolder();
QString PrintedFile();  ///< "stdout.txt" there
QString ErrorLogFile(); ///< "stderr.txt" there

/// The nearest folder upward that holds levelinfo.conf, "/" at the end; empty if there is none.
QString SetFolderOf(const QString& folder);
