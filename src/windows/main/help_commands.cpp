#include "conf/help_for_word.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/main/command_table.h"

#include <array>

std::span<const CommandRow> HelpCommands()
{
    static constexpr std::array Rows = {
        CommandRow{"mnuHelpView", "Help", "", ToolStrip::tbExtra, "help", nullptr, SeparatorBehind,
                   [] { RunHelp({}); }},
        CommandRow{"mnuHelpAbout", "About", "", ToolStrip::None, "about", nullptr, NoFlags,
                   [] { Tools().OpenTool(ToolWindow::About); }},
    };
    return Rows;
}
