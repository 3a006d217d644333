#include "editor/pane.h"
#include "frame/frame_state.h"

#include <QClipboard>
#include <QGuiApplication>
#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

/// One number a row: a message of the component or a routine here. A vertical move aims at the caret's column.
struct ScintillaPane::CommandRow
{
    int Number;
    unsigned Message = 0;
    bool (ScintillaPane::*Run)(const QVariant&) = nullptr;
    bool Vertical = false;
};

const ScintillaPane::CommandRow ScintillaPane::CommandRows[] = {
    {CmdSwapWords, 0, &ScintillaPane::SwapWords},
    {CmdWordRightExtend, 0, &ScintillaPane::WordRightExtend},
    {CmdWordRight, 0, &ScintillaPane::WordRight},
    {CmdWordLeftExtend, 0, &ScintillaPane::WordLeftExtend},
    {CmdWordLeft, 0, &ScintillaPane::WordLeft},
    {CmdUndo, 0, &ScintillaPane::Undo},
    {CmdSelectLine, 0, &ScintillaPane::SelectCaretLine},
    {CmdSelectAll, 0, &ScintillaPane::SelectAll},
    {CmdRedo, 0, &ScintillaPane::Redo},
    {CmdPaste, Sci::SCI_PASTE},
    {CmdParagraphUp, Sci::SCI_PARAUP},
    {CmdParagraphDown, Sci::SCI_PARADOWN},
    {CmdPageUpExtend, Sci::SCI_PAGEUPEXTEND, nullptr, true},
    {CmdPageUp, Sci::SCI_PAGEUP, nullptr, true},
    {CmdPageDownExtend, Sci::SCI_PAGEDOWNEXTEND, nullptr, true},
    {CmdPageDown, Sci::SCI_PAGEDOWN, nullptr, true},
    {CmdLineUpExtend, Sci::SCI_LINEUPEXTEND, nullptr, true},
    {CmdLineUp, Sci::SCI_LINEUP, nullptr, true},
    {CmdOpenLineBelow, 0, &ScintillaPane::OpenLineBelow},
    {CmdOpenLineAbove, 0, &ScintillaPane::OpenLineAbove},
    {CmdLineEndExtend, Sci::SCI_LINEENDEXTEND},
    {CmdLineEnd, Sci::SCI_LINEEND},
    {CmdLineDownExtend, Sci::SCI_LINEDOWNEXTEND, nullptr, true},
    {CmdLineDown, Sci::SCI_LINEDOWN, nullptr, true},
    {CmdDeleteToLineStart, 0, &ScintillaPane::DeleteToLineStart},
    {CmdDeleteToLineEnd, 0, &ScintillaPane::DeleteToLineEnd},
    {CmdDeleteLine, 0, &ScintillaPane::DeleteCaretLine},
    {CmdCutLine, 0, &ScintillaPane::CutLine},
    {CmdLineStartExtend, Sci::SCI_HOMEEXTEND},
    {CmdLineStart, Sci::SCI_HOME},
    {CmdGotoLine, 0, &ScintillaPane::GotoLine},
    {CmdReplaceDialog, 0, &ScintillaPane::ShowReplaceDialog},
    {CmdReplaceAll, 0, &ScintillaPane::ReplaceAllInDocument},
    {CmdReplaceAllInSelection, 0, &ScintillaPane::ReplaceAllInSelection},
    {CmdFindPrevious, 0, &ScintillaPane::FindPrevious},
    {CmdFindNext, 0, &ScintillaPane::FindNext},
    {CmdFindDialog, 0, &ScintillaPane::ShowFindDialog},
    {CmdSetFindText, 0, &ScintillaPane::TakeFindText},
    {CmdSetReplaceText, 0, &ScintillaPane::TakeReplaceText},
    {CmdBehindSelText, 0, &ScintillaPane::BehindSelection},
    {CmdDocumentStartExtend, Sci::SCI_DOCUMENTSTARTEXTEND},
    {CmdDocumentStart, Sci::SCI_DOCUMENTSTART},
    {CmdDocumentEndExtend, Sci::SCI_DOCUMENTENDEXTEND},
    {CmdDocumentEnd, Sci::SCI_DOCUMENTEND},
    {CmdDeleteLeft, Sci::SCI_DELETEBACK},
    {CmdDeleteRight, Sci::SCI_CLEAR},
    {CmdCut, 0, &ScintillaPane::Cut},
    {CmdCopy, 0, &ScintillaPane::Copy},
    {CmdSwapChars, 0, &ScintillaPane::SwapChars},
    {CmdCharRightExtend, Sci::SCI_CHARRIGHTEXTEND},
    {CmdCharRight, Sci::SCI_CHARRIGHT},
    {CmdCharLeftExtend, Sci::SCI_CHARLEFTEXTEND},
    {CmdCharLeft, Sci::SCI_CHARLEFT},
    {CmdCutAppend, 0, &ScintillaPane::CutAppend},
    {CmdBreakLine, 0, &ScintillaPane::BreakLine},
    {CmdOpenUndoGroup, 0, &ScintillaPane::OpenGroup},
    {CmdCloseUndoGroup, 0, &ScintillaPane::CloseGroup},
    {CmdClearSelection, 0, &ScintillaPane::ClearSelection},
};

bool ScintillaPane::ExecuteCmd(int number, const QVariant& argument)
{
    const auto row = std::find_if(std::begin(CommandRows), std::end(CommandRows),
                                  [number](const CommandRow& r) { return r.Number == number; });
    if (row == std::end(CommandRows))
        return false;
    const Deed deed(*this, number);
    const Work work(*this);
    if (row->Run)
        return (this->*row->Run)(argument);
    if (row->Vertical)
        text.KeepCaretX();
    if (row->Message == Sci::SCI_DELETEBACK || row->Message == Sci::SCI_CLEAR || row->Message == Sci::SCI_PASTE)
        UnlockSelection();
    text.Send(row->Message);
    return true;
}

