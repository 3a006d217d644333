#include "conf/locate_image.h"

#include "conf/conf_lines.h"
#include "conf/element_blocks.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"

namespace {

constexpr int LocateReach = 20;

struct LocateMessage
{
    NotLocated Why;
    message::Number Message;
};
constexpr LocateMessage LocateMessages[] = {{NoMainLine, message::NoImageNamed},
                                            {NoImageName, message::ColonMissing},
                                            {ImageNotInLists, message::NamedImageMissing}};

std::optional<int> MainLineAbove(const DocumentText& pane, int caretLine)
{
    if (Frame.CurrentMode != ModeGfx)
        return caretLine;
    return FindMainLine(LinesOf(pane), caretLine, {Frame.Settings.SheetKinds, LocateReach, GroupRule::FromWithin});
}

/// Opens the file in the tool of the mode.
void OpenLocated(const MediaRequest& request)
{
    Tools().ShowMediaEntry(request.Entry);
    Tools().PreviewMedia(request);
    Panes().FocusPane();
    CurrentPane().ExecuteCmd(CmdLineStart);
}

void Locate(bool quick)
{
    auto located = LocateElementImage(CurrentPane());
    if (located) {
        located->Quick = quick;
        OpenLocated(*located);
        return;
    }
    for (const LocateMessage& row : LocateMessages)
        if (row.Why == located.error())
            ShowMessage(row.Message);
    const QString command = quick ? QStringLiteral("Quick Preview") : QStringLiteral("Edit Animation");
    if (located.error() == TextSelected)
        ShowNotice(command + QStringLiteral(" opens what the caret's line names, while nothing is selected"));
    if (located.error() == NoKey)
        ShowNotice(QStringLiteral("There is no key in this line for ") + command);
}

} // namespace

tl::expected<MediaRequest, NotLocated> LocateElementImage(DocumentText& pane)
{
    if (pane.SelLength() > 0)
        return tl::unexpected(TextSelected);
    pane.ExecuteCmd(CmdLineStart);
    const int caretLine = pane.GetSel(true).StartLine;
    if (pane.GetLine(caretLine).indexOf(QLatin1Char(':')) <= 0)
        return tl::unexpected(NoKey);
    const std::optional<int> mainLine = MainLineAbove(pane, caretLine);
    if (!mainLine)
        return tl::unexpected(NoMainLine);
    const QString line = WithoutNote(pane.GetLine(*mainLine));
    const qsizetype colon = line.lastIndexOf(QLatin1Char(':'));
    const QString name = colon < 0 ? QString() : CleanValue(line.mid(colon + 1));
    if (name.isEmpty())
        return tl::unexpected(NoImageName);
    const std::optional<MediaHit> hit = FindImageInLists(name);
    if (!hit)
        return tl::unexpected(ImageNotInLists);
    return MediaRequest{*hit, BlockPlace{*mainLine, caretLine}};
}

void QuickPreview()
{
    Locate(true);
}

void EditAnimation()
{
    Locate(false);
}
