#include "editor/pane.h"

#include <QScrollBar>
#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

ScintillaPane::ScintillaPane(QWidget* parent)
    : text(parent), looks(text), marks(new MarginMarks(text)), colouring(text), codeList(*this, text)
{
    SetLineEnd(lineEnd);
    SetTabSize(4);
    ConnectComponent();
    colouring.Cut = [this](int line, qsizetype length) { emit LineCut(line, length); };
    ClearComponentKeys();
    text.Widget()->installEventFilter(this);
    text.Widget()->viewport()->installEventFilter(this);
    told.Selection = text.Selection();
}

/// Reports arrive while a change is made and are told behind it.
void ScintillaPane::ConnectComponent()
{
    const QsciScintilla* widget = text.Widget();
    connect(widget, &Sci::SCN_MODIFIED, this,
            [this](int position, int kind, const char*, int length, int, int, int, int, int token) {
                if (kind & Sci::SC_MOD_CONTAINER)
                    RecallSelection(token, kind & Sci::SC_PERFORMED_UNDO);
                else
                    BeforeChange(position, kind, length);
            });
    connect(widget, &Sci::SCN_UPDATEUI, this, [this] { SettleSoon(); });
    connect(widget, &Sci::SCN_ZOOM, this, [this] {
        looks.Zoomed();
        SettleSoon();
    });
    connect(widget, &Sci::SCN_CHARADDED, this, [this](int character) {
        typed = character;
        SettleSoon();
    });
    connect(widget->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { codeList.Close(); });
}

void ScintillaPane::BeforeChange(int position, int kind, int length)
{
    const bool inserting = kind & Sci::SC_MOD_BEFOREINSERT;
    if (!inserting && !(kind & Sci::SC_MOD_BEFOREDELETE))
        return;
    ++edits;
    colouring.BeforeEdit(position, inserting ? 0 : length, inserting ? length : 0);
    looks.BeforeEdit();
    marks->BeforeEdit(position, inserting);
    if (inserting)
        blank = false;
    if (!(kind & (Sci::SC_PERFORMED_UNDO | Sci::SC_PERFORMED_REDO)))
        stepsBack = 0;
    if (undoLimit == 0)
        changedAside = true;
    SettleSoon();
}

void ScintillaPane::SettleSoon()
{
    if (working > 0 || batches > 0 || settlePosted)
        return;
    settlePosted = true;
    QMetaObject::invokeMethod(
        this, [this] { Settle(); }, Qt::QueuedConnection);
}

/// Tells what has changed since it was last told. Listeners may change the pane, so each question is asked anew.
void ScintillaPane::Settle()
{
    if (working > 0 || batches > 0)
        return;
    settlePosted = false;
    colouring.AfterEdit();
    looks.FitMargin();
    looks.ShowHighlight();
    marks->AfterEdit();
    text.ClaimSelection();
    const bool moved = text.Selection() != told.Selection;
    if (told.Edits != edits) {
        told.Edits = edits;
        told.SelectionToo = true;
        emit TextChanged();
    }
    if (told.Modified != Modified()) {
        told.Modified = !told.Modified;
        emit ModifiedChanged(told.Modified);
    }
    if (locks == 0 && (told.SelectionToo || text.Selection() != told.Selection)) {
        told.Selection = text.Selection();
        told.SelectionToo = false;
        emit SelectionChanged();
    }
    if (const int character = std::exchange(typed, 0))
        codeList.Typed(character);
    if (moved)
        codeList.Follow();
}

void ScintillaPane::BeginBatch()
{
    ++batches;
    LockRedraw(true);
}

void ScintillaPane::EndBatch()
{
    Q_ASSERT(batches > 0);
    --batches;
    LockRedraw(false);
    Settle();
}

void ScintillaPane::LockRedraw(bool locked)
{
    locks = qMax(0, locks + (locked ? 1 : -1));
    text.Widget()->setUpdatesEnabled(locks == 0);
    if (locks > 0)
        return;
    if (std::exchange(showCaretLater, false))
        text.ShowCaret();
    Settle();
}

void ScintillaPane::ShowCaret()
{
    if (locks > 0)
        showCaretLater = true;
    else
        text.ShowCaret();
}

/// What the program set; a pane in a page that is not in front does not count as visible.
bool ScintillaPane::Visible() const
{
    const QWidget* widget = text.Widget();
    return shown && (!widget->parentWidget() || widget->isVisibleTo(widget->window()));
}

void ScintillaPane::SetVisible(bool wanted)
{
    shown = wanted;
    if (text.Widget()->parentWidget())
        text.Widget()->setVisible(wanted);
}

void ScintillaPane::FocusPane()
{
    text.Widget()->setFocus(Qt::OtherFocusReason);
}

void ScintillaPane::SetTabSize(int columns)
{
    text.Send(Sci::SCI_SETTABWIDTH, qMax(columns, 1));
}

bool ScintillaPane::Overtype() const
{
    return text.Send(Sci::SCI_GETOVERTYPE) != 0;
}

void ScintillaPane::SetOvertype(bool on)
{
    text.Send(Sci::SCI_SETOVERTYPE, on);
}

void ScintillaPane::SetLineEnd(LineBreak wanted)
{
    lineEnd = wanted;
    text.Send(Sci::SCI_SETEOLMODE, wanted == LineBreak::CrLf ? Sci::SC_EOL_CRLF
                                   : wanted == LineBreak::Lf ? Sci::SC_EOL_LF
                                                             : Sci::SC_EOL_CR);
}

void ScintillaPane::PrintStyled(const QString& wanted, int fore, int back)
{
    const Work work(*this);
    const Span printed = WriteOverSelection(FromCaller(wanted));
    text.Select(printed.End, printed.End);
    colouring.Print(printed, looks.PrintStyle(fore, back));
}
