#include "help/running_window.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>

namespace {

constexpr int PatienceMs = 500;
constexpr qint64 LongestId = 4096;
constexpr char Thanks = '+';

} // namespace

QString MeetingPoint(const QString& programFolder)
{
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (runtime.isEmpty())
        return {};
    const QByteArray folder = QDir(programFolder).canonicalPath().toUtf8();
    const QByteArray mark = QCryptographicHash::hash(folder, QCryptographicHash::Sha1).toHex().left(12);
    return runtime + QStringLiteral("/gemforge-help-") + QString::fromLatin1(mark);
}

bool HandToRunningWindow(const QString& meetingPoint, const QString& id)
{
    if (meetingPoint.isEmpty())
        return false;
    QLocalSocket window;
    window.connectToServer(meetingPoint);
    if (!window.waitForConnected(PatienceMs))
        return false;
    window.write(id.toUtf8().left(LongestId - 1) + '\n');
    if (!window.waitForBytesWritten(PatienceMs) || !window.waitForReadyRead(PatienceMs))
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
                if (caller->bytesAvailable() > LongestId)
                    caller->abort();
                return;
            }
            const QByteArray line = caller->readLine(LongestId + 1);
            caller->putChar(Thanks);
            caller->flush();
            caller->disconnectFromServer();
            emit IdCame(QString::fromUtf8(line).chopped(1));
        });
    }
}
