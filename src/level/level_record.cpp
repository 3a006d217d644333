#include "level/level_record.h"

#include <QTemporaryDir>

LevelState Level;

namespace {

/// The game goes by cells in forms before RND1, whatever a cell's width.
int MapsizeOf(const LevelRecord& level)
{
    const bool countsCells = level.Info.Version != QLatin1StringView("RND1");
    return level.Map.Width() * level.Map.Height() * (countsCells ? 1 : CellBytes(level.Info));
}

} // namespace

void ResetLevel()
{
    Level = {};
}

int CellBytes(const LevelInfo& info)
{
    return info.Double == QLatin1StringView("1") ? 2 : 1;
}

void ResizeLevelMap(bool clip2Bit)
{
    const bool hasFlag = Level.Offsets.Double != NoField;
    if (!hasFlag)
        Level.Info.Double = QStringLiteral("1");
    Level.Map = Level.Map.Resized(Level.Info.Width.toInt(), Level.Info.Height.toInt());
    if (clip2Bit && hasFlag)
        for (qint32& cell : Level.Map.Cells())
            cell = cell > 255 ? 190 : cell;
    if (Level.Offsets.Mapsize != NoField)
        Level.Info.Mapsize = QString::number(MapsizeOf(Level));
}
