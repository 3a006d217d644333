#pragma once

#include "macro/language/value.h"

#include <QStringList>
#include <vector>

/// What commands leave behind for the tags [last...].
struct RunResults
{
    Value FindResult, VarFind, VarLen, VarCount, VarCountPos;
    Value VarSplitLeft, VarSplitRight, VarSplitRightRev, VarLeft, VarRight, VarMid;
    std::vector<qsizetype> VarCountPositions;
    Value LineGet;
    Value ListChoice, ListChoiceNumber, ListGet, ListCheck;
    Value PickElement, Element;
    Value MessageResult, MessageNumber, Ask;
    Value Random, RandomWord;
    qint32 RandomLow = 0, RandomHigh = 0;
    Value KeyGet, Peek, FileInZip;

    QString Folder;        ///< full path of the file or folder that was set last, in its true letter case
    QString FileName;      ///< empty for a folder
    QString FileExtension; ///< without the dot
    QString FileCrc;
    QStringList Files; ///< of the last `dir`
};
