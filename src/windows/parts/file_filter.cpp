#include "windows/parts/file_filter.h"

#include <QRegularExpression>

QStringList DialogFilters(const QString& pairs)
{
    static const QRegularExpression partedBy(QStringLiteral("[;,\\s]+"));
    static const QRegularExpression patternsBehind(QStringLiteral("\\s*\\([^()]*[*?][^()]*\\)\\s*$"));
    const QStringList parts = pairs.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QStringList patterns = parts.at(i + 1).split(partedBy, Qt::SkipEmptyParts);
        if (patterns.isEmpty())
            continue;
        QString name = parts.at(i);
        name.remove(patternsBehind);
        filters << name.trimmed() + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
    }
    return filters;
}
