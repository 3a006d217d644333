#include "platform/screen/close_requests.h"

#include <QGuiApplication>

#include <X11/Xlib.h>
#include <xcb/xproto.h>

CloseRequests::CloseRequests(const QWindow& watched, std::function<void()> wanted)
    : window(watched.winId()), tell(std::move(wanted))
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11 || !x11->display())
        return;
    deleteWindow = quint32(XInternAtom(x11->display(), "WM_DELETE_WINDOW", False));
    QCoreApplication::instance()->installNativeEventFilter(this);
}

CloseRequests::~CloseRequests()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool CloseRequests::nativeEventFilter(const QByteArray& kind, void* message, qintptr*)
{
    constexpr quint8 SentByClient = 0x80;
    if (kind != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~SentByClient) != XCB_CLIENT_MESSAGE)
        return false;
    const auto* wish = static_cast<const xcb_client_message_event_t*>(message);
    if (wish->window == window && wish->format == 32 && wish->data.data32[0] == deleteWindow)
        tell();
    return false;
}
