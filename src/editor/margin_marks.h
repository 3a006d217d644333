#pragma once

#include "editor/component.h"
#include "frame/editor_pane.h"

#include <QWidget>

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

    /// What is said of a line, one message a row; empty: nothing.
    QString MessagesOf(int line) const;
    bool Covers(QPoint place) const { return place.x() < x() + width(); } ///< the line numbers too

    void BeforeEdit(qsizetype position);
    void AfterEdit(); ///< marks below the edit have moved with their lines
    void Follow();    ///< before each paint: place and lines of the view

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void FitWidth();
    QRect PlaceOf(int line) const;

    Component& text;
    int blockFirst = -1, blockLast = -1;
    QColor blockColour;
    std::vector<LineMark> marks;
    bool linesShown = false;
    int editedLine = -1, linesBefore = 0; ///< of the edits since the last AfterEdit
    int firstShown = -1;
};
