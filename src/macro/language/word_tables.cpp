#include "macro/language/word_tables.h"

#include <QHash>

namespace {

/// Rows of all families by their word.
template <class Row>
QHash<QString, const Row*> Collected(std::span<const std::span<const Row>> families, const char* Row::*word)
{
    QHash<QString, const Row*> rows;
    for (const std::span<const Row>& family : families)
        for (const Row& row : family)
            rows.insert(QString::fromLatin1(row.*word), &row);
    return rows;
}

} // namespace

const CommandWord* FindCommand(QStringView word)
{
    static const auto rows = Collected(CommandFamilies(), &CommandWord::Word);
    return rows.value(word.toString().toLower());
}

const PlainTag* FindPlainTag(QStringView token)
{
    static const auto rows = Collected(PlainTagFamilies(), &PlainTag::Name);
    if (token.size() < 2 || token.front() != u'[' || token.back() != u']')
        return nullptr;
    return rows.value(token.sliced(1).chopped(1).toString().toLower());
}

const FunctionTag* FindFunctionTag(QStringView token)
{
    static const auto rows = Collected(FunctionTagFamilies(), &FunctionTag::Name);
    constexpr qsizetype HeadSize = 5; // "[chr:"
    if (token.size() < HeadSize || token.front() != u'[' || token[HeadSize - 1] != u':')
        return nullptr;
    return rows.value(token.sliced(1, HeadSize - 2).toString().toLower());
}
