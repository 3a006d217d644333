#pragma once

#include <QPoint>

// What a press on tile (column, row) of the sheet does to the block in work and to the marks. True: the run of the
// preview starts over.

/// Left button: the first tile.
bool MarkFirstTile(QPoint tile);
/// Right button: the last tile.
bool MarkLastTile(QPoint tile);
/// The left button held from one tile to another, whichever lies in front: first and last tile.
bool MarkRun(QPoint from, QPoint to);
/// Middle button: the tile where the animation begins to play.
bool MarkPlayStart(QPoint tile);
