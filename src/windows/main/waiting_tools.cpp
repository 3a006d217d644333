#include "windows/main/waiting_tools.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"

WaitingTools::WaitingTools(QObject* parent) : QObject(parent)
{
    // Queued: what has ended its work may not have left its window yet.
    connect(&Events(), &FrameEvents::WorkChanged, this, &WaitingTools::OpenNext, Qt::QueuedConnection);
}

void WaitingTools::Add(std::function<void()> open)
{
    waiting.push_back(std::move(open));
    QMetaObject::invokeMethod(this, &WaitingTools::OpenNext, Qt::QueuedConnection);
}

void WaitingTools::Hold(bool on)
{
    held = on;
    OpenNext();
}

void WaitingTools::OpenNext()
{
    if (held || waiting.empty() || IsWorkHeldUp() || Frame.Closing || Frame.Ending)
        return;
    const std::function<void()> open = std::move(waiting.front());
    waiting.pop_front();
    open();
    QMetaObject::invokeMethod(this, &WaitingTools::OpenNext, Qt::QueuedConnection);
}
