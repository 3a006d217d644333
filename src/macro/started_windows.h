#pragma once

#include "platform/screen/other_windows.h"

#include <QString>
#include <optional>
#include <vector>

/// A window that a macro knows by an alias.
struct AliasedWindow
{
    std::optional<QString> Alias; ///< none: taken away
    other_windows::Handle Window = 0;
    qint64 Process = 0; ///< whose window it was; a number of a window may come to be another program's

    bool IsThere() const;
};

/// Windows of the programs that macros have started. They outlive their run: the next one, or the end of the program,
/// asks them to close.
class AliasTable
{
public:
    int IndexOf(const QString& alias) const;             ///< letter case counts; -1: there is none
    QString AliasOf(other_windows::Handle window) const; ///< empty: none

    void Add(const QString& alias, other_windows::Handle window);
    void TakeAlias(int index); ///< the entry stays without one
    const std::vector<AliasedWindow>& Entries() const { return entries; }

    void LetDown();  ///< none of them above all others any more
    void CloseAll(); ///< asks each window to close, and forgets them

private:
    std::vector<AliasedWindow> entries;
};
extern AliasTable StartedWindows;
