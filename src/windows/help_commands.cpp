#include "conf/help_for_word.h"
#include "windows/command_table.h"

#include <array>

std::span<const CommandRow> HelpCommands()
{
    static constexpr std::array Rows = {
        CommandRow{"mnuHelpView", "Help", "", ToolStrip::tbExtra, "help", nullptr, SeparatorBehind,
                   [] { RunHelp({}); }},
        CommandRow{"mnuHelpAbout", "About", "", ToolStrip::None, "about", nullptr, NoFlags, NotThere},
    };
    return Rows;
}
