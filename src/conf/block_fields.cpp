#include "conf/block_fields.h"

#include "conf/conf_lines.h"
#include "frame/frame_state.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int LinesBelowMain = 31;
constexpr int Largest = std::numeric_limits<qint16>::max(), LargestDelay = 5'000'000;
constexpr size_t XPosField = 0;
const QString Reverse = QStringLiteral("reverse");

/// The game cuts a line at "#" wherever it stands.
QString WithoutNote(const QString& value)
{
    return value.left(value.indexOf(QLatin1Char('#')));
}

template <int ElementRecord::*Number, int Low = 0, int High = Largest>
void ReadNumber(ElementRecord& record, const QString& value)
{
    record.*Number = ClampNumber(CleanText(WithoutNote(value)), Low, High);
}

template <int ElementRecord::*Number>
QString NumberText(const ElementRecord& record)
{
    return QString::number(record.*Number);
}

void ReadAnimMode(ElementRecord& record, const QString& value)
{
    const AnimModeText mode = ParseAnimMode(CleanText(WithoutNote(value)));
    record.AnimMode = mode.AnimMode;
    record.Reverse = mode.HasReverse;
}

void ReadGlobalSync(ElementRecord& record, const QString& value)
{
    record.GlobalSync = CleanText(WithoutNote(value)).compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ? 1 : 0;
}

/// One field of FieldTokens: how its value is read and what is written for it.
struct FieldRow
{
    void (*Read)(ElementRecord&, const QString& value);
    QString (*Text)(const ElementRecord&);
};
using R = ElementRecord;
constexpr std::array<FieldRow, FieldTokens.size()> Fields = {{
    {ReadNumber<&R::XPos>, NumberText<&R::XPos>},
    {ReadNumber<&R::YPos>, NumberText<&R::YPos>},
    {ReadNumber<&R::Frames, 1>, NumberText<&R::Frames>},
    {ReadNumber<&R::Delay, 1, LargestDelay>, NumberText<&R::Delay>},
    {ReadAnimMode, [](const R& record) { return record.AnimMode; }},
    {ReadNumber<&R::StartFrame>, NumberText<&R::StartFrame>},
    {ReadGlobalSync,
     [](const R& record) { return record.GlobalSync == 1 ? QStringLiteral("true") : QStringLiteral("false"); }},
    {ReadNumber<&R::Offset>, NumberText<&R::Offset>},
    {[](R& record, const QString& value) { record.ElementName = CleanValue(value); },
     [](const R& record) { return record.ElementName; }},
}};

bool BeginsSubGroup(const QString& line, const QString& key)
{
    return line.contains(key + QStringLiteral(".CRUMBLED"), Qt::CaseInsensitive) ||
           line.contains(key + QStringLiteral(".PREVIEW")) || line.contains(key + QStringLiteral(".EDITOR"));
}

bool HasField(const QString& line)
{
    return std::any_of(FieldTokens.begin(), FieldTokens.end(),
                       [&](const char* token) { return line.contains(QLatin1String(token)); });
}

/// Another block that has its first lines in common with the key: without an xpos of its own it would be taken for
/// more of this one, and an update would write into it.
bool IsMainLine(const QString& line)
{
    return HasSheetName(line) && !HasField(line);
}

struct FieldHit
{
    int Line;
    QString Text; ///< the whole line
    size_t Field;
    QString Prefix, Value; ///< in front of the token, behind it
};

