#pragma once

#include <Qt>

/// Runs what a mouse button with Alt (or Ctrl and Alt, where the window manager keeps Alt to itself) does in a pane,
/// once the press is over. False: nothing belongs to it in the mode at hand.
bool RunMouseShortcut(Qt::MouseButton button, Qt::KeyboardModifiers keys);
