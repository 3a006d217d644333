#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <vector>

struct _XDisplay;
struct xdo;

/// This program's own way to the X server for windows of others; the toolkit's stays its own. Behind it lie this room's
/// X11 files only, since Xlib's macros break other headers.
class X11Connection
{
public:
    X11Connection();
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    /// The one connection, made anew if it has broken; null where no server answers.
    static X11Connection* Get();

    _XDisplay* Display() const { return display; }
    const xdo* Tool() const { return tool; }
    unsigned long Root() const;
    unsigned long Atom(const char* name) const;

    /// The numbers (windows, atoms, cardinals) or bytes of a window's property; none if it has no such.
    std::vector<unsigned long> Numbers(unsigned long window, const char* property) const;
    QByteArray Bytes(unsigned long window, const char* property) const;

    /// A wish about a window to the window manager.
    void AskManager(unsigned long window, const char* message, std::vector<long> numbers) const;

    int Errors = 0; ///< counted while an X11Errors lives

private:
    _XDisplay* display = nullptr;
    xdo* tool = nullptr;
    bool broken = false;
};
