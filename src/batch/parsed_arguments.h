#pragma once

#include <QMap>
#include <QStringList>
#include <initializer_list>

/// An option that may stand between the other arguments. One with a value takes the next argument.
struct OptionRow
{
    const char* Name;
    bool HasValue;
};

struct ParsedArguments
{
    QStringList Plain;
    QMap<QString, QString> Options;
    QString Wrong; ///< what is not understood

    bool Has(const char* name) const { return Options.contains(QLatin1StringView(name)); }
};

ParsedArguments ParseArguments(const QStringList& arguments, std::initializer_list<OptionRow> known);
