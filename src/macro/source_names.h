#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// Names of the language and of one source, for lists of them.

const QStringList& CommandNames();  ///< lower case, all families
const QStringList& PlainTagNames(); ///< with their brackets
const QStringList& SpecialWords();  ///< in brackets, which are no tags: "[numerical]"

/// An argument of a command as its value is read: without the operator that is glued to it, if it has one.
QString WithoutOperator(QLatin1StringView word, const QString& argument, int index);

/// A label or a sub of a source.
struct SourcePlace
{
    QString Name; ///< as written, with its "@"
    int Line = 0;
    bool IsSub = false;

    bool operator==(const SourcePlace&) const = default;
};

/// What a source names, each once, as it is first written.
struct SourceNames
{
    std::vector<SourcePlace> Places;
    QStringList Variables, Groups; ///< made by `dim` and `group`
};
SourceNames NamesOfSource(const QStringList& typed);
