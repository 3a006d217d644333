#include "macro/element_lists.h"

#include "frame/frame_state.h"

namespace {

constexpr qsizetype DirectionCount = 4;

} // namespace

ElementLists ElementListsFor(ElementPick what)
{
    const auto& words = Frame.WordLists[ModeGfx];
    ElementLists lists;
    if (what != ElementPick::Action)
        lists.Elements = words[KindElements];
    if (what != ElementPick::Element)
        lists.Actions = words[KindActions].mid(DirectionCount);
    if (what == ElementPick::All)
        lists.Directions = words[KindActions].first(qMin(DirectionCount, words[KindActions].size()));
    return lists;
}

QString JoinedPick(const QStringList& chosen)
{
    QStringList parts = chosen;
    parts.removeAll({});
    return parts.join(u'.');
}

/// Each list gives one part or none, in the lists' order.
bool IsElementPick(ElementPick what, const QString& text)
{
    const ElementLists lists = ElementListsFor(what);
    if (what != ElementPick::All)
        return lists.Elements.contains(text) || lists.Actions.contains(text);
    QStringList parts = text.split(u'.');
    for (const QStringList* list : {&lists.Elements, &lists.Actions, &lists.Directions})
        if (!parts.isEmpty() && list->contains(parts.first()))
            parts.removeFirst();
    return parts.isEmpty() && !text.isEmpty();
}
