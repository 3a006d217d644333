#pragma once

#include <QImage>

// The game takes pure black for see-through; a channel that says how much a pixel shows does not survive a PCX.

/// An opaque picture (Format_RGB32) whose see-through pixels are black, others lie over black, and what was opaque
/// black is the next lighter colour, so that it stays seen.
QImage OverBlack(const QImage& picture);

/// The colours of every pixel as they are stored, whatever shows of them (Format_RGB32).
QImage WithoutAlpha(const QImage& picture);

/// As the game shows it: black pixels are see-through (Format_ARGB32_Premultiplied).
QImage AsInGame(const QImage& picture);
