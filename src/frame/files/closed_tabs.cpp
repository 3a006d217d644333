#include "frame/files/closed_tabs.h"

#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/files/take_recovered.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace {

constexpr size_t MostClosedFiles = 20;

/// A text that was given up, but whose tab then stayed, is not brought back beside itself.
bool StandsInATab(const RecoveredText& text)
{
    if (text.Code)
        return false;
    for (int tab = 0; tab < 8; ++tab)
        if (Frame.Documents.at(tab).Face.Visible && Panes().Pane(tab).FileBytes() == text.Bytes)
            return true;
    return false;
}

/// The unsaved text that left its tab last; nothing if there is none.
std::optional<RecoveredText> LastClosedText()
{
    if (!Frame.Keeper)
        return {};
    QString forgotten;
    std::optional<RecoveredText> text = Frame.Keeper->LastClosed();
    while (text && text->Folder != forgotten && StandsInATab(*text)) { // a copy may not let itself be removed
        forgotten = text->Folder;
        Frame.Keeper->Forget(*text);
        text = Frame.Keeper->LastClosed();
    }
    return text;
}

void KeepAsClosed(int tab)
{
    if (!Frame.Keeper)
        return;
    if (const Result<> kept = Frame.Keeper->KeepClosed(tab); !kept)
        ShowNotice(QStringLiteral("The text can not be kept as a closed one: ") + kept.error().Reason);
}

bool OpenInFreeTab(const QString& path)
{
    const Document& current = Frame.Documents.at(Frame.CurrentTab);
    if (HasFile(current) || CurrentPane().Modified()) {
        const int before = Panes().SelectedTab();
        OpenNewTab();
        if (Panes().SelectedTab() == before) {
            ShowNotice(QStringLiteral("All eight tabs are taken"));
            return false;
        }
        ActivateTab();
    }
    return OpenDocument(path, false);
}

} // namespace

bool MayGiveUp(DocumentText& pane)
{
    if (!pane.Modified())
        return true;
    if (!Confirmed(message::CloseChanged))
        return false;
    KeepClosedText(Frame.CurrentTab);
    return true;
}

void KeepClosedText(int tab)
{
    const Document& document = Frame.Documents.at(tab);
    if (!Panes().Pane(tab).Modified()) {
        if (!HasFile(document))
            return;
        std::erase_if(Frame.Closed, [&](const ClosedFile& file) { return file.Path == document.Path; });
        Frame.Closed.push_back({document.Path, QDateTime::currentDateTime()});
        if (Frame.Closed.size() > MostClosedFiles)
            Frame.Closed.erase(Frame.Closed.begin());
        return;
    }
    KeepAsClosed(tab);
}

void KeepClosedCode()
{
    KeepAsClosed(Recovery::CodeTab);
}

void ReopenClosedTab()
{
    const std::optional<RecoveredText> text = LastClosedText();
    const bool file = !Frame.Closed.empty() && (!text || Frame.Closed.back().When > text->Kept);
    if (file) {
        const QString path = Frame.Closed.back().Path;
        if (OpenInFreeTab(path))
            std::erase_if(Frame.Closed, [&](const ClosedFile& closed) { return closed.Path == path; });
        return;
    }
    if (!text)
        return ShowNotice(QStringLiteral("No closed tab is known"));
    if (!TakeRecovered(*text))
        ShowNotice(QStringLiteral("All eight tabs are taken"));
    else if (!text->Code) // its window comes by itself
        ShowNotice(QStringLiteral("The text is back, unsaved as it was"));
}
