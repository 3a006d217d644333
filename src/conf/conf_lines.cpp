#include "conf/conf_lines.h"

#include "frame/frame_state.h"

#include <QRegularExpression>
#include <cmath>

namespace {

QString Blanked(const QString& text, char16_t highest)
{
    QString clean = text;
    for (QChar& c : clean)
        if (c.unicode() < 33 || c.unicode() > highest)
            c = QLatin1Char(' ');
    qsizetype from = 0;
    qsizetype to = clean.size();
    while (from < to && clean.at(from) == QLatin1Char(' '))
        ++from;
    while (to > from && clean.at(to - 1) == QLatin1Char(' '))
        --to;
    return clean.mid(from, to - from);
}

constexpr char16_t HighestPlain = 125;
constexpr char16_t HighestOfAll = 0xFFFF;
constexpr qsizetype LongestNumber = 7;

} // namespace

ValueColumn CurrentValueColumn()
{
    return {Frame.Settings.SpacerWidth, Frame.Settings.SuperTab > 0};
}

QString CleanText(const QString& text)
{
    return Blanked(text, HighestPlain);
}

QString CleanValue(const QString& text)
{
    return Blanked(text, HighestOfAll);
}

QString WithoutNote(const QString& text)
{
    return text.left(text.indexOf(QLatin1Char('#')));
}

QString PadAfterKey(const QString& key, const ValueColumn& column)
{
    if (column.SuperTab)
        return QStringLiteral("\t");
    return QString(qMax<qsizetype>(0, column.SpacerWidth - key.size() - 1), QLatin1Char(' '));
}

QString PadAfterKey(const QString& key)
{
    return PadAfterKey(key, CurrentValueColumn());
}

int ClampNumber(const QString& text, int low, int high)
{
    if (text.size() > LongestNumber)
        return high;
    if (text.isEmpty())
        return low;
    static const QRegularExpression leading(QStringLiteral("^ *([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+))"));
    const double number = leading.match(text).captured(1).toDouble();
    return int(qBound<double>(low, std::round(number), high));
}

AnimModeText ParseAnimMode(const QString& text)
{
    const QString reverse = QStringLiteral("reverse");
    AnimModeText parsed{text.toLower(), false};
    if (!parsed.AnimMode.contains(reverse))
        return parsed;
    parsed.HasReverse = true;
    parsed.AnimMode.replace(reverse, QStringLiteral(" "));
    parsed.AnimMode.replace(QLatin1Char(','), QLatin1Char(' '));
    // Words on both sides of it ("linear,reverse,once") stay words with commas between, as the game reads them.
    parsed.AnimMode = parsed.AnimMode.simplified().replace(QLatin1Char(' '), QLatin1Char(','));
    if (parsed.AnimMode.isEmpty())
        parsed.AnimMode = QStringLiteral("loop");
    return parsed;
}

QString KeyOfLine(const QString& line)
{
    return line.left(line.indexOf(QLatin1Char(':')));
}

bool IsEmptyLine(const QString& line)
{
    return CleanText(line).isEmpty();
}
