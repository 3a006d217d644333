#include "conf/headline.h"
#include "windows/command_table.h"

#include <array>

std::span<const CommandRow> ExtraCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuExtraHeadline", "Make Editor Headline", "", tbExtra, "make_headline", nullptr, SeparatorBehind,
                   MakeHeadline},
    };
    return Rows;
}
