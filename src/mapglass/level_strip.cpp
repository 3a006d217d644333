#include "mapglass/level_strip.h"

#include "level/level_files.h"
#include "level/level_folder.h"
#include "platform/files/paths.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace {

const QString NoLevel = QStringLiteral("no level");
constexpr qint64 SliceMs = 12; ///< of one turn of work: the window stays alive

/// A tile of fixed size, so that all rows stand alike, with what `draw` puts on it.
template <class Draw>
QIcon Tile(const QSize& size, Draw draw)
{
    QPixmap tile(size);
    tile.fill(QColor(24, 20, 32));
    QPainter painter(&tile);
    draw(painter);
    painter.end();
    QIcon icon(tile);
    icon.addPixmap(tile, QIcon::Selected); // a style would tint it
    return icon;
}

/// The picture in the middle.
QIcon Framed(const QImage& picture, const QSize& size)
{
    return Tile(size, [&](QPainter& painter) {
        const QSize fitted = picture.size().boundedTo(size);
        painter.drawImage((size.width() - fitted.width()) / 2, (size.height() - fitted.height()) / 2, picture, 0, 0,
                          fitted.width(), fitted.height());
    });
}

/// For a file that is no level: a struck-out map, which no level looks like.
QIcon NoLevelSign(const QSize& size)
{
    return Tile(size, [&](QPainter& painter) {
        const QRect room = QRect(QPoint(), size).marginsRemoved({16, 10, 16, 26});
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(232, 108, 96), 3));
        painter.drawRect(room);
        painter.drawLine(room.topLeft(), room.bottomRight());
        painter.drawLine(room.topRight(), room.bottomLeft());
        QFont font = painter.font();
        font.setPixelSize(13);
        painter.setFont(font);
        painter.setPen(QColor(255, 214, 208));
        painter.drawText(QRect(0, size.height() - 24, size.width(), 22), Qt::AlignCenter, NoLevel);
    });
}

/// A map too large for a pixel a cell is shown thinned out.
QImage Thumbnail(const LevelMap& map, const MapPainter& painter, const QSize& room)
{
    const QImage small = painter.Small(map, room);
    return small.size().boundedTo(room) == small.size()
               ? small
               : small.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

LevelStripModel::LevelStripModel(QObject* parent) : QAbstractListModel(parent)
{
    between.setSingleShot(true);
    connect(&between, &QTimer::timeout, this, &LevelStripModel::MakeSome);
}

void LevelStripModel::ShowFolder(const QString& shown)
{
    const QStringList now = LevelsIn(shown).value_or(QStringList());
    if (shown == folder && now == names)
        return;
    beginResetModel();
    folder = shown;
    names = now;
    thumbs.assign(size_t(names.size()), {});
    made = 0;
    next = 0;
    endResetModel();
    between.start(0);
}

void LevelStripModel::SetPainter(const MapPainter& with)
{
    painter = with;
    for (Thumb& thumb : thumbs)
        thumb.Made = false;
    made = 0;
    between.start(0);
}

void LevelStripModel::MakeAnew(const QString& name)
{
    const int row = RowOf(name);
    if (row < 0 || !thumbs[size_t(row)].Made)
        return;
    thumbs[size_t(row)].Made = false;
    --made;
    between.start(0);
}

int LevelStripModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(names.size());
}

QString LevelStripModel::Path(int row) const
{
    return row >= 0 && row < names.size() ? folder + names.at(row) : QString();
}

QVariant LevelStripModel::data(const QModelIndex& index, int role) const
{
    const Thumb& thumb = thumbs.at(size_t(index.row()));
    const QString name = names.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return name.chopped(QStringLiteral(".level").size());
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return thumb.Title.isEmpty() ? name : name + u'\n' + thumb.Title;
    case Qt::DecorationRole:
        return thumb.Picture;
    case Qt::SizeHintRole:
        return QSize(Picture.width() + 12, Picture.height() + 28);
    default:
        return {};
    }
}

void LevelStripModel::Make(int row)
{
    Thumb& thumb = thumbs[size_t(row)];
    const Result<LevelFile> level = ReadLevelFile(Path(row));
    thumb.Picture = level ? Framed(Thumbnail(level->Record.Map, painter, Picture), Picture) : NoLevelSign(Picture);
    thumb.Title = level ? level->Record.Info.Cavename : NoLevel + QStringLiteral(": ") + level.error().Reason;
    thumb.Made = true;
    ++made;
    emit dataChanged(index(row), index(row));
}

void LevelStripModel::MakeSome()
{
    QElapsedTimer clock;
    clock.start();
    for (qsizetype looked = 0; looked < names.size() && !IsWhole(); ++looked, ++next) {
        if (next >= names.size() || next < 0)
            next = 0;
        if (!thumbs[size_t(next)].Made)
            Make(next);
        if (clock.elapsed() >= SliceMs)
            break;
    }
    if (!IsWhole())
        between.start(0);
}

LevelStrip::LevelStrip(QWidget* parent) : QListView(parent), levels(new LevelStripModel(this))
{
    setObjectName(QStringLiteral("strip"));
    setAccessibleName(QStringLiteral("Levels of this folder"));
    setViewMode(IconMode);
    setFlow(LeftToRight);
    setMovement(Static);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setIconSize(LevelStripModel::Picture);
    setSpacing(2);
    setVerticalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideMiddle);
    setModel(levels);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        if (const QModelIndex first = indexAt({8, 8}); first.isValid())
            levels->MakeFrom(first.row());
    });
}

void LevelStrip::ShowCurrent(const QString& name)
{
    following = true;
    setCurrentIndex(levels->index(levels->RowOf(name)));
    following = false;
}

void LevelStrip::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    if (current.isValid() && !following)
        emit Chosen(levels->Path(current.row()));
}

void LevelStrip::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp)
        event->ignore();
    else
        QListView::keyPressEvent(event);
}
