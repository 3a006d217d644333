#include "windows/options/general_rows.h"

#include "conf/block_commands.h"

namespace {

constexpr const char* CodeLists[] = {"Elements", "Actions", "Graphic commands", "Special"};
constexpr const char* NagNames[] = {"Document Changed", "Save Messages", "Image Errors", "Text Errors", "File Errors"};
/// In the order of QuickFields.
constexpr const char* QuickFieldNames[] = {"Xpos",        "Ypos", "Frames",      "Delay",  "Anim_mode",
                                           "Start_frame", "Name", "Global_sync", "Offset", "Editor info"};
static_assert(std::size(QuickFieldNames) == QuickFields.size());

} // namespace

std::span<const FlagFrame> FlagFrames()
{
    static constexpr FlagFrame Frames[] = {
        {"Auto Complete", "chkAutoComp", "AutoCompleteTemplate", CodeLists},
        {"Nag Messages", "chkNag", "Nags", NagNames},
        {"Quick Element Template", "chkQuickEle", "QuickElementTemplate", QuickFieldNames},
    };
    return Frames;
}

std::span<const TickRow> MiscTicks()
{
    static constexpr TickRow Rows[] = {
        {SavePositionBox, "Save Current Window Position", nullptr,
         "Apply stores where the main window and its tool bars are now"},
        {ConfFilesBox, "Assosiate .CONF files", nullptr,
         "Apply makes Gemforge open the game's conf files, macros (.gfb) and zipped level sets (.levzip)"},
        {2, "Always Open In Levels Folder", "OpenSaveInLevelDir", "File windows begin in the game's levels folder"},
        {LevelFilesBox, "Assosiate .LEVEL files", nullptr, "Apply makes Mapglass open the game's levels"},
        {4, "Backup When Save", "BackupOnSave", "A save keeps a numbered copy of the file before"},
        {5, "Quick Close Edit\\Preview", "QuickClose",
         "Edit Element and the quick preview close when the mouse leaves them"},
        {6, "Disable Sound In Fast Launch", "DisableSoundLaunch", "The fast test runs the game without sound"},
        {7, "Menu Icons (Needs restart)", "MenuIcons", "Menu entries have pictures"},
        {8, "Gradient Menus", "Gradients", "Menus begin with their title"},
        {9, "SafeSystem BASIC", "SafeSystemBASIC", "A macro that works with files asks first"},
    };
    return Rows;
}

std::span<const LimitRow> LimitRows()
{
    static constexpr LimitRow Rows[] = {
        {"txtMarginSize", "Spacer Width", "SpacerWidth", 3},
        {"txtUndoLimit", "Undo Max", "UndoLimit", 4},
        {"txtRecentMax", "Recent Files", "RecentLimit", 3},
        {"txtProjectMax", "Projects Max", "ProjectLimit", 2},
        {"txtFindMax", "Saved Find", "FindHistoryLimit", 2},
        {"txtReplaceMax", "Saved Replace", "ReplaceHistoryLimit", 2},
    };
    return Rows;
}

const SettingRow& MiscSetting(const char* key)
{
    return SettingOf(QLatin1StringView("Misc"), QLatin1StringView(key));
}

const SettingRow& FlagOf(const FlagFrame& frame, size_t box)
{
    const QByteArray key = QByteArray::number(qulonglong(box));
    return SettingOf(QLatin1StringView(frame.Section), QLatin1StringView(key));
}
