#include "conf/tidy_up.h"

#include "frame/frame_state.h"

#include <algorithm>

namespace {

constexpr QByteArrayView MissingValue = "[MISSING VALUE!]";

bool IsBlank(char c)
{
    return static_cast<unsigned char>(c) <= 32;
}

/// Length in characters, as the editor counts columns: a code beyond the basic plane counts two.
qsizetype CharacterCount(QByteArrayView utf8)
{
    qsizetype count = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        count += (byte & 0xC0) != 0x80;
        count += byte >= 0xF0;
    }
    return count;
}

void AppendPadding(QByteArray& out, QByteArrayView key, const ValueColumn& column)
{
    if (column.SuperTab) {
        out.append('\t');
        return;
    }
    const qsizetype length = column.SingleByteText ? key.size() : CharacterCount(key);
    out.append(qMax<qsizetype>(0, column.SpacerWidth - length - 1), ' ');
}

/// CleanValue on bytes.
void AppendValue(QByteArray& out, QByteArrayView rest)
{
    if (rest.isEmpty()) {
        out.append(MissingValue);
        return;
    }
    while (!rest.isEmpty() && IsBlank(rest.front()))
        rest = rest.sliced(1);
    while (!rest.isEmpty() && IsBlank(rest.back()))
        rest.chop(1);
    const qsizetype at = out.size();
    out.append(rest);
    std::replace_if(out.begin() + at, out.end(), IsBlank, ' ');
}

void AppendTidied(QByteArray& out, QByteArrayView line, const ValueColumn& column)
{
    const qsizetype colon = line.indexOf(':');
    if (colon < 0) {
        out.append(line);
        return;
    }
    const QByteArrayView key = line.first(colon + 1);
    out.append(key);
    AppendPadding(out, key, column);
    AppendValue(out, line.sliced(colon + 1));
}

} // namespace

QByteArray TidyLines(QByteArrayView lines, const ValueColumn& column, const PassProgress& progress)
{
    QByteArray out;
    out.reserve(lines.size() + lines.size() / 4);
    ForEachLine(lines, progress, [&](const ByteLine& line) {
        AppendTidied(out, line.Text, column);
        out.append(line.Break);
    });
    return out;
}

void TidyUp()
{
    RunPassOnSelection(CurrentPane(), QStringLiteral("Tidy Up"),
                       [](QByteArrayView lines, const PassProgress& progress) {
                           return TidyLines(lines, CurrentValueColumn(), progress);
                       });
}
