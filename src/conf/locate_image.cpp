#include "conf/locate_image.h"

#include "conf/block_fields.h"
#include "conf/conf_lines.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"

#include <algorithm>

namespace {

constexpr int LocateReach = 20;

bool HasSubGroup(const QString& line)
{
    constexpr std::array<const char*, 3> Words = {".CRUMBLED", ".PREVIEW", ".EDITOR"};
    return std::any_of(Words.begin(), Words.end(),
                       [&](const char* word) { return line.contains(QLatin1String(word)); });
}

/// The line at or above the caret that names the block's image. Those of sub groups count only from within one.
std::optional<int> MainLineAbove(const DocumentText& pane, int caretLine)
{
    const bool inSubGroup = HasSubGroup(pane.GetLine(caretLine));
    for (int line = caretLine; line >= qMax(0, caretLine - LocateReach); --line) {
        const QString text = pane.GetLine(line);
        if (HasSheetName(text) && (inSubGroup || !HasSubGroup(text)))
            return line;
    }
    return std::nullopt;
}

void GotoLineStart(DocumentText& pane)
{
    pane.ExecuteCmd(CmdLineStart);
}

/// Opens `hit` in the tool of the mode, with the block that names it.
void OpenImage(DocumentText& pane, const MediaHit& hit)
{
    Tools().ShowMediaEntry(hit.Source, hit.Row);
    Conf.MediaSource = hit.Source;
    Conf.MediaFile = hit.Name;
    if (Frame.CurrentMode == ModeGfx)
        ReadElementBlock();
    Conf.Element.ElementOpen = true;
    Tools().PreviewMedia();
    Panes().FocusPane();
    GotoLineStart(pane);
}

void Locate(bool quick)
{
    Conf.QuickPreview = quick;
    switch (LocateElementImage()) {
    case NoMainLine:
        ShowMessage(message::NoImageNamed);
        break;
    case NoImageName:
        ShowMessage(message::ColonMissing);
        break;
    case ImageNotInLists:
        ShowMessage(message::NamedImageMissing);
        break;
    case ImageOpened:
    case NothingToLocate:
        break;
    }
}

} // namespace

LocateResult LocateElementImage()
{
    DocumentText& pane = CurrentPane();
    if (pane.SelLength() > 0)
        return NothingToLocate;
    GotoLineStart(pane);
    const int caretLine = pane.GetSel(true).StartLine;
    Conf.CaretLine = caretLine;
    if (pane.GetLine(caretLine).indexOf(QLatin1Char(':')) <= 0)
        return NothingToLocate;
    const auto mainLine = Frame.CurrentMode == ModeGfx ? MainLineAbove(pane, caretLine) : std::optional(caretLine);
    if (!mainLine)
        return NoMainLine;
    Conf.MainLine = *mainLine;
    const QString line = pane.GetLine(*mainLine);
    const qsizetype colon = line.lastIndexOf(QLatin1Char(':'));
    const QString name = colon < 0 ? QString() : CleanValue(line.mid(colon + 1));
    if (name.isEmpty())
        return NoImageName;
    const std::optional<MediaHit> hit = FindImageInLists(name);
    if (!hit)
        return ImageNotInLists;
    OpenImage(pane, *hit);
    return ImageOpened;
}

void QuickPreview()
{
    Locate(true);
}

void EditAnimation()
{
    Locate(false);
}
