#pragma once

#include <QObject>

class QLocalServer;

/// Name of the meeting point of a program's windows in the user's runtime folder, one for each program folder if
/// `programFolder` is told; empty if there is no runtime folder.
QString MeetingPoint(const QString& program, const QString& programFolder = {});

/// Hands a text to a window that runs already. While nobody listens there it is tried again for `waitMs`: a window that
/// is being made. False if none answers within that time, at least half a second.
[[nodiscard]] bool HandToRunningWindow(const QString& meetingPoint, const QString& text, int waitMs = 0);

/// Takes texts of later starts. Where the meeting point cannot be made, none come and every start is on its own.
class RunningWindow : public QObject
{
    Q_OBJECT

public:
    explicit RunningWindow(const QString& meetingPoint, QObject* parent = nullptr);

    bool Listens() const;

signals:
    void TextCame(const QString& text);

private:
    void TakeCaller();

    QLocalServer* server;
};
