#include "conf/check_for_errors.h"
#include "windows/main/command_table.h"

#include <array>

std::span<const CommandRow> RnDCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuRndLaunch", "Run Rocks'n'Diamonds", "", tbRnD, "run_rnd", nullptr, NoFlags, NotThere},
        CommandRow{"mnuRndFastLoad", "Run RnD - Fast Test Selected Element", "", tbRnD, "run_rnd_fast", nullptr,
                   NoFlags, NotThere, InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuRNDlevMan", "Level Manager", "", tbRnD, "rnd_levman", nullptr, SeparatorBehind, NotThere},
        CommandRow{"mnuRNDErrorCheck", "Check For Errors", "", tbRnD, "check_for_errors", nullptr, SeparatorBehind,
                   CheckForErrors},
        CommandRow{"mnuRndErrLog", "View Error Log", "", tbRnD, "view_error_log", nullptr, NoFlags, NotThere},
        CommandRow{"mnuExtractFromRND", "Extract From RnD", "", tbRnD, "extract_rnd", nullptr, OpensMenu, NotThere},
    };
    return Rows;
}

std::span<const CommandRow> ExtractCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuRndExtract1", "GraphicInfo.conf", "", None, "", "GraphicsInfo.conf", NoFlags, NotThere},
        CommandRow{"mnuRndExtract2", "SoundsInfo.conf", "", None, "", nullptr, NoFlags, NotThere},
        CommandRow{"mnuRndExtract3", "MusicInfo.conf", "", None, "", nullptr, NoFlags, NotThere},
        CommandRow{"mnuRndExtract4", "HelpText.conf", "", None, "", nullptr, NoFlags, NotThere},
        CommandRow{"mnuRndExtract5", "HelpAnim.conf", "", None, "", nullptr, NoFlags, NotThere},
        CommandRow{"mnuRndExtract6", "EditorSetup.conf", "", None, "", nullptr, NoFlags, NotThere},
    };
    return Rows;
}
