#include "windows/macro/held_keys.h"

#include "platform/screen/other_windows.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

struct KeyRow
{
    WatchedKey Key;
    quint32 Held; ///< of keys::Watched
    int Own;      ///< of Qt::Key or Qt::MouseButton
    bool IsButton = false;
};
constexpr KeyRow KeyRows[] = {
    {WatchedKey::Up, keys::Up, Qt::Key_Up},
    {WatchedKey::Down, keys::Down, Qt::Key_Down},
    {WatchedKey::Left, keys::Left, Qt::Key_Left},
    {WatchedKey::Right, keys::Right, Qt::Key_Right},
    {WatchedKey::Control, keys::Control, Qt::Key_Control},
    {WatchedKey::Shift, keys::Shift, Qt::Key_Shift},
    {WatchedKey::Return, keys::Return, Qt::Key_Return},
    {WatchedKey::Space, keys::Space, Qt::Key_Space},
    {WatchedKey::Tab, keys::Tab, Qt::Key_Tab},
    {WatchedKey::LeftButton, keys::LeftButton, Qt::LeftButton, true},
    {WatchedKey::RightButton, keys::RightButton, Qt::RightButton, true},
    {WatchedKey::MiddleButton, keys::MiddleButton, Qt::MiddleButton, true},
};

unsigned BitOf(int own, bool button)
{
    for (const KeyRow& row : KeyRows)
        if (row.Own == own && row.IsButton == button)
            return 1U << unsigned(row.Key);
    return 0;
}

} // namespace

Answer HeldKeys::Now()
{
    if (const std::optional<quint32> told = keys::Held()) {
        KeySet all;
        for (const KeyRow& row : KeyRows)
            if (*told & row.Held)
                all.Bits |= 1U << unsigned(row.Key);
        return all;
    }
    if (!std::exchange(listens, true))
        QCoreApplication::instance()->installEventFilter(this);
    return KeySet{held};
}

void HeldKeys::Note(unsigned bit, bool down)
{
    held = down ? held | bit : held & ~bit;
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (const auto* key = static_cast<QKeyEvent*>(event); !key->isAutoRepeat())
            Note(BitOf(key->key(), false), event->type() == QEvent::KeyPress);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        Note(BitOf(static_cast<QMouseEvent*>(event)->button(), true), event->type() == QEvent::MouseButtonPress);
        break;
    case QEvent::ApplicationDeactivate:
        held = 0; // releases go elsewhere
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
