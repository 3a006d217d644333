#include "macro/language/groups.h"

#include <algorithm>

void Group::Count(const Value& item, int more) const
{
    if (item.IsWhole())
        numbers[item.Number()] += more;
    else
        texts[item.Text()] += more;
}

bool Group::Has(const Value& item) const
{
    for (; counted < items.size(); ++counted)
        Count(items[counted].Held, 1);
    return (item.IsWhole() ? numbers.value(item.Number()) : texts.value(item.Text())) > 0;
}

void Group::Add(const Value& item, const QString& origin)
{
    items.push_back({item, origin});
}

void Group::Set(int position, const Value& item)
{
    const auto at = size_t(position - 1);
    if (at < counted) {
        Count(items[at].Held, -1);
        Count(item, 1);
    }
    items[at].Held = item;
}

void Group::Remove(int position)
{
    const auto at = size_t(position - 1);
    if (at < counted) {
        Count(items[at].Held, -1);
        --counted;
    }
    items.erase(items.begin() + position - 1);
}

bool Group::HasOrigin(const QString& origin) const
{
    return std::any_of(items.begin(), items.end(),
                       [&](const GroupItem& item) { return item.Origin.compare(origin, Qt::CaseInsensitive) == 0; });
}

bool Group::RemoveOrigin(const QString& origin)
{
    const size_t removed = std::erase_if(
        items, [&](const GroupItem& item) { return item.Origin.compare(origin, Qt::CaseInsensitive) == 0; });
    texts.clear();
    numbers.clear();
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
    if (lastFound && name == lastName)
        return lastFound;
    lastName = name;
    lastFound = byName.value(name.toLower());
    return lastFound;
}

Group& GroupTable::Add(const QString& name)
{
    all.emplace_back(name);
    byName.insert(name.toLower(), &all.back());
    return all.back();
}
