#pragma once

#include <QAbstractNativeEventFilter>
#include <QWindow>
#include <functional>

/// Tells that the user wants a window closed, also while a modal window stands above it: the toolkit drops that wish.
/// X11 only; elsewhere nothing is told.
class CloseRequests : public QAbstractNativeEventFilter
{
public:
    CloseRequests(const QWindow& window, std::function<void()> wanted);
    ~CloseRequests() override;
    CloseRequests(const CloseRequests&) = delete;
    CloseRequests& operator=(const CloseRequests&) = delete;

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

private:
    const WId window;
    const std::function<void()> tell;
    quint32 deleteWindow = 0; ///< the atom of the wish
};
