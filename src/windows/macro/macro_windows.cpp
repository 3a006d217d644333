#include "windows/macro/macro_windows.h"

#include "macro/macro_ports.h"
#include "windows/macro/choice_menu.h"
#include "windows/macro/frm_macro_copy.h"
#include "windows/macro/frm_macro_multi.h"
#include "windows/macro/frm_macro_new.h"
#include "windows/macro/frm_macro_pause.h"
#include "windows/messages/window_asker.h"

void BringMacroWindows(WindowAsker& asker, QWidget* owner)
{
    asker.Bring<ChoiceQuestion>([](const ChoiceQuestion& question, QWidget* parent) {
        return question.AsMenu ? ChooseFromMenu(question, parent) : frmMacroMulti::Ask(question, parent);
    });
    asker.Bring<ZipEntryQuestion>(frmMacroMulti::AskZip);
    asker.Bring<PauseQuestion>(frmMacroPause::Ask);
    MacroWindows.AskAboutNew = [owner](const NewMacro& macro) { return frmMacroNew::Ask(macro, owner); };
    MacroWindows.TakeChanges = [owner](const MacroChanges& changes) { return frmMacroCopy::Ask(changes, owner); };
}
