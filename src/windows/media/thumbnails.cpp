#include "windows/media/thumbnails.h"

#include "frame/frame_state.h"
#include "level/level_files.h"
#include "platform/images/images.h"
#include "windows/media/media_view.h"
#include "windows/parts/dialog_help.h"

#include <QDateTime>
#include <QFileInfo>
#include <utility>

namespace {

constexpr int SideAt96 = 32;
constexpr int MostThumbnails = 1'000; // pictures that are kept

bool IsOn()
{
    return Frame.Settings.Thumbnails == 1;
}

bool IsLevel(const QString& name)
{
    return name.endsWith(QLatin1StringView(".level"), Qt::CaseInsensitive);
}

bool IsPictured(const QString& name)
{
    return IsOn() && (IsLevel(name) || HasSheetName(name, Frame.Settings.SheetKinds));
}

/// Smaller images keep their size. A large one is thinned out before it is smoothed, which costs by its size.
QImage Fitted(const QImage& image, const QSize& room)
{
    if (image.isNull() || image.size().boundedTo(room) == image.size())
        return image;
    const QSize size = image.size().scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
    const QSize rough = size * 8;
    return (image.size().boundedTo(rough) == image.size() ? image : image.scaled(rough))
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

Thumbnails::Thumbnails(MediaView& list) : QStyledItemDelegate(&list), view(list), thumbs(MostThumbnails)
{
    soon.setSingleShot(true);
    connect(&soon, &QTimer::timeout, this, &Thumbnails::AskNext);
}

int Thumbnails::Side() const
{
    return Pixels(view, SideAt96);
}

void Thumbnails::LookAgain()
{
    ++look;
    if (IsOn())
        soon.start(0);
}

QSize Thumbnails::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int high = QStyledItemDelegate::sizeHint(option, index).height();
    // As wide as the list: a long name is cut in the middle instead of being scrolled to.
    return {1, IsPictured(index.data().toString()) ? qMax(high, Side() + 4) : high};
}

void Thumbnails::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!IsPictured(option->text))
        return;
    const Thumb* thumb = thumbs.object(view.PathOf(index));
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = {Side(), Side()};
    if (thumb) {
        // The same picture for selected rows: a style would tint it.
        option->icon = QIcon(thumb->Picture);
        option->icon.addPixmap(thumb->Picture, QIcon::Selected);
    }
    if ((!thumb || thumb->Look != look) && !asking)
        soon.start(0);
}

bool Thumbnails::IsDue(const QString& path)
{
    Thumb* thumb = thumbs.object(path);
    if (thumb && thumb->Look == look)
        return false;
    const QFileInfo file(path);
    if (thumb && thumb->Time == file.lastModified().toMSecsSinceEpoch() && thumb->Size == file.size()) {
        thumb->Look = look;
        return false;
    }
    return true;
}

/// One file at a time, so that rows scrolled by are never asked for.
void Thumbnails::AskNext()
{
    if (asking || !IsOn() || !view.isVisible() || !view.model())
        return;
    const QRect room = view.viewport()->rect();
    QModelIndex index = view.indexAt(QPoint(room.left() + 1, room.top() + 1));
    for (; index.isValid() && view.visualRect(index).top() <= room.bottom();
         index = index.siblingAtRow(index.row() + 1)) {
        const QString path = view.PathOf(index);
        if (!IsPictured(path) || !IsDue(path))
            continue;
        const QFileInfo file(path);
        const Thumb thumb{{}, file.lastModified().toMSecsSinceEpoch(), file.size(), look};
        if (IsLevel(path))
            DrawLevel(path, thumb);
        else
            AskForSheet(path, thumb);
        return;
    }
}

void Thumbnails::AskForSheet(const QString& path, const Thumb& thumb)
{
    asking = true;
    images::LoadLater(path, this, [=, this](const Result<images::Picture>& picture) {
        asking = false;
        Take(path, thumb, picture ? picture->Pixels : QImage());
    });
}

/// Its palette comes first, once a folder.
void Thumbnails::DrawLevel(const QString& path, const Thumb& thumb)
{
    const QString wanted = FindPalette(PaletteName(path));
    if (wanted != palette) {
        asking = true;
        images::LoadLater(wanted, this, [=, this](const Result<images::Picture>& picture) {
            asking = false;
            palette = wanted;
            painter = MapPainter(picture ? picture->Pixels : QImage());
            soon.start(0);
        });
        return;
    }
    const QSize room = QSize(Side(), Side()) * view.devicePixelRatioF();
    const Result<LevelFile> level = ReadLevelFile(path);
    Take(path, thumb, level ? painter.Small(level->Record.Map, room) : QImage());
}

void Thumbnails::Take(const QString& path, Thumb thumb, const QImage& image)
{
    const qreal ratio = view.devicePixelRatioF();
    thumb.Picture = QPixmap::fromImage(Fitted(image, QSize(Side(), Side()) * ratio));
    thumb.Picture.setDevicePixelRatio(ratio);
    thumbs.insert(path, new Thumb(std::move(thumb)));
    view.viewport()->update();
    soon.start(0);
}
