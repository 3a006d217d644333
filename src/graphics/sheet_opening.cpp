#include "graphics/sheet_opening.h"

#include "conf/element_record.h"
#include "graphics/sheet.h"

#include <algorithm>
#include <utility>

namespace {

enum Field { XPosField, YPosField };

constexpr int FromMacro = 4;

void Warn(const char* text)
{
    Sheet.ImageWarnings += QString::fromLatin1(text) + QStringLiteral("\n\n");
}

void CheckSize(SheetOpening& opening)
{
    if (Sheet.SheetWidth < TileSize || Sheet.SheetHeight < TileSize) {
        opening.TooSmall = true;
        opening.MayUpdate = false;
        Warn("Image is smaller than 32 pixels.");
    }
    if (Sheet.SheetWidth % TileSize != 0 || Sheet.SheetHeight % TileSize != 0)
        Warn("Image is not a multiple of 32. Any animation that wraps around the PCX may be wrong.");
}

void CheckPlaceFields(SheetOpening& opening)
{
    if (Conf.MediaSource == FromMacro || (Conf.FieldFound[XPosField] && Conf.FieldFound[YPosField]))
        return;
    Conf.Element.Frames = 1;
    Conf.Element.XPos = Conf.Element.YPos = 0;
    opening.MayUpdate = false;
    Warn("This element has a missing xpos or ypos command.");
}

void BringInsideSheet()
{
    ElementRecord& element = Conf.Element;
    if (element.XPos > Sheet.SheetColumns - 1) {
        element.XPos = 0;
        Warn("The XPOS exceeds the width of the image.");
    }
    if (element.YPos > Sheet.SheetRows - 1) {
        element.YPos = 0;
        Warn("The YPOS exceeds the height of the image.");
    }
    if (qint64(BaseTile()) + element.Frames > qint64(Sheet.SheetRows) * Sheet.SheetColumns) {
        element.Frames = 1;
        Warn("The frame total exceeds the size of the image.");
    }
}

void MarkElement()
{
    const ElementRecord& element = Conf.Element;
    if (element.Frames > 0) {
        GetEndFrame(element.Frames);
        Sheet.EndIndex = Sheet.EndRow * Sheet.SheetColumns + Sheet.EndColumn;
    }
    Sheet.Start = QPoint(element.XPos, element.YPos);
    Sheet.End = QPoint(Sheet.EndColumn, Sheet.EndRow);
    if (element.StartFrame > 0) {
        GetEndFrame(element.StartFrame + 1);
        Sheet.InStart = QPoint(Sheet.EndColumn, Sheet.EndRow);
    }
}

void CheckMode(const QStringList& animModes)
{
    const QStringList words = Conf.Element.AnimMode.split(QLatin1Char(','));
    if (std::all_of(words.cbegin(), words.cend(), [&](const QString& word) { return animModes.contains(word); }))
        return;
    Warn("The animation mode you typed doesn't exist. Defaulting to normal.");
    Conf.UnknownMode = std::exchange(Conf.Element.AnimMode, QStringLiteral("loop"));
}

void StartFromDefaults()
{
    ElementRecord& element = Conf.Element;
    element.Frames = 1;
    element.XPos = element.YPos = 0;
    element.StartFrame = -1;
    element.AnimMode = QStringLiteral("loop");
    element.Delay = 1;
    element.ElementName.clear();
    element.BlockKey.clear();                // or the same sheet opened once more would bear it in its title
    element.GlobalSync = element.Offset = 0; // not those of the block before
    element.Reverse = false;
}

} // namespace

SheetOpening FitElementToSheet(const QStringList& animModes)
{
    SheetOpening opening;
    opening.MayUpdate = Conf.Element.ElementOpen;
    Conf.UnknownMode.reset();
    CheckSize(opening);
    CheckPlaceFields(opening);
    opening.FromBlock = Conf.MediaFile == Conf.Element.ImageFile;
    if (opening.FromBlock) {
        BringInsideSheet();
        MarkElement();
        CheckMode(animModes);
    } else {
        StartFromDefaults();
    }
    return opening;
}
