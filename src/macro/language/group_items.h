#pragma once

#include <QString>

class Group;
class Value;
struct RunState;

/// A new item at the end of a group. Fails if the group is full.
void AddItemToGroup(RunState& run, Group& group, const Value& item);

/// Copies all items of the group of that name, which becomes their origin. Fails if there is none, if it has been added
/// before, or if they do not fit.
void AddGroupToGroup(RunState& run, Group& group, const QString& subName);

/// The group of exactly this name; fails without one.
Group* GroupOrFail(RunState& run, const QString& name);
