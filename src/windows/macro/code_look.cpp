#include "windows/macro/code_look.h"

#include "frame/editor_pane.h"

namespace {

constexpr int WindowSlot = 0, CommentSlot = 14, CommentBackSlot = 15, StringSlot = 16;

constexpr LineMarkColours LightMarks{.Caret = 0xD4D4D4, .Step = 0xA4FE9E, .Fault = 0x8C8CFF, .EarlyFault = 0x0000FF};
constexpr LineMarkColours DarkMarks{.Caret = 0x36302C, .Step = 0x2A4A1E, .Fault = 0x262670, .EarlyFault = 0x080890};

/// The dark ones read on the dark window and on each of its marks.
struct CodeColour
{
    int Slot, Light, Dark; ///< 0x00BBGGRR
};
constexpr CodeColour CodeColours[] = {
    {WindowSlot, 0xFFFFFF, 0x22201E},
    {8, 0xB00000, 0xFFBD9D},
    {24, 32896, 0x80D8D8},
    {20, 29952, 0x8CE08C},
    {10, 200, 0xA0A0FF},
    {22, 102, 0xB8B8FF},
    {4, 102, 0xC8C8E8},
    {6, 102, 0xC8C8E8},
    {CommentSlot, 7759126, 0xD8D0A0},
    {CommentBackSlot, 15131861, 0x332F26},
    {StringSlot, 29952, 0x90E090},
    {HighlightedLineSlot, LightMarks.Caret, DarkMarks.Caret},
};

struct CodeStyle
{
    int Slot, Style;
};
constexpr CodeStyle CodeStyles[] = {{2, 0}, {10, 0}, {8, 1}, {3, 1}, {9, 1}, {0, 0}, {1, 0}, {5, 0}, {6, 0}};

} // namespace

const LineMarkColours& CodeMarks(LookForm form)
{
    return form == LookForm::Dark ? DarkMarks : LightMarks;
}

void GiveCodeLook(EditorPane& code, LookForm form)
{
    for (const CodeColour& row : CodeColours)
        code.SetColor(row.Slot, form == LookForm::Dark ? row.Dark : row.Light);
    for (const CodeStyle& row : CodeStyles)
        code.SetFontStyle(row.Slot, row.Style);
}
