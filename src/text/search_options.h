#pragma once

/// How a search runs; the find dialogs set it, commands 174, 176, 171 and 172 obey it.
struct FindOptions
{
    bool MatchCase = false, WholeWord = false, RegularExpression = false, Wrap = false;
};
