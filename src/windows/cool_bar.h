#pragma once

#include "windows/command_table.h"

#include <QString>
#include <map>
#include <vector>

class CommandSet;
class FindBox;
class MenuTree;
class QMainWindow;
class QToolBar;

/// One band of section `Coolbar Bands`.
struct CoolBarBand
{
    QString Tag, Control;
    int Width = 0; ///< pixels; 0 unknown
    bool NewRow = false;
};

/// Bands 1 to `count` as user.ini has them.
std::vector<CoolBarBand> StoredBands(int count);

/// The six tool bars, built from the command table. A bar without a button does not show.
class CoolBar
{
public:
    CoolBar(QMainWindow* window, const CommandSet& commands, const MenuTree& menus);

    /// Order, tags and rows from user.ini. A band whose control is unknown keeps its bar. Bars are as wide as their
    /// buttons; only the find box stretches to its band's width.
    void Load();

    QToolBar* Bar(ToolStrip strip) const;
    FindBox* cmbFind() const { return findBox; }

private:
    void FillBar(const MenuRow& menu, const CommandSet& commands, const MenuTree& menus);
    void FitFindBox(int bandWidth);

    QMainWindow* window;
    FindBox* findBox;
    std::map<ToolStrip, QToolBar*> bars;
    std::vector<QToolBar*> order; ///< by band
};
