#pragma once

#include "platform/processes/running_window.h"

#include <QStringList>

/// Files that later starts hand over to this one: the window comes to the front and opens them, once nothing else is at
/// work and no question waits.
class HandedFiles : public QObject
{
    Q_OBJECT

public:
    HandedFiles(const QString& meetingPoint, QWidget& window);

    void Take(const QString& path);

private:
    void ShowWindow();
    void OpenWaiting();

    QWidget& window;
    RunningWindow others;
    QStringList waiting;
};
