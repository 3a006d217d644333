#include "macro/language/group_items.h"

#include "macro/language/run_state.h"

namespace {

constexpr const char* FullGroup = "You can only have a 2000 items per Group!";

} // namespace

void AddItemToGroup(RunState& run, Group& group, const Value& item)
{
    if (group.Count() >= Group::Most)
        run.Fail(FullGroup);
    else
        group.Add(item);
}

Group* GroupOrFail(RunState& run, const QString& name)
{
    Group* group = run.Groups.Find(name);
    if (!group)
        run.Fail(QStringLiteral("The Group: ") + name + QStringLiteral(" doesn't exist."));
    return group;
}

void AddGroupToGroup(RunState& run, Group& group, const QString& subName)
{
    const Group* sub = run.Groups.Find(subName);
    if (!sub)
        run.Fail(QStringLiteral("The Group: ") + subName + QStringLiteral(" doesn't exist."));
    else if (group.HasOrigin(sub->Name))
        run.Fail(QStringLiteral("The sub group: ") + subName + QStringLiteral(" is already in the main group: ") +
                 group.Name);
    else if (!group.AddAll(*sub))
        run.Fail(FullGroup);
}
