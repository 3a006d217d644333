#pragma once

#include "frame/settings/settings.h"

#include <span>

/// A frame of tick boxes that stand for the flags of a section with the keys "0", "1", ...
struct FlagFrame
{
    const char* Title;
    const char* Control; ///< the boxes are named so, with their number
    const char* Section;
    std::span<const char* const> Captions;
    int* (*Flags)(SettingsRecord&);
};
std::span<const FlagFrame> FlagFrames();

/// The boxes of the acts in frame "Misc": done once at an Apply, unticked at each open.
enum ActBox : int { SavePositionBox = 0, ConfFilesBox = 1, LevelFilesBox = 3 };

/// A tick box of frame "Misc".
struct TickRow
{
    int Index;
    const char* Caption;
    const char* Key;                      ///< of section Misc; null: an act
    int SettingsRecord::*Value = nullptr; ///< null: of an act, or not to change before the next look at the file
    const char* Tip = nullptr;
};
std::span<const TickRow> MiscTicks();

/// A number box with its bounds.
struct LimitRow
{
    const char* Control;
    const char* Caption;
    const char* Key;
    int SettingsRecord::*Value;
    int MaxLength, Lowest, Highest;
};
std::span<const LimitRow> LimitRows();
