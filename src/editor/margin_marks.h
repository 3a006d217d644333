#pragma once

#include "editor/component.h"
#include "frame/editor_pane.h"

#include <QWidget>

class QPainter;

/// A slim margin between line numbers and text: a faint bar beside one block, and marks beside lines that something
/// is to be said of. Drawn over the component, since its own markers cost a word a line of the whole text.
class MarginMarks : public QWidget
{
public:
    explicit MarginMarks(Component& text);

    /// Lines first to last; -1: none.
    void SetBlock(int first, int last, QColor colour);
    void SetLines(std::vector<LineMark> wanted); ///< in the order of their lines
    void ShowLines(bool on);                     ///< the place for line marks
    void SetStops(std::vector<LineMark> wanted); ///< the same for lines at which a run stops
    const std::vector<LineMark>& Stops() const { return stops; }

    /// What is said of a line, one message a row; empty: nothing.
    QString MessagesOf(int line) const;
    bool Covers(QPoint place) const { return place.x() < x() + width(); } ///< the line numbers too
    bool TakesPress(QPoint place) const { return stopsTaken && Covers(place); }

    void BeforeEdit(qsizetype position, bool inserting);
    void AfterEdit(); ///< marks below the edit have moved with their lines
    void Follow();    ///< before each paint: place and lines of the view

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void FitWidth();
    QRect PlaceOf(int line) const;
    void PaintStops(QPainter& painter) const;

    Component& text;
    int blockFirst = -1, blockLast = -1;
    QColor blockColour;
    std::vector<LineMark> marks, stops;
    bool linesShown = false, stopsTaken = false;
    int firstMoved = -1, linesBefore = 0; ///< line that moves, by the edits since the last AfterEdit; -1: none
    int firstShown = -1;
};
