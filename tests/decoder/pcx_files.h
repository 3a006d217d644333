#pragma once

#include <QByteArray>
#include <QImage>

/// A form of PCX and how its runs are laid.
struct PcxPlan
{
    const char* Form = "";
    int Width = 1, Height = 1;
    int Bits = 8, Planes = 1;
    int Slack = 0; ///< bytes behind each plane of a line
    int Version = 5, Encoding = 1;
    bool RunsCrossLines = false;
    bool EmptyRuns = false;
    bool LikeColours = false; ///< the first two of the header
    bool Palette = true;      ///< of 256 colours, behind the data
    QByteArray Between = {};  ///< before that palette
};

/// The file with pixels at random, in runs of different lengths.
QByteArray BuildPcx(const PcxPlan& plan, quint32 seed);

/// A reader by the format's description alone, to hold other readers and writers against. Lines that the data do not
/// reach are of value 0.
QImage ReadPcx(const QByteArray& file);
