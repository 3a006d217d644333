#include "conf/sub_groups.h"

#include <algorithm>

namespace {

template <class Fits>
bool AnyGroup(Fits&& fits)
{
    return std::any_of(SubGroupWords.begin(), SubGroupWords.end(),
                       [&](const char* word) { return fits(QString(u'.' + QLatin1String(word))); });
}

} // namespace

std::optional<SubGroup> GroupAtEnd(const QString& key)
{
    for (size_t group = 0; group < SubGroupWords.size(); ++group)
        if (key.endsWith(u'.' + QLatin1String(SubGroupWords.at(group)), Qt::CaseInsensitive))
            return SubGroup(group);
    return std::nullopt;
}

bool IsInGroup(const QString& key)
{
    const QString parts = u'.' + key + u'.';
    return AnyGroup([&](const QString& word) { return parts.contains(word + u'.', Qt::CaseInsensitive); });
}

bool NamesGroup(const QString& line)
{
    return AnyGroup([&](const QString& word) { return line.contains(word); });
}

bool BelongsToGroup(const QString& line, const QString& key)
{
    const QString crumbled = u'.' + QLatin1String(SubGroupWords.at(size_t(SubGroup::Crumbled)));
    return AnyGroup([&](const QString& word) {
        return line.contains(key + word, word == crumbled ? Qt::CaseInsensitive : Qt::CaseSensitive);
    });
}
