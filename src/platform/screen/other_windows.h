#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <optional>
#include <vector>

/// Windows of other programs, the mouse and the keys, on X11. Where no X server answers no handle is alive and nothing
/// happens. Places are pixels of the screen and count a window with its frame. Nothing waits until the other program
/// has done what was asked for; what gives back a bool says whether it could be asked.
namespace other_windows {

using Handle = quint64; ///< 0: none

bool Available(); ///< does an X server answer?

Handle Foreground(); ///< the window that has the keys
Handle UnderMouse(); ///< the window that the pointer is over, not what lies inside it

/// All that the window manager knows of, the oldest first.
std::vector<Handle> All();

/// Those of a process and of all that it has started.
std::vector<Handle> OfProcessTree(qint64 process);

qint64 ProcessOf(Handle window); ///< as the window says itself; 0 if it does not
Handle OwnerOf(Handle window);   ///< the window that it is a dialog of

bool IsAlive(Handle window);
bool IsVisible(Handle window); ///< not hidden; one that is minimised is not hidden

enum class State { Normal, Minimised, Maximised };

struct Placement
{
    State How;
    QRect Place; ///< now; of no use while it is minimised
};

std::optional<Placement> PlacementOf(Handle window);
QString TitleOf(Handle window);

bool SetTitle(Handle window, const QString& title);
bool Activate(Handle window); ///< to the front, with the keys
bool KeepAbove(Handle window, bool above);
bool Hide(Handle window);
bool Show(Handle window); ///< and activates it
bool Minimise(Handle window);
bool Maximise(Handle window);
bool Restore(Handle window); ///< neither minimised nor maximised
bool Move(Handle window, QPoint to);
bool Resize(Handle window, QSize to); ///< some programs keep to steps of their own

/// Asks the window to close, as its close button would; the program may ask its user, or refuse. False for a window
/// that cannot be asked. Nothing harder follows.
bool AskToClose(Handle window);

} // namespace other_windows

namespace mouse {

enum class Button { Left = 1, Middle = 2, Right = 3 };

std::optional<QPoint> Position();
bool Move(QPoint to);
bool Press(Button button);
bool Release(Button button);

} // namespace mouse

namespace keys {

/// Types into the window that has the keys, in the notation of key_notation.h, and comes back when the server has
/// taken all. Keys that the user holds are let go first. Fails for what is no such text, without an X server and when
/// `turn` ends it.
[[nodiscard]] Result<> Send(const QString& notation, const CountedTurn& turn = {});

/// Keys and buttons that can be asked for at any moment.
enum Watched : quint32 {
    Up = 1,
    Down = 2,
    Left = 4,
    Right = 8,
    Control = 16,
    Shift = 32,
    Return = 64,
    Space = 128,
    Tab = 256,
    LeftButton = 512,
    RightButton = 1024,
    MiddleButton = 2048
};

/// Those that are down, as bits; none where they cannot be asked for.
std::optional<quint32> Held();

} // namespace keys
