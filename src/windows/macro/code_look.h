#pragma once

#include "frame/settings/settings.h"

class EditorPane;

constexpr int HighlightedLineSlot = 30;

/// Colours of the marked line, 0x00BBGGRR.
struct LineMarkColours
{
    int Caret, Step, Fault, EarlyFault;
};
const LineMarkColours& CodeMarks(LookForm form);

/// The colours and styles of Gemforge BASIC.
void GiveCodeLook(EditorPane& code, LookForm form);
