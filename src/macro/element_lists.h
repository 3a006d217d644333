#pragma once

#include "macro/run_asker.h"

#include <QStringList>

/// What the element picker shows: the words of graphics. The action table begins with the four directions.
struct ElementLists
{
    QStringList Elements, Actions, Directions; ///< empty: the list is not shown
};
ElementLists ElementListsFor(ElementPick what);

/// What a choice of each list, empty where nothing is chosen, makes.
QString JoinedPick(const QStringList& chosen);

/// Can a person pick this text?
bool IsElementPick(ElementPick what, const QString& text);