void ScintillaPane::UnlockSelection()
{
    constexpr qsizetype LongestCharacter = 4;
    const RawSelection selection = text.Selection();
    colouring.Unlock({qMax<qsizetype>(0, selection.Start() - LongestCharacter),
                      qMin(text.Length(), selection.End() + LongestCharacter)});
}

/// A command that moves nothing and changes nothing counts as refused: a caret at the text's end stays there however
/// often it is told to go on.
int ScintillaPane::Repeat(int number, int count)
{
    const Work work(*this);
    for (int done = 0; done < count; ++done) {
        const RawSelection before = text.Selection();
        const quint64 editsBefore = edits;
        if (!ExecuteCmd(number, {}) || (edits == editsBefore && text.Selection() == before))
            return done;
    }
    return qMax(count, 0);
}

bool ScintillaPane::SelectCaretLine(const QVariant&)
{
    SelectLine(text.LineOf(Caret()), true);
    return true;
}

bool ScintillaPane::SelectAll(const QVariant&)
{
    text.Select(0, text.Length());
    return true;
}

bool ScintillaPane::ClearSelection(const QVariant&)
{
    text.Select(Caret(), Caret());
    return true;
}

bool ScintillaPane::BehindSelection(const QVariant&)
{
    MoveCaret(text.Selection().End(), false);
    return true;
}

bool ScintillaPane::OpenLineBelow(const QVariant&)
{
    const qsizetype at = text.LineEnd(text.LineOf(Caret()));
    const QByteArrayView lineBreak = BytesOf(lineEnd);
    Write(at, at, lineBreak);
    MoveCaret(at + lineBreak.size(), false);
    return true;
}

bool ScintillaPane::OpenLineAbove(const QVariant&)
{
    const qsizetype at = text.LineStart(text.LineOf(Caret()));
    Write(at, at, BytesOf(lineEnd));
    MoveCaret(at, false);
    return true;
}

bool ScintillaPane::BreakLine(const QVariant&)
{
    ReplaceSel(QStringLiteral("\n"));
    return true;
}

bool ScintillaPane::DeleteToLineStart(const QVariant&)
{
    const qsizetype caret = Caret(), start = text.LineStart(text.LineOf(caret));
    Write(start, caret, {});
    MoveCaret(start, false);
    return caret > start;
}

bool ScintillaPane::DeleteToLineEnd(const QVariant&)
{
    const qsizetype caret = Caret(), end = text.LineEnd(text.LineOf(caret));
    Write(caret, end, {});
    MoveCaret(caret, false);
    return end > caret;
}

/// The text's last line stays, empty, so that 153 behind it opens a line in the old one's place.
bool ScintillaPane::DeleteCaretLine(const QVariant&)
{
    const int line = text.LineOf(Caret());
    const qsizetype start = text.LineStart(line), end = text.LineStart(line + 1);
    Write(start, end, {});
    MoveCaret(start, false);
    return end > start;
}

bool ScintillaPane::CutLine(const QVariant& none)
{
    QGuiApplication::clipboard()->setText(GetLine(text.LineOf(Caret())) + QStringLiteral("\r\n"));
    DeleteCaretLine(none);
    return true;
}

bool ScintillaPane::Cut(const QVariant&)
{
    if (text.Send(Sci::SCI_GETSELECTIONEMPTY))
        return false;
    UnlockSelection();
    text.Send(Sci::SCI_CUT);
    return true;
}

bool ScintillaPane::Copy(const QVariant&)
{
    if (text.Send(Sci::SCI_GETSELECTIONEMPTY))
        return false;
    text.Send(Sci::SCI_COPY);
    return true;
}

bool ScintillaPane::CutAppend(const QVariant&)
{
    if (text.Send(Sci::SCI_GETSELECTIONEMPTY))
        return false;
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setText(clipboard->text() + SelText());
    ReplaceSel({});
    return true;
}

/// The two characters around the caret change places, at a line's end its last two; the caret stays between or
/// behind them.
bool ScintillaPane::SwapChars(const QVariant&)
{
    const qsizetype caret = Caret();
    const int line = text.LineOf(caret);
    const bool atEnd = caret >= text.LineEnd(line);
    const qsizetype middle = atEnd ? text.Send(Sci::SCI_POSITIONBEFORE, caret) : caret;
    const qsizetype left = text.Send(Sci::SCI_POSITIONBEFORE, middle);
    const qsizetype right = text.Send(Sci::SCI_POSITIONAFTER, middle);
    if (middle <= text.LineStart(line) || right > text.LineEnd(line))
        return false;
    const QByteArray swapped = text.Piece(middle, right).toByteArray() + text.Piece(left, middle).toByteArray();
    Write(left, right, swapped);
    MoveCaret(atEnd ? right : left + (right - middle), false);
    return true;
}

bool ScintillaPane::GotoLine(const QVariant& argument)
{
    const int line = argument.isValid() ? argument.toInt() : -1;
    if (line == -1)
        emit FindWanted(FindKind::GotoLine);
    else if (line >= 0)
        MoveCaret(text.LineStart(qMin(line, text.Lines() - 1)), false);
    return line >= -1;
}

bool ScintillaPane::ShowFindDialog(const QVariant&)
{
    emit FindWanted(FindKind::Find);
    return true;
}

bool ScintillaPane::ShowReplaceDialog(const QVariant&)
{
    emit FindWanted(FindKind::Replace);
    return true;
}
