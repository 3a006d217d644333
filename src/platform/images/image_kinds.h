#pragma once

#include <QString>
#include <span>

/// The kinds of image that can be loaded. A kind's place in the table is its number, which is the image library's own.
struct ImageKindRow
{
    const char* Name;
    const char* Extension; ///< without "."
};

constexpr int WindowsBitmapKind = 0;
constexpr int PaintbrushKind = 10;      ///< PCX
constexpr int NetworkGraphicsKind = 13; ///< PNG
constexpr int InterchangeKind = 25;     ///< GIF

std::span<const ImageKindRow> ImageKinds();

/// The kind by the ending of a file's name, in any letter case; -1 if it is none of the table's.
int ImageKindOfName(const QString& fileName);

/// The kind of a sheet: by its bytes, whichever of the table's endings it has, as the game takes it, and by the ending
/// where they do not tell; -1 without such an ending.
int ImageKindOfSheet(const QString& path);

/// The kind by the ending or, of a file whose ending no kind has, by its bytes; -1 if neither tells.
int ImageKindOfFile(const QString& path);
