#include "graphics/make_film_sheet.h"

#include "graphics/see_through.h"
#include "platform/images/images.h"

#include <QtEndian>
#include <algorithm>

namespace {

constexpr qsizetype PackedHeader = 40;
const QString PartOutside = QStringLiteral("The part lies outside of the picture.");

/// A packed bitmap of one tile: the format that every frame is asked for in.
QByteArray PackedTile()
{
    QByteArray packed(PackedHeader + qsizetype(film::TileBytes), '\0');
    const auto put = [&](qsizetype at, auto number) { qToLittleEndian(number, packed.data() + at); };
    put(0, quint32(PackedHeader));
    put(4, qint32(TileSize));
    put(8, qint32(TileSize));
    put(12, quint16(1));
    put(14, quint16(24));
    put(20, quint32(film::TileBytes));
    return packed;
}

/// Hands pixels to a sheet by way of the bitmap of a frame.
class FrameDoor
{
public:
    explicit FrameDoor(FilmSheet& to) : sheet(to) {}

    bool Pass(films::TileView pixels)
    {
        std::ranges::copy(pixels, reinterpret_cast<std::byte*>(packed.data()) + PackedHeader);
        return !frame.CreateFromPackedDIBPointer(packed) || sheet.Add(frame);
    }
    bool Pass(const QImage& tile)
    {
        const QImage below = tile.convertToFormat(QImage::Format_BGR888).mirrored();
        return Pass(films::TileView(reinterpret_cast<const std::byte*>(below.constBits()), film::TileBytes));
    }

private:
    FilmSheet& sheet;
    QByteArray packed = PackedTile();
    cAVI frame;
};

QRect PartOf(const QSize& picture, const films::Plan& plan)
{
    const int side = std::min(picture.width(), picture.height());
    switch (plan.How) {
    case films::Fit::Middle:
        return {(picture.width() - side) / 2, (picture.height() - side) / 2, side, side};
    case films::Fit::Part:
        return QRect(int(plan.X), int(plan.Y), int(plan.Width), int(plan.Height)) & QRect(QPoint(), picture);
    default:
        return {QPoint(), picture};
    }
}

bool IsOfTiles(const QSize& size)
{
    return size.width() % TileSize == 0 && size.height() % TileSize == 0;
}

QImage Scaled(const QImage& picture, const films::Plan& plan)
{
    const QRect part = PartOf(picture.size(), plan);
    if (part.isEmpty())
        return {};
    const bool blocks = TileSize % part.width() == 0 && TileSize % part.height() == 0;
    return OverBlack(picture.copy(part).scaled(TileSize, TileSize, Qt::IgnoreAspectRatio,
                                               blocks ? Qt::FastTransformation : Qt::SmoothTransformation));
}

/// False: the sheet is full. What gives no tile is refused.
bool AddPicture(const QString& path, const films::Plan& plan, FrameDoor& door, FilmReport& report)
{
    const Result<images::Picture> picture = images::LoadAny(path);
    if (!picture) {
        report.Refused.push_back(picture.error());
        return true;
    }
    if (report.Told.Width == 0) {
        report.Told.Width = quint32(picture->Size().width());
        report.Told.Height = quint32(picture->Size().height());
    }
    const bool whole = plan.How == films::Fit::TilesOnly;
    if (whole && !IsOfTiles(picture->Size())) {
        report.Refused.push_back({path, QStringLiteral("The picture isn't of tiles of 32 by 32 pixels.")});
        return true;
    }
    const QImage tiles = whole ? OverBlack(picture->Pixels) : Scaled(picture->Pixels, plan);
    if (tiles.isNull()) {
        report.Refused.push_back({path, PartOutside});
        return true;
    }
    const int count = tiles.width() / TileSize * (tiles.height() / TileSize);
    for (int tile = 0; tile < count; ++tile)
        if (!door.Pass(TileOf(tiles, tile)))
            return false;
    return true;
}

} // namespace

FilmReport SheetFromFilm(const QString& path, const FilmPlan& plan, const FilmTurn& turn)
{
    FilmReport report;
    FilmSheet sheet(plan.Tiles, plan.IgnoreDups);
    FrameDoor door(sheet);
    const auto shows = [&](int number, films::TileView pixels) {
        report.Frames = number + 1;
        report.Full = !door.Pass(pixels);
        return !report.Full;
    };
    const auto begins = [&](const films::Facts& facts) { report.Told = facts; };
    const auto goes = [&] { return !turn || turn(report.Frames, int(std::min(report.Told.Length, 1u << 30))); };
    const films::Reading reading = films::Read(path, plan.Frames, {.Begins = begins, .Shows = shows, .Goes = goes});
    report.How = reading.How;
    report.Reason = reading.Reason;
    report.Told = reading.Told;
    report.Tiles = sheet.Tiles();
    report.Incomplete = reading.How == films::End::Whole && !report.Full && reading.Told.Counted &&
                        quint32(report.Frames) < reading.Told.Length;
    if (reading.Told.How == film::Outcome::Reads && report.Frames > 0)
        report.Sheet = sheet.Picture();
    else if (reading.How == films::End::Whole || reading.How == films::End::Broken) { // of no frame at all
        report.How = films::End::NotOpened;
        if (PartOf({int(reading.Told.Width), int(reading.Told.Height)}, plan.Frames).isEmpty())
            report.Reason = PartOutside;
    }
    return report;
}

FilmReport SheetFromPictures(const QStringList& files, const FilmPlan& plan, const FilmTurn& turn)
{
    FilmReport report;
    FilmSheet sheet(plan.Tiles, plan.IgnoreDups);
    FrameDoor door(sheet);
    report.How = files.isEmpty() ? films::End::NotOpened : films::End::Whole;
    for (const QString& path : files) {
        if (turn && !turn(report.Frames, int(files.size()))) {
            report.How = films::End::Stopped;
            break;
        }
        ++report.Frames;
        report.Full = !AddPicture(path, plan.Frames, door, report);
        if (report.Full)
            break;
    }
    report.Tiles = sheet.Tiles();
    if (report.Tiles > 0)
        report.Sheet = sheet.Picture();
    else if (report.How == films::End::Whole)
        report.How = films::End::NotOpened;
    return report;
}
