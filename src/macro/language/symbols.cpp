#include "macro/language/symbols.h"

Variable& VariableTable::Mention(const QString& name)
{
    const QString lower = name.toLower();
    Variable*& entry = byName[lower];
    if (!entry) {
        all.push_back({lower, {}, false});
        entry = &all.back();
    }
    return *entry;
}

Variable* VariableTable::Find(const QString& name)
{
    Variable* found = byName.value(name.toLower());
    return found && found->Declared ? found : nullptr;
}

void VariableTable::Declare(Variable& variable)
{
    variable.Declared = true;
    variable.Held = Value();
    order.push_back(&variable);
}

const Label* LabelTable::Find(const QString& name) const
{
    const auto found = byName.find(name.toLower());
    return found == byName.end() ? nullptr : &labels[size_t(*found)];
}

void LabelTable::Add(const QString& name, int line)
{
    byName.insert(name.toLower(), int(labels.size()));
    labels.push_back({name, line});
}
