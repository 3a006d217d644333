#pragma once

#include <QPalette>
#include <QString>

/// Style sheet of the pages in the palette's colours, so that they follow a light or a dark desktop.
QString PageStyle(const QPalette& palette);
