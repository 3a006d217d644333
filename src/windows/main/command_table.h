#pragma once

#include "frame/documents/documents.h"
#include "frame/settings/settings.h"
#include "windows/parts/help_subject.h"

#include <QString>
#include <span>
#include <vector>

/// The six tool bars.
enum class ToolStrip : quint8 { None, tbFile, tbEdit, tbFind, tbView, tbRnD, tbExtra };

enum CommandFlag : quint8 {
    NoFlags = 0,
    SeparatorBehind = 1, ///< drawn only if another row follows
    CheckEntry = 2,
    OpensMenu = 4,      ///< the entry opens the menu of the same control; its button has that menu as a drop-down
    OpensMedia = 8,     ///< out of sight in a mode whose media no tool opens
    MenuOnly = 32,      ///< with OpensMenu: the button does nothing else than open the menu
    EverywhereKey = 16, ///< its shortcut is the window's in every part, a line of text included
};

constexpr quint8 InMode(ModeCode mode)
{
    return quint8(1U << mode);
}
constexpr quint8 EveryMode = 0xFF, NoMode = 0;

/// Action of a command whose tool is not there yet: its row keeps the place, and nothing of it shows.
inline constexpr void (*NotThere)() = nullptr;

/// One command of the main window: menu entry, tool button, shortcut, icon and help page all follow from its row.
/// To add a command: give its row in the file of its menu (file_commands.cpp and so on) an action instead of NotThere,
/// or add a row where it shall stand; draw the icon named as its button key, write the help page of its HelpIdOf. To
/// add a menu: a file of rows and a row in command_table.cpp.
struct CommandRow
{
    const char* Control;
    const char* Caption;
    const char* Shortcut; ///< portable key text; "" for none
    ToolStrip Strip;      ///< None with a button key: a drop-down entry of the button that opens this menu
    const char* ButtonKey;
    const char* ButtonTip; ///< null: the caption; of a drop-down entry: how the drop-down spells it
    quint8 Flags;
    void (*Action)();
    quint8 MenuModes = EveryMode;           ///< bits of InMode: where its entry is enabled
    quint8 ButtonModes = EveryMode;         ///< and its button
    int SettingsRecord::*Checked = nullptr; ///< of a CheckEntry: ticked while 1
    const char* OtherKeys = "";             ///< further shortcuts that the menu does not name, with "; " between
};

/// What the state of every command follows from.
struct CommandFacts
{
    int Mode;
    bool CanPreview; ///< is there a tool that opens the media of the mode?
    bool Locked;     ///< the main window is disabled
};
bool EntryEnabled(const CommandRow& row, const CommandFacts& now);
bool ButtonEnabled(const CommandRow& row, const CommandFacts& now);
bool IsVisible(const CommandRow& row, const CommandFacts& now);

/// One menu with its rows. A menu that is not opened by a row's OpensMenu stands on the menu bar.
struct MenuRow
{
    const char* Control;
    const char* Caption;
    const char* StripControl; ///< its title entry
    const char* Letter;       ///< that Alt opens it with; "" in a sub-menu
    std::span<const CommandRow> Rows;
};

/// Actions that parts of the main window start too, by CommandSet::MenuOf.
void OpenTabCommand();

std::span<const CommandRow> FileCommands();
std::span<const CommandRow> NewCommands();
std::span<const CommandRow> EditCommands();
std::span<const CommandRow> FindCommands();
std::span<const CommandRow> ViewCommands();
std::span<const CommandRow> RnDCommands();
std::span<const CommandRow> ExtractCommands();
std::span<const CommandRow> ExtraCommands();
std::span<const CommandRow> HelpCommands();

/// Every menu, in the order of the menu bar.
std::span<const MenuRow> MainMenus();

/// A row that shows, and whether a separator stands in front of it.
struct ShownRow
{
    const CommandRow* Row;
    bool Apart;
};
/// The rows of a menu that show; with a strip, those that have a button on it. Separators stand between shown rows
/// only, never two together.
std::vector<ShownRow> ShownRows(const MenuRow& menu);
std::vector<ShownRow> ShownRows(const MenuRow& menu, ToolStrip strip);

QString HelpIdOf(const CommandRow& row);

QString ToolTipOf(const CommandRow& row);
