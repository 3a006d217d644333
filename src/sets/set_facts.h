#pragma once

#include <QStringList>

struct SetNode;

/// What can be told of a game at a glance.
struct SetFacts
{
    QString Name, Author; ///< as levelinfo.conf has them; empty without one
    int Levels = 0;       ///< level files right in its folder
    int Files = 0;
    QStringList Tapes; ///< names of their files without the ending, in order; of several folders each once
    qint64 Bytes = 0;  ///< of the files, unpacked
    bool More = false; ///< there are too many files; those counted are the first
    QString Trouble;   ///< why nothing can be told; empty if it can
};
SetFacts FactsOf(const SetNode& node);

constexpr int MostCountedFiles = 20'000;
