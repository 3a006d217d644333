#pragma once

#include "platform/screen/x11_connection.h"

#include <X11/Xlib.h>

/// Errors of the server while it lives, which would else end the program: a window, and
/// the server itself, may go at any moment. No events run
/// meanwhile.
class X11Errors
{
public:
    explicit X11Errors(X11Connection& to);
    ~X11Errors();
    X11Errors(const X11Errors&) = delete;
    X11Errors& operator=(const X11Errors&) = delete;

    bool Absent() const; ///< once all that was asked for so far has been done

private:
    X11Connection& connection;
    const XErrorHandler before;
    const XIOErrorHandler beforeBreak;
};
