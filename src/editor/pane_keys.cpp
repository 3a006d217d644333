#include "editor/pane.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

/// One key a row: a command number, a message of the component, or a routine that has no number. Keys that a menu of
/// the windows uses stand there, not here.
struct ScintillaPane::KeyRow
{
    int Key; ///< with its modifiers
    int Number = 0;
    unsigned Message = 0;
    bool (ScintillaPane::*Run)(const QVariant&) = nullptr;
};

namespace {

constexpr int Ctrl = Qt::CTRL, Shift = Qt::SHIFT, Alt = Qt::ALT;

} // namespace

const ScintillaPane::KeyRow ScintillaPane::KeyRows[] = {
    {Qt::Key_Left, CmdCharLeft},
    {Qt::Key_Left | Shift, CmdCharLeftExtend},
    {Qt::Key_Left | Ctrl, CmdWordLeft},
    {Qt::Key_Left | Ctrl | Shift, CmdWordLeftExtend},
    {Qt::Key_Left | Alt | Shift, 0, Sci::SCI_CHARLEFTRECTEXTEND},
    {Qt::Key_Right, CmdCharRight},
    {Qt::Key_Right | Shift, CmdCharRightExtend},
    {Qt::Key_Right | Ctrl, CmdWordRight},
    {Qt::Key_Right | Ctrl | Shift, CmdWordRightExtend},
    {Qt::Key_Right | Alt | Shift, 0, Sci::SCI_CHARRIGHTRECTEXTEND},
    {Qt::Key_Up, CmdLineUp},
    {Qt::Key_Up | Shift, CmdLineUpExtend},
    {Qt::Key_Up | Ctrl, 0, Sci::SCI_LINESCROLLUP},
    {Qt::Key_Up | Ctrl | Shift, 0, Sci::SCI_PARAUPEXTEND},
    {Qt::Key_Up | Alt | Shift, 0, Sci::SCI_LINEUPRECTEXTEND},
    {Qt::Key_Down, CmdLineDown},
    {Qt::Key_Down | Shift, CmdLineDownExtend},
    {Qt::Key_Down | Ctrl, 0, Sci::SCI_LINESCROLLDOWN},
    {Qt::Key_Down | Ctrl | Shift, 0, Sci::SCI_PARADOWNEXTEND},
    {Qt::Key_Down | Alt | Shift, 0, Sci::SCI_LINEDOWNRECTEXTEND},
    {Qt::Key_PageUp, CmdPageUp},
    {Qt::Key_PageUp | Shift, CmdPageUpExtend},
    {Qt::Key_PageUp | Alt | Shift, 0, Sci::SCI_PAGEUPRECTEXTEND},
    {Qt::Key_PageDown, CmdPageDown},
    {Qt::Key_PageDown | Shift, CmdPageDownExtend},
    {Qt::Key_PageDown | Alt | Shift, 0, Sci::SCI_PAGEDOWNRECTEXTEND},
    {Qt::Key_Home, CmdLineStart},
    {Qt::Key_Home | Shift, CmdLineStartExtend},
    {Qt::Key_Home | Ctrl, CmdDocumentStart},
    {Qt::Key_Home | Ctrl | Shift, CmdDocumentStartExtend},
    {Qt::Key_Home | Alt | Shift, 0, Sci::SCI_HOMERECTEXTEND},
    {Qt::Key_End, CmdLineEnd},
    {Qt::Key_End | Shift, CmdLineEndExtend},
    {Qt::Key_End | Ctrl, CmdDocumentEnd},
    {Qt::Key_End | Ctrl | Shift, CmdDocumentEndExtend},
    {Qt::Key_End | Alt | Shift, 0, Sci::SCI_LINEENDRECTEXTEND},
    {Qt::Key_Delete, CmdDeleteRight},
    {Qt::Key_Delete | Shift, CmdCut},
    {Qt::Key_Delete | Ctrl, 0, 0, &ScintillaPane::DeleteWordRight},
    {Qt::Key_Delete | Ctrl | Shift, CmdDeleteToLineEnd},
    {Qt::Key_Backspace, CmdDeleteLeft},
    {Qt::Key_Backspace | Shift, CmdDeleteLeft},
    {Qt::Key_Backspace | Ctrl, 0, 0, &ScintillaPane::DeleteWordLeft},
    {Qt::Key_Backspace | Ctrl | Shift, CmdDeleteToLineStart},
    {Qt::Key_Insert, 0, Sci::SCI_EDITTOGGLEOVERTYPE},
    {Qt::Key_Insert | Ctrl, CmdCopy},
    {Qt::Key_Insert | Shift, CmdPaste},
    {Qt::Key_Return, 0, Sci::SCI_NEWLINE},
    {Qt::Key_Return | Shift, 0, Sci::SCI_NEWLINE},
    {Qt::Key_Tab, 0, Sci::SCI_TAB},
    {Qt::Key_Backtab | Shift, 0, Sci::SCI_BACKTAB},
    {Qt::Key_F10 | Shift, 0, 0, &ScintillaPane::OpenMenu},
    {Qt::Key_0 | Ctrl, 0, Sci::SCI_SETZOOM},
    {Qt::Key_Plus | Ctrl, 0, Sci::SCI_ZOOMIN},
    {Qt::Key_Plus | Ctrl | Shift, 0, Sci::SCI_ZOOMIN},
    {Qt::Key_Equal | Ctrl, 0, Sci::SCI_ZOOMIN},
    {Qt::Key_Minus | Ctrl, 0, Sci::SCI_ZOOMOUT},
    {Qt::Key_Space | Ctrl, 0, 0, &ScintillaPane::OpenCodeList},
};

