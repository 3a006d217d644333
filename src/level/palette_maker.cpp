#include "level/palette_maker.h"

#include "conf/conf_lines.h"
#include "frame/frame_state.h"
#include "level/level_palette.h"
#include "platform/files/paths.h"
#include "platform/images/image_making.h"
#include "platform/images/images.h"

#include <QDir>
#include <QPainter>

namespace {

constexpr int SheetTile = 32;  ///< pixels
constexpr int TileNotSaid = 0; ///< the game's own default
const QString EditorEnding = QStringLiteral(".EDITOR");

/// Creatures whose blocks for the editor stand for the element whether those blocks are wanted or not.
constexpr const char* AlsoByEditor[] = {"bd_butterfly", "bd_firefly"};

/// What stands after a command's colon, if the line has the command.
std::optional<int> NumberBehind(QStringView line, QLatin1StringView command)
{
    const qsizetype at = line.indexOf(command, 0, Qt::CaseInsensitive);
    const qsizetype colon = at < 0 ? -1 : line.indexOf(u':', at);
    if (colon < 0)
        return {};
    const QStringView value = line.sliced(colon + 1).trimmed();
    qsizetype end = value.startsWith(u'-') ? 1 : 0;
    while (end < value.size() && value[end].isDigit())
        ++end;
    return value.first(end).toInt();
}

} // namespace

PaletteMaker::PaletteMaker(QImage start, const ElementNames& ofElements, const SheetEndings& ofSheets,
                           SheetReader reader, bool editorBlocks)
    : palette(start.convertToFormat(QImage::Format_RGB32)),
      names(ofElements),
      endings(ofSheets),
      read(std::move(reader)),
      editor(editorBlocks)
{
}

bool PaletteMaker::IsMainLine(QStringView line) const
{
    return endings.Of(line.trimmed().toString()) >= 0 && !line.contains(u'#') && line.indexOf(u':') > 0;
}

std::optional<int> PaletteMaker::ElementOf(QString key) const
{
    if (key.endsWith(EditorEnding, Qt::CaseInsensitive)) {
        key.chop(EditorEnding.size());
        const bool always = std::any_of(std::begin(AlsoByEditor), std::end(AlsoByEditor), [&key](const char* name) {
            return key.startsWith(QLatin1StringView(name) + u'.', Qt::CaseInsensitive);
        });
        if (!editor && !always)
            return {};
    }
    return names.Number(key);
}

void PaletteMaker::TakeMainLine(QStringView line)
{
    const qsizetype colon = line.indexOf(u':');
    waiting = ElementOf(line.first(colon).trimmed().toString());
    sheet = CleanValue(WithoutNote(line.sliced(colon + 1).toString()));
    tileX.reset();
    tileY.reset();
}

void PaletteMaker::Line(QStringView line)
{
    if (IsMainLine(line)) {
        Finish(); // where a block says less, the rest is 0
        TakeMainLine(line);
        return;
    }
    if (!waiting || line.trimmed().startsWith(u'#'))
        return;
    if (const auto x = NumberBehind(line, QLatin1StringView(".xpos")))
        tileX = x;
    if (const auto y = NumberBehind(line, QLatin1StringView(".ypos")))
        tileY = y;
    if (tileX.value_or(-1) >= 0 && tileY.value_or(-1) >= 0)
        Finish();
}

void PaletteMaker::End()
{
    Finish();
}

void PaletteMaker::Finish()
{
    if (waiting)
        DrawPaletteCell();
    waiting.reset();
}

void PaletteMaker::DrawPaletteCell()
{
    const Result<QImage> picture = read(sheet);
    if (!picture)
        return;
    const qint64 left = qint64(tileX.value_or(TileNotSaid)) * SheetTile;
    const qint64 top = qint64(tileY.value_or(TileNotSaid)) * SheetTile;
    if (left < 0 || top < 0 || left + SheetTile > picture->width() || top + SheetTile > picture->height())
        return;
    const QRect cell = PaletteRect(*waiting);
    if (!palette.rect().contains(cell))
        return;
    QPainter painter(&palette);
    painter.fillRect(cell, Qt::black);
    painter.drawImage(cell.topLeft(), picture->copy(int(left), int(top), SheetTile, SheetTile)
                                          .scaled(cell.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    drawn.insert(*waiting);
}

PaletteMaker::SheetReader SheetsIn(const QStringList& folders, const SheetEndings& endings, const Turn& turn)
{
    return [=](const QString& file) -> Result<QImage> {
        for (const QString& folder : folders)
            for (const QString& name : QStringList(file) + endings.Twins(file)) {
                const QString path = folder.isEmpty() ? QString() : paths::Existing(folder + name);
                if (path.isEmpty())
                    continue;
                if (const Result<images::Picture> picture = images::LoadAny(path, turn))
                    return picture->Pixels;
            }
        return Fail(file, QStringLiteral("no folder has it"));
    };
}

QString GraphicsConfOf(const QString& setFolder)
{
    for (const char* place : {"graphicsinfo.conf", "graphics/graphicsinfo.conf"})
        if (const QString path = paths::Existing(paths::Closed(setFolder) + QLatin1StringView(place)); !path.isEmpty())
            return path;
    return {};
}

Result<SetPalette> PaletteOfSet(const QString& setFolder, bool editorBlocks, const Turn& turn)
{
    const QString conf = GraphicsConfOf(setFolder);
    if (conf.isEmpty())
        return Fail(setFolder, QStringLiteral("it has no graphicsinfo.conf"));
    const Result<QByteArray> bytes = paths::ReadWhole(conf, paths::LargestDocument);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<QImage> start = ReadPalette(DefaultPalette(), turn);
    if (!start)
        return tl::unexpected(start.error());
    const SheetEndings& endings = Frame.Settings.SheetKinds;
    PaletteMaker maker(std::move(*start), NamesOfElements(), endings,
                       SheetsIn({paths::FolderOfPath(conf), paths::Closed(setFolder)}, endings, turn), editorBlocks);
    const QString text = QString::fromUtf8(*bytes);
    for (const QStringView line : QStringView(text).split(u'\n'))
        maker.Line(line);
    maker.End();
    return SetPalette{maker.Palette(), maker.Drawn()};
}

QString PaletteNameOfSheets(const QString& folder)
{
    const QString closed = QDir::cleanPath(folder);
    const QString last = paths::FileNameOfPath(closed).toLower();
    return last == QLatin1StringView("graphics") ? paths::ParentName(closed).toLower() : last;
}

Result<QImage> ReadPalette(const QString& path, const Turn& turn)
{
    return images::LoadAny(path, turn).map([](const images::Picture& picture) { return picture.Pixels; });
}

Result<> WritePalette(const QString& path, const QImage& palette, const Turn& turn)
{
    const Result<QByteArray> gif = images::GifBytes(palette, turn);
    if (!gif)
        return Fail(path, gif.error().Reason);
    QDir().mkpath(paths::FolderOfPath(path));
    return paths::WriteWhole(path, *gif);
}
