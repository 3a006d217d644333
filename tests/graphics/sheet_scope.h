#pragma once

#include "conf/element_record.h"
#include "graphics/animation.h"
#include "graphics/sheet.h"

/// A sheet of some tiles and a block on it; all state is as new afterwards.
class SheetScope
{
public:
    SheetScope(int columns, int rows)
    {
        Reset();
        ShowSheet(QImage(columns * TileSize, rows * TileSize, QImage::Format_RGB32));
        Conf.Element.StartFrame = -1;
    }
    ~SheetScope() { Reset(); }
    SheetScope(const SheetScope&) = delete;
    SheetScope& operator=(const SheetScope&) = delete;

private:
    static void Reset()
    {
        ResetConf();
        ResetSheet();
        ResetAnimation();
    }
};
