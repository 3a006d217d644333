#include "windows/macro/kept_code.h"

#include "frame/editor_pane.h"
#include "frame/files/closed_tabs.h"
#include "frame/frame_state.h"
#include "frame/recovery/recovery.h"

KeptCode::KeptCode(EditorPane& ofWorkbench) : code(ofWorkbench)
{
    BelongsTo({});
    connect(&code, &DocumentText::TextChanged, this, &KeptCode::Changed);
    connect(&code, &DocumentText::ModifiedChanged, this, &KeptCode::Changed);
}

KeptCode::~KeptCode()
{
    if (Frame.Keeper)
        Frame.Keeper->SetCode(nullptr);
}

void KeptCode::BelongsTo(const QString& macro)
{
    if (Frame.Keeper)
        Frame.Keeper->SetCode(&code, macro);
}

void KeptCode::Changed()
{
    if (!Frame.Keeper)
        return;
    if (code.Modified())
        Frame.Keeper->TextEdited(Recovery::CodeTab);
    else
        Frame.Keeper->TextSettled(Recovery::CodeTab);
}

void KeptCode::GiveUp()
{
    if (code.Modified())
        KeepClosedCode();
    if (Frame.Keeper)
        Frame.Keeper->TextSettled(Recovery::CodeTab);
}

bool KeptCode::KeepForNextStart()
{
    if (!Frame.Keeper || !Frame.Keeper->KeepApart(Recovery::CodeTab))
        return false;
    Frame.Keeper->TextSettled(Recovery::CodeTab);
    return true;
}

void KeptCode::TakeBack(const RecoveredText& kept)
{
    code.ReplaceLines(0, qMax(0, code.LineCount() - 1), FromFile(kept.Bytes, EncodingOf(kept.Bytes)));
    code.SetModified(true);
    if (Frame.Keeper && Frame.Keeper->KeepAllNow()) // until then the old copy is the only one
        Frame.Keeper->Forget(kept);
}
