#pragma once

#include "level/level_layout.h"

// A level from bytes and back. Nothing here touches a disk.

/// Reads a level. A file that is too short for a field or its map, has a side of 0 or fits no layout is
/// refused. Numbers of two bytes run to 65535. Failure: the reason, no path.
[[nodiscard]] Result<LevelRecord> ParseLevel(QByteArrayView bytes, const OffsetTable& table);

/// Writes the level's fields and map over `working`, the bytes it was read from up to the map's end or beyond. The
/// result ends directly after the map. A text that stands there already is not touched; a new one is cut at 32
/// characters and, if it is shorter, ended by one byte 0, after which the old bytes stay.
/// Failure, nothing being clamped: a number or cell too wide for its bytes, a text that is no Latin-1 or holds control
/// characters, a map whose size is not that of Info, working bytes that lack a field. The reason, no path.
[[nodiscard]] Result<QByteArray> PatchLevel(const LevelRecord& level, QByteArrayView working);
