#include "editor/component.h"

#include <QClipboard>
#include <QGuiApplication>
#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

namespace {

/// Only these reach the widget's own slots, whose work for the others grows with the text.
constexpr long ToldChanges = Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE | Sci::SC_MOD_CONTAINER;

/// A cut between two texts must part neither a character nor a line end.
bool MayCut(QByteArrayView bytes, qsizetype at)
{
    if (at <= 0 || at >= bytes.size())
        return true;
    return !IsContinuation(bytes[at]) && !(bytes[at] == '\n' && bytes[at - 1] == '\r');
}

qsizetype CommonStart(QByteArrayView before, QByteArrayView after)
{
    const auto differ = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    qsizetype size = differ.first - before.begin();
    while (!MayCut(before, size) || !MayCut(after, size))
        --size;
    return size;
}

qsizetype CommonEnd(QByteArrayView before, QByteArrayView after)
{
    const auto differ = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
    qsizetype size = differ.first - before.rbegin();
    while (size > 0 && (!MayCut(before, before.size() - size) || !MayCut(after, after.size() - size)))
        --size;
    return size;
}

} // namespace

Component::Component(QWidget* parent) : widget(new QsciScintilla(parent)), alive(widget)
{
    widget->setUtf8(true);
    // What other windows select is no reason to draw a selection pale.
    QObject::disconnect(QGuiApplication::clipboard(), nullptr, widget, nullptr);
    Send(Sci::SCI_SETMODEVENTMASK, ToldChanges);
    Send(Sci::SCI_USEPOPUP, Sci::SC_POPUP_NEVER);
    Send(Sci::SCI_SETLAYOUTCACHE, Sci::SC_CACHE_PAGE);
    Send(Sci::SCI_SETSCROLLWIDTH, 1);
    Send(Sci::SCI_SETSCROLLWIDTHTRACKING, 1);
    Send(Sci::SCI_SETVIRTUALSPACEOPTIONS, Sci::SCVS_RECTANGULARSELECTION);
    Send(Sci::SCI_SETADDITIONALSELECTIONTYPING, 1);
    Send(Sci::SCI_SETPASTECONVERTENDINGS, 1);
    Send(Sci::SCI_SETUSETABS, 1);
    Send(Sci::SCI_SETRECTANGULARSELECTIONMODIFIER, Sci::SCMOD_CTRL); // Alt belongs to window managers and shortcuts
    Send(Sci::SCI_SETVISIBLEPOLICY, Sci::VISIBLE_SLOP, 4L);          // a jump lands with some lines around it
}

Component::~Component()
{
    if (alive && !widget->parent())
        delete widget;
}

long Component::Send(unsigned message, long first, long second) const
{
    return widget->SendScintilla(message, static_cast<unsigned long>(first), second);
}

long Component::Send(unsigned message, long first, const char* second) const
{
    return widget->SendScintilla(message, static_cast<uintptr_t>(first), second);
}

qsizetype Component::Length() const
{
    return Send(Sci::SCI_GETLENGTH);
}

int Component::Lines() const
{
    return int(Send(Sci::SCI_GETLINECOUNT));
}

int Component::LineOf(qsizetype position) const
{
    return int(Send(Sci::SCI_LINEFROMPOSITION, position));
}

qsizetype Component::LineStart(int line) const
{
    return line >= Lines() ? Length() : Send(Sci::SCI_POSITIONFROMLINE, line);
}

qsizetype Component::LineEnd(int line) const
{
    return Send(Sci::SCI_GETLINEENDPOSITION, line);
}

qsizetype Component::Position(int line, int column) const
{
    return LineStart(line) + OffsetOfColumn(Line(line), qMax(column, 0));
}

int Component::ColumnOf(qsizetype position) const
{
    return int(UnitsOf(Piece(LineStart(LineOf(position)), position)));
}

QByteArrayView Component::All() const
{
    return {static_cast<const char*>(widget->SendScintillaPtrResult(Sci::SCI_GETCHARACTERPOINTER)), Length()};
}

QByteArrayView Component::Piece(qsizetype start, qsizetype end) const
{
    if (start >= end)
        return {};
    // The component answers every message with a number. NOLINTNEXTLINE(performance-no-int-to-ptr)
    return {reinterpret_cast<const char*>(Send(Sci::SCI_GETRANGEPOINTER, start, end - start)), end - start};
}

