#include "graphics/picture_files.h"

#include "platform/files/paths.h"
#include "platform/images/image_kinds.h"

#include <QBuffer>

namespace {

Result<QByteArray> PngBytes(const QImage& picture, PcxDepth depth)
{
    const bool numbers = picture.format() == QImage::Format_Indexed8;
    if (depth == PcxDepth::Palette && !numbers)
        return Fail({}, QStringLiteral("The picture has no palette."));
    const QImage pixels =
        numbers == (depth == PcxDepth::Palette) ? picture : picture.convertToFormat(QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!pixels.save(&buffer, "PNG"))
        return Fail({}, QStringLiteral("The picture cannot be written as PNG."));
    return bytes;
}

} // namespace

PictureForm FormOfName(const QString& name)
{
    return ImageKindOfName(name) == NetworkGraphicsKind ? PictureForm::Png : PictureForm::Pcx;
}

QString EndingOf(PictureForm form)
{
    return form == PictureForm::Png ? QStringLiteral(".png") : QStringLiteral(".pcx");
}

Result<QByteArray> PictureBytes(const QImage& picture, PictureForm form, PcxDepth depth)
{
    return form == PictureForm::Png ? PngBytes(picture, depth) : PcxBytes(picture, depth);
}

Result<> WritePicture(const QString& path, const QImage& picture, PcxDepth depth)
{
    const Result<QByteArray> file = PictureBytes(picture, FormOfName(path), depth);
    return file ? paths::WriteWhole(path, *file) : Fail(path, file.error().Reason);
}
