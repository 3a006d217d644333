#pragma once

#include "frame/settings/cool_bar_bands.h"
#include "windows/main/command_table.h"

#include <QObject>
#include <QStringList>
#include <map>
#include <vector>

class CommandSet;
class FindBox;
class MenuTree;
class QMainWindow;
class QToolBar;

/// The six tool bars, built from the command table. A bar without a button does not show.
class CoolBar : public QObject
{
    Q_OBJECT

public:
    CoolBar(QMainWindow* window, const CommandSet& commands, const MenuTree& menus);

    /// Order, tags and rows of the bands. A band whose control is unknown keeps its bar. Bars are as wide as their
    /// buttons, and show the rest behind an arrow where a row is full; only the find box stretches to its band's width.
    void Load(const std::vector<CoolBarBand>& bands);
    /// The bars as they stand now, after the user has moved them; those that do not show come behind the one that they
    /// stood behind.
    std::vector<CoolBarBand> Bands() const;
    /// LoadSettings' counterpart: Bands into user.ini.
    void SaveCoolbar() const { WriteBands(Bands()); }

    void SetEnabled(bool enabled); ///< all bars

    QToolBar* Bar(ToolStrip strip) const;
    FindBox* cmbFind() const { return findBox; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillBar(ToolStrip strip, const CommandSet& commands, const MenuTree& menus);
    void FitFindBox(int bandWidth);
    QStringList Places() const;
    void StoreIfMoved();
    std::vector<QToolBar*> PresentOrder() const;

    QMainWindow* window;
    FindBox* findBox;
    std::map<ToolStrip, QToolBar*> bars;
    std::vector<QToolBar*> order; ///< by band, as loaded
    QStringList places;           ///< of the bands when they were last loaded or stored
};
