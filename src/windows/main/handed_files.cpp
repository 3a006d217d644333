#include "windows/main/handed_files.h"

#include "frame/frame_events.h"
#include "frame/run_scope.h"
#include "windows/main/dropped_files.h"

#include <QApplication>
#include <QWidget>
#include <utility>

HandedFiles::HandedFiles(const QString& meetingPoint, QWidget& front) : window(front), others(meetingPoint)
{
    connect(&others, &RunningWindow::TextCame, this, &HandedFiles::Take);
    // Queued: what has ended its work may not have left its window yet.
    connect(&Events(), &FrameEvents::WorkChanged, this, &HandedFiles::OpenWaiting, Qt::QueuedConnection);
}

void HandedFiles::Take(const QString& path)
{
    waiting << path;
    ShowWindow();
    OpenWaiting();
}

void HandedFiles::ShowWindow()
{
    if (window.isMinimized())
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* front = modal ? modal : &window;
    front->raise();
    front->activateWindow();
}

void HandedFiles::OpenWaiting()
{
    if (!IsWorkHeldUp() && !waiting.isEmpty())
        OpenDroppedFiles(std::exchange(waiting, {}));
}
