#include "windows/main/window_keys.h"

#include "windows/parts/help_subject.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenuBar>

WindowKeys::WindowKeys(QWidget* watchedWindow) : QObject(watchedWindow), window(watchedWindow)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void WindowKeys::Claim(const QKeySequence& key)
{
    claimed.insert(key);
}

void WindowKeys::ClaimForCommands(QSet<QKeySequence> overText, QSet<QKeySequence> overAll)
{
    claimedOverText = std::move(overText);
    claimedOverAll = std::move(overAll);
}

bool WindowKeys::IsClaimed(const QWidget* part, const QKeyEvent& key) const
{
    const QKeySequence pressed(key.keyCombination());
    return claimed.contains(pressed) || claimedOverAll.contains(pressed) ||
           (claimedOverText.contains(pressed) && HelpSubjectOf(part) == TextSubject);
}

bool WindowKeys::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride &&
        type != QEvent::ContextMenu)
        return false;
    auto* part = qobject_cast<QWidget*>(watched);
    if (!part || part->window() != window)
        return false;
    if (type == QEvent::ContextMenu) {
        // The pane's own menu never shows; a press of the right button is told by the pane itself.
        if (HelpSubjectOf(part) != TextSubject)
            return false;
        if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard)
            emit MenuPressed(part);
        return true;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (type == QEvent::ShortcutOverride && !AltKey(key).isNull()) {
        event->accept(); // else the letter would open a menu
        return true;
    }
    if (type == QEvent::ShortcutOverride && IsClaimed(part, key)) {
        event->ignore();
        return true;
    }
    if (type == QEvent::KeyRelease && (key.key() == Qt::Key_CapsLock || key.key() == Qt::Key_NumLock))
        emit LocksChanged();
    if (type != QEvent::KeyPress || !Pressed(part, key))
        return false;
    event->accept(); // or it would be offered to the part's parents
    return true;
}

QChar WindowKeys::AltKey(const QKeyEvent& key) const
{
    const int code = key.key();
    const bool character = code > Qt::Key_Space && code <= 0xFF; // Latin-1 keys are their characters
    if (key.modifiers() != Qt::AltModifier || !character || !TakesAlt || !TakesAlt(QChar(code)))
        return {};
    return QChar(code);
}

bool WindowKeys::Pressed(QWidget* part, const QKeyEvent& key)
{
    if (const QChar alt = AltKey(key); !alt.isNull()) {
        emit AltPressed(alt);
        return true;
    }
    if (key.key() == Qt::Key_Escape) {
        if (qobject_cast<QMenuBar*>(part)) // gives the keyboard back
            return false;
        emit EscapePressed();
        return true;
    }
    if (key.key() == Qt::Key_F1) {
        emit HelpPressed();
        return true;
    }
    if (key.key() == Qt::Key_Insert && key.modifiers() == Qt::NoModifier && HelpSubjectOf(part) == TextSubject) {
        emit InsertPressed();
        return true;
    }
    return false;
}
