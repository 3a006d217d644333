#include "windows/macro/macro_windows.h"

#include "editor/make_pane.h"
#include "macro/macro_ports.h"
#include "windows/macro/choice_menu.h"
#include "windows/macro/frm_macro_copy.h"
#include "windows/macro/frm_macro_multi.h"
#include "windows/macro/frm_macro_new.h"
#include "windows/macro/frm_macro_pause.h"
#include "windows/macro/held_keys.h"
#include "windows/messages/window_asker.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/frm_zip.h"

#include <QAbstractScrollArea>

void BringMacroWindows(WindowAsker& asker, QWidget* owner)
{
    asker.Bring<ChoiceQuestion>([](const ChoiceQuestion& question, QWidget* parent) {
        return question.AsMenu ? ChooseFromMenu(question, parent) : frmMacroMulti::Ask(question, parent);
    });
    asker.Bring<ZipEntryQuestion>(frmMacroMulti::AskEntry);
    asker.Bring<PauseQuestion>(frmMacroPause::Ask);
    asker.Bring<KeysQuestion>([held = new HeldKeys(owner)](const KeysQuestion&, QWidget*) { return held->Now(); });
    MacroWindows.MainWindow = [owner] { return quint64(owner->winId()); };
    MacroWindows.ShowMainWindow = [owner](bool visible) { owner->setVisible(visible); };
    MacroWindows.TextOrigin = [](EditorPane& pane) {
        const QWidget* widget = WidgetOf(pane);
        const auto* scrolled = qobject_cast<const QAbstractScrollArea*>(widget);
        const QWidget* text = scrolled ? scrolled->viewport() : widget;
        return (QPointF(text->mapToGlobal(QPoint(0, 0))) * text->devicePixelRatioF()).toPoint();
    };
    MacroWindows.UnderZipWindow = [owner](ArchiveUse use, const ArchiveWork& work) {
        return frmZip::Run(use == ArchiveUse::Zip ? frmZip::Zip : frmZip::Unzip, work, DialogParent(owner));
    };
    MacroWindows.AskAboutNew = [owner](const NewMacro& macro) { return frmMacroNew::Ask(macro, owner); };
    MacroWindows.TakeChanges = [owner](const MacroChanges& changes) { return frmMacroCopy::Ask(changes, owner); };
}
