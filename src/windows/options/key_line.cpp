#include "windows/options/key_line.h"

#include <QKeyEvent>
#include <algorithm>

namespace {

bool IsModifier(int key)
{
    constexpr int Modifiers[] = {Qt::Key_Shift,   Qt::Key_Control, Qt::Key_Alt,     Qt::Key_Meta,    Qt::Key_AltGr,
                                 Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_Hyper_L, Qt::Key_Hyper_R, 0,
                                 Qt::Key_unknown};
    return std::ranges::find(Modifiers, key) != std::end(Modifiers);
}

bool Leaves(const QKeyEvent& event)
{
    const bool tab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    return event.key() == Qt::Key_Escape || (tab && !(event.modifiers() & ~Qt::ShiftModifier));
}

} // namespace

KeyLine::KeyLine(const QString& name, const QString& hint, QWidget* parent) : QLineEdit(parent)
{
    setObjectName(name);
    setAccessibleName(hint);
    setPlaceholderText(hint);
    setReadOnly(true); // nothing is typed, pasted or dropped
    setContextMenuPolicy(Qt::NoContextMenu);
}

void KeyLine::SetKey(const QKeySequence& wanted)
{
    key = wanted;
    setText(key.toString(QKeySequence::NativeText));
    emit KeyChanged(key);
}

bool KeyLine::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && !Leaves(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    // A Tab with Ctrl would go on to the tabs of the window.
    if (event->type() == QEvent::KeyPress && !Leaves(*static_cast<QKeyEvent*>(event))) {
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    return QLineEdit::event(event);
}

void KeyLine::keyPressEvent(QKeyEvent* event)
{
    if (Leaves(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    if (IsModifier(event->key()))
        return;
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    if (event->key() == Qt::Key_Backspace && !modifiers)
        SetKey({});
    else
        SetKey(QKeySequence(modifiers | Qt::Key(event->key() == Qt::Key_Backtab ? Qt::Key_Tab : event->key())));
}
