#include "frame/settings/option_limits.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

const QString LineDefault = QStringLiteral("-");
const QString SearchDefault = QStringLiteral("=");
constexpr QLatin1StringView CommentSign("#"), Blank(" ");

qint64 NumberAtStart(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*([-+]?\\d{1,9})"));
    return number.match(text).captured(1).toLongLong();
}

} // namespace

QString CheckLimit(const QString& text, int maxLength, int lowest, int highest)
{
    if (text.size() > maxLength)
        return QString::number(highest);
    return QString::number(std::clamp<qint64>(NumberAtStart(text), lowest, highest));
}

QString CheckLineChar(const QString& text, const QString& searchChar)
{
    const bool bad = text.size() != 1 || text == Blank || text == CommentSign || text == searchChar;
    const QString line = bad ? LineDefault : text;
    return line == searchChar ? SearchDefault : line;
}

QString CheckSearchChar(const QString& text, const QString& lineChar)
{
    QString search = text;
    if (search.size() >= 2 || search == Blank || search == CommentSign)
        search = SearchDefault;
    if (search.isEmpty())
        search = LineDefault;
    if (search == lineChar)
        search = SearchDefault;
    return search == lineChar ? LineDefault : search;
}
