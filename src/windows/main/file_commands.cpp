#include "frame/files/file_commands.h"
#include "frame/documents/documents.h"
#include "frame/files/closed_tabs.h"
#include "frame/files/recent_list.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/main/command_table.h"

#include <array>

namespace {

template <int Mode>
void NewOfMode()
{
    NewDocument(Mode);
}

} // namespace

void OpenTabCommand()
{
    OpenNewTab();
    ActivateTab();
}

std::span<const CommandRow> FileCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuNew", "New", "", tbFile, "new", nullptr, OpensMenu, [] { NewDocument(Frame.CurrentMode); }},
        CommandRow{"mnuOpen", "Open", "Ctrl+O", tbFile, "open", nullptr, NoFlags, OpenCommand},
        CommandRow{"mnuOpenRecent", "Open Recent", "", tbFile, "recent", nullptr, NoFlags, ShowRecentList},
        CommandRow{"mnuFileRevert", "Revert To Saved", "", tbFile, "revert_to_saved", nullptr, NoFlags, RevertDocument},
        CommandRow{"mnuInsertFile", "Insert File", "", tbFile, "insert_file", nullptr, SeparatorBehind,
                   InsertFileAtCaret},
        CommandRow{"mnuProject", "Project", "", tbFile, "project", "Projects", SeparatorBehind,
                   [] { Tools().OpenTool(ToolWindow::Project); }},
        CommandRow{"mnuSave", "Save", "Ctrl+S", tbFile, "save", nullptr, NoFlags, SaveCommand},
        CommandRow{"mnuSaveAs", "Save As..", "Ctrl+Shift+S", tbFile, "save_as", "Save As...", SeparatorBehind,
                   SaveDocumentAs},
        CommandRow{"mnuAddTab", "Open Tab", "", tbFile, "open_tab", nullptr, NoFlags, OpenTabCommand},
        CommandRow{"mnuDelTab", "Close Tab", "Ctrl+F4", tbFile, "close_tab", nullptr, NoFlags, CloseTab},
        CommandRow{"mnuReopenTab", "Reopen Closed Tab", "Ctrl+Shift+T", None, "reopen_closed_tab", nullptr, NoFlags,
                   ReopenClosedTab},
        CommandRow{"MnuDelAllTabs", "Close All Tabs", "", tbFile, "close_all_tabs", nullptr, SeparatorBehind,
                   CloseAllTabs},
        CommandRow{"mnuOptions", "Options", "", tbExtra, "options", nullptr, NoFlags,
                   [] { Tools().OpenTool(ToolWindow::Options); }},
    };
    return Rows;
}

std::span<const CommandRow> NewCommands()
{
    using enum ToolStrip;
    static constexpr std::array Rows = {
        CommandRow{"mnuNewGraphics", "Graphics", "", None, "graphics", nullptr, NoFlags, NewOfMode<ModeGfx>},
        CommandRow{"mnuNewSound", "Sound", "", None, "sound", nullptr, NoFlags, NewOfMode<ModeSfx>},
        CommandRow{"mnuNewMusic", "Music", "", None, "music", nullptr, NoFlags, NewOfMode<ModeMus>},
        CommandRow{"mnuNewLevelinfo", "Level Info", "", None, "levelinfo", nullptr, NoFlags, NewOfMode<ModeLvl>},
        CommandRow{"mnuNewHelptext", "Help Text", "", None, "helptext", nullptr, NoFlags, NewOfMode<ModeHlt>},
        CommandRow{"mnuNewhelpanim", "Help Anim", "", None, "helpanim", nullptr, NoFlags, NewOfMode<ModeHla>},
        CommandRow{"mnuNewEditorSet", "Editor Setup", "", None, "editorsetup", nullptr, SeparatorBehind,
                   NewOfMode<ModeEdi>},
        CommandRow{"mnuNewText", "Text File", "", None, "textfile", nullptr, NoFlags, NewOfMode<ModeTxt>},
    };
    return Rows;
}
