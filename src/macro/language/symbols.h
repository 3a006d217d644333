#pragma once

#include "macro/language/value.h"

#include <QHash>
#include <QString>
#include <deque>
#include <vector>

/// A variable that `dim` has made, or a name that a line mentions and none has made yet.
struct Variable
{
    QString Name; ///< lower case
    Value Held;
    bool Declared = false;
};

/// All variables of a run. A Variable stays where it is, so that lines may point to it.
class VariableTable
{
public:
    static constexpr int Most = 1000;

    Variable& Mention(const QString& name); ///< makes an entry if there is none
    Variable* Find(const QString& name);    ///< null: nobody mentions it, or it is not declared
    void Declare(Variable& variable);       ///< puts it behind those declared so far, empty
    int Count() const { return int(order.size()); }
    const std::vector<Variable*>& InOrder() const { return order; }

private:
    QHash<QString, Variable*> byName;
    std::deque<Variable> all;
    std::vector<Variable*> order;
};

/// A label or a sub: they share one name space.
struct Label
{
    QString Name; ///< as written, with its "@"
    int Line = 0;
};

class LabelTable
{
public:
    static constexpr int Most = 1000;

    const Label* Find(const QString& name) const; ///< letter case does not count; null if there is none
    void Add(const QString& name, int line);
    int Count() const { return int(labels.size()); }
    const std::vector<Label>& InOrder() const { return labels; }

private:
    std::vector<Label> labels;
    QHash<QString, int> byName; ///< lower case
};
