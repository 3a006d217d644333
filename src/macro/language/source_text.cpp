#include "macro/language/source_text.h"

#include "text/encoding.h"

namespace {

constexpr QChar Quote = u'"';
constexpr QChar Mark = QChar(160); ///< stands where a quote stood until all are found

/// Trims as the language does: blanks only.
QStringView TrimBlanks(QStringView line)
{
    while (!line.isEmpty() && line.front() == u' ')
        line = line.sliced(1);
    while (!line.isEmpty() && line.back() == u' ')
        line.chop(1);
    return line;
}

/// A quoted stretch may begin on one line and end on another, so `inside` goes from line to line.
QString CollapseBlanks(QStringView line, bool& inside)
{
    QString out;
    out.reserve(line.size());
    for (const QChar c : line) {
        if (c == Quote)
            inside = !inside;
        if (c != u' ' || inside || !out.endsWith(u' '))
            out += c;
    }
    return out;
}

/// Of typed source; `inside`: a quote is open in front of the line, and behind it.
QString TidyLine(const QString& line, bool& inside)
{
    const QStringView trimmed = TrimBlanks(line);
    if (!trimmed.startsWith(u'#'))
        return CollapseBlanks(trimmed, inside);
    if (trimmed.count(Quote) % 2)
        inside = !inside;
    return trimmed.toString();
}

/// A line without the gaps that empty pairs of quotes leave at its ends.
QStringView WithoutOuterGaps(QStringView line)
{
    constexpr QStringView Pair(u"\u00A0\u00A0 ");
    while (line.startsWith(Pair))
        line = line.sliced(Pair.size());
    qsizetype run = line.size();
    while (run > 0 && (line[run - 1] == u' ' || line[run - 1] == Mark))
        --run;
    const qsizetype gap = line.sliced(run).indexOf(u" \u00A0\u00A0");
    return gap < 0 ? line : line.first(run + gap);
}

/// An empty pair of quotes is no argument: where one stands first or last in a line, the blank beside it goes too.
QString WithoutOuterGapsOfLines(const QString& masked)
{
    QString out;
    out.reserve(masked.size());
    qsizetype from = 0;
    while (from < masked.size()) {
        qsizetype stop = masked.indexOf(u'\n', from);
        stop = stop < 0 ? masked.size() : stop;
        const bool both = stop > from && masked[stop - 1] == u'\r';
        out += WithoutOuterGaps(QStringView(masked).sliced(from, stop - both - from));
        out += QStringView(masked).sliced(stop - both, both + (stop < masked.size()));
        from = stop + 1;
    }
    return out;
}

} // namespace

QString SourceFromBytes(QByteArrayView bytes)
{
    return QString::fromUtf8(FromFile(bytes, EncodingOf(bytes)));
}

QString MaskQuotedSpaces(const QString& text, QString& errorText)
{
    if (!text.contains(Quote))
        return text;
    QString masked = text;
    bool inside = false;
    for (QChar& c : masked) {
        if (c == Quote) {
            inside = !inside;
            c = Mark;
        } else if (c == u' ' && inside) {
            c = u'|';
        }
    }
    if (inside) {
        errorText = QStringLiteral("Found unclosed quotes in the file.");
        return {};
    }
    masked = WithoutOuterGapsOfLines(masked);
    masked.remove(Mark);
    return masked.replace(QLatin1String("  "), QLatin1String(" "));
}

PreparedSource PrepareSource(QString text)
{
    PreparedSource prepared;
    text.remove(u'\t');
    text = MaskQuotedSpaces(text, prepared.ErrorText);
    if (!prepared.ErrorText.isEmpty() || text.isEmpty())
        return prepared;
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (!text.endsWith(u'\n'))
        text += u'\n';
    prepared.Lines = text.split(u'\n');
    return prepared;
}

TidySource TidyTypedSource(const QStringList& typed)
{
    TidySource tidy;
    bool inside = false;
    for (const QString& line : typed) {
        if (TrimBlanks(line).startsWith(u'$')) {
            tidy.FaultLine = int(tidy.Lines.size());
            return tidy;
        }
        tidy.Lines << TidyLine(line, inside);
    }
    if (tidy.Lines.isEmpty() || !tidy.Lines.last().isEmpty())
        tidy.Lines << QString();
    return tidy;
}

QString SourceToSave(const QStringList& typed)
{
    QString source;
    bool inside = false;
    for (qsizetype i = 0; i < typed.size(); ++i) {
        QString line = TidyLine(typed.at(i), inside);
        line.replace(QLatin1String("\t "), QLatin1String("\t"));
        line.replace(QLatin1String(" \t"), QLatin1String("\t"));
        if (i + 1 < typed.size() || !line.isEmpty())
            source += line + QLatin1String("\r\n");
    }
    return source;
}

QString WithoutTabs(QString text)
{
    text.replace(QLatin1String("\t "), QLatin1String("\t"));
    text.replace(QLatin1String(" \t"), QLatin1String("\t"));
    return text.remove(u'\t');
}
