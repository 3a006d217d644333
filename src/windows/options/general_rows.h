#pragma once

#include "frame/settings/settings_table.h"

/// A frame of tick boxes that stand for the flags of a section with the keys "0", "1", ...
struct FlagFrame
{
    const char* Title;
    const char* Control; ///< the boxes are named so, with their number
    const char* Section;
    std::span<const char* const> Captions;
};
std::span<const FlagFrame> FlagFrames();

/// The boxes of the acts in frame "Misc": done once at an Apply, unticked at each open.
enum ActBox : int { SavePositionBox = 0, ConfFilesBox = 1, LevelFilesBox = 3 };

/// A tick box of frame "Misc".
struct TickRow
{
    int Index;
    const char* Caption;
    const char* Key; ///< of section Misc; null: an act
    const char* Tip;
};
std::span<const TickRow> MiscTicks();

/// A number box. Its bounds are the setting's.
struct LimitRow
{
    const char* Control;
    const char* Caption;
    const char* Key;
    int MaxLength;
};
std::span<const LimitRow> LimitRows();

/// The setting of section Misc with this key.
const SettingRow& MiscSetting(const char* key);
/// The flag of a frame's box.
const SettingRow& FlagOf(const FlagFrame& frame, size_t box);
