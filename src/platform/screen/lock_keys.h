#pragma once

/// State of the keyboard's locks. Where they cannot be asked for (no X server) `Known` is false, and so are the rest.
struct LockKeys
{
    bool Known = false;
    bool Caps = false;
    bool Num = false;
};

/// One question to the X server. There is nothing to poll: read it at QEvent::WindowActivate of the main window and
/// at the application's QEvent::KeyRelease of Qt::Key_CapsLock and Qt::Key_NumLock (a lock goes off at the release).
/// The insert key is no lock; its state is the editor's own.
LockKeys ReadLockKeys();
