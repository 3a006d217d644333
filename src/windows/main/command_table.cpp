#include "windows/main/command_table.h"

#include <algorithm>
#include <array>

namespace {

template <class Wanted>
std::vector<ShownRow> Collected(const MenuRow& menu, Wanted wanted)
{
    std::vector<ShownRow> shown;
    bool apart = false;
    for (const CommandRow& row : menu.Rows) {
        if (row.Action != NotThere && wanted(row)) {
            shown.push_back({&row, apart && !shown.empty()});
            apart = false;
        }
        apart = apart || (row.Flags & SeparatorBehind);
    }
    return shown;
}

/// The row that opens the sub-menu in which this one stands; a row of the menu bar's own menus itself.
const CommandRow& OpenerOf(const CommandRow& row)
{
    const auto menus = MainMenus();
    const auto home = std::ranges::find_if(menus, [&row](const MenuRow& menu) {
        return std::ranges::any_of(menu.Rows, [&row](const CommandRow& one) { return &one == &row; });
    });
    if (home == menus.end() || *home->Letter)
        return row;
    for (const MenuRow& menu : menus)
        for (const CommandRow& one : menu.Rows)
            if (QLatin1StringView(one.Control) == QLatin1StringView(home->Control))
                return one;
    return row;
}

} // namespace

std::span<const MenuRow> MainMenus()
{
    static const std::array Menus = {
        MenuRow{"mnuFile", "File", "mnuFileStrip", "F", FileCommands()},
        MenuRow{"mnuNew", "New", "mnuNewStrip", "", NewCommands()},
        MenuRow{"mnuEdit", "Edit", "mnuEditStrip", "E", EditCommands()},
        MenuRow{"mnuSearch", "Find", "mnuFindStrip", "i", FindCommands()},
        MenuRow{"mnuView", "View", "mnuViewStrip", "V", ViewCommands()},
        MenuRow{"mnuRND", "RnD", "mnuRnDStrip", "R", RnDCommands()},
        MenuRow{"mnuExtractFromRND", "Extract From RnD", "mnuExtractStrip", "", ExtractCommands()},
        MenuRow{"mnuExtra", "Extra", "mnuExtraStrip", "t", ExtraCommands()},
        MenuRow{"mnuHelp", "Help", "mnuHelpStrip", "H", HelpCommands()},
    };
    return Menus;
}

std::vector<ShownRow> ShownRows(const MenuRow& menu)
{
    return Collected(menu, [](const CommandRow&) { return true; });
}

std::vector<ShownRow> ShownRows(const MenuRow& menu, ToolStrip strip)
{
    return Collected(menu, [strip](const CommandRow& row) { return row.Strip == strip; });
}

bool IsVisible(const CommandRow& row, const CommandFacts& now)
{
    return !(row.Flags & OpensMedia) || now.CanPreview || !(row.MenuModes & InMode(ModeCode(now.Mode)));
}

bool EntryEnabled(const CommandRow& row, const CommandFacts& now)
{
    const bool opens = !(row.Flags & OpensMedia) || now.CanPreview;
    return !now.Locked && opens && (row.MenuModes & InMode(ModeCode(now.Mode)));
}

bool ButtonEnabled(const CommandRow& row, const CommandFacts& now)
{
    return EntryEnabled(row, now) && (row.ButtonModes & InMode(ModeCode(now.Mode)));
}

QString HelpIdOf(const CommandRow& row)
{
    return HelpIdFor(OpenerOf(row).ButtonKey);
}

QString ToolTipOf(const CommandRow& row)
{
    return QString::fromLatin1(row.ButtonTip ? row.ButtonTip : row.Caption);
}
