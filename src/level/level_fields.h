#pragma once

#include "level/level_record.h"

/// A name or author: characters of one byte each, ended by a byte below 32 or by the field's end.
constexpr int TextBytes = 32;

/// One field of a level's header. Reading, writing and the offset table all go by these rows.
struct FieldRow
{
    const char* Key; ///< in the offset table
    qint32 LevelOffsets::*Offset;
    QString LevelInfo::*Text;
    int Bytes;           ///< TextBytes: a text; else a big-endian number of 1 or 2 bytes
    int Low, High;       ///< bounds of a number
    const char* Missing; ///< the text where a form has no such field; null: every form has it

    bool IsText() const { return Bytes == TextBytes; }
};

/// Largest width and height that the game knows.
constexpr int LargestSide = 255; // cells; what the game itself makes has at most 128

constexpr FieldRow LevelFields[] = {
    {"Width", &LevelOffsets::Width, &LevelInfo::Width, 1, 1, LargestSide, nullptr},
    {"Height", &LevelOffsets::Height, &LevelInfo::Height, 1, 1, LargestSide, nullptr},
    {"Time", &LevelOffsets::Time, &LevelInfo::Time, 2, 0, 65535, nullptr},
    {"Count", &LevelOffsets::Count, &LevelInfo::Count, 2, 0, 65535, nullptr},
    {"Cavename", &LevelOffsets::Cavename, &LevelInfo::Cavename, TextBytes, 0, 0, nullptr},
    {"Double", &LevelOffsets::Double, &LevelInfo::Double, 1, 0, 255, "1"},
    {"Author", &LevelOffsets::Author, &LevelInfo::Author, TextBytes, 0, 0, "NA"},
    {"Mapsize", &LevelOffsets::Mapsize, &LevelInfo::Mapsize, 2, 0, 65535, "NA"},
};
