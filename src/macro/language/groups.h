#pragma once

#include "macro/language/value.h"

#include <QHash>
#include <QString>
#include <deque>
#include <vector>

/// A named set of items. Positions count from 1.
class Group
{
public:
    static constexpr int Most = 2000;

    explicit Group(QString told) : Name(std::move(told)) {}

    const QString Name; ///< with its "?", letter case kept

    int Count() const { return int(items.size()); }
    const Value& Item(int position) const { return items[size_t(position - 1)].Held; }
    bool Has(const Value& item) const; ///< letter case counts

    void Add(const Value& item, const QString& origin = {}); ///< origin: the group that it came with
    void Set(int position, const Value& item);
    void Remove(int position);
    bool HasOrigin(const QString& origin) const; ///< letter case does not count
    bool RemoveOrigin(const QString& origin);    ///< false: none had it
    bool AddAll(const Group& other);             ///< with the other's name as origin; false: it does not hold them all

private:
    struct GroupItem
    {
        Value Held;
        QString Origin;
    };
    void Count(const Value& item, int more) const;

    std::vector<GroupItem> items;
    // How often an item stands here, numbers apart from texts, for as many items as `counted` says.
    mutable QHash<QString, int> texts;
    mutable QHash<qint32, int> numbers;
    mutable size_t counted = 0;
};

/// Every group of a run, in the order they were made. A Group stays where it is.
class GroupTable
{
public:
    Group* Find(const QString& name); ///< letter case does not count; null if there is none
    Group& Add(const QString& name);

private:
    std::deque<Group> all;
    QHash<QString, Group*> byName; ///< lower case
    QString lastName;              ///< as it was asked for last, and what was found: loops ask for one all the time
    Group* lastFound = nullptr;
};
