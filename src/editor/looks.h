#pragma once

#include "editor/component.h"

#include <array>
#include <utility>
#include <vector>

/// Colours, fonts and margins of one pane: colour slots and font slots on the component's styles.
class Looks
{
public:
    explicit Looks(Component& text);

    void SetColor(int slot, int bgr);
    int GetColor(int slot) const;
    void SetFontStyle(int slot, int style);
    int GetFontStyle(int slot) const;
    void SetFont(const QString& name, double points);
    QString FontName() const { return fontName; }
    double FontSize() const { return fontPoints; }
    static int SelectionBack(int window); ///< what selected text stands on, over this background
    void SetDisplayWhitespace(bool on);
    void SetLineNumbering(bool on);

    void SetHighlightedLine(int line);
    void ShowHighlight(); ///< after the caret or the text moved
    void BeforeEdit();    ///< lines may move away below the mark
    void Zoomed();
    void FitMargin();                    ///< to the number of lines
    char PrintStyle(int fore, int back); ///< a component style with these colours

private:
    struct Kind;
    static const Kind Kinds[];

    void ApplyAll();
    void Apply(const Kind& kind);
    void ApplyPlain();
    int BackOf(int slot) const;
    void Unmark();

    Component& text;
    std::array<int, 64> colors{};
    std::array<int, 16> fontStyles{};
    QString fontName;
    double fontPoints = 10;
    std::vector<std::pair<int, int>> printColors;
    int highlighted = -1, marked = -1;
    bool lineNumbers = false;
    int marginDigits = 0;
};
