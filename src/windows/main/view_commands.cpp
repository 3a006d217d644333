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
        CommandRow{"mnuViewLineNums", "Line Numbers", "", tbView, "line_numbers", nullptr, CheckEntry, Toggle<1>},
        CommandRow{"mnuViewSpaces", "Spaces + Tabs", "", tbView, "spaces_tabs", nullptr, CheckEntry, Toggle<2>},
        CommandRow{"mnuViewColours", "Colours", "", tbView, "syntax_colours", "Syntax Colours",
                   CheckEntry | SeparatorBehind, Toggle<3>},
        CommandRow{"mnuSuperTab", "Super Tab", "", tbView, "super_tab", nullptr, CheckEntry, Toggle<5>},
        CommandRow{"mnuLineHints", "Line Hints", "", None, "line_hints", nullptr, CheckEntry, Toggle<6>},
        CommandRow{"mnuThumbnails", "Thumbnails", "", None, "thumbnails", nullptr, CheckEntry, Toggle<7>},
    };
    return Rows;
}
