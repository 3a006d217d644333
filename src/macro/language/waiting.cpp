#include "macro/language/waiting.h"

#include "frame/run_scope.h"

#include <QDeadlineTimer>
#include <QThread>

void WaitFor(RunScope& scope, int milliseconds)
{
    constexpr qint64 LongestSleep = 5;
    const QDeadlineTimer end(qMax(milliseconds, 0), Qt::PreciseTimer);
    while (!end.hasExpired() && scope.Turn())
        QThread::msleep(static_cast<unsigned long>(qMin(end.remainingTime(), LongestSleep)));
}
