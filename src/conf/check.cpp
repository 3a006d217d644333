#include "conf/check.h"

#include "conf/conf_lines.h"

#include <algorithm>

namespace {

/// CleanText would leave nothing: no code from 33 to 125.
bool IsBlankText(QByteArrayView bytes)
{
    return std::none_of(bytes.begin(), bytes.end(), [](char c) { return c > 32 && c < 126; });
}

QStringList CheckKeyLine(QByteArrayView key, QByteArrayView rest, const CheckContext& context)
{
    QStringList messages;
    if (IsBlankText(rest))
        messages << QStringLiteral("Missing value after the colon.");
    if (key.isEmpty())
        messages << QStringLiteral("Missing element on left side of colon.");
    if (key.contains(' ') || key.contains('\t'))
        messages << QStringLiteral("Spaces where found on the left side of the colon.");
    if (context.LookForImages && rest.contains('.')) {
        const QString value = CleanValue(QString::fromUtf8(rest));
        if (context.SheetKinds.Of(value) >= 0 && !ImageIsThere(value, context))
            messages << QStringLiteral(
                "The PCX image for this element doesn't exist. If it's from another game then make "
                "sure the Extra file list has the right path. (Use Inject Path)");
    }
    return messages;
}

} // namespace

bool ImageIsThere(const QString& value, const CheckContext& context)
{
    const QString name = value.toLower();
    const QStringList names = QStringList(name) + context.SheetKinds.Twins(name);
    return std::any_of(names.begin(), names.end(), [&](const QString& one) { return context.Images.contains(one); });
}

QStringList CheckLine(QByteArrayView line, const CheckContext& context)
{
    if (line.contains('#'))
        return {};
    const qsizetype colon = line.indexOf(':');
    if (colon >= 0)
        return CheckKeyLine(line.first(colon), line.sliced(colon + 1), context);
    if (IsBlankText(line) || CleanText(QString::fromUtf8(line)).toLower() == QLatin1String("end"))
        return {};
    return {QStringLiteral("No colon found in this line. If this line is a comment then put a # at the begining.")};
}

std::optional<CheckFinding> FirstBadLine(QByteArrayView lines, const CheckContext& context,
                                         const PassProgress& progress)
{
    constexpr int ProgressLines = 4096;
    qsizetype from = 0;
    for (int number = 0;; ++number) {
        const ByteLine line = TakeLine(lines, from);
        if (const QStringList messages = CheckLine(line.Text, context); !messages.isEmpty())
            return CheckFinding{number, messages};
        if (line.Break.isEmpty())
            return std::nullopt;
        if (progress && number % ProgressLines == 0 && !progress(number))
            return std::nullopt;
    }
}