bool Component::Replace(qsizetype start, qsizetype end, QByteArrayView bytes)
{
    const QByteArrayView before = Piece(start, end);
    const qsizetype front = CommonStart(before, bytes);
    const qsizetype back = CommonEnd(before.sliced(front), bytes.sliced(front));
    const QByteArrayView rest = bytes.sliced(front).chopped(back);
    start += front;
    end -= back;
    if (start == end && rest.isEmpty())
        return false;
    Send(Sci::SCI_SETTARGETRANGE, start, end);
    Send(Sci::SCI_REPLACETARGET, rest.size(), rest.isEmpty() ? "" : rest.data());
    return true;
}

RawSelection Component::Selection() const
{
    if (Send(Sci::SCI_SELECTIONISRECTANGLE))
        return {Send(Sci::SCI_GETRECTANGULARSELECTIONANCHOR), Send(Sci::SCI_GETRECTANGULARSELECTIONCARET),
                int(Send(Sci::SCI_GETRECTANGULARSELECTIONANCHORVIRTUALSPACE)),
                int(Send(Sci::SCI_GETRECTANGULARSELECTIONCARETVIRTUALSPACE)), true};
    return {Send(Sci::SCI_GETANCHOR), Send(Sci::SCI_GETCURRENTPOS)};
}

QList<Span> Component::SelectedPieces() const
{
    QList<Span> pieces;
    const int count = int(Send(Sci::SCI_GETSELECTIONS));
    for (int i = 0; i < count; ++i)
        pieces.append({Send(Sci::SCI_GETSELECTIONNSTART, i), Send(Sci::SCI_GETSELECTIONNEND, i)});
    std::sort(pieces.begin(), pieces.end(), [](const Span& a, const Span& b) { return a.Start < b.Start; });
    return pieces;
}

void Component::Select(qsizetype anchor, qsizetype caret)
{
    if (Send(Sci::SCI_GETSELECTIONS) > 1 || Send(Sci::SCI_SELECTIONISRECTANGLE) ||
        Send(Sci::SCI_GETMOVEEXTENDSSELECTION))
        Send(Sci::SCI_CLEARSELECTIONS);
    Send(Sci::SCI_SETSELECTION, caret, anchor);
    caretXStale = unclaimed = true;
}

void Component::SelectColumns(const RawSelection& corners)
{
    // A rectangle must exist near by first: one that is made anew begins at the text's start, line for line.
    Select(corners.Anchor, corners.Anchor);
    Send(Sci::SCI_CHARLEFTRECTEXTEND);
    Send(Sci::SCI_SETRECTANGULARSELECTIONANCHOR, corners.Anchor);
    Send(Sci::SCI_SETRECTANGULARSELECTIONANCHORVIRTUALSPACE, corners.AnchorBlanks);
    Send(Sci::SCI_SETRECTANGULARSELECTIONCARET, corners.Caret);
    Send(Sci::SCI_SETRECTANGULARSELECTIONCARETVIRTUALSPACE, corners.CaretBlanks);
    caretXStale = false;
}

// A selection made by a message is drawn pale, as one that another window has taken over, until it is claimed. One
// that is set again claims the desktop's selection. A huge one would be copied for it: then the desktop gets its first
// character alone.
void Component::ClaimSelection()
{
    constexpr qsizetype most = 1 << 20;
    if (!unclaimed || !widget->isVisible() || !widget->updatesEnabled())
        return;
    unclaimed = false;
    const RawSelection shown = Selection();
    const bool claims = shown.End() > shown.Start() && !shown.Columns;
    if (!claims || Send(Sci::SCI_GETSELECTIONS) != 1)
        return;
    if (shown.End() - shown.Start() < most) {
        Send(Sci::SCI_SETCURRENTPOS, shown.Caret);
        return;
    }
    Send(Sci::SCI_SETSELECTION, shown.Start(), shown.Start());
    Send(Sci::SCI_SETCURRENTPOS, shown.Start() + 1);
    Send(Sci::SCI_SETSELECTION, shown.Caret, shown.Anchor);
}

void Component::ShowCaret()
{
    ClaimSelection();
    Send(Sci::SCI_ENSUREVISIBLEENFORCEPOLICY, LineOf(Send(Sci::SCI_GETCURRENTPOS)));
    Send(Sci::SCI_SCROLLCARET);
}

void Component::KeepCaretX()
{
    if (std::exchange(caretXStale, false))
        Send(Sci::SCI_CHOOSECARETX);
}
