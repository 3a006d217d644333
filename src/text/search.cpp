#include "text/search.h"

#include <algorithm>
#include <cstring>

namespace {

char Folded(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? char(byte | 0x20) : byte;
}

bool IsAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return uchar(byte) < 0x80; });
}

bool IsBreak(char byte)
{
    return byte == '\n' || byte == '\r';
}

/// The line around a position, without its line end. Between CR and LF it is the line behind them.
Span LineAround(QByteArrayView bytes, qsizetype at)
{
    if (at > 0 && at < bytes.size() && bytes[at - 1] == '\r' && bytes[at] == '\n')
        ++at;
    Span line{at, at};
    while (line.Start > 0 && !IsBreak(bytes[line.Start - 1]))
        --line.Start;
    while (line.End < bytes.size() && !IsBreak(bytes[line.End]))
        ++line.End;
    return line;
}

qsizetype BehindBreak(QByteArrayView bytes, qsizetype at)
{
    const bool both = bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n';
    return at + (both ? 2 : 1);
}

qsizetype BeforeBreak(QByteArrayView bytes, qsizetype lineStart)
{
    const bool both = lineStart >= 2 && bytes[lineStart - 1] == '\n' && bytes[lineStart - 2] == '\r';
    return lineStart - (both ? 2 : 1);
}

/// Shows `visit` the lines that touch the range until it says false.
template <class Visit>
void EachLine(QByteArrayView bytes, Span range, Visit visit)
{
    for (Span line = LineAround(bytes, range.Start); line.Start <= range.End && visit(line);) {
        if (line.End >= range.End)
            return;
        line.Start = line.End = BehindBreak(bytes, line.End);
        while (line.End < bytes.size() && !IsBreak(bytes[line.End]))
            ++line.End;
    }
}

} // namespace

Search::Search(const QString& text, const FindOptions& options, LineBreak documentEnd)
    : lineEnd(documentEnd), expressionText(options.RegularExpression), wholeWord(options.WholeWord)
{
    if (text.isEmpty())
        return;
    if (options.RegularExpression) {
        TakeExpression(text, options.WholeWord, options.MatchCase);
        return;
    }
    const QByteArray bytes = FromText(text, lineEnd);
    folded = !options.MatchCase;
    // Letters beyond ASCII have cases of their own, which bytes do not show.
    if (folded && !IsAscii(bytes) && std::none_of(bytes.begin(), bytes.end(), IsBreak))
        TakeExpression(QRegularExpression::escape(text), false, false);
    else
        TakePlain(text);
}

void Search::TakePlain(const QString& text)
{
    needle = FromText(text, lineEnd);
    if (!folded)
        return;
    std::transform(needle.begin(), needle.end(), needle.begin(), Folded);
    steps.fill(needle.size());
    for (qsizetype i = 0; i + 1 < needle.size(); ++i) {
        steps[uchar(needle[i])] = needle.size() - 1 - i;
        if (needle[i] >= 'a' && needle[i] <= 'z')
            steps[uchar(needle[i]) - 0x20] = needle.size() - 1 - i;
    }
}

void Search::TakeExpression(const QString& pattern, bool words, bool matchCase)
{
    byLine = true;
    expression.setPattern(pattern);
    expression.setPatternOptions(matchCase ? QRegularExpression::UseUnicodePropertiesOption
                                           : QRegularExpression::UseUnicodePropertiesOption |
                                                 QRegularExpression::CaseInsensitiveOption);
    // A part that is not closed is noticed behind the last character.
    const qsizetype place = qMin(expression.patternErrorOffset() + 1, pattern.size());
    if (!expression.isValid())
        error = expression.errorString() + QStringLiteral(" (character ") + QString::number(place) + QLatin1Char(')');
    else if (words)
        expression.setPattern(QStringLiteral("\\b(?:") + pattern + QStringLiteral(")\\b"));
    expression.optimize();
}

std::optional<Hit> Search::Next(QByteArrayView bytes, Span range) const
{
    if (!CanRun())
        return std::nullopt;
    return byLine ? NextInLines(bytes, range) : NextPlain(bytes, range);
}

