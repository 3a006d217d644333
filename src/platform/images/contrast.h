#pragma once

#include <QColor>

/// The least contrast at which text reads well.
inline constexpr double TextContrast = 4.5;

/// Contrast of two colours, from 1 (equal) to 21 (black on white), as the accessibility guidelines of the web count it.
double Contrast(const QColor& one, const QColor& other);

/// `colour`, made lighter or darker as far as it must be to read on `background`.
QColor Legible(QColor colour, const QColor& background);

/// For grey words: `text` faded towards `background` as far as it still reads.
QColor Faded(const QColor& text, const QColor& background);

/// `share` (0 to 1) of the way from one colour to the other.
QColor MixedColour(const QColor& one, const QColor& other, double share);

/// Is it a colour that light text stands on?
bool IsDarkColour(const QColor& colour);

/// Colours as settings and panes have them: 0x00BBGGRR.
QColor FromBgr(int bgr);
int ToBgr(const QColor& colour);
