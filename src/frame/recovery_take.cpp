#include "frame/recovery_take.h"

#include "frame/file_commands.h"
#include "frame/frame_state.h"
#include "platform/paths.h"

#include <algorithm>

namespace {

bool IsUntouched(int tab)
{
    return !HasFile(Frame.Documents.at(tab)) && !Host().Pane(tab).Modified();
}

/// Makes a tab current that holds nothing of the user's; false if there is none.
bool ShowFreeTab()
{
    if (IsUntouched(Frame.CurrentTab))
        return true;
    const auto& tabs = Frame.Documents;
    if (std::all_of(tabs.begin(), tabs.end(), [](const Document& tab) { return tab.Face.Visible; }))
        return false;
    OpenNewTab();
    ActivateTab();
    return true;
}

void NameCurrentTab(const RecoveredText& text)
{
    Document& document = Frame.Documents.at(Frame.CurrentTab);
    document.Mode = text.Mode;
    if (!text.DocumentPath.isEmpty()) {
        document.Path = text.DocumentPath;
        document.Face.Caption = QLatin1Char(' ') + RecentDisplayName(text.DocumentPath, true).left(10);
    }
    ShowTab(Frame.CurrentTab);
    ActivateTab();
}

void PutText(EditorPane& pane, const QByteArray& bytes)
{
    EditorPane& read = Host().txtBuffer();
    read.LoadBytes(bytes);
    pane.SetEncoding(read.Encoding());
    pane.SetLineEnd(read.LineEnd());
    pane.ReplaceLines(0, std::max(0, pane.LineCount() - 1), read.Bytes());
    pane.SetModified(true);
    read.LoadBytes({});
    UpdateCaretStatus(pane);
}

} // namespace

Result<> TakeRecovered(Recovery& recovery, const RecoveredText& text)
{
    const bool shown = !text.DocumentPath.isEmpty() && TabWithFile(text.DocumentPath) >= 0;
    if (!shown && !ShowFreeTab())
        return Fail(text.DocumentPath, QStringLiteral("All tabs are in use. Close one, then take the text."));
    const bool opened = (shown || paths::FileExists(text.DocumentPath)) && OpenDocument(text.DocumentPath, false);
    if (!opened)
        NameCurrentTab(text);
    PutText(CurrentPane(), text.Bytes);
    recovery.KeepAllNow(); // never without a copy
    recovery.Forget(text);
    return {};
}
