#pragma once

#include "conf/block_fields.h"

#include <QByteArrayView>

/// One block of a text: a key line that names a tile sheet. Those of sub groups are blocks of their own.
struct OutlineBlock
{
    int Line = 0; ///< from 0
    QString Key, Image;
};

/// All blocks of a text (UTF-8), comment lines left out.
std::vector<OutlineBlock> FindBlocks(QByteArrayView text);

/// First and last line of a block with its sub groups.
struct BlockLines
{
    int First = 0, Last = 0;

    bool operator==(const BlockLines&) const = default;
};

/// The block that a line belongs to: its main line is at most 100 lines above, and nothing in between belongs to
/// another one. At most 200 lines are looked at downward.
std::optional<BlockLines> BlockAround(const LineReader& lines, int line);

/// The block that the key under (line, column) belongs to; a key of a sub group belongs to the group.
struct HoveredBlock
{
    QString Key, Image;
    BlockReading Read;
};
std::optional<HoveredBlock> BlockUnder(const LineReader& lines, int line, int column);

/// What the block says that the key under (line, column) belongs to, in one line; empty where there is none.
QString BlockSummary(const LineReader& lines, int line, int column);