/// Visits the fields of a block in the order they are found, each once. `form` brings a line into the form that is
/// compared with the key.
template <class Visit>
void ForEachField(const LineReader& lines, int mainLine, QString (*form)(const QString&), Visit visit)
{
    const QString key = KeyOfLine(lines(mainLine).value_or(QString()).trimmed());
    std::array<bool, FieldTokens.size()> used{};
    for (int number = mainLine + 1; number <= mainLine + LinesBelowMain; ++number) {
        const std::optional<QString> read = lines(number);
        if (!read)
            return;
        const QString line = form(*read);
        if (!line.startsWith(key))
            return;
        if (BeginsSubGroup(line, key))
            continue;
        if (IsMainLine(line))
            return;
        for (size_t field = 0; field < FieldTokens.size(); ++field) {
            const QString token = QString::fromLatin1(FieldTokens.at(field));
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

QString ModeWithReverse(const ElementRecord& record)
{
    if (!record.Reverse || record.AnimMode.contains(Reverse))
        return record.AnimMode;
    return record.AnimMode == QLatin1String("loop") ? Reverse : record.AnimMode + QLatin1Char(',') + Reverse;
}

} // namespace

LineReader LinesOf(const DocumentText& pane)
{
    return [&pane](int number) {
        return number >= 0 && number < pane.LineCount() ? std::optional(pane.GetLine(number)) : std::nullopt;
    };
}

BlockReading ReadBlock(const LineReader& lines, int mainLine, const ElementRecord& before, const QString& mediaFile)
{
    BlockReading reading;
    ElementRecord& element = reading.Element;
    element.ImageFile = before.ImageFile;
    element.XPos = before.XPos;
    element.YPos = before.YPos;
    element.ElementOpen = before.ElementOpen;
    element.StartFrame = -1;
    element.ElementName.clear();
    ForEachField(lines, mainLine, Trimmed, [&](const FieldHit& hit) {
        Fields.at(hit.Field).Read(element, hit.Value);
        reading.FieldFound.at(hit.Field) = 1;
        element.ImageFile = mediaFile;
        if (hit.Field == XPosField)
            element.BlockKey = hit.Prefix;
    });
    return reading;
}

std::vector<LineChange> UpdatedLines(const LineReader& lines, int mainLine, ElementRecord& record,
                                     const ValueColumn& column)
{
    std::vector<LineChange> changes;
    const ElementRecord wanted = record;
    ElementRecord written = record;
    written.AnimMode = ModeWithReverse(record);
    written.StartFrame = qMax(0, record.StartFrame);
    ForEachField(lines, mainLine, AsItStands, [&](const FieldHit& hit) {
        if (!changes.empty() && changes.back().Line == hit.Line)
            return; // the line has its value; what looks like a second field stands in it
        const FieldRow& field = Fields.at(hit.Field);
        ElementRecord standing = wanted;
        field.Read(standing, hit.Value);
        const QString text = field.Text(written);
        if (standing == wanted && (text.isEmpty() || text != CleanValue(hit.Value)))
            return;
        changes.push_back({hit.Line, WithValue(hit.Text, text, column)});
    });
    record.AnimMode = written.AnimMode;
    record.StartFrame = written.StartFrame;
    return changes;
}

QString WithValue(const QString& line, const QString& value, const ValueColumn& column)
{
    const QString whole = line.trimmed();
    const QString key = whole.left(whole.indexOf(QLatin1Char(':')) + 1);
    return key + PadAfterKey(key, column) + value;
}

QString FieldText(const ElementRecord& record, const char* name)
{
    const QString token = QLatin1Char('.') + QLatin1String(name) + QLatin1Char(':');
    const auto found = std::find_if(FieldTokens.begin(), FieldTokens.end(),
                                    [&](const char* known) { return token == QLatin1String(known); });
    return found == FieldTokens.end() ? QString() : Fields.at(size_t(found - FieldTokens.begin())).Text(record);
}

void ReadElementBlock()
{
    const BlockReading reading = ReadBlock(LinesOf(CurrentPane()), Conf.MainLine, Conf.Element, Conf.MediaFile);
    Conf.Element = reading.Element;
    Conf.FieldFound = reading.FieldFound;
}

void UpdateElementBlock()
{
    DocumentText& pane = CurrentPane();
    const UndoGroup group(pane);
    if (const auto mode = std::exchange(Conf.UnknownMode, std::nullopt))
        Conf.Element.AnimMode = *mode;
    for (const LineChange& change : UpdatedLines(LinesOf(pane), Conf.MainLine, Conf.Element, CurrentValueColumn())) {
        pane.SelectLine(change.Line, true);
        pane.ReplaceSel(change.Text);
    }
    pane.SetSel({.StartLine = Conf.CaretLine, .EndLine = Conf.CaretLine}, true);
}
