#pragma once

#include "frame/messages/asker.h"

#include <QObject>

/// The keys and mouse buttons that are held: the X server's answer, or where there is none what our own windows have
/// heard since the first question.
class HeldKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    Answer Now();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Note(unsigned bit, bool down);

    bool listens = false;
    unsigned held = 0; ///< 1 << WatchedKey
};
