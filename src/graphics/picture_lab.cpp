#include "graphics/picture_lab.h"

#include "graphics/see_through.h"

#include <QStringList>

LabState PcxLab;

namespace {

constexpr int LongestPaletteText = 3;
constexpr int LeastPalette = 2, MostPalette = 256;

/// Both sides as after loading.
void ShowLoaded()
{
    PcxLab.Before = PcxLab.SeeThroughBlack ? OverBlack(PcxLab.Loaded.Pixels) : WithoutAlpha(PcxLab.Loaded.Pixels);
    PcxLab.After = PcxLab.Before;
    PcxLab.SaveTag = PcxDepth::Full;
}

QString Entry(const QString& name, const QString& ending)
{
    return name + QStringLiteral(" (*.") + ending + QStringLiteral(")|*.") + ending + QLatin1Char('|');
}

} // namespace

void ResetLab()
{
    PcxLab = LabState{};
}

QString LabOpenFilter()
{
    QString kinds, all;
    for (const ImageKindRow& kind : ImageKinds()) {
        const QString ending = QString::fromLatin1(kind.Extension);
        kinds += Entry(QString::fromLatin1(kind.Name), ending);
        all += QStringLiteral("*.") + ending + QLatin1Char(';');
    }
    return kinds + QStringLiteral("All files|*|All Image types |") + all;
}

QString LabSaveFilter()
{
    const auto entry = [](int kind) {
        const ImageKindRow& row = ImageKinds()[size_t(kind)];
        return Entry(QString::fromLatin1(row.Name), QString::fromLatin1(row.Extension));
    };
    return QString(entry(PaintbrushKind) + entry(NetworkGraphicsKind)).chopped(1);
}

QString ColourText(int coloursUsed)
{
    struct Row
    {
        int Colours;
        const char* Text;
    };
    constexpr Row Rows[] = {{256, "256 (8 Bit)"}, {16, "16 (4 Bit)"}, {2, "2 (1 Bit)"}, {0, "16 Million (24 Bit)"}};
    for (const Row& row : Rows)
        if (row.Colours == coloursUsed)
            return QString::fromLatin1(row.Text);
    return QString::number(coloursUsed);
}

QString LabInfo(const QString& fileName, const images::Picture& picture)
{
    const ImageKindRow& kind = ImageKinds()[size_t(picture.Kind)];
    return fileName + QLatin1Char('\n') + QString::fromLatin1(kind.Name) + QStringLiteral("  (") +
           QString::fromLatin1(kind.Extension) + QStringLiteral(")\n") +
           QStringLiteral("Width: %1   Height: %2   Colours: ")
               .arg(picture.Size().width())
               .arg(picture.Size().height()) +
           ColourText(picture.ColoursUsed) + QLatin1Char('\n');
}

PaletteSize PaletteSizeOf(const QString& text)
{
    const int typed = text.size() > LongestPaletteText ? MostPalette : text.toInt();
    const int colours = qBound(LeastPalette, typed, MostPalette);
    return {QString::number(colours), colours};
}

QString SaveCaption(PcxDepth tag)
{
    return QStringLiteral("Save PCX (%1 Bit)").arg(int(tag));
}

Result<> LoadAnyImage(const QString& path, const Turn& turn)
{
    const Result<images::Picture> picture = images::LoadAny(path, turn);
    if (!picture)
        return tl::unexpected(picture.error());
    PcxLab.Loaded = *picture;
    ShowLoaded();
    return {};
}

void SetSeeThroughBlack(bool on)
{
    PcxLab.SeeThroughBlack = on;
    if (!PcxLab.Loaded.Pixels.isNull())
        ShowLoaded();
}

Result<> ConvertColours(const images::Reduction& how, const Turn& turn)
{
    const Result<QImage> reduced = images::Reduce(PcxLab.Before, how, turn);
    if (!reduced)
        return tl::unexpected(reduced.error());
    PcxLab.After = *reduced;
    PcxLab.SaveTag = PcxDepth::Palette;
    return {};
}
