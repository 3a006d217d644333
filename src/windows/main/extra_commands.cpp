#include "conf/headline.h"
#include "frame/host_ports.h"
#include "frame/settings/settings.h"
#include "windows/main/command_table.h"
#include "windows/parts/pane_commands.h"

#include <array>

namespace {

template <ToolWindow Tool>
void OpenToolAndFocus()
{
    Tools().OpenTool(Tool);
    Panes().FocusPane();
}

void WizardCommand()
{
    if (!IsRndPathSet())
        return;
    OpenToolAndFocus<ToolWindow::Wizard>();
}

void BasicCommand()
{
    if (IsRndPathSet())
        Tools().EditMacro({});
}

void RecordCommand()
{
    if (IsRndPathSet())
        Tools().RecordMacro();
}

} // namespace

std::span<const CommandRow> ExtraCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuRndWizard", "Game Structure Wizard", "", tbExtra, "game_structure_wizard", nullptr, NoFlags,
                   WizardCommand},
        CommandRow{"mnuRNDLevPal", "Make Level Preview Palette", "", tbExtra, "make_level_palette", nullptr, NoFlags,
                   OpenToolAndFocus<ToolWindow::MakePreview>, InMode(ModeGfx), InMode(ModeGfx)},
        CommandRow{"mnuExtraHeadline", "Make Editor Headline", "", tbExtra, "make_headline", nullptr, SeparatorBehind,
                   MakeHeadline, InMode(ModeEdi), InMode(ModeEdi)},
        CommandRow{"mnuExtraPCXLab", "PCX Lab", "", tbExtra, "pcx_lab", nullptr, NoFlags,
                   OpenToolAndFocus<ToolWindow::PCXLab>},
        CommandRow{"mnuExtraAVI", "AVI To Bitmap", "", tbExtra, "avi_to_bitmap", nullptr, SeparatorBehind,
                   OpenToolAndFocus<ToolWindow::AVI2BMP>},
        CommandRow{"mnubasic", "Gemforge BASIC", "", tbExtra, "basic", nullptr, NoFlags, BasicCommand},
        CommandRow{"mnuRecordMacro", "Record Macro", "Ctrl+Shift+R", tbExtra, "record_macro", nullptr, NoFlags,
                   RecordCommand},
    };
    return Rows;
}
