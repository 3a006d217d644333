#pragma once

#include "frame/media/sheet_endings.h"
#include "frame/settings/cool_bar_bands.h"
#include "frame/settings/form_looks.h"
#include "platform/result.h"

#include <QString>
#include <QStringList>
#include <array>

/// One syntax kind: its three keys and the slots of the pane they go to.
struct SyntaxRow
{
    const char *ColourKey, *BackKey, *StyleKey;
    int ColourSlot, BackSlot, StyleSlot;
};
const std::array<SyntaxRow, 9>& SyntaxKeys();

/// All settings as they rule in memory. Field names are the keys of user.ini.
struct SettingsRecord
{
    int MenuIcons = 1, Gradients = 1, ShowLineNumbers = 1, ShowSpaces = 0, UseColour = 1, SuperTab = 0;
    int LineHints = 1;  ///< marks beside lines that something is to be said of
    int Thumbnails = 0; ///< small pictures in the media lists
    int SpacerWidth = 43, UndoLimit = -1;
    QString LineCommentLineChar, LineCommentSearchChar;
    int SortGotoList = 0, OpenSaveInLevelDir = 0, BackupOnSave = 1, DisableSoundLaunch = 0, QuickClose = 0;
    int AskBeforeMacros = 1; ///< is a macro that has not run here yet asked about?
    int SafeSystemBASIC = 1, RecentLimit = 50, ProjectLimit = 20, FindHistoryLimit = 30, ReplaceHistoryLimit = 30;
    int ScreenReader = 0; ///< 0 automatic, 1 always, 2 never: whether panes tell their text to assistive technology
    QString RNDPath;
    QString ImageEditor; ///< program that opens a sheet's image; empty: the desktop's own
    std::array<int, 10> QuickElementTemplate{};
    std::array<int, 4> AutoCompleteTemplate{};
    std::array<int, 5> Nags{1, 1, 1, 1, 1};
    std::vector<CoolBarBand> Bands; ///< of the tool bars, as LoadSettings read them

    int ColourForm = FollowDesktop;
    FormLook Light{}, Dark{};
    LookFonts Fonts;

    std::array<QString, 7> ComType; ///< 1 to 6
    SheetEndings SheetKinds{QStringLiteral("pcx"), QStringLiteral("png")};
    QStringList AnimModes;
    QString RndFolder, RndDocsFolder, RndGfxFolderName, RndSfxFolderName, LevelsFolder;
};

/// Value of a key of data/BASENAME.ini, "[NOT FOUND]" if missing.
QString ReadIni(const QString& section, const QString& key, const QString& baseName = QStringLiteral("user"));
/// Writes a key of user.ini at once. A failure is told once a run and the value stays in memory.
void WriteIni(const QString& value, const QString& section, const QString& key);
void WriteIni(int value, const QString& section, const QString& key);
QString ReadSection(const QString& section);
void WriteSection(const QString& section, const QString& items);

/// Several writes, one file operation.
class SettingsBatch
{
public:
    SettingsBatch();
    ~SettingsBatch();
    SettingsBatch(const SettingsBatch&) = delete;
    SettingsBatch& operator=(const SettingsBatch&) = delete;
};

void LoadSettings();
/// Applies the colours and styles of a section to one pane, and the font. Keys that are missing or broken take their
/// shipped value.
void LoadSyntaxColours(EditorPane& pane, const QString& section);

/// View settings by number: 1 line numbers, 2 blanks and tabs, 3 colours, 4 undo limit, 5 super tab, 6 line hints,
/// 7 thumbnails.
int ViewSetting(int id);
void ApplyViewSetting(int id, int value); ///< to all eight panes, or the lists

/// A view toggle: flips the setting, writes the key, applies it to all panes.
struct ViewToggle
{
    const char* Key;
    int Id;
    int SettingsRecord::*Value;
};
const std::array<ViewToggle, 6>& ViewToggles();
void ToggleView(int id);

/// ComType1 to ComType6 from compat.ini.
void ReadDumpCommands();

/// Where a game has its data: the first folder of compat.ini that holds `FileNameCheck5`. Its parts need not exist.
struct GameFolders
{
    QString Base, Docs, Graphics, Levels; ///< each with "/" at its end; empty without a program
};
GameFolders GameFoldersOf(const QString& program);

/// RndFolder and its like from RNDPath and compat.ini.
void DeriveGameFolders();

/// Histories of find and replace: read by LoadSettings, written at close.
void SaveHistories();

/// False, with message 10, if RNDPath is empty or names no file.
bool IsRndPathSet();
