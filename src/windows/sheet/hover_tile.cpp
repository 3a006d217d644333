#include "windows/sheet/hover_tile.h"

#include "conf/block_outline.h"
#include "editor/make_pane.h"
#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "graphics/sheet.h"
#include "platform/images/images.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QCursor>
#include <QHelpEvent>
#include <QToolTip>

namespace {

/// As if the mouse had come to rest again.
void ShowTipAnew(EditorPane& pane)
{
    const auto* area = qobject_cast<QAbstractScrollArea*>(WidgetOf(pane));
    if (!area || !QToolTip::isVisible() || !area->viewport()->underMouse())
        return;
    const QPoint mouse = QCursor::pos();
    QHelpEvent rest(QEvent::ToolTip, area->viewport()->mapFromGlobal(mouse), mouse);
    QCoreApplication::sendEvent(area->viewport(), &rest);
}

} // namespace

QImage HoverTile(EditorPane& pane, int line, int column)
{
    const std::optional<HoveredBlock> block = BlockUnder(LinesOf(pane), line, column, Frame.Settings.SheetKinds);
    const std::optional<MediaHit> hit = block ? FindImageInLists(block->Image) : std::nullopt;
    if (!hit)
        return {};
    const QString path = PathOf(hit->Source, hit->Name);
    const std::optional<images::Picture> sheet = images::Kept(path);
    if (!sheet) {
        images::LoadLater(path, &pane, [&pane](const Result<images::Picture>& loaded) {
            if (loaded)
                ShowTipAnew(pane);
        });
        return {};
    }
    const QRect tile(block->Read.Element.XPos * TileSize, block->Read.Element.YPos * TileSize, TileSize, TileSize);
    return sheet->Pixels.rect().contains(tile) ? sheet->Pixels.copy(tile) : QImage();
}

QImage ValuePicture(EditorPane& pane, const QString& file, std::function<void()> later)
{
    const std::optional<MediaHit> hit =
        HasSheetName(file, Frame.Settings.SheetKinds) ? FindImageInLists(file) : std::nullopt;
    if (!hit)
        return {};
    const QString path = PathOf(hit->Source, hit->Name);
    if (const auto sheet = images::Kept(path))
        return sheet->Pixels;
    images::LoadLater(path, &pane, [later = std::move(later)](const Result<images::Picture>& loaded) {
        if (loaded)
            later();
    });
    return {};
}