std::optional<Hit> Search::Previous(QByteArrayView bytes, Span range) const
{
    if (!CanRun())
        return std::nullopt;
    return byLine ? PreviousInLines(bytes, range) : PreviousPlain(bytes, range);
}

std::optional<Hit> Search::Exactly(QByteArrayView bytes, Span range) const
{
    const std::optional<Hit> hit = Next(bytes, range);
    return hit && hit->At == range ? hit : std::nullopt;
}

qsizetype Search::FindBytes(QByteArrayView bytes, qsizetype from) const
{
    if (folded)
        return FindFolded(bytes, from);
    const void* found = memmem(bytes.data() + from, size_t(bytes.size() - from), needle.data(), size_t(needle.size()));
    return found ? static_cast<const char*>(found) - bytes.data() : -1;
}

/// Horspool's search with both cases of a letter taken as one.
qsizetype Search::FindFolded(QByteArrayView bytes, qsizetype from) const
{
    const qsizetype last = needle.size() - 1;
    for (qsizetype at = from + last; at < bytes.size(); at += steps[uchar(bytes[at])]) {
        qsizetype left = last;
        while (left >= 0 && Folded(bytes[at - last + left]) == needle[left])
            --left;
        if (left < 0)
            return at - last;
    }
    return -1;
}

/// No letter or digit of the text goes on where the hit ends in one.
bool Search::StandsAlone(QByteArrayView bytes, Span at) const
{
    if (!wholeWord || expressionText || at.Start == at.End)
        return true;
    const bool goesOnLeft = at.Start > 0 && IsWordByte(bytes[at.Start - 1]) && IsWordByte(bytes[at.Start]);
    const bool goesOnRight = at.End < bytes.size() && IsWordByte(bytes[at.End]) && IsWordByte(bytes[at.End - 1]);
    return !goesOnLeft && !goesOnRight;
}

std::optional<Hit> Search::NextPlain(QByteArrayView bytes, Span range) const
{
    const QByteArrayView upTo = bytes.first(range.End);
    for (qsizetype at = range.Start; at + needle.size() <= range.End; ++at) {
        at = FindBytes(upTo, at);
        if (at < 0)
            break;
        const Span hit{at, at + needle.size()};
        if (StandsAlone(bytes, hit))
            return Hit{hit, {}};
    }
    return std::nullopt;
}

/// Looks forward in growing stretches in front of the range's end and keeps the last hit.
std::optional<Hit> Search::PreviousPlain(QByteArrayView bytes, Span range) const
{
    qsizetype stretch = qsizetype(16) * 1024;
    for (qsizetype edge = range.End; edge > range.Start; stretch *= 2) {
        const qsizetype start = qMax(range.Start, edge - stretch);
        const Span window{start, qMin(range.End, edge + needle.size() - 1)};
        std::optional<Hit> last;
        for (std::optional<Hit> hit = NextPlain(bytes, window); hit;
             hit = NextPlain(bytes, {hit->At.Start + 1, window.End}))
            last = hit;
        if (last)
            return last;
        edge = start;
    }
    return std::nullopt;
}

/// Shows `visit` the hits of one line from left to right until it says false.
template <class Visit>
void Search::EachInLine(QByteArrayView bytes, Span line, Span range, Visit visit) const
{
    const QByteArrayView lineBytes = bytes.sliced(line.Start, line.End - line.Start);
    const QString text = QString::fromUtf8(lineBytes);
    const qsizetype skipped = qBound<qsizetype>(0, range.Start - line.Start, lineBytes.size());
    qsizetype unit = UnitsOf(lineBytes.first(skipped));
    qsizetype knownUnit = unit, knownByte = skipped; // the way from units to bytes goes on from here
    const auto byteOf = [&](qsizetype wanted) {
        knownByte += OffsetOfColumn(lineBytes.sliced(knownByte), wanted - knownUnit);
        knownUnit = wanted;
        return line.Start + knownByte;
    };
    while (unit <= text.size()) {
        const QRegularExpressionMatch match = expression.match(text, unit, QRegularExpression::NormalMatch,
                                                               QRegularExpression::DontCheckSubjectStringMatchOption);
        if (!match.hasMatch())
            return;
        Hit hit{{byteOf(match.capturedStart()), 0}, match};
        hit.At.End = byteOf(match.capturedEnd());
        if (hit.At.End <= range.End && StandsAlone(bytes, hit.At) && !visit(hit))
            return;
        unit = match.capturedEnd() + (match.capturedLength() == 0 ? 1 : 0);
        if (unit < text.size() && text[unit].isLowSurrogate())
            ++unit;
    }
}

