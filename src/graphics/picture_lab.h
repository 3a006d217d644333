#pragma once

#include "graphics/picture_files.h"
#include "platform/images/image_making.h"
#include "platform/images/images.h"

/// The Lab: any picture on one side, what becomes of it on the other.
struct LabState
{
    images::Picture Loaded;            ///< as it was read; null before the first
    QImage Before;                     ///< what of it can be written: opaque
    QImage After;                      ///< what is saved; with numbers and colours once it is converted
    PcxDepth SaveTag = PcxDepth::Full; ///< what After holds
    bool SeeThroughBlack = true;       ///< see-through pixels become black, not the colour behind them
    bool FromAVI = false;              ///< opens on the film's sheet, without a dialog
    QString AviBitmap;                 ///< where that sheet lies
};
extern LabState PcxLab;
void ResetLab();

/// The filter of the dialog that opens a picture: an entry a kind and, last, all kinds.
QString LabOpenFilter();
QString LabSaveFilter();

/// What a picture's palette is called: "256 (8 Bit)", "16 Million (24 Bit)" for 0 ...
QString ColourText(int coloursUsed);

/// Three lines on a picture that was loaded.
QString LabInfo(const QString& fileName, const images::Picture& picture);

/// The palette size that a text stands for, and the text as it must read.
struct PaletteSize
{
    QString Text;
    int Colours;
};
PaletteSize PaletteSizeOf(const QString& text);

/// "Save PCX (24 Bit)" or "Save PCX (8 Bit)".
QString SaveCaption(PcxDepth tag);

/// Decodes a picture of any kind onto both sides. A file that cannot be read changes nothing. Failure: path and reason.
[[nodiscard]] Result<> LoadAnyImage(const QString& path, const Turn& turn = {});

/// Takes the setting; both sides are as after loading.
void SetSeeThroughBlack(bool on);

/// Reduces "Before" to "After". Failure, also by a stop of `turn`: the reason, and "After" stays.
[[nodiscard]] Result<> ConvertColours(const images::Reduction& how, const Turn& turn);
