#include "conf/block_fields.h"

#include "conf/block_commands.h"
#include "conf/conf_lines.h"
#include "frame/frame_state.h"

#include <algorithm>
#include <utility>

namespace {

const QString Reverse = QStringLiteral("reverse");

/// ".xpos:" and its like, by BlockField.
const std::array<QString, RecordFields>& Tokens()
{
    static const std::array<QString, RecordFields> tokens = [] {
        std::array<QString, RecordFields> made;
        for (size_t field = 0; field < made.size(); ++field)
            made.at(field) = u'.' + QLatin1String(BlockCommands.at(field).Word) + u':';
        return made;
    }();
    return tokens;
}

bool HasField(const QString& line)
{
    return std::any_of(Tokens().begin(), Tokens().end(), [&](const QString& token) { return line.contains(token); });
}

/// Another block that has its first lines in common with the key: without an xpos of its own it would be taken for
/// more of this one, and an update would write into it.
bool IsMainLine(const QString& line, const SheetEndings& endings)
{
    return HasSheetName(line, endings) && !HasField(line);
}

struct FieldHit
{
    int Line;
    QString Text; ///< the whole line
    size_t Field;
    QString Prefix, Value; ///< in front of the token, after it
};

/// Visits the fields of a block in the order they are found, each once. `form` brings a line into the form that is
/// compared with the key.
template <class Visit>
void ForEachField(const BlockSource& source, QString (*form)(const QString&), Visit visit)
{
    const QString key = KeyOfLine(source.Lines(source.MainLine).value_or(QString()).trimmed());
    std::array<bool, RecordFields> used{};
    for (int number = source.MainLine + 1; number <= source.MainLine + source.Reach; ++number) {
        const std::optional<QString> read = source.Lines(number);
        if (!read)
            return;
        const QString line = form(*read);
        if (!line.startsWith(key))
            return;
        if (BelongsToGroup(line, key))
            continue;
        if (IsMainLine(line, source.Endings))
            return;
        for (size_t field = 0; field < RecordFields; ++field) {
            const QString& token = Tokens().at(field);
            const qsizetype at = line.indexOf(token);
            if (at < 0)
                continue;
            if (used.at(field) && field == XPosField)
                return; // here begins the next block
            if (!std::exchange(used.at(field), true))
                visit(FieldHit{number, line, field, line.left(at), line.mid(at + token.size())});
        }
    }
}

QString Trimmed(const QString& line)
{
    return line.trimmed();
}

QString AsItStands(const QString& line)
{
    return line;
}

} // namespace

QString ModeWithReverse(const ElementRecord& record)
{
    if (!record.Reverse || record.AnimMode.contains(Reverse))
        return record.AnimMode;
    return record.AnimMode == QLatin1String("loop") ? Reverse : record.AnimMode + QLatin1Char(',') + Reverse;
}

BlockReading ReadBlock(const BlockSource& source, const QString& mediaFile, const ElementRecord& before)
{
    BlockReading reading;
    ElementRecord& element = reading.Element;
    element.ImageFile = before.ImageFile;
    element.XPos = before.XPos;
    element.YPos = before.YPos;
    element.ElementOpen = before.ElementOpen;
    element.StartFrame = -1;
    element.ElementName.clear();
    ForEachField(source, Trimmed, [&](const FieldHit& hit) {
        ReadField(hit.Field, hit.Value, element);
        reading.FieldFound.at(hit.Field) = 1;
        element.ImageFile = mediaFile;
        if (hit.Field == XPosField)
            element.BlockKey = hit.Prefix;
    });
    return reading;
}

std::vector<LineChange> UpdatedLines(const BlockSource& source, ElementRecord& record, const ValueColumn& column)
{
    std::vector<LineChange> changes;
    const ElementRecord wanted = record;
    ElementRecord written = record;
    written.AnimMode = ModeWithReverse(record);
    written.StartFrame = qMax(0, record.StartFrame);
    ForEachField(source, AsItStands, [&](const FieldHit& hit) {
        if (!changes.empty() && changes.back().Line == hit.Line)
            return; // the line has its value; what looks like a second field stands in it
        ElementRecord standing = wanted;
        ReadField(hit.Field, hit.Value, standing);
        const QString text = FieldText(hit.Field, written);
        if (standing == wanted && (text.isEmpty() || text != CleanValue(hit.Value)))
            return;
        changes.push_back({hit.Line, WithValue(hit.Text, text, column)});
    });
    record.AnimMode = written.AnimMode;
    record.StartFrame = written.StartFrame;
    return changes;
}

std::vector<LineChange> LackingLines(const BlockSource& source, const ElementRecord& record, const FieldFlags& fields,
                                     const ValueColumn& column)
{
    std::array<int, RecordFields> lines;
    lines.fill(-1);
    ForEachField(source, Trimmed, [&lines](const FieldHit& hit) { lines.at(hit.Field) = hit.Line; });
    const QString key = KeyOfLine(source.Lines(source.MainLine).value_or(QString())).trimmed();
    ElementRecord written = record;
    written.StartFrame = qMax(0, record.StartFrame);
    if (written.ElementName.isEmpty())
        written.ElementName = key;
    std::vector<LineChange> made;
    int before = source.MainLine + 1;
    for (size_t field = 0; field < RecordFields; ++field) {
        if (lines.at(field) >= 0)
            before = lines.at(field) + 1;
        else if (fields.at(field))
            made.push_back({before, WithValue(key + Tokens().at(field), FieldText(field, written), column)});
    }
    std::stable_sort(made.begin(), made.end(), [](const auto& a, const auto& b) { return a.Line < b.Line; });
    return made;
}

QString WithValue(const QString& line, const QString& value, const ValueColumn& column)
{
    const QString whole = line.trimmed();
    const QString key = whole.left(whole.indexOf(QLatin1Char(':')) + 1);
    return key + PadAfterKey(key, column) + value;
}

void UpdateElementBlock(DocumentText& pane, const BlockPlace& place, ElementRecord& record, const FieldFlags& add)
{
    const UndoGroup group(pane);
    const BlockSource source{LinesOf(pane), place.MainLine, Frame.Settings.SheetKinds};
    for (const LineChange& change : UpdatedLines(source, record, CurrentValueColumn())) {
        pane.SelectLine(change.Line, true);
        pane.ReplaceSel(change.Text);
    }
    int caret = place.CaretLine, inserted = 0;
    for (const LineChange& line : LackingLines(source, record, add, CurrentValueColumn())) {
        pane.InsertLine(line.Line + inserted++, line.Text);
        caret += line.Line <= place.CaretLine;
    }
    pane.SetSel({.StartLine = caret, .EndLine = caret}, true);
}
