#include "batch/parsed_arguments.h"

#include <algorithm>

ParsedArguments ParseArguments(const QStringList& arguments, std::initializer_list<OptionRow> known)
{
    ParsedArguments parsed;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        const QString& word = arguments.at(at);
        if (!word.startsWith(QLatin1StringView("--"))) {
            parsed.Plain << word;
            continue;
        }
        const auto row = std::ranges::find_if(
            known, [&](const OptionRow& option) { return word == QLatin1StringView(option.Name); });
        if (row == known.end())
            parsed.Wrong = QStringLiteral("there is no option ") + word;
        else if (row->HasValue && ++at == arguments.size())
            parsed.Wrong = word + QStringLiteral(" wants a value");
        else
            parsed.Options.insert(word, row->HasValue ? arguments.at(at) : QString());
    }
    return parsed;
}
