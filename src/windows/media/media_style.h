#pragma once

#include <QFont>

class QColor;
class QWidget;
struct LookFonts;

/// Colours and font of the media lists from the settings, in light and dark desktops alike.
void GiveMediaStyle(QWidget& list);
void GiveMediaStyle(QWidget& list, const QColor& back, const QColor& text, const LookFonts& fonts);

/// A family that the desktop lacks falls to its own, that of the texts to what stands in for it there.
QFont MediaListFont(const LookFonts& fonts);
