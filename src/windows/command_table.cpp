#include "windows/command_table.h"

#include <array>

std::span<const MenuRow> MainMenus()
{
    static const std::array Menus = {
        MenuRow{"mnuFile", "File", "mnuFileStrip", "F", FileCommands()},
        MenuRow{"mnuNew", "New", "mnuNewStrip", "", NewCommands()},
        MenuRow{"mnuEdit", "Edit", "mnuEditStrip", "E", EditCommands()},
        MenuRow{"mnuSearch", "Find", "mnuFindStrip", "i", FindCommands()},
        MenuRow{"mnuView", "View", "mnuViewStrip", "V", ViewCommands()},
        MenuRow{"mnuRND", "RnD", "mnuRnDStrip", "R", RnDCommands()},
        MenuRow{"mnuExtra", "Extra", "mnuExtraStrip", "x", ExtraCommands()},
        MenuRow{"mnuHelp", "Help", "mnuHelpStrip", "H", HelpCommands()},
    };
    return Menus;
}

QString HelpIdFor(const char* key)
{
    return QStringLiteral("H_main_") + QLatin1String(key);
}

QString HelpIdOf(const CommandRow& row)
{
    return HelpIdFor(row.ButtonKey);
}

QString ToolTipOf(const CommandRow& row)
{
    return QString::fromLatin1(row.ButtonTip ? row.ButtonTip : row.Caption);
}
