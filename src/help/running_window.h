#pragma once

#include <QObject>

class QLocalServer;

/// Name of the meeting point of the help windows of one program folder, in the user's runtime folder; empty if there
/// is no such folder.
QString MeetingPoint(const QString& programFolder);

/// Hands an id to a help window that runs already. False if none answers within half a second.
[[nodiscard]] bool HandToRunningWindow(const QString& meetingPoint, const QString& id);

/// Takes ids of later starts. Where the meeting point cannot be made, none come and every start has its own window.
class RunningWindow : public QObject
{
    Q_OBJECT

public:
    explicit RunningWindow(const QString& meetingPoint, QObject* parent = nullptr);

    bool Listens() const;

signals:
    void IdCame(const QString& id);

private:
    void TakeCaller();

    QLocalServer* server;
};
