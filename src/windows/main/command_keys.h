#pragma once

#include "frame/settings/shortcuts.h"
#include "windows/main/command_table.h"

#include <QList>

class QAction;

/// The keys that a row comes with; its menu names the first.
QList<QKeySequence> ShippedKeys(const CommandRow& row);

/// A key of the window itself, whatever commands have.
struct WindowKeyRow
{
    int Key; ///< with its modifiers
    const char* Meaning;
};
std::span<const WindowKeyRow> WindowKeyRows();

/// All commands with their keys in force, in the order of the menus, and the macros behind those of menu Extra. Keys of
/// the window itself are fixed.
ShortcutTable CommandShortcuts(const QList<QAction*>& macros = {});
