#include "editor/pane.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

bool ScintillaPane::CanUndo() const
{
    return groups == 0 && (undoLimit < 0 || stepsBack < undoLimit) && text.Send(Sci::SCI_CANUNDO);
}

bool ScintillaPane::CanRedo() const
{
    return groups == 0 && text.Send(Sci::SCI_CANREDO);
}

bool ScintillaPane::Undo(const QVariant&)
{
    if (!CanUndo())
        return false;
    const Work work(*this);
    text.Send(Sci::SCI_UNDO);
    ShowRecalled();
    ++stepsBack;
    return true;
}

bool ScintillaPane::Redo(const QVariant&)
{
    if (!CanRedo())
        return false;
    const Work work(*this);
    text.Send(Sci::SCI_REDO);
    ShowRecalled();
    stepsBack = qMax(0, stepsBack - 1);
    return true;
}

void ScintillaPane::RecallSelection(int group, bool undone)
{
    const GroupSelection& around = groupSelections.at(size_t(group));
    recalled = undone ? std::pair(around.Before, around.LineBefore) : std::pair(around.After, around.LineAfter);
}

int ScintillaPane::FirstLine() const
{
    return int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE));
}

void ScintillaPane::ShowRecalled()
{
    if (!recalled)
        return;
    const auto [selection, firstLine] = *std::exchange(recalled, std::nullopt);
    if (selection.Columns)
        text.SelectColumns(selection);
    else
        text.Select(selection.Anchor, selection.Caret);
    text.Send(Sci::SCI_SETFIRSTVISIBLELINE, long(firstLine));
    const int behind = text.LineOf(selection.Caret) - firstLine;
    const bool inView = behind >= 0 && behind < int(text.Send(Sci::SCI_LINESONSCREEN));
    if (selection.Start() == selection.End() && !inView) // that of a selection may be far from what the user looked at
        ShowCaret();
}

bool ScintillaPane::OpenGroup(const QVariant&)
{
    if (groups++ == 0) {
        groupStart = text.Selection();
        groupLine = FirstLine();
        groupEdits = edits;
        text.Send(Sci::SCI_BEGINUNDOACTION);
    }
    return true;
}

bool ScintillaPane::CloseGroup(const QVariant&)
{
    if (groups == 0)
        return false;
    if (--groups > 0)
        return true;
    if (edits != groupEdits && undoLimit != 0) {
        text.Send(Sci::SCI_ADDUNDOACTION, long(groupSelections.size()), 0L);
        groupSelections.push_back({groupStart, text.Selection(), groupLine, FirstLine()});
    }
    text.Send(Sci::SCI_ENDUNDOACTION);
    return true;
}

void ScintillaPane::ClearUndoBuffer()
{
    const Work work(*this);
    ForgetHistory();
}

/// An open group is closed meanwhile, since the component loses the rest of a group whose start it forgets.
void ScintillaPane::ForgetHistory()
{
    const bool modified = Modified();
    if (groups > 0)
        text.Send(Sci::SCI_ENDUNDOACTION);
    text.Send(Sci::SCI_EMPTYUNDOBUFFER);
    groupSelections.clear();
    groupStart = text.Selection();
    groupEdits = edits;
    if (groups > 0)
        text.Send(Sci::SCI_BEGINUNDOACTION);
    stepsBack = 0;
    changedAside = modified;
}

void ScintillaPane::SetUndoLimit(int limit)
{
    const bool had = undoLimit != 0;
    undoLimit = qMax(limit, -1);
    const bool has = undoLimit != 0;
    if (had == has)
        return;
    const Work work(*this);
    text.Send(Sci::SCI_SETUNDOCOLLECTION, has);
    ForgetHistory();
}

bool ScintillaPane::Modified() const
{
    return changedAside || text.Send(Sci::SCI_GETMODIFY);
}

void ScintillaPane::SetModified(bool modified)
{
    const Work work(*this);
    if (modified) {
        changedAside = changedAside || !Modified();
        return;
    }
    changedAside = false;
    text.Send(Sci::SCI_SETSAVEPOINT);
}
