#pragma once

#include "conf/element_record.h"

#include <functional>
#include <optional>
#include <vector>

class DocumentText;
struct ValueColumn;

/// Line `number` (from 0) of a text, without its break; nothing behind the last line.
using LineReader = std::function<std::optional<QString>(int number)>;
LineReader LinesOf(const DocumentText& pane);

/// What a read of a block gives.
struct BlockReading
{
    ElementRecord Element;
    std::array<int, FieldTokens.size()> FieldFound{};
};

/// Reads the block whose main line is `mainLine`: the lines below it, at most 31, that start with its key, its sub
/// groups left out, up to a second xpos or the main line of another block. `before` keeps ImageFile, XPos and YPos
/// where no line tells them; `mediaFile` becomes ImageFile with the first field.
BlockReading ReadBlock(const LineReader& lines, int mainLine, const ElementRecord& before, const QString& mediaFile);

struct LineChange
{
    int Line = 0;
    QString Text;
};

/// The field lines of a block with the values of `record`, each aligned anew. A line stays as it is if its value is
/// the record's but its text is not quite what would be written: a note behind a number survives. `record` follows:
/// AnimMode takes its word reverse, a StartFrame of -1 that is written becomes 0.
std::vector<LineChange> UpdatedLines(const LineReader& lines, int mainLine, ElementRecord& record,
                                     const ValueColumn& column);

/// A field line with another value, trimmed and aligned.
QString WithValue(const QString& line, const QString& value, const ValueColumn& column);

/// What is written for a field of `record`; `name` without its dot and colon.
QString FieldText(const ElementRecord& record, const char* name);

/// Fills Conf.Element and Conf.FieldFound from the block at Conf.MainLine of the current pane.
void ReadElementBlock();

/// Writes Conf.Element into the field lines that the block at Conf.MainLine has, as one undo step; the caret goes to
/// Conf.CaretLine.
void UpdateElementBlock();
