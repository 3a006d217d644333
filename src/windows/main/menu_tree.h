#pragma once

#include "windows/main/command_table.h"

#include <QHash>
#include <QList>

class CommandSet;
class MenuStrip;
class QMenu;
class QMenuBar;

/// The menus of the main window, built from the command table.
class MenuTree
{
public:
    /// Fills `bar`; every menu belongs to it. Title entries start hidden.
    MenuTree(QMenuBar* bar, const CommandSet& commands);

    QMenu* Find(const QString& control) const; ///< null for an unknown menu
    void ShowStrips(bool on);

private:
    void Fill(QMenu* menu, const MenuRow& row, const CommandSet& commands);

    QHash<QString, QMenu*> menus;
    QList<MenuStrip*> strips;
};
