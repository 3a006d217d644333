#include "macro/started_windows.h"

#include <algorithm>

AliasTable StartedWindows;

bool AliasedWindow::IsThere() const
{
    return other_windows::IsAlive(Window) && other_windows::ProcessOf(Window) == Process;
}

int AliasTable::IndexOf(const QString& alias) const
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&alias](const AliasedWindow& entry) { return entry.Alias == alias; });
    return found == entries.end() ? -1 : int(found - entries.begin());
}

QString AliasTable::AliasOf(other_windows::Handle window) const
{
    for (const AliasedWindow& entry : entries)
        if (window && entry.Window == window)
            return entry.Alias.value_or(QString());
    return {};
}

void AliasTable::Add(const QString& alias, other_windows::Handle window)
{
    entries.push_back({alias, window, other_windows::ProcessOf(window)});
}

void AliasTable::TakeAlias(int index)
{
    if (index >= 0 && index < int(entries.size()))
        entries[size_t(index)].Alias.reset();
}

void AliasTable::LetDown()
{
    for (const AliasedWindow& entry : entries)
        if (entry.IsThere())
            other_windows::KeepAbove(entry.Window, false);
}

void AliasTable::CloseAll()
{
    for (const AliasedWindow& entry : entries)
        if (entry.IsThere())
            other_windows::AskToClose(entry.Window);
    entries.clear();
}
