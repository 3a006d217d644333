#pragma once

#include <QByteArray>
#include <QImage>

/// A film of uncompressed frames of 24 bits, by the format's description alone.
struct AviPlan
{
    QSize Size{32, 32};
    QByteArray Codec = QByteArray(4, '\0'); ///< of the pictures; none: uncompressed
    bool HasPictures = true;                ///< else its one stream is sound
};

/// An AVI of these frames. A null image is a frame that was dropped: it has no bytes.
QByteArray BuildAvi(const QList<QImage>& frames, const AviPlan& plan = {});

/// Frames 32 by 32 that all differ: a colour that goes with the number, and a mark that moves.
QList<QImage> FilmFrames(int count, QSize size = {32, 32});

/// The same frames by an encoder of the film library, in a container by its name. Empty if there is no such encoder.
QByteArray EncodedFilm(const char* encoder, const char* container, const QList<QImage>& frames);
