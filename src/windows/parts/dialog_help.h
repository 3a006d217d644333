#pragma once

#include "frame/frame_state.h"
#include "frame/run_scope.h"

class QWidget;

/// What every modal window of the program needs while it is open: it counts as running work, and the pointer is the
/// arrow even while the hourglass is shown.
class ModalScope
{
public:
    ModalScope();
    ~ModalScope();
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

private:
    WorkScope work;
    bool arrow;
};

/// A length given in pixels of a 96-dpi screen, in the widget's own units.
int Pixels(const QWidget& widget, int at96);

/// Parent for a new dialog: the modal window that is open, else `owner`'s window. May be null.
QWidget* DialogParent(QWidget* owner);

/// Does the desktop tell windows where they and the pointer are? Wayland does not.
bool WindowsHavePlaces();

/// Caption for a button or label that must show each "&" and have no shortcut letter.
QString WithoutMnemonic(QString caption);

/// Closes every open modal window as its close box would; questions answer with their way out. For the end of the
/// program while a question waits.
void CloseModalWindows();
