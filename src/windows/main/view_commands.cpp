#include "frame/settings/settings.h"
#include "windows/main/command_table.h"

#include <array>

namespace {

/// A row's toggle by its number, which is also that of ApplyViewSetting.
template <int Id>
void Toggle()
{
    ToggleView(Id);
}

} // namespace

std::span<const CommandRow> ViewCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuViewLineNums", "Line Numbers", "", tbView, "line_numbers", nullptr, CheckEntry, Toggle<1>,
                   EveryMode, EveryMode, &SettingsRecord::ShowLineNumbers},
        CommandRow{"mnuViewSpaces", "Spaces + Tabs", "", tbView, "spaces_tabs", nullptr, CheckEntry, Toggle<2>,
                   EveryMode, EveryMode, &SettingsRecord::ShowSpaces},
        CommandRow{"mnuViewColours", "Colours", "", tbView, "syntax_colours", "Syntax Colours",
                   CheckEntry | SeparatorBehind, Toggle<3>, EveryMode, EveryMode, &SettingsRecord::UseColour},
        CommandRow{"mnuSuperTab", "Super Tab", "", tbView, "super_tab", nullptr, CheckEntry, Toggle<5>, EveryMode,
                   EveryMode, &SettingsRecord::SuperTab},
        CommandRow{"mnuLineHints", "Line Hints", "", None, "line_hints", nullptr, CheckEntry, Toggle<6>, EveryMode,
                   EveryMode, &SettingsRecord::LineHints},
        CommandRow{"mnuThumbnails", "Thumbnails", "", None, "thumbnails", nullptr, CheckEntry, Toggle<7>, EveryMode,
                   EveryMode, &SettingsRecord::Thumbnails},
    };
    return Rows;
}
