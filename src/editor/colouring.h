#pragma once

#include "editor/coloured_ranges.h"
#include "editor/line_colours.h"

/// Colours the lines in view of one pane by its language, and no others.
class Colouring
{
public:
    explicit Colouring(Component& component) : text(component) {}

    QString Language() const { return language; }
    void SetLanguage(const QString& name);
    void SetOn(bool on);
    void Reset(); ///< the text is another one

    /// To be told before an edit at `start` that takes out `removed` bytes and puts in `added`.
    void BeforeEdit(qsizetype start, qsizetype removed, qsizetype added);

    /// Before each paint.
    void ColourView();

    /// The bytes take a style of PrintStyled and keep it as long as they stand.
    void Print(Span bytes, char style);

private:
    void TakeLanguage();
    void ColourSpan(Span span);

    Component& text;
    QString language;
    LineColours colours;
    ColouredRanges done;
    int generation = -1; ///< of the languages, when `colours` was made
    bool on = true;
    bool printed = false;
};
