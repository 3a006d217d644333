#pragma once

#include <QByteArray>
#include <QImage>

/// A file of some kind and what it shows.
struct SampleImage
{
    int Kind = -1;
    QByteArray File;
    QImage Shows;
    int Bits = 0;
    int Tolerance = 0; ///< a channel, for kinds that lose something
};

/// One of each kind that can be loaded, in the order of their numbers.
QList<SampleImage> SampleOfEveryKind();

/// The bytes of a picture as the image library writes it.
QByteArray Written(int kind, const QImage& picture, int bits);

/// The largest difference of a channel, see-through included; 256 if the sizes differ.
int Difference(const QImage& one, const QImage& other);
