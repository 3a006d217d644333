#include "help/page_id.h"

namespace {

QString Escaped(const QString& text)
{
    QString safe;
    for (const char byte : text.toUtf8()) {
        const auto code = static_cast<unsigned char>(byte);
        const bool plain =
            (code >= '0' && code <= '9') || (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '_';
        if (plain)
            safe += QLatin1Char(byte);
        else
            safe += QStringLiteral("-%1").arg(int(code), 2, 16, QLatin1Char('0'));
    }
    return safe;
}

qsizetype FolderEnd(const QString& id)
{
    const qsizetype back = id.indexOf(QLatin1Char('\\'));
    return back >= 0 ? back : id.indexOf(QLatin1Char('/'));
}

} // namespace

QString PageFile(const QString& id)
{
    QString name = id.trimmed().toLower();
    if (name.isEmpty())
        return ContentsPage;
    if (name.startsWith(QLatin1Char('!'))) {
        name = QStringLiteral("words_") + name.mid(1, FolderEnd(name) - 1).trimmed();
        name.replace(QLatin1Char(' '), QLatin1Char('_'));
    }
    return Escaped(name) + QStringLiteral(".html");
}

QString WordOfId(const QString& id)
{
    const qsizetype end = FolderEnd(id);
    return id.trimmed().startsWith(QLatin1Char('!')) && end >= 0 ? id.mid(end + 1).trimmed() : QString();
}

QString WordAnchor(const QString& word)
{
    return QStringLiteral("w_") + Escaped(word);
}
