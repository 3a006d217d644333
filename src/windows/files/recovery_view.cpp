#include "windows/files/recovery_view.h"

#include "frame/recovery/line_diff.h"
#include "platform/files/paths.h"
#include "services/archive_tool.h"
#include "text/encoding.h"

namespace {

// What a person looks through; the text itself is taken whole.
constexpr qint64 LargestCompared = 8 << 20;
constexpr int MostLines = 3000, LongestLine = 1000;
constexpr qsizetype PlainBytes = 256 << 10;

QByteArray Utf8(const QByteArray& file)
{
    return FromFile(file, EncodingOf(file));
}

void AddLine(QString& lines, QChar mark, QByteArrayView text)
{
    lines += mark;
    lines += QLatin1Char(' ');
    lines += QString::fromUtf8(text.first(qMin<qsizetype>(text.size(), LongestLine)));
    lines += text.size() > LongestLine ? QStringLiteral(" ...\n") : QStringLiteral("\n");
}

QString Plain(const QByteArray& bytes)
{
    const QByteArray text = Utf8(bytes.first(qMin(bytes.size(), PlainBytes)));
    const QList<QByteArray> all = text.split('\n');
    QString lines;
    for (const QByteArray& line : all.first(qMin<qsizetype>(all.size(), MostLines)))
        AddLine(lines, QLatin1Char(' '), line.endsWith('\r') ? QByteArrayView(line).chopped(1) : line);
    if (all.size() > MostLines || bytes.size() > PlainBytes)
        lines += QStringLiteral("...\n");
    return lines;
}

QString Changes(const std::vector<DiffLine>& changes)
{
    QString lines;
    int count = 0;
    for (const DiffLine& line : changes) {
        if (++count > MostLines)
            return lines + QStringLiteral("...\n");
        if (line.Kind == DiffKind::Gap)
            lines += QStringLiteral("...\n");
        else
            AddLine(lines, QLatin1Char(char(line.Kind)), line.Text);
    }
    return lines;
}

/// Of a macro its source, which may lie in an archive.
Result<QByteArray> FileOf(const RecoveredText& text)
{
    if (text.Code)
        if (ResourceResult<QByteArray> source =
                ReadResource(QStringLiteral("basic.txt"), text.DocumentPath, LargestCompared))
            return *std::move(source);
    return paths::ReadWhole(text.DocumentPath, LargestCompared);
}

} // namespace

RecoveryView ViewOf(const RecoveredText& text)
{
    if (text.DocumentPath.isEmpty())
        return {QStringLiteral("This text was never saved:"), Plain(text.Bytes)};
    const Result<QByteArray> file = FileOf(text);
    if (!file && !paths::FileExists(text.DocumentPath))
        return {QStringLiteral("The file has gone. The kept text:"), Plain(text.Bytes)};
    if (!file || text.Bytes.size() > LargestCompared)
        return {QStringLiteral("The file can't be compared. The kept text:"), Plain(text.Bytes)};
    QByteArray before = Utf8(*file), after = Utf8(text.Bytes);
    if (text.Code) // has line ends of its own while it is typed
        for (QByteArray* side : {&before, &after})
            side->replace("\r\n", "\n");
    const auto changes = CompareLines(before, after);
    if (!changes)
        return {QStringLiteral("File and kept text have little in common. The kept text:"), Plain(text.Bytes)};
    if (changes->empty())
        return {QStringLiteral("The text is the same; only its encoding differs."), Plain(text.Bytes)};
    return {QStringLiteral("Lines with - are in the file, lines with + are in the kept text:"), Changes(*changes)};
}

void DiffColours::highlightBlock(const QString& line)
{
    const QChar mark = line.isEmpty() ? QChar() : line.front();
    if (mark != QLatin1Char('-') && mark != QLatin1Char('+'))
        return;
    const bool added = mark == QLatin1Char('+');
    QTextCharFormat format;
    format.setForeground(Dark ? Qt::white : Qt::black);
    if (Dark)
        format.setBackground(added ? QColor(20, 75, 30) : QColor(100, 30, 30));
    else
        format.setBackground(added ? QColor(205, 245, 210) : QColor(255, 215, 215));
    setFormat(0, int(line.size()), format);
}
