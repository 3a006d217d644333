#include "conf/headline.h"

#include "frame/frame_state.h"
#include "frame/messages/asker.h"

namespace {

constexpr qsizetype LongestHeadline = 50;

QString WordOf(QChar c)
{
    if (c == QLatin1Char(' '))
        return QStringLiteral("space");
    if (c == QLatin1Char('-'))
        return QStringLiteral("minus");
    const bool plain = (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
    return plain ? QString(c) : QString();
}

} // namespace

QStringList HeadlineLines(const QString& text)
{
    QStringList lines;
    for (const QChar c : text.toLower())
        if (const QString word = WordOf(c); !word.isEmpty())
            lines << QStringLiteral("char_") + word;
    return lines;
}

void MakeHeadline()
{
    const auto text = AskText(InputQuestion{
        QStringLiteral("Make A Headline"),
        QStringLiteral("Enter headline. Remember, the editor palette in RnD is only 4 characters in width."),
        {}});
    if (!text || text->isEmpty() || text->size() > LongestHeadline)
        return;
    DocumentText& pane = CurrentPane();
    const UndoGroup group(pane);
    int line = pane.GetSel(true).StartLine;
    for (const QString& word : HeadlineLines(*text))
        pane.InsertLine(++line, word);
}
