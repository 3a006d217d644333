#include "platform/screen/other_windows.h"
#include "platform/screen/x11_connection.h"
#include "platform/screen/x11_errors.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <algorithm>

extern "C" {
#include <xdo.h>
}

namespace {

using other_windows::Handle;

constexpr long Remove = 0, Add = 1; ///< of a window's states
constexpr long FromPager = 2;       ///< who asks: a tool of the user's, whom a manager obeys

/// Runs `change` on a window that is there; what the server refused counts as not done.
template <class Change>
bool Changed(Handle window, Change change)
{
    X11Connection* const server = other_windows::IsAlive(window) ? X11Connection::Get() : nullptr;
    if (!server)
        return false;
    const X11Errors errors(*server);
    change(*server);
    return errors.Absent();
}

void AskState(const X11Connection& server, Handle window, long change, const char* state, const char* second = nullptr)
{
    server.AskManager(window, "_NET_WM_STATE",
                      {change, long(server.Atom(state)), second ? long(server.Atom(second)) : 0, FromPager});
}

void AskMaximised(const X11Connection& server, Handle window, long change)
{
    AskState(server, window, change, "_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_MAXIMIZED_VERT");
}

void BringToFront(const X11Connection& server, Handle window)
{
    if (xdo_activate_window(server.Tool(), window) == XDO_SUCCESS)
        return;
    XRaiseWindow(server.Display(), window); // without a manager
    XSetInputFocus(server.Display(), window, RevertToParent, CurrentTime);
}

/// A withdrawn window comes back where it stood: without this wish a manager looks for a new place for it.
void WishToStay(const X11Connection& server, Handle window)
{
    XSizeHints hints{};
    long supplied = 0;
    if (!XGetWMNormalHints(server.Display(), window, &hints, &supplied))
        hints = {};
    hints.flags |= USPosition;
    XSetWMNormalHints(server.Display(), window, &hints);
}

/// Place and size in one wish, which a manager takes as those of the frame's corner and of the inner window.
void AskPlace(const X11Connection& server, Handle window, long what, QPoint at, QSize inner)
{
    constexpr long NorthWest = NorthWestGravity, SourceBit = 12;
    if (server.Numbers(server.Root(), "_NET_SUPPORTING_WM_CHECK").empty()) {
        if (what & CWX)
            XMoveWindow(server.Display(), window, at.x(), at.y());
        else
            XResizeWindow(server.Display(), window, unsigned(inner.width()), unsigned(inner.height()));
        return;
    }
    server.AskManager(window, "_NET_MOVERESIZE_WINDOW",
                      {NorthWest | what << 8 | FromPager << SourceBit, at.x(), at.y(), inner.width(), inner.height()});
}

} // namespace

namespace other_windows {

bool SetTitle(Handle window, const QString& title)
{
    return Changed(window, [&](const X11Connection& server) {
        const QByteArray text = title.toUtf8();
        for (const char* const name : {"_NET_WM_NAME", "WM_NAME"})
            XChangeProperty(server.Display(), window, server.Atom(name), server.Atom("UTF8_STRING"), 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(text.constData()), int(text.size()));
    });
}

bool Activate(Handle window)
{
    return Changed(window, [&](const X11Connection& server) { BringToFront(server, window); });
}

bool KeepAbove(Handle window, bool above)
{
    return Changed(window, [&](const X11Connection& server) {
        AskState(server, window, above ? Add : Remove, "_NET_WM_STATE_ABOVE");
        if (above)
            XRaiseWindow(server.Display(), window);
    });
}

bool Hide(Handle window)
{
    return Changed(window, [&](const X11Connection& server) {
        XWithdrawWindow(server.Display(), window, DefaultScreen(server.Display()));
    });
}

bool Show(Handle window)
{
    return Changed(window, [&](const X11Connection& server) {
        if (!IsVisible(window))
            WishToStay(server, window);
        XMapRaised(server.Display(), window);
        BringToFront(server, window);
    });
}

bool Minimise(Handle window)
{
    return Changed(window, [&](const X11Connection& server) {
        XIconifyWindow(server.Display(), window, DefaultScreen(server.Display()));
    });
}

bool Maximise(Handle window)
{
    return Changed(window, [&](const X11Connection& server) {
        XMapRaised(server.Display(), window);
        AskMaximised(server, window, Add);
        BringToFront(server, window);
    });
}

bool Restore(Handle window)
{
    return Changed(window, [&](const X11Connection& server) {
        AskMaximised(server, window, Remove);
        XMapRaised(server.Display(), window);
        BringToFront(server, window);
    });
}

bool Move(Handle window, QPoint to)
{
    return Changed(window, [&](const X11Connection& server) { AskPlace(server, window, CWX | CWY, to, {}); });
}

bool Resize(Handle window, QSize to)
{
    return Changed(window, [&](const X11Connection& server) {
        const std::vector<unsigned long> frame = server.Numbers(window, "_NET_FRAME_EXTENTS");
        const QSize around = frame.size() < 4 ? QSize(0, 0) : QSize(int(frame[0] + frame[1]), int(frame[2] + frame[3]));
        AskPlace(server, window, CWWidth | CWHeight, {}, (to - around).expandedTo(QSize(1, 1)));
    });
}

bool AskToClose(Handle window)
{
    bool asked = false;
    Changed(window, [&](const X11Connection& server) {
        const Atom wish = server.Atom("WM_DELETE_WINDOW");
        const std::vector<unsigned long> known = server.Numbers(window, "WM_PROTOCOLS");
        asked = std::find(known.begin(), known.end(), wish) != known.end();
        if (!asked)
            return;
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = server.Atom("WM_PROTOCOLS");
        event.xclient.format = 32;
        event.xclient.data.l[0] = long(wish);
        event.xclient.data.l[1] = CurrentTime;
        XSendEvent(server.Display(), window, False, NoEventMask, &event);
    });
    return asked;
}

} // namespace other_windows
