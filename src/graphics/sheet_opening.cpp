#include "graphics/sheet_opening.h"

#include "conf/block_fields.h"
#include "frame/frame_state.h"
#include "graphics/sheet.h"

#include <algorithm>
#include <utility>

namespace {

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

void CheckPlaceFields(const SheetRequest& request, SheetOpening& opening)
{
    if (request.IsPick() || (Conf.FieldFound[XPosField] && Conf.FieldFound[YPosField]))
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

void TakeElement(const SheetRequest& request, const DocumentText& text)
{
    ElementRecord& element = Conf.Element;
    if (!request.Block)
        element.ImageFile.clear(); // no block of before describes this sheet
    if (request.IsPick())
        return;
    if (!request.Block)
        Conf.FieldFound.fill(1);
    else if (Frame.CurrentMode == ModeGfx) {
        const BlockSource source{LinesOf(text), request.Block->MainLine, Frame.Settings.SheetKinds};
        const BlockReading read = ReadBlock(source, request.File, element);
        element = read.Element;
        Conf.FieldFound = read.FieldFound;
    }
    element.ElementOpen = request.Block.has_value();
}

SheetOpening FitElementToSheet(const SheetRequest& request, const QStringList& animModes)
{
    SheetOpening opening;
    opening.MayUpdate = Conf.Element.ElementOpen;
    Conf.UnknownMode.reset();
    CheckSize(opening);
    CheckPlaceFields(request, opening);
    opening.FromBlock = request.File == Conf.Element.ImageFile;
    if (opening.FromBlock) {
        BringInsideSheet();
        MarkElement();
        CheckMode(animModes);
    } else {
        StartFromDefaults();
    }
    return opening;
}
