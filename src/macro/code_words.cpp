#include "macro/code_words.h"

#include "macro/language/word_tables.h"
#include "macro/source_names.h"
#include "macro/word_facts.h"

namespace {

bool IsCodeLetter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

/// Where the word begins that ends at a column.
int WordBegin(const QString& line, int column)
{
    int first = column;
    while (first > 0 && IsCodeLetter(line.at(first - 1)))
        --first;
    return first;
}

/// The sign of a variable, a label, a group or a tag in front of a word; null: none.
QChar SignBefore(const QString& line, int word)
{
    const QChar sign = word > 0 ? line.at(word - 1) : QChar();
    return QStringView(u"$@?[").contains(sign) ? sign : QChar();
}

const QStringList& CommandForms()
{
    static const QStringList forms = [] {
        QStringList all;
        for (const auto& family : CommandFamilies())
            for (const CommandWord& row : family)
                all << FormOf(row);
        all.sort();
        return all;
    }();
    return forms;
}

const QStringList& TagForms()
{
    static const QStringList forms = [] {
        QStringList all = PlainTagNames() + SpecialWords();
        for (const auto& family : FunctionTagFamilies())
            for (const FunctionTag& row : family)
                all << QLatin1String(row.Usage);
        all.sort();
        return all;
    }();
    return forms;
}

QStringList PlacesOf(const SourceNames& names)
{
    QStringList places;
    for (const SourcePlace& place : names.Places)
        places << place.Name;
    return places;
}

bool IsJumpTarget(const QString& front)
{
    const QString word = front.trimmed().toLower();
    return word == QLatin1String("gosub") || word == QLatin1String("gotolabel");
}

} // namespace

QStringList CodeWordsAt(const QString& before, bool typing, const std::function<QStringList()>& source)
{
    const int word = WordBegin(before, int(before.size()));
    const QChar sign = SignBefore(before, word);
    const QString front = before.first(sign.isNull() ? word : word - 1);
    if (sign == u'[')
        return TagForms();
    if (sign.isNull() && front.trimmed().isEmpty())
        return CommandForms();
    const bool jump = sign.isNull() && IsJumpTarget(front);
    if (sign.isNull() && typing && !jump)
        return {};
    const SourceNames names = NamesOfSource(source());
    if (sign == u'$')
        return names.Variables;
    if (sign == u'?')
        return names.Groups;
    if (sign == u'@' || jump)
        return PlacesOf(names);
    return names.Variables + names.Groups + TagForms();
}

CodePick PickOf(const QString& item, const QString& line, int column)
{
    const int word = WordBegin(line, column), sign = SignBefore(line, word).isNull() ? word : word - 1;
    CodePick pick{item.section(u' ', 0, 0), column - sign, 0};
    int end = column;
    while (end < line.size() && IsCodeLetter(line.at(end)))
        ++end;
    if (item.startsWith(u'[')) {
        const qsizetype arguments = pick.Text.indexOf(u':'); // its user writes them
        if (arguments >= 0)
            pick.Text.truncate(arguments + 1);
        if (end < line.size() && line.at(end) == pick.Text.back())
            ++end;
    } else if (item.contains(u' ') && (end == line.size() || line.at(end) != u' ')) {
        pick.Text += u' ';
    }
    pick.Behind = end - column;
    return pick;
}
