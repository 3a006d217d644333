#include "conf/check_for_errors.h"
#include "frame/host_ports.h"
#include "frame/settings/settings.h"
#include "game/check_with_game.h"
#include "game/extract.h"
#include "game/fast_test.h"
#include "game/launcher.h"
#include "game/safe_test.h"
#include "windows/main/command_table.h"

#include <array>

namespace {

template <int DumpIndex>
void ExtractCommand()
{
    ExtractFromGame(DumpIndex);
}

void ShowWordsCommand()
{
    Tools().ShowList(ListKind::GameWords);
}

void LevelManagerCommand()
{
    if (IsRndPathSet())
        Tools().OpenTool(ToolWindow::LevelManager);
}

void GamesCommand()
{
    Tools().OpenTool(ToolWindow::Games);
}

} // namespace

std::span<const CommandRow> RnDCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuRndLaunch", "Run Rocks'n'Diamonds", "", tbRnD, "run_rnd", nullptr, NoFlags, RunGameCommand},
        CommandRow{"mnuRndFastLoad", "Run RnD - Fast Test Selected Element", "", tbRnD, "run_rnd_fast", nullptr,
                   NoFlags, FastLaunch, InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuRndSafeTest", "Test Set Safely", "F9", tbRnD, "test_set_safely", nullptr, NoFlags,
                   TestSetSafely},
        CommandRow{"mnuRNDlevMan", "Level Manager", "", tbRnD, "rnd_levman", nullptr, SeparatorBehind,
                   LevelManagerCommand},
        CommandRow{"mnuRNDErrorCheck", "Check For Errors", "F7", tbRnD, "check_for_errors", nullptr, SeparatorBehind,
                   CheckForErrors},
        CommandRow{"mnuRndGameCheck", "Check With The Game", "Shift+F9", tbRnD, "check_with_game", nullptr, NoFlags,
                   CheckWithTheGame},
        CommandRow{"mnuRndErrLog", "View Error Log", "", tbRnD, "view_error_log", nullptr, NoFlags, ViewErrorLog},
        CommandRow{"mnuRndWords", "The Game's Words", "Ctrl+F9", None, "game_words", nullptr, NoFlags,
                   ShowWordsCommand},
        CommandRow{"mnuExtractFromRND", "Extract From RnD", "", tbRnD, "extract_rnd", nullptr,
                   OpensMenu | MenuOnly | SeparatorBehind, [] {}},
        CommandRow{"mnuRndGames", "Games", "", None, "games", nullptr, NoFlags, GamesCommand},
    };
    return Rows;
}

std::span<const CommandRow> ExtractCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuRndExtract1", "GraphicInfo.conf", "", None, "", "GraphicsInfo.conf", NoFlags, ExtractCommand<1>},
        CommandRow{"mnuRndExtract2", "SoundsInfo.conf", "", None, "", nullptr, NoFlags, ExtractCommand<2>},
        CommandRow{"mnuRndExtract3", "MusicInfo.conf", "", None, "", nullptr, NoFlags, ExtractCommand<3>},
        CommandRow{"mnuRndExtract4", "HelpText.conf", "", None, "", nullptr, NoFlags, ExtractCommand<4>},
        CommandRow{"mnuRndExtract5", "HelpAnim.conf", "", None, "", nullptr, NoFlags, ExtractCommand<5>},
        CommandRow{"mnuRndExtract6", "EditorSetup.conf", "", None, "", nullptr, NoFlags, ExtractCommand<6>},
    };
    return Rows;
}
