#pragma once

#include "editor/coloured_ranges.h"
#include "editor/line_colours.h"

#include <functional>

/// Colours the lines in view of one pane by its language, and no others. Of a line that is very long only the front is
/// shown: the component measures every character of a line, wherever the view stands.
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

    /// To be told behind an edit, before the component may lay out what came: its very long lines get their unseen
    /// part.
    void AfterEdit();

    /// To be told before what a person sees of a selection goes: the component protects what is unseen.
    void Unlock(Span span);

    static constexpr qsizetype LongestShown = qsizetype(256) * 1024; ///< bytes of a line

    /// A line that is shown only in part has come.
    std::function<void(int line, qsizetype length)> Cut;

    /// The bytes take a style of PrintStyled and keep it as long as they stand.
    void Print(Span bytes, char style);

private:
    void TakeLanguage();
    void ColourSpan(Span span);
    void ColourLine(Span shown);
    void HideTail(Span tail);
    void ShowPlain(bool on);

    Component& text;
    QString language;
    LineColours colours;
    ColouredRanges done;
    Span fresh{0, 0};    ///< what came and may hold a very long line
    int generation = -1; ///< of the languages, when `colours` was made
    bool on = true;
    bool printed = false;
    bool hides = false; ///< some line has an unseen part
};
