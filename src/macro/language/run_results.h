#pragma once

#include "macro/language/value.h"

#include <QStringList>
#include <vector>

/// What commands leave behind for the tags [last...].
struct RunResults
{
    Value FindResult;
    Value VarFind{0}, VarLen{0}, VarCount{0}, VarCountPos{0};
    Value VarSplitLeft, VarSplitRight, VarSplitRightRev, VarLeft, VarRight, VarMid;
    std::vector<qsizetype> VarCountPositions;
    Value LineGet;
    Value ListChoice, ListGet, ListCheck;
    Value ListChoiceNumber{0};
    Value PickElement, Element;
    Value MessageResult, Ask;
    Value MessageNumber{0}, Random{0};
    Value RandomWord;
    qint32 RandomLow = 0, RandomHigh = 0;
    Value KeyGet, FileInZip;
    Value Peek{0};

    QString Folder;        ///< full path of the file or folder that was set last, in its true letter case
    QString FileName;      ///< empty for a folder
    QString FileExtension; ///< without the dot
    QString FileCrc;
    QStringList Files; ///< of the last `dir`
};
