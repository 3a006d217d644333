#include "windows/options/general_rows.h"

namespace {

constexpr const char* CodeLists[] = {"Elements", "Actions", "Graphic commands", "Special"};
constexpr const char* NagNames[] = {"Document Changed", "Save Messages", "Image Errors", "Text Errors", "File Errors"};
constexpr const char* QuickFields[] = {"Xpos",        "Ypos", "Frames",      "Delay",  "Anim_mode",
                                       "Start_frame", "Name", "Global_sync", "Offset", "Editor info"};

} // namespace

std::span<const FlagFrame> FlagFrames()
{
    static constexpr FlagFrame Frames[] = {
        {"Auto Complete", "chkAutoComp", "AutoCompleteTemplate", CodeLists,
         [](SettingsRecord& settings) { return settings.AutoCompleteTemplate.data(); }},
        {"Nag Messages", "chkNag", "Nags", NagNames, [](SettingsRecord& settings) { return settings.Nags.data(); }},
        {"Quick Element Template", "chkQuickEle", "QuickElementTemplate", QuickFields,
         [](SettingsRecord& settings) { return settings.QuickElementTemplate.data(); }},
    };
    return Frames;
}

std::span<const TickRow> MiscTicks()
{
    static constexpr TickRow Rows[] = {
        {SavePositionBox, "Save Current Window Position", nullptr, nullptr,
         "Apply stores where the main window and its tool bars are now"},
        {ConfFilesBox, "Assosiate .CONF files", nullptr, nullptr,
         "Apply makes Gemforge open the game's conf files, macros (.gfb) and zipped level sets (.levzip)"},
        {2, "Always Open In Levels Folder", "OpenSaveInLevelDir", &SettingsRecord::OpenSaveInLevelDir,
         "File windows begin in the game's levels folder"},
        {LevelFilesBox, "Assosiate .LEVEL files", nullptr, nullptr, "Apply makes Mapglass open the game's levels"},
        {4, "Backup When Save", "BackupOnSave", &SettingsRecord::BackupOnSave,
         "A save keeps a numbered copy of the file before"},
        {5, "Quick Close Edit\\Preview", "QuickClose", &SettingsRecord::QuickClose,
         "Edit Element and the quick preview close when the mouse leaves them"},
        {6, "Disable Sound In Fast Launch", "DisableSoundLaunch", &SettingsRecord::DisableSoundLaunch,
         "The fast test runs the game without sound"},
        {7, "Menu Icons (Needs restart)", "MenuIcons", nullptr, "Menu entries have pictures"},
        {8, "Gradient Menus", "Gradients", &SettingsRecord::Gradients, "Menus begin with their title"},
        {9, "SafeSystem BASIC", "SafeSystemBASIC", &SettingsRecord::SafeSystemBASIC,
         "A macro that works with files asks first"},
    };
    return Rows;
}

std::span<const LimitRow> LimitRows()
{
    static constexpr LimitRow Rows[] = {
        {"txtMarginSize", "Spacer Width", "SpacerWidth", &SettingsRecord::SpacerWidth, 3, 10, 200},
        {"txtUndoLimit", "Undo Max", "UndoLimit", &SettingsRecord::UndoLimit, 4, -1, 9999},
        {"txtRecentMax", "Recent Files", "RecentLimit", &SettingsRecord::RecentLimit, 3, 10, 200},
        {"txtProjectMax", "Projects Max", "ProjectLimit", &SettingsRecord::ProjectLimit, 2, 3, 50},
        {"txtFindMax", "Saved Find", "FindHistoryLimit", &SettingsRecord::FindHistoryLimit, 2, 3, 50},
        {"txtReplaceMax", "Saved Replace", "ReplaceHistoryLimit", &SettingsRecord::ReplaceHistoryLimit, 2, 3, 50},
    };
    return Rows;
}
