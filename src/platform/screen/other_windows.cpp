#include "platform/screen/other_windows.h"

#include "platform/processes/process_tree.h"
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

std::vector<Window> ChildrenOf(const X11Connection& server, Window window)
{
    Window root = 0, parent = 0, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(server.Display(), window, &root, &parent, &children, &count) || !children)
        return {};
    std::vector<Window> list(children, children + count);
    XFree(children);
    return list;
}

/// Windows of a server without a manager: what lies on the screen and is no menu.
std::vector<Handle> Unmanaged(const X11Connection& server)
{
    std::vector<Handle> windows;
    for (const Window window : ChildrenOf(server, server.Root())) {
        XWindowAttributes facts;
        if (XGetWindowAttributes(server.Display(), window, &facts) && facts.map_state == IsViewable &&
            !facts.override_redirect)
            windows.push_back(window);
    }
    return windows;
}

/// The program's own window in what lies on the screen, which is mostly a frame by the manager; 0 if there is none.
Window ClientIn(const X11Connection& server, Window window, int levels = 3)
{
    if (!server.Numbers(window, "WM_STATE").empty())
        return window;
    for (const Window child : levels > 0 ? ChildrenOf(server, window) : std::vector<Window>())
        if (const Window client = ClientIn(server, child, levels - 1))
            return client;
    return 0;
}

bool Has(const std::vector<unsigned long>& numbers, unsigned long number)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

/// Client windows say what state they are in; a frame around one says nothing.
long StateOf(const X11Connection& server, Handle window)
{
    const std::vector<unsigned long> state = server.Numbers(window, "WM_STATE");
    return state.empty() ? WithdrawnState : long(state.front());
}

bool IsMaximised(const X11Connection& server, Handle window)
{
    const std::vector<unsigned long> states = server.Numbers(window, "_NET_WM_STATE");
    return Has(states, server.Atom("_NET_WM_STATE_MAXIMIZED_HORZ")) &&
           Has(states, server.Atom("_NET_WM_STATE_MAXIMIZED_VERT"));
}

QRect FramedPlace(const X11Connection& server, Handle window)
{
    Window root = 0, child = 0;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    XGetGeometry(server.Display(), window, &root, &x, &y, &width, &height, &border, &depth);
    XTranslateCoordinates(server.Display(), window, server.Root(), 0, 0, &x, &y, &child);
    const QRect inner(x, y, int(width), int(height));
    const std::vector<unsigned long> frame = server.Numbers(window, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
    if (frame.size() < 4)
        return inner;
    return inner.adjusted(-int(frame[0]), -int(frame[2]), int(frame[1]), int(frame[3]));
}

} // namespace

namespace other_windows {

bool Available()
{
    return X11Connection::Get() != nullptr;
}

Handle Foreground()
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return 0;
    const X11Errors errors(*server);
    const std::vector<unsigned long> active = server->Numbers(server->Root(), "_NET_ACTIVE_WINDOW");
    XWindowAttributes facts; // a manager may still name a window that was hidden
    if (!active.empty())
        return active.front() && XGetWindowAttributes(server->Display(), active.front(), &facts) &&
                       facts.map_state == IsViewable
                   ? active.front()
                   : 0;
    Window focused = 0; // without a manager
    return xdo_get_focused_window_sane(server->Tool(), &focused) == XDO_SUCCESS ? focused : 0;
}

Handle UnderMouse()
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return 0;
    const X11Errors errors(*server);
    Window root = 0, window = 0;
    int x = 0, y = 0, innerX = 0, innerY = 0;
    unsigned mask = 0;
    if (!XQueryPointer(server->Display(), server->Root(), &root, &window, &x, &y, &innerX, &innerY, &mask) || !window)
        return 0;
    const Window client = ClientIn(*server, window);
    return client ? client : window;
}

std::vector<Handle> All()
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return {};
    const X11Errors errors(*server);
    if (server->Numbers(server->Root(), "_NET_SUPPORTING_WM_CHECK").empty())
        return Unmanaged(*server);
    const std::vector<unsigned long> windows = server->Numbers(server->Root(), "_NET_CLIENT_LIST");
    return {windows.begin(), windows.end()};
}

std::vector<Handle> OfProcessTree(qint64 process)
{
    const QSet<qint64> tree = processes::Tree(process);
    std::vector<Handle> windows = All();
    std::erase_if(windows, [&](Handle window) { return !tree.contains(ProcessOf(window)); });
    return windows;
}

qint64 ProcessOf(Handle window)
{
    X11Connection* const server = window ? X11Connection::Get() : nullptr;
    if (!server)
        return 0;
    const X11Errors errors(*server);
    const std::vector<unsigned long> process = server->Numbers(window, "_NET_WM_PID");
    return process.empty() ? 0 : qint64(process.front());
}

Handle OwnerOf(Handle window)
{
    X11Connection* const server = window ? X11Connection::Get() : nullptr;
    if (!server)
        return 0;
    const X11Errors errors(*server);
    Window owner = 0;
    return XGetTransientForHint(server->Display(), window, &owner) && owner != server->Root() ? owner : 0;
}

bool IsAlive(Handle window)
{
    X11Connection* const server = window ? X11Connection::Get() : nullptr;
    if (!server)
        return false;
    const X11Errors errors(*server);
    XWindowAttributes facts;
    return XGetWindowAttributes(server->Display(), window, &facts) && errors.Absent();
}

bool IsVisible(Handle window)
{
    X11Connection* const server = window ? X11Connection::Get() : nullptr;
    if (!server)
        return false;
    const X11Errors errors(*server);
    XWindowAttributes facts;
    if (!XGetWindowAttributes(server->Display(), window, &facts))
        return false;
    return facts.map_state == IsViewable || StateOf(*server, window) == IconicState;
}

std::optional<Placement> PlacementOf(Handle window)
{
    X11Connection* const server = window ? X11Connection::Get() : nullptr;
    if (!server)
        return {};
    const X11Errors errors(*server);
    Placement placement{State::Normal, FramedPlace(*server, window)};
    if (StateOf(*server, window) == IconicState)
        placement.How = State::Minimised;
    else if (IsMaximised(*server, window))
        placement.How = State::Maximised;
    return errors.Absent() ? std::optional(placement) : std::nullopt;
}

QString TitleOf(Handle window)
{
    X11Connection* const server = window ? X11Connection::Get() : nullptr;
    if (!server)
        return {};
    const X11Errors errors(*server);
    const QByteArray modern = server->Bytes(window, "_NET_WM_NAME");
    if (!modern.isEmpty())
        return QString::fromUtf8(modern);
    XTextProperty text{};
    char** lines = nullptr;
    int count = 0;
    QString title;
    if (XGetWMName(server->Display(), window, &text) &&
        Xutf8TextPropertyToTextList(server->Display(), &text, &lines, &count) >= Success && count > 0)
        title = QString::fromUtf8(lines[0]);
    if (lines)
        XFreeStringList(lines);
    if (text.value)
        XFree(text.value);
    return title;
}

} // namespace other_windows
