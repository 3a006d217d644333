#include "macro/language/groups.h"

#include <algorithm>

bool Group::Has(const QString& text) const
{
    for (; counted < items.size(); ++counted)
        ++seen[items[counted].Held.Text()];
    return seen.value(text) > 0;
}

void Group::Add(const Value& item, const QString& origin)
{
    items.push_back({item, origin});
}

void Group::Set(int position, const Value& item)
{
    const auto at = size_t(position - 1);
    if (at < counted) {
        --seen[items[at].Held.Text()];
        ++seen[item.Text()];
    }
    items[at].Held = item;
}

void Group::Remove(int position)
{
    const auto at = size_t(position - 1);
    if (at < counted) {
        --seen[items[at].Held.Text()];
        --counted;
    }
    items.erase(items.begin() + position - 1);
}

bool Group::HasOrigin(const QString& origin) const
{
    return std::any_of(items.begin(), items.end(), [&](const GroupItem& item) {
        return item.Origin.compare(origin, Qt::CaseInsensitive) == 0;
    });
}

bool Group::RemoveOrigin(const QString& origin)
{
    const size_t removed = std::erase_if(items, [&](const GroupItem& item) {
        return item.Origin.compare(origin, Qt::CaseInsensitive) == 0;
    });
    seen.clear();
    counted = 0;
    return removed > 0;
}

bool Group::AddAll(const Group& other)
{
    const size_t count = other.items.size(); // the other may be this one
    for (size_t i = 0; i < count; ++i) {
        if (Count() >= Most)
            return false;
        Add(Value(other.items[i].Held), other.Name);
    }
    return true;
}

Group* GroupTable::Find(const QString& name)
{
    return byName.value(name.toLower());
}

Group& GroupTable::Add(const QString& name)
{
    all.emplace_back(name);
    byName.insert(name.toLower(), &all.back());
    return all.back();
}
