#include "macro/commands/families.h"
#include "macro/language/run_state.h"

namespace {

constexpr qsizetype MostListItems = 1000;

void FailOutOfList(RunState& run, const char* command)
{
    run.Fail(QStringLiteral("%1 out of bounds. Current list bounds are: 1 to %2")
                 .arg(QLatin1String(command))
                 .arg(run.ListItems.size()));
}

void ListAdd(RunState& run, Arguments& in)
{
    const Value value = in.Shown(1);
    if (run.Failed())
        return;
    if (run.ListItems.size() >= MostListItems)
        run.Fail("You can only have 1000 List items");
    else
        run.ListItems.append(value);
}

void ListSet(RunState& run, Arguments& in)
{
    const qint32 index = in.Number(1);
    const Value value = in.Shown(2);
    if (run.Failed())
        return;
    if (index < 1 || index > run.ListItems.size())
        FailOutOfList(run, "SetList");
    else
        run.ListItems[index - 1] = value;
}

void ListGet(RunState& run, Arguments& in)
{
    const qint32 index = in.Number(1);
    if (run.Failed())
        return;
    if (run.ListItems.isEmpty())
        run.Fail("List is empty!");
    else if (index < 1 || index > run.ListItems.size())
        FailOutOfList(run, "ListGet");
    else
        run.Last.ListGet = run.ListItems.at(index - 1);
}

void ListCheck(RunState& run, Arguments& in)
{
    const QString text = in.Text(1);
    if (run.Failed())
        return;
    run.ListTitle = text;
    const bool found = std::any_of(run.ListItems.cbegin(), run.ListItems.cend(),
                                   [&text](const Value& item) { return item.Text() == text; });
    run.Last.ListCheck = Value::Truth(found);
}

void ListClear(RunState& run, Arguments&)
{
    run.ListItems.clear();
}

constexpr CommandWord ListRows[] = {
    {"listadd", ExactlyAny(1), NoWordFlags, "VALUE", "Puts a value at the end of the list. It holds 1000.", ListAdd},
    {"listset", ExactlyAny(2), NoWordFlags, "N VALUE", "Replaces the N-th item of the list.", ListSet},
    {"listget", ExactlyAny(1), NoWordFlags, "N", "The N-th item of the list: [lastlistget].", ListGet},
    {"listcheck", Exactly(1), NoWordFlags, "VALUE", "Is a value in the list? [lastlistcheck] is true or false.",
     ListCheck},
    {"listclear", Exactly(0), NoWordFlags, "", "Empties the list.", ListClear},
};

} // namespace

std::span<const CommandWord> ListCommands()
{
    return ListRows;
}
