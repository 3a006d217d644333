#pragma once

#include "graphics/pcx_writer.h"
#include "platform/processes/turn.h"

/// The forms in which the game reads its pictures.
enum class PictureForm { Pcx, Png };

/// By the ending of a file's name; anything but ".png" is a PCX.
PictureForm FormOfName(const QString& name);

/// ".pcx" or ".png".
QString EndingOf(PictureForm form);

/// The picture as the bytes of a file; with a palette at most 256 colours. Failure, without a path: the reason.
[[nodiscard]] Result<QByteArray> PictureBytes(const QImage& picture, PictureForm form, PcxDepth depth);

/// Writes it whole in the form that the name's ending tells, or leaves the old file. Failure: path and reason.
[[nodiscard]] Result<> WritePicture(const QString& path, const QImage& picture, PcxDepth depth);
