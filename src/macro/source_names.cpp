#include "macro/source_names.h"

#include "macro/language/program.h"
#include "macro/language/word_tables.h"

#include <QSet>
#include <algorithm>

namespace {

template <class Row>
QStringList NamesOf(std::span<const std::span<const Row>> families, const char* Row::*name, const QString& form)
{
    QStringList names;
    for (const std::span<const Row>& family : families)
        for (const Row& row : family)
            names << form.arg(QLatin1String(row.*name));
    return names;
}

constexpr QLatin1StringView Comparisons[] = {QLatin1StringView("=="), QLatin1StringView("<>"), QLatin1StringView("<<"),
                                             QLatin1StringView(">>"), QLatin1StringView("<="), QLatin1StringView("=>")};

void AddOnce(QStringList& names, QSet<QString>& known, const QString& name)
{
    const QString lower = name.toLower();
    if (name.size() > 1 && !known.contains(lower)) {
        known.insert(lower);
        names << name;
    }
}

} // namespace

const QStringList& CommandNames()
{
    static const QStringList names = NamesOf(CommandFamilies(), &CommandWord::Word, QStringLiteral("%1"));
    return names;
}

const QStringList& PlainTagNames()
{
    static const QStringList names = NamesOf(PlainTagFamilies(), &PlainTag::Name, QStringLiteral("[%1]"));
    return names;
}

const QStringList& SpecialWords()
{
    static const QStringList words = {QStringLiteral("[numerical]"), QStringLiteral("[multiline]"),
                                      QStringLiteral("[exist]")};
    return words;
}

QString WithoutOperator(QLatin1StringView word, const QString& argument, int index)
{
    if ((word == QLatin1StringView("set") && index > 1) || word == QLatin1StringView("pkoffset"))
        return argument.mid(1);
    const bool compares =
        std::ranges::any_of(Comparisons, [&](QLatin1StringView sign) { return argument.startsWith(sign); });
    return compares ? argument.mid(2) : argument;
}

SourceNames NamesOfSource(const QStringList& typed)
{
    SourceNames found;
    QSet<QString> variables, groups;
    LabelTable labels;
    for (int i = 0; i < int(typed.size()); ++i) {
        const QString line = typed.at(i).simplified();
        if (IsLabelLine(line)) {
            const int before = labels.Count();
            PrePassLine(labels, line, i);
            if (labels.Count() > before)
                found.Places.push_back(
                    {labels.InOrder().back().Name, i, line.startsWith(QLatin1String("sub"), Qt::CaseInsensitive)});
        } else if (line.startsWith(QLatin1String("dim "), Qt::CaseInsensitive)) {
            AddOnce(found.Variables, variables, line.section(u' ', 1, 1));
        } else if (line.startsWith(QLatin1String("group "), Qt::CaseInsensitive)) {
            const QString name = line.section(u' ', 1, 1);
            AddOnce(found.Groups, groups, name.startsWith(u'?') ? name : QString(u'?' + name));
        }
    }
    return found;
}
