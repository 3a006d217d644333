#pragma once

#include "frame/settings/settings.h"

#include <QVariant>
#include <span>
#include <variant>

enum class SettingKind {
    Flag,   ///< 0 or 1
    Number, ///< within its bounds
    Colour, ///< 0x00BBGGRR
    Real,   ///< with "." whatever the locale
    Truth,  ///< "True" or "False"
    Text,
    Character, ///< one
    Path,      ///< with "/" in the program
};

/// Where the record holds a value; the type follows from the kind.
using SettingPlace = std::variant<int*, double*, bool*, QString*>;

/// One setting of user.ini. To add one: its row here, its shipped value in data/user.ini, and its field in
/// SettingsRecord.
struct SettingRow
{
    const char *Section, *Key;
    SettingKind Kind;
    int Low = 0, High = 0;                            ///< bounds of numbers; what lies outside takes the nearer one
    SettingPlace (*Place)(SettingsRecord&) = nullptr; ///< null: panes, the main window or the start hold it
    void (*Apply)() = nullptr; ///< brings a changed value into effect; null: the next use of it or the next start does
};

/// All settings; those of a section stand together. Stored lists and the tool bars' layout are no settings.
std::span<const SettingRow> SettingRows();

/// The row of a key that there is.
const SettingRow& SettingOf(QLatin1StringView section, QLatin1StringView key);

/// The value in force, as the kind has it: int, double, bool or QString.
QVariant SettingNow(const SettingRow& row);

/// Puts a value in force: it is brought within its bounds, held in Frame.Settings, written to user.ini and applied.
void ChangeSetting(const SettingRow& row, const QVariant& value);

/// Writes the values in force of all settings of a section.
void WriteSettings(QLatin1StringView section);
