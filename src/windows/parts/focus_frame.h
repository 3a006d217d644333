#pragma once

class QFrame;

/// Colours the plain frame of a part that the arrow keys or Enter work on: where the keyboard is must be seen.
void MarkFocus(QFrame& frame, bool has);
