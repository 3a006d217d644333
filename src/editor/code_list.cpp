#include "editor/code_list.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

namespace {

constexpr int ListId = 1, RowsShown = 12, FewestTyped = 2;

} // namespace

CodeListBox::CodeListBox(EditorPane& owner, Component& component) : pane(owner), text(component)
{
    text.Send(Sci::SCI_AUTOCSETSEPARATOR, '\n');
    text.Send(Sci::SCI_AUTOCSETTYPESEPARATOR, '\x01'); // the usual "?" may stand in a word
    text.Send(Sci::SCI_AUTOCSETORDER, Sci::SC_ORDER_CUSTOM);
    text.Send(Sci::SCI_AUTOCSETAUTOHIDE, 0L);
    text.Send(Sci::SCI_AUTOCSETCANCELATSTART, 0L);
    text.Send(Sci::SCI_AUTOCSETMAXHEIGHT, RowsShown);
}

bool CodeListBox::IsOpen() const
{
    return text.Send(Sci::SCI_AUTOCACTIVE) != 0;
}

bool CodeListBox::Ask()
{
    items = pane.CodeList ? pane.CodeList(pane) : QStringList();
    items.removeAll(QString());
    return !items.isEmpty();
}

void CodeListBox::Open()
{
    if (Ask())
        Show(qMax<qsizetype>(FirstFor(pane.CurrentWord()), 0));
}

void CodeListBox::Typed(int character)
{
    if (IsOpen() || character < 0x20 || (character < 0x80 && !IsWordByte(char(character))))
        return;
    const QString word = pane.CurrentWord();
    if (word.size() < FewestTyped || !Ask())
        return;
    const qsizetype found = FirstFor(word);
    if (found >= 0)
        Show(found);
}

void CodeListBox::Reopen()
{
    const qsizetype found = FirstFor(pane.CurrentWord());
    if (found >= 0 && !pane.CurrentWord().isEmpty())
        Show(found);
}

void CodeListBox::Show(qsizetype selected)
{
    text.Send(Sci::SCI_USERLISTSHOW, ListId, items.join(QLatin1Char('\n')).toUtf8().constData());
    Select(selected);
}

/// The component can only be asked for a text; no item in front of the first that fits the word begins with its text.
void CodeListBox::Select(qsizetype index)
{
    text.Send(Sci::SCI_AUTOCSELECT, 0, items[index].toUtf8().constData());
}

qsizetype CodeListBox::FirstFor(const QString& word) const
{
    for (qsizetype i = 0; i < items.size(); ++i)
        if (items[i].startsWith(word, Qt::CaseInsensitive))
            return i;
    return -1;
}

void CodeListBox::Follow()
{
    if (!IsOpen())
        return;
    const QString word = pane.CurrentWord();
    const qsizetype found = FirstFor(word);
    if (found < 0 || word.isEmpty())
        Close();
    else
        Select(found);
}

void CodeListBox::Close()
{
    text.Send(Sci::SCI_AUTOCCANCEL);
}

bool CodeListBox::NothingToAdd() const
{
    const qsizetype size = text.Send(Sci::SCI_AUTOCGETCURRENTTEXT);
    QByteArray current(size + 1, '\0');
    text.Send(Sci::SCI_AUTOCGETCURRENTTEXT, 0, current.data());
    current.resize(size);
    return QString::fromUtf8(current) == pane.CurrentWord();
}

void CodeListBox::Pick(const QString& item)
{
    Close();
    const bool insert = !pane.CodeListPick || pane.CodeListPick(pane, item);
    if (!insert)
        return;
    const QString word = pane.CurrentWord();
    if (!word.isEmpty() && item.startsWith(word, Qt::CaseInsensitive))
        pane.ExecuteCmd(CmdWordLeftExtend);
    pane.ReplaceSel(item);
}
