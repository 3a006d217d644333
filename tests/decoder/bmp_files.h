#pragma once

#include <QByteArray>
#include <QImage>
#include <array>

/// A form of a Windows bitmap.
struct BmpPlan
{
    const char* Form = "";
    int Header = 124; ///< bytes
    int Bits = 24;
    std::array<quint32, 4> Masks = {}; ///< red, green, blue, alpha; all 0: without
    int Colours = 0;                   ///< of the palette
    bool FromTop = false;
    int Gap = 0; ///< bytes before the pixels
    int Width = 37, Height = 9;
};

struct BmpFile
{
    QByteArray File;
    QImage Shows;
};

/// The file with pixels at random, and what it shows.
BmpFile BuildBmp(const BmpPlan& plan, quint32 seed);
