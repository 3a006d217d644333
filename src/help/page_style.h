#pragma once

#include <QPalette>
#include <QString>

/// Style sheet of the pages in the palette's colours, so that they follow a light or a dark desktop.
QString PageStyle(const QPalette& palette);

/// `colour` moved towards white or black until it stands out from `background` (contrast 4.5 to 1 or more).
QColor Legible(QColor colour, const QColor& background);
