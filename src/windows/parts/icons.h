#pragma once

#include <QIcon>

/// Drawing of a command by its icon's name ("tidy_up"). A null icon for an unknown name.
QIcon CommandIcon(const QString& name);

/// Image `number`, from 1, of one of the program's image lists: "mode", "recent", "message", "mark", "goto", "macro",
/// "tree", "zip". A null icon outside the list.
QIcon ListImage(const QString& list, int number);
