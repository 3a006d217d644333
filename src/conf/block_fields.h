#pragma once

#include "conf/element_record.h"
#include "conf/line_reader.h"
#include "frame/media/media_request.h"
#include "frame/media/sheet_endings.h"

#include <vector>

struct ValueColumn;

/// A block in some text: its lines, where its main line stands, and what names a sheet there.
struct BlockSource
{
    LineReader Lines;
    int MainLine = 0;
    SheetEndings Endings;
    int Reach = 31; ///< lines below the main line that are looked at
};

/// What a read of a block gives.
struct BlockReading
{
    ElementRecord Element;
    FieldFlags FieldFound{};
};

/// Reads a block: the lines below its main line, as far as it reaches, that start with its key, its sub groups left
/// out, up to a second xpos or the main line of another block. `mediaFile` becomes ImageFile with the first field.
/// `before` keeps ImageFile, XPos and YPos where no line gives them.
BlockReading ReadBlock(const BlockSource& source, const QString& mediaFile, const ElementRecord& before = {});

struct LineChange
{
    int Line = 0;
    QString Text;
};

/// The field lines of a block with the values of `record`, each aligned anew. A line stays as it is if its value is
/// the record's but its text is not quite what would be written: a note after a number survives. `record` follows:
/// AnimMode takes its word reverse, a StartFrame of -1 that is written becomes 0.
std::vector<LineChange> UpdatedLines(const BlockSource& source, ElementRecord& record, const ValueColumn& column);

/// A field line with another value, trimmed and aligned.
QString WithValue(const QString& line, const QString& value, const ValueColumn& column);

/// The anim_mode of a record with its word reverse.
QString ModeWithReverse(const ElementRecord& record);

/// The lines of `fields` that the block has not, each with the number of the line that it stands in front of, first to
/// last. They stand in the order that the program writes fields in. An empty name becomes the key.
std::vector<LineChange> LackingLines(const BlockSource& source, const ElementRecord& record, const FieldFlags& fields,
                                     const ValueColumn& column);

/// Writes UpdatedLines, then the LackingLines of `add`, into the block of a pane, as one undo step; the caret goes to
/// the place's CaretLine.
void UpdateElementBlock(DocumentText& pane, const BlockPlace& place, ElementRecord& record, const FieldFlags& add = {});
