#include "frame/editor_pane.h"

namespace {

constexpr int LongestHistory = 200; // twice what any limit of the options lets through

/// One line for the list: line breaks become "\n", so that an item stays an item.
QString HistoryItem(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
}

void AddToHistory(QString& list, const QString& text)
{
    if (text.isEmpty())
        return;
    const QString item = HistoryItem(text);
    QStringList items = list.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (!items.isEmpty() && items.first() == item)
        return;
    items.removeAll(item);
    items.prepend(item);
    list = items.mid(0, LongestHistory).join(QLatin1Char('\n'));
}

} // namespace

void EditorGlobals::UnregisterAllLanguages()
{
    languages.clear();
    ++generation;
}

void EditorGlobals::RegisterLanguage(const QString& name, const LanguageObject& language)
{
    languages.insert(name, language);
    ++generation;
}

const LanguageObject* EditorGlobals::FindLanguage(const QString& name) const
{
    const auto found = languages.constFind(name);
    return found == languages.constEnd() ? nullptr : &*found;
}

void EditorGlobals::AddFind(const QString& text)
{
    AddToHistory(FindMRUList, text);
}

void EditorGlobals::AddReplace(const QString& text)
{
    AddToHistory(ReplaceMRUList, text);
}
