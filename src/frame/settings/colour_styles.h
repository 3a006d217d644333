#pragma once

#include <QString>
#include <array>
#include <span>

/// How one kind of text looks.
struct KindLook
{
    int Colour, Back; ///< 0x00BBGGRR
    int Style;        ///< 0 normal, 1 bold, 2 italic, 3 both
};

/// Colours of one form, light or dark: nine kinds in the order of SyntaxKeys, the pane and the media lists.
struct FormLook
{
    std::array<KindLook, 9> Kinds;
    int Window;
    int HighlightedLine; ///< where the caret is
    int MediaListBack, MediaList;
};

/// A ready set of colours and fonts. Fonts are the same in both forms.
struct ColourStyle
{
    const char* Name;
    const char* MainFont;
    double MainFontSize; ///< points
    const char* MediaListFont;
    double MediaListFontSize;
    FormLook Light, Dark;
};

/// In the order in which they are offered. On a dark form every text reads with TextContrast on its own background, on
/// the caret's line and on a selection.
std::span<const ColourStyle> ColourStyles();
