#include "platform/processes/running_window.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <algorithm>

namespace {

constexpr int PatienceMs = 500;
constexpr int Glance = 50;               // ms between two tries
constexpr qint64 LongestLine = 4 * 4096; // a path with all of its bytes escaped
constexpr char Thanks = '+';

} // namespace

QString MeetingPoint(const QString& program, const QString& programFolder)
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty())
        return {};
    const QString point = runtime + u'/' + program;
    if (programFolder.isEmpty())
        return point;
    const QByteArray folder = QDir(programFolder).canonicalPath().toUtf8();
    const QByteArray mark = QCryptographicHash::hash(folder, QCryptographicHash::Sha1).toHex().left(12);
    return point + u'-' + QString::fromLatin1(mark);
}

bool HandToRunningWindow(const QString& meetingPoint, const QString& text, int waitMs)
{
    if (meetingPoint.isEmpty())
        return false;
    QElapsedTimer waited;
    waited.start();
    QLocalSocket window;
    window.connectToServer(meetingPoint);
    while (!window.waitForConnected(PatienceMs)) {
        if (waited.elapsed() >= waitMs)
            return false;
        QThread::msleep(Glance);
        window.connectToServer(meetingPoint);
    }
    const int patience = std::max(PatienceMs, waitMs);
    window.write(text.toUtf8().toPercentEncoding().left(LongestLine - 1) + '\n');
    if (!window.waitForBytesWritten(patience) || !window.waitForReadyRead(patience))
        return false;
    char answer = 0;
    return window.getChar(&answer) && answer == Thanks;
}

RunningWindow::RunningWindow(const QString& meetingPoint, QObject* parent)
    : QObject(parent), server(new QLocalServer(this))
{
    server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server, &QLocalServer::newConnection, this, &RunningWindow::TakeCaller);
    if (meetingPoint.isEmpty())
        return;
    // Nobody answered there, so what a crashed window left behind may go.
    QLocalServer::removeServer(meetingPoint);
    server->listen(meetingPoint);
}

bool RunningWindow::Listens() const
{
    return server->isListening();
}

void RunningWindow::TakeCaller()
{
    while (QLocalSocket* caller = server->nextPendingConnection()) {
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        connect(caller, &QLocalSocket::readyRead, this, [this, caller] {
            if (!caller->canReadLine()) {
                if (caller->bytesAvailable() > LongestLine)
                    caller->abort();
                return;
            }
            const QByteArray line = caller->readLine(LongestLine + 1);
            caller->putChar(Thanks);
            caller->flush();
            caller->disconnectFromServer();
            emit TextCame(QString::fromUtf8(QByteArray::fromPercentEncoding(line.chopped(1))));
        });
    }
}
