#include "platform/screen/x11_connection.h"

#include "platform/platform_state.h"
#include "platform/screen/x11_errors.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <array>
#include <memory>

extern "C" {
#include <xdo.h>
}

namespace {

constexpr long LongestProperty = 1 << 18; ///< units of four bytes

struct PropertyValue
{
    int Format = 0;
    unsigned long Count = 0;
    std::unique_ptr<unsigned char, int (*)(void*)> Data{nullptr, XFree};
};

PropertyValue PropertyOf(Display* display, Window window, Atom property)
{
    PropertyValue value;
    Atom type = None;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    if (XGetWindowProperty(display, window, property, 0, LongestProperty, False, AnyPropertyType, &type, &value.Format,
                           &value.Count, &left, &data) != Success)
        value.Count = 0;
    value.Data.reset(data);
    return value;
}

int CountError(Display*, XErrorEvent*)
{
    if (Platform.Windows)
        ++Platform.Windows->Errors;
    return 0;
}

} // namespace

X11Connection::X11Connection() : display(XOpenDisplay(nullptr))
{
    if (!display)
        return;
    // A server that goes must not take this program with it; see X11Errors for the other half.
    XSetIOErrorExitHandler(
        display, [](::Display*, void* self) { static_cast<X11Connection*>(self)->broken = true; }, this);
    tool = xdo_new_with_opened_display(display, nullptr, 0);
    if (tool)
        tool->quiet = 1;
}

X11Connection::~X11Connection()
{
    if (tool)
        xdo_free(tool);
    if (display && !broken)
        XCloseDisplay(display);
}

X11Connection* X11Connection::Get()
{
    std::shared_ptr<X11Connection>& connection = Platform.Windows;
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return nullptr;
    if (!connection || connection->broken)
        connection = std::make_shared<X11Connection>();
    if (!connection->tool)
        connection.reset();
    return connection.get();
}

unsigned long X11Connection::Root() const
{
    return DefaultRootWindow(display);
}

unsigned long X11Connection::Atom(const char* name) const
{
    return XInternAtom(display, name, False);
}

std::vector<unsigned long> X11Connection::Numbers(unsigned long window, const char* property) const
{
    const PropertyValue value = PropertyOf(display, window, Atom(property));
    if (value.Format != 32 || !value.Data)
        return {};
    const auto* const numbers = reinterpret_cast<const unsigned long*>(value.Data.get()); // so Xlib hands them over
    return {numbers, numbers + value.Count};
}

QByteArray X11Connection::Bytes(unsigned long window, const char* property) const
{
    const PropertyValue value = PropertyOf(display, window, Atom(property));
    if (value.Format != 8 || !value.Data)
        return {};
    return QByteArray(reinterpret_cast<const char*>(value.Data.get()), qsizetype(value.Count));
}

void X11Connection::AskManager(unsigned long window, const char* message, std::vector<long> numbers) const
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = Atom(message);
    event.xclient.format = 32;
    for (size_t i = 0; i < numbers.size() && i < std::size(event.xclient.data.l); ++i)
        event.xclient.data.l[i] = numbers[i];
    XSendEvent(display, Root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

X11Errors::X11Errors(X11Connection& to)
    : connection(to),
      before(XSetErrorHandler(CountError)),
      beforeBreak(XSetIOErrorHandler([](::Display*) { return 0; }))
{
    connection.Errors = 0;
}

X11Errors::~X11Errors()
{
    XSync(connection.Display(), False);
    XSetIOErrorHandler(beforeBreak);
    XSetErrorHandler(before);
}

bool X11Errors::Absent() const
{
    XSync(connection.Display(), False);
    return connection.Errors == 0;
}
