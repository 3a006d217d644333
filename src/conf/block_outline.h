#pragma once

#include "conf/block_fields.h"

#include <QByteArrayView>

// These routines take all they need and no tab: a text or its lines, and what names a sheet there.

/// One block of a text: a key line that names a tile sheet. Those of sub groups are blocks of their own.
struct OutlineBlock
{
    int Line = 0; ///< from 0
    QString Key, Image;
};

/// All blocks of a text (UTF-8), comment lines left out.
std::vector<OutlineBlock> FindBlocks(QByteArrayView text, const SheetEndings& endings);

/// First and last line of a block with its sub groups.
struct BlockLines
{
    int First = 0, Last = 0;

    bool operator==(const BlockLines&) const = default;
};

/// How many lines are looked at around one.
struct BlockReach
{
    int Up = 100, Down = 200;
};

/// The block that a line belongs to: its main line is within reach above, and nothing in between belongs to another
/// one.
std::optional<BlockLines> BlockAround(const LineReader& lines, int line, const SheetEndings& endings,
                                      BlockReach reach = {});

/// The block that the key under (line, column) belongs to; a key of a sub group belongs to the group.
struct HoveredBlock
{
    QString Key, Image;
    BlockReading Read;
};
std::optional<HoveredBlock> BlockUnder(const LineReader& lines, int line, int column, const SheetEndings& endings,
                                       BlockReach reach = {});

/// What the block says that the key under (line, column) belongs to, in one line; empty where there is none.
QString BlockSummary(const LineReader& lines, int line, int column, const SheetEndings& endings);