void ScintillaPane::ClearComponentKeys()
{
    text.Widget()->standardCommands()->clearKeys(); // they would claim Ctrl+L, Ctrl+T and more before the menu
    text.Widget()->standardCommands()->clearAlternateKeys();
    text.Send(Sci::SCI_CLEARALLCMDKEYS);
}

const ScintillaPane::KeyRow* ScintillaPane::RowFor(const QKeyEvent& event) const
{
    const int key = event.key() == Qt::Key_Enter ? int(Qt::Key_Return) : event.key();
    const int pressed = key | int((event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier)).toInt());
    const auto row =
        std::find_if(std::begin(KeyRows), std::end(KeyRows), [pressed](const KeyRow& r) { return r.Key == pressed; });
    return row == std::end(KeyRows) ? nullptr : row;
}

bool ScintillaPane::HasKey(int key)
{
    return std::ranges::find(KeyRows, key, &KeyRow::Key) != std::end(KeyRows);
}

/// Before shortcuts are tried: what the pane knows comes to it.
bool ScintillaPane::ClaimKey(QKeyEvent& event)
{
    const bool escape = event.key() == Qt::Key_Escape && codeList.IsOpen();
    if (!escape && !RowFor(event))
        return false;
    event.accept();
    return true;
}

bool ScintillaPane::KeyPressed(QKeyEvent& event)
{
    if (settlePosted)
        Settle();
    if (event.key() == Qt::Key_Escape) {
        event.setAccepted(codeList.IsOpen());
        codeList.Close();
        return true;
    }
    if (const KeyRow* row = RowFor(event)) {
        RunKey(*row);
        event.accept();
        return true;
    }
    if (!event.text().isEmpty())
        UnlockSelection();
    SettleSoon();
    const bool forTheWindow = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (forTheWindow)
        event.ignore();
    return forTheWindow;
}

void ScintillaPane::RunKey(const KeyRow& row)
{
    const Deed deed(*this, row.Number);
    const Work work(*this);
    const bool tab = row.Message == Sci::SCI_TAB;
    if (codeList.TakeMove(row.Number) || ((tab || row.Message == Sci::SCI_NEWLINE) && codeList.TakeAccept(tab)))
        return;
    if (row.Number != CmdDeleteLeft)
        codeList.Close();
    text.KeepCaretX();
    if (row.Run)
        (this->*row.Run)({});
    else if (row.Number)
        ExecuteCmd(row.Number, {});
    else if (row.Message == Sci::SCI_NEWLINE)
        BreakTypedLine();
    else
        text.Send(row.Message);
}

/// A step of its own: the component would make one step of all lines typed in a row.
void ScintillaPane::BreakTypedLine()
{
    const UndoGroup step(*this);
    text.Send(Sci::SCI_NEWLINE);
}

/// For keyboards without a menu key: as that key does, so that the menu opens where it opens there.
bool ScintillaPane::OpenMenu(const QVariant&)
{
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(text.Widget(), &menuKey);
    return true;
}

bool ScintillaPane::OpenCodeList(const QVariant&)
{
    codeList.Open();
    return true;
}
