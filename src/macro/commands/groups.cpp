#include "macro/commands/families.h"
#include "macro/language/group_items.h"
#include "macro/language/run_state.h"

namespace {

void GroupLine(RunState& run, Arguments& in)
{
    if (!run.CheckNotInBlock())
        return;
    if (run.OpenGroup) {
        run.Fail("Can't have Groups inside other Groups!");
        return;
    }
    if (!in.CheckShape())
        return;
    QString name = in.Text(1);
    if (run.Failed())
        return;
    if (!name.startsWith(u'?'))
        name.prepend(u'?');
    if (run.Groups.Find(name))
        run.Fail(QStringLiteral("The Group: ") + name + QStringLiteral(" already exists."));
    else
        run.OpenGroup = &run.Groups.Add(name);
}

void EndGroup(RunState& run, Arguments&)
{
    if (!run.CheckNotInBlock())
        return;
    if (!run.OpenGroup)
        run.Fail("EndGroup without Group.");
    run.OpenGroup = nullptr;
}

bool NamesGroup(Arguments& in)
{
    return in.Written(2).startsWith(u'?');
}

void GroupAdd(RunState& run, Arguments& in)
{
    Group* group = GroupOrFail(run, in.Written(1));
    const Value item = in.Shown(2);
    if (run.Failed())
        return;
    if (group->Count() < Group::Most && NamesGroup(in))
        AddGroupToGroup(run, *group, in.Written(2));
    else
        AddItemToGroup(run, *group, item);
}

/// The group whose items a command changes; null after failing.
Group* FilledGroup(RunState& run, Arguments& in)
{
    Group* group = GroupOrFail(run, in.Written(1));
    if (group && group->Count() == 0)
        run.Fail("This group is empty!");
    return run.Failed() ? nullptr : group;
}

bool CheckPosition(RunState& run, const Group& group, qint32 position, const char* command)
{
    if (position >= 1 && position <= group.Count())
        return true;
    run.Fail(QStringLiteral("%1 went out of bounds!^^%2 has a range of 1 to %3^^Last Group call: %4")
                 .arg(QLatin1String(command), group.Name)
                 .arg(group.Count())
                 .arg(position));
    return false;
}

void GroupSub(RunState& run, Arguments& in)
{
    Group* group = FilledGroup(run, in);
    if (!group)
        return;
    if (NamesGroup(in)) {
        if (!group->RemoveOrigin(in.Written(2)))
            run.Fail(QStringLiteral("Couldn't find the subgroup: ") + in.Written(2) +
                     QStringLiteral(" in the main group: ") + group->Name);
        return;
    }
    const qint32 position = in.Number(2);
    if (!run.Failed() && CheckPosition(run, *group, position, "GroupSub"))
        group->Remove(position);
}

void GroupSet(RunState& run, Arguments& in)
{
    Group* group = FilledGroup(run, in);
    const qint32 position = in.Number(2);
    if (run.Failed() || !CheckPosition(run, *group, position, "GroupSet"))
        return;
    if (in.Count() < 3) {
        run.Fail("Missing value in GroupSet");
        return;
    }
    const Value item = in.Shown(3);
    if (!run.Failed())
        group->Set(position, item);
}

constexpr CommandWord GroupRows[] = {
    {"group", Exactly(1), OwnFrame, "?NAME",
     "Begins a group. Each line up to endgroup that is no command is an item; the name of a group adds its items.",
     GroupLine},
    {"endgroup", Exactly(0), OwnFrame, "", "Ends a group.", EndGroup},
    {"groupadd", AtLeastAny(2), NoWordFlags, "?NAME VALUE | ?NAME ?OTHER",
     "Adds an item, or a copy of all items of another group. A group holds 2000.", GroupAdd},
    {"groupsub", AtLeastAny(2), NoWordFlags, "?NAME N | ?NAME ?OTHER",
     "Takes the N-th item out, or all items that came with another group.", GroupSub},
    {"groupset", AtLeastAny(2), NoWordFlags, "?NAME N VALUE", "Replaces the N-th item of a group.", GroupSet},
};

} // namespace

std::span<const CommandWord> GroupCommands()
{
    return GroupRows;
}
