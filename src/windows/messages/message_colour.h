#pragma once

#include <QColor>
#include <QSize>
#include <array>

class QPainter;

/// What a colour code sets: the start of the gradient, what each band adds, the colour of the title.
struct MessageColours
{
    int Direction = 1; ///< 1: left to right over the title strip, 0: top to bottom over the whole window
    std::array<int, 3> Start{45, 45, 45};
    std::array<int, 3> Step{2, 2, 2};
    QColor Title{255, 255, 255};

    QColor Band(int number) const; ///< colour of a band, counted from 0
};

/// A code of three letters, or seven numbers joined with "_": direction, start and step as red, green, blue. Any other
/// text gives the colours that a new record has.
MessageColours ColoursOf(const QString& code);

/// Draws the gradient in bands of a hundredth of the window, at least one pixel each.
void PaintForm(QPainter& painter, const QSize& window, int stripHeight, const MessageColours& colours);

/// Black or white, whichever stands out from `background`.
QColor ReadableOn(const QColor& background);
