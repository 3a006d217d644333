#pragma once

#include "level/level_map.h"

#include <QString>
#include <memory>

class ElementNames;
class QTemporaryDir;

/// The header of a level as texts; numbers are decimal without blanks.
struct LevelInfo
{
    QString Version; ///< the file's leading text
    QString Width, Height;
    QString Time;     ///< 0: no limit
    QString Count;    ///< emeralds needed
    QString Cavename; ///< at most 32 characters, each of which Latin-1 must hold
    QString Double;   ///< "1": two bytes a cell; anything else: one
    QString Author;   ///< as Cavename; "NA" where the form has none
    QString Mapsize;  ///< as in the file: bytes, in forms before RND1 cells; "NA" where the form has none

    friend bool operator==(const LevelInfo&, const LevelInfo&) = default;
};

/// What an offset is where the form lacks the field.
constexpr qint32 NoField = -999;

/// Where each field stands, in bytes from the file's start. Mapsize is the low half of a 32-bit number.
struct LevelOffsets
{
    qint32 Width = 0, Height = 0, Time = 0, Count = 0, Cavename = 0, Double = 0, Author = 0, Mapsize = 0, Mapdata = 0;

    friend bool operator==(const LevelOffsets&, const LevelOffsets&) = default;
};

/// The two families of chunks after a map. Those of file version 3 mean nothing to an older level, nor the reverse.
enum class LevelFamily { Classic, Records };

/// One level: what its bytes say, and where they say it.
struct LevelRecord
{
    LevelInfo Info;
    LevelOffsets Offsets;
    LevelMap Map;
    QString Form; ///< "1.0", "1.2", "1.4", "rnd1-2" or "rnd1-3", the number after RND1 being the file version
    LevelFamily Family = LevelFamily::Classic;
    qsizetype MapEnd = 0; ///< of the file it was read from
};

/// The one level that is open; its bytes are in the working files (level_files.h).
struct LevelState : LevelRecord
{
    QString CurrentLevelPath; ///< empty: no level is open
    LevelMap LevelClip;       ///< what was copied of a map, below 0 where nothing; outlives its level
    QString Viewer;           ///< program that shows levels to people; empty: the one beside this program
    std::shared_ptr<const ElementNames> Names; ///< of mapele.ini, once they have been asked for
    std::shared_ptr<QTemporaryDir>
        Folder; ///< private to this run; made with the first working file, gone with the last
};
extern LevelState Level;

/// As when the program starts.
void ResetLevel();

/// 2 where Double is "1", else 1.
int CellBytes(const LevelInfo& info);

/// Gives the map the size that Info gives: cells in both sizes stay, new ones are 0, and Mapsize follows. With
/// `clip2Bit` a cell above 255 becomes 190. A form without the flag Double keeps its two bytes a cell, unclipped.
void ResizeLevelMap(bool clip2Bit);