std::optional<Hit> Search::NextInLines(QByteArrayView bytes, Span range) const
{
    std::optional<Hit> found;
    EachLine(bytes, range, [&](Span line) {
        EachInLine(bytes, line, range, [&](const Hit& hit) {
            if (hit.At.Start < hit.At.End)
                found = hit;
            return !found;
        });
        return !found;
    });
    return found;
}

std::optional<Hit> Search::PreviousInLines(QByteArrayView bytes, Span range) const
{
    for (Span line = LineAround(bytes, range.End);;) {
        std::optional<Hit> last;
        EachInLine(bytes, line, range, [&](const Hit& hit) {
            if (hit.At.Start < hit.At.End)
                last = hit;
            return true;
        });
        if (last || line.Start <= range.Start)
            return last;
        line = LineAround(bytes, BeforeBreak(bytes, line.Start));
    }
}

QByteArray Search::Replacement(const Hit& hit, const QString& text) const
{
    if (!expressionText)
        return FromText(text, lineEnd);
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar sign = text[i];
        const QChar next = i + 1 < text.size() ? text[i + 1] : QChar();
        const bool mark = sign == QLatin1Char('\\') || sign == QLatin1Char('$');
        if (mark && next >= QLatin1Char('0') && next <= QLatin1Char('9'))
            out += hit.Match.captured(next.digitValue());
        else if (mark && next == sign)
            out += sign;
        else if (sign == QLatin1Char('\\') && next == QLatin1Char('n'))
            out += QLatin1Char('\n');
        else if (sign == QLatin1Char('\\') && next == QLatin1Char('t'))
            out += QLatin1Char('\t');
        else {
            out += sign;
            continue;
        }
        ++i;
    }
    return FromText(out, lineEnd);
}

/// Copies the text up to the hit, then what takes the hit's place.
void Search::Put(Replaced& result, QByteArrayView bytes, qsizetype& kept, Span hit, QByteArrayView replacement)
{
    result.Bytes.append(bytes.sliced(kept, hit.Start - kept));
    result.Bytes.append(replacement);
    kept = hit.End;
    ++result.Count;
}

Replaced Search::ReplaceAll(QByteArrayView bytes, Span range, const QString& text, qsizetype most) const
{
    Replaced result;
    qsizetype kept = range.Start;
    if (byLine && CanRun()) {
        EachLine(bytes, range, [&](Span line) {
            EachInLine(bytes, line, range, [&](const Hit& hit) {
                const bool behindLast = hit.At.Start == hit.At.End && hit.At.Start == kept && kept > line.Start;
                if (!behindLast || result.Count == 0)
                    Put(result, bytes, kept, hit.At, Replacement(hit, text));
                return true;
            });
            return true;
        });
        result.End = range.End;
    } else {
        const QByteArray plain = FromText(text, lineEnd);
        const qsizetype begins = range.End - range.Start > most ? range.Start + most : range.End;
        const auto next = [&] { return Next(bytes, {kept, std::min(range.End, begins + Reach() - 1)}); };
        for (std::optional<Hit> hit = next(); hit; hit = next())
            Put(result, bytes, kept, hit->At, plain);
        result.End = std::max(kept, begins);
    }
    result.Bytes.append(bytes.sliced(kept, result.End - kept));
    return result;
}
