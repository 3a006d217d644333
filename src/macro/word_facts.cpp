#include "macro/word_facts.h"

#include "macro/language/word_tables.h"

namespace {

QString HelpIdOf(const char* word)
{
    return QStringLiteral("!gemforge basic\\") + QLatin1String(word);
}

bool IsLetterOfWord(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

} // namespace

QString FormOf(const CommandWord& command)
{
    const QString form = QLatin1String(command.Word) + u' ' + QLatin1String(command.Usage);
    return form.trimmed();
}

QString TipOf(const WordFacts& facts)
{
    constexpr qsizetype LongestLine = 80;
    QString tip = facts.Form + u'\n';
    qsizetype length = 0;
    for (const QString& word : facts.Meaning.split(u' ')) {
        const bool first = length == 0, fits = length + word.size() < LongestLine;
        tip += first ? QString() : fits ? QStringLiteral(" ") : QStringLiteral("\n");
        tip += word;
        length = first || !fits ? word.size() : length + 1 + word.size();
    }
    return tip;
}

std::optional<WordFacts> FactsOfWord(const QString& word)
{
    if (const CommandWord* command = FindCommand(word))
        return WordFacts{FormOf(*command), QLatin1String(command->Help), HelpIdOf(command->Word)};
    if (const PlainTag* tag = FindPlainTag(word))
        return WordFacts{u'[' + QLatin1String(tag->Name) + u']', QLatin1String(tag->Help), HelpIdOf(tag->Name)};
    if (const FunctionTag* tag = FindFunctionTag(word))
        return WordFacts{QLatin1String(tag->Usage), QLatin1String(tag->Help), HelpIdOf(tag->Name)};
    return {};
}

QString WordAt(const QString& line, int column)
{
    int first = qBound(0, column, int(line.size())), end = first;
    while (first > 0 && IsLetterOfWord(line.at(first - 1)))
        --first;
    while (end < line.size() && IsLetterOfWord(line.at(end)))
        ++end;
    const bool sigil = first > 0 && QStringView(u"$@?[").contains(line.at(first - 1));
    if (!sigil)
        return line.sliced(first, end - first);
    const bool tag = line.at(first - 1) == u'[';
    const bool closes = tag && end < line.size() && (line.at(end) == u']' || line.at(end) == u':');
    return line.sliced(first - 1, end + closes - first + 1);
}
