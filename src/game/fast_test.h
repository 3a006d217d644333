#pragma once

#include <QString>

/// Runs the game on the selected element block alone: a small conf of header lines and block stands in for the
/// document's file as long as the game runs.
void FastLaunch();

/// The part of a folder up to the "/" in front of its last "graphics/", letter case ignored; empty if there is none.
/// Sounds and music of a set lie there.
QString RootOfGraphics(const QString& folder);
