#include "platform/images/image_kinds.h"

#include "decoder/kind_of_bytes.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>

namespace {

constexpr std::array<ImageKindRow, 27> Table = {{
    {"Windows Bitmap", "bmp"},
    {"Windows Icon", "ico"},
    {"Joint Photographic Experts Group", "jpg"},
    {"JPEG Network Graphics", "jng"},
    {"CBM 64", "koala"},
    {"CBM Amiga", "iff"},
    {"Multiple Image Network Graphics", "mng"},
    {"Portable Bitmap", "pbm"},
    {"Portable Bitmap Raw", "pbmraw"},
    {"Kodak Photo", "pcd"},
    {"ZSoft Paintbrush", "pcx"},
    {"Portable Greymap", "pgm"},
    {"Portable Greymap Raw", "pgmraw"},
    {"Portable Network Graphics", "png"},
    {"Portable Pixelmap", "ppm"},
    {"Portable Pixelmap Raw", "ppmraw"},
    {"Sun Raster Image", "ras"},
    {"Truevision Targa", "tga"},
    {"Tagged Image Format", "tif"},
    {"Wireless Bitmap", "wbmp"},
    {"Adobe PhotoShop", "psd"},
    {"Dr. Halo", "cut"},
    {"X11 Bitmap", "xbm"},
    {"X11 Pixmap", "xpm"},
    {"Direct Draw Surface Format", "dds"},
    {"Graphic Interchange Format", "gif"},
    {"High Dynamic Range Format", "hdr"},
}};

} // namespace

std::span<const ImageKindRow> ImageKinds()
{
    return Table;
}

int ImageKindOfName(const QString& fileName)
{
    const QString ending = fileName.sliced(fileName.lastIndexOf(u'.') + 1);
    const auto row = std::find_if(Table.begin(), Table.end(), [&](const ImageKindRow& kind) {
        return ending.compare(QLatin1String(kind.Extension), Qt::CaseInsensitive) == 0;
    });
    return row == Table.end() ? -1 : int(row - Table.begin());
}

namespace {

int KindOfBytesIn(const QString& path)
{
    QFile file(paths::Existing(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) // a fifo would not end
        return -1;
    const QByteArray front = file.read(qint64(decoder::FrontBytes));
    const qint64 endAt = qMax<qint64>(0, file.size() - qint64(decoder::EndBytes));
    const QByteArray end = file.seek(endAt) ? file.readAll() : QByteArray();
    const auto bytes = [](const QByteArray& part) {
        return std::as_bytes(std::span(part.constData(), size_t(part.size())));
    };
    const auto kind = decoder::KindOfBytes(bytes(front), bytes(end));
    return kind ? int(*kind) : -1;
}

} // namespace

int ImageKindOfSheet(const QString& path)
{
    const int named = ImageKindOfName(path);
    const int found = named < 0 ? -1 : KindOfBytesIn(path);
    return found < 0 ? named : found;
}

int ImageKindOfFile(const QString& path)
{
    const int kind = ImageKindOfName(path);
    return kind < 0 ? KindOfBytesIn(path) : kind;
}
