#include "sets/setup_file.h"

#include "conf/line_pass.h"

namespace {

const QByteArray SeriesKey = "last_level_series:";
const QByteArray SeriesFiller(22, ' ');

struct SeriesPlaces
{
    qsizetype Line = -1, LineEnd = -1; ///< of the line that counts, the last one; its end without its break
    qsizetype Comment = -1;            ///< behind the break of the last one that is commented out
    QByteArray Break = "\n";
};

SeriesPlaces FindSeries(const QByteArray& file)
{
    SeriesPlaces places;
    for (qsizetype from = 0; from <= file.size();) {
        const qsizetype start = from;
        const ByteLine line = TakeLine(file, from);
        const QByteArrayView text = line.Text.trimmed();
        if (!line.Break.isEmpty())
            places.Break = line.Break.toByteArray();
        if (text.startsWith(SeriesKey)) {
            places.Line = start + (text.data() - line.Text.data());
            places.LineEnd = start + line.Text.size();
        } else if (text.contains(SeriesKey)) {
            places.Comment = from;
        }
        if (line.Break.isEmpty())
            break;
    }
    return places;
}

} // namespace

std::optional<QString> LastLevelSeries(const QByteArray& file)
{
    const SeriesPlaces places = FindSeries(file);
    if (places.Line < 0)
        return {};
    const qsizetype from = places.Line + SeriesKey.size();
    return QString::fromUtf8(file.sliced(from, places.LineEnd - from)).trimmed();
}

std::optional<QByteArray> WithLastLevelSeries(const QByteArray& file, const QString& value)
{
    const SeriesPlaces places = FindSeries(file);
    const QByteArray line = SeriesKey + SeriesFiller + value.toUtf8();
    if (places.Line >= 0) {
        const QByteArray rest = file.sliced(places.LineEnd);
        return file.first(places.Line) + line + (rest.isEmpty() ? places.Break : rest);
    }
    if (places.Comment < 0)
        return {};
    const QByteArray front = file.first(places.Comment);
    const bool isOpen = !front.endsWith('\n') && !front.endsWith('\r');
    return front + (isOpen ? places.Break : QByteArray()) + line + places.Break + file.sliced(places.Comment);
}
