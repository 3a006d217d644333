#include "conf/check_for_errors.h"
#include "windows/command_table.h"

#include <array>

std::span<const CommandRow> RnDCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuRNDErrorCheck", "Check For Errors", "", tbRnD, "check_for_errors", nullptr, SeparatorBehind,
                   CheckForErrors},
    };
    return Rows;
}
