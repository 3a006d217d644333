#pragma once

#include <QString>

/// Stored form of a history item: outer blanks, tabs and line breaks survive an ini file.
QString EscapedItem(const QString& item);
QString UnescapedItem(const QString& stored);

/// Reads both histories of user.ini into Frame.Globals.
void LoadHistories();
