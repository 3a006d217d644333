#pragma once

#include "text/places.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

/// One line or a few lines of a macro that is being recorded.
struct RecordedStep
{
    enum What { Command, Type, Place, Search, Note };

    What Kind = Note;
    int Number = 0, Count = 1;
    QString Text, Other; ///< typed; looked for, put in its place; the name of a note
    Range At;            ///< of a place
    int Steps = 0;       ///< of a place: characters from its anchor to its caret

    /// What stood before it, for a step that undo takes back.
    std::optional<size_t> TextBefore;
    Range SelectionBefore;
    bool TakesSelection = false; ///< typed over something
};

/// Has a macro a word for this numbered command?
bool HasMacroWord(int number);

/// The lines of a macro that does these steps: what is typed in a row stands in one line, equal commands are counted.
/// `notes` takes what became a comment.
QString RecordedSource(const std::vector<RecordedStep>& steps, QStringList& notes);
