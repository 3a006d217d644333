#include "platform/screen/lock_keys.h"

#include <QGuiApplication>

#include <X11/XKBlib.h>

LockKeys ReadLockKeys()
{
    constexpr unsigned CapsLight = 1, NumLight = 2;
    const auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    unsigned lights = 0;
    if (!x11 || !x11->display() || XkbGetIndicatorState(x11->display(), XkbUseCoreKbd, &lights) != Success)
        return {};
    return {true, (lights & CapsLight) != 0, (lights & NumLight) != 0};
}
