#pragma once

#include "text/places.h"
#include "text/text_form.h"

#include <QPointer>

class QWidget;
class QsciScintilla;

/// A selection as the component holds it: byte positions, and blanks behind a line's end for a column selection.
struct RawSelection
{
    qsizetype Anchor = 0, Caret = 0;
    int AnchorBlanks = 0, CaretBlanks = 0;
    bool Columns = false;

    bool operator==(const RawSelection&) const = default;
    qsizetype Start() const { return qMin(Anchor, Caret); }
    qsizetype End() const { return qMax(Anchor, Caret); }
};

/// The editor component by its messages, with types that fit: lines, byte positions, spans. It owns the widget until
/// a parent takes it.
class Component
{
public:
    explicit Component(QWidget* parent);
    ~Component();
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    QsciScintilla* Widget() const { return alive ? widget : nullptr; }
    long Send(unsigned message, long first = 0, long second = 0) const;
    long Send(unsigned message, long first, const char* second) const;

    qsizetype Length() const;
    int Lines() const;
    int LineOf(qsizetype position) const;
    qsizetype LineStart(int line) const;
    qsizetype LineEnd(int line) const; ///< in front of its line end
    qsizetype Position(int line, int column) const;
    int ColumnOf(qsizetype position) const;

    /// Views of the text, valid until the next edit. Piece costs as much as the piece, All as much as the text.
    QByteArrayView All() const;
    QByteArrayView Piece(qsizetype start, qsizetype end) const;
    QByteArrayView Line(int line) const { return Piece(LineStart(line), LineEnd(line)); }

    /// Makes `bytes` of start..end in one undo step and touches only what differs. False: nothing did.
    bool Replace(qsizetype start, qsizetype end, QByteArrayView bytes);

    RawSelection Selection() const;
    /// Pieces of the selection from top to bottom: one, or one a line for columns.
    QList<Span> SelectedPieces() const;
    void Select(qsizetype anchor, qsizetype caret); ///< does not scroll
    void SelectColumns(const RawSelection& corners);
    void ClaimSelection(); ///< a selection made by a message looks as one made by the user
    void ShowCaret();      ///< scrolls if needed
    void KeepCaretX();     ///< before a vertical move: the column it aims at is the caret's

private:
    QsciScintilla* widget;
    QPointer<QObject> alive; ///< null when a parent took the widget with it
    bool caretXStale = false;
    bool unclaimed = false; ///< the selection was made by a message
};
