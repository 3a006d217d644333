#include "platform/screen/key_notation.h"
#include "platform/screen/other_windows.h"
#include "platform/screen/x11_connection.h"
#include "platform/screen/x11_errors.h"

#include <X11/XKBlib.h>
#include <X11/keysym.h>
#include <algorithm>
#include <memory>

extern "C" {
#include <xdo.h>
}

namespace {

constexpr useconds_t BetweenKeys = 1000; ///< µs
/// µs for a key that no key of the keyboard has: programs need time to see where it was put.
constexpr useconds_t AroundLentKey = 40'000;

constexpr const char* Modifiers[] = {"Shift_L", "Shift_R", "Control_L", "Control_R",        "Alt_L",  "Alt_R",
                                     "Super_L", "Super_R", "Meta_L",    "ISO_Level3_Shift", "Hyper_L"};

bool IsDown(const char (&keys)[32], KeyCode code)
{
    return code != 0 && (keys[code / 8] & (1 << code % 8)) != 0;
}

bool Pressed(bool down, mouse::Button button)
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return false;
    const X11Errors errors(*server);
    return (down ? xdo_mouse_down : xdo_mouse_up)(server->Tool(), CURRENTWINDOW, int(button)) == XDO_SUCCESS;
}

/// Sends strokes over a connection of its own, which knows the keyboard as it is now.
class Typist
{
public:
    Typist() : tool(xdo_new(nullptr), xdo_free)
    {
        if (!tool)
            return;
        tool->quiet = 1;
        XSetIOErrorExitHandler(
            tool->xdpy, [](Display*, void*) {}, nullptr);
    }

    bool Ready() const { return tool != nullptr; }
    /// Keys that are held would change what is typed. They are not pressed again: their owner lets them go.
    void LetGo() const
    {
        char keys[32];
        XQueryKeymap(tool->xdpy, keys);
        for (const char* const name : Modifiers)
            if (IsDown(keys, XKeysymToKeycode(tool->xdpy, XStringToKeysym(name))))
                xdo_send_keysequence_window_up(tool.get(), CURRENTWINDOW, name, BetweenKeys);
    }
    /// Was it on?
    bool TurnOffCapsLock() const
    {
        XkbStateRec state;
        if (XkbGetState(tool->xdpy, XkbUseCoreKbd, &state) != Success || (state.locked_mods & LockMask) == 0)
            return false;
        PressCapsLock();
        return true;
    }
    void PressCapsLock() const { Press("Caps_Lock", BetweenKeys); }
    void Type(const KeyStroke& stroke) const
    {
        const QByteArray sequence = QByteArray(stroke.Control ? "ctrl+" : "") + (stroke.Alt ? "alt+" : "") +
                                    (stroke.Shift ? "shift+" : "") + stroke.Key;
        Press(sequence, OnKeyboard(XStringToKeysym(stroke.Key)) ? BetweenKeys : AroundLentKey);
    }

private:
    bool OnKeyboard(KeySym key) const
    {
        const charcodemap_t* const codes = tool->charcodes;
        return std::any_of(codes, codes + tool->charcodes_len,
                           [key](const charcodemap_t& code) { return code.symbol == key; });
    }
    void Press(const char* sequence, useconds_t delay) const
    {
        xdo_send_keysequence_window(tool.get(), CURRENTWINDOW, sequence, delay);
        XSync(tool->xdpy, False);
    }

    const std::unique_ptr<xdo_t, void (*)(xdo_t*)> tool;
};

struct WatchedKey
{
    keys::Watched Bit;
    KeySym Symbols[2]; ///< either will do
};

constexpr WatchedKey WatchedKeys[] = {{keys::Up, {XK_Up, XK_KP_Up}},
                                      {keys::Down, {XK_Down, XK_KP_Down}},
                                      {keys::Left, {XK_Left, XK_KP_Left}},
                                      {keys::Right, {XK_Right, XK_KP_Right}},
                                      {keys::Control, {XK_Control_L, XK_Control_R}},
                                      {keys::Shift, {XK_Shift_L, XK_Shift_R}},
                                      {keys::Return, {XK_Return, XK_KP_Enter}},
                                      {keys::Space, {XK_space, NoSymbol}},
                                      {keys::Tab, {XK_Tab, XK_ISO_Left_Tab}}};

constexpr std::pair<keys::Watched, unsigned> WatchedButtons[] = {
    {keys::LeftButton, Button1Mask}, {keys::RightButton, Button3Mask}, {keys::MiddleButton, Button2Mask}};

} // namespace

namespace mouse {

std::optional<QPoint> Position()
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return {};
    const X11Errors errors(*server);
    int x = 0, y = 0, screen = 0;
    if (xdo_get_mouse_location(server->Tool(), &x, &y, &screen) != XDO_SUCCESS)
        return {};
    return QPoint(x, y);
}

bool Move(QPoint to)
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return false;
    const X11Errors errors(*server);
    return xdo_move_mouse(server->Tool(), to.x(), to.y(), DefaultScreen(server->Display())) == XDO_SUCCESS;
}

bool Press(Button button)
{
    return Pressed(true, button);
}

bool Release(Button button)
{
    return Pressed(false, button);
}

} // namespace mouse

namespace keys {

Result<> Send(const QString& notation, const CountedTurn& turn)
{
    const auto strokes = ReadKeyNotation(notation);
    if (!strokes)
        return tl::unexpected(strokes.error());
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return Fail({}, QStringLiteral("There is no X server."));
    const Typist typist;
    if (!typist.Ready())
        return Fail({}, QStringLiteral("The X server takes no keys."));
    const bool capitals = [&] {
        const X11Errors errors(*server);
        typist.LetGo();
        return typist.TurnOffCapsLock();
    }();
    int done = 0;
    for (const KeyStroke& stroke : *strokes) {
        if (turn && !turn(done, int(strokes->size())))
            break;
        const X11Errors errors(*server);
        typist.Type(stroke);
        ++done;
    }
    const X11Errors errors(*server);
    if (capitals)
        typist.PressCapsLock();
    return size_t(done) == strokes->size() ? Result<>() : Stopped();
}

std::optional<quint32> Held()
{
    X11Connection* const server = X11Connection::Get();
    if (!server)
        return {};
    const X11Errors errors(*server);
    char down[32];
    XQueryKeymap(server->Display(), down);
    quint32 held = 0;
    for (const WatchedKey& key : WatchedKeys)
        for (const KeySym symbol : key.Symbols)
            if (symbol != NoSymbol && IsDown(down, XKeysymToKeycode(server->Display(), symbol)))
                held |= key.Bit;
    Window root = 0, child = 0;
    int x = 0, y = 0, innerX = 0, innerY = 0;
    unsigned mask = 0;
    XQueryPointer(server->Display(), server->Root(), &root, &child, &x, &y, &innerX, &innerY, &mask);
    for (const auto& [bit, button] : WatchedButtons)
        if (mask & button)
            held |= bit;
    return held;
}

} // namespace keys
