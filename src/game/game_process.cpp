#include "game/game_process.h"

#include "game/game_folders.h"
#include "platform/files/paths.h"
#include "platform/processes/console.h"
#include "platform/screen/session_windows.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

constexpr int ClosePatience = 3000; ///< ms between closing the game's window and killing it

void KeepSome(QByteArray& kept, const QByteArray& more)
{
    kept += more.first(std::min(more.size(), MostGameOutput - kept.size()));
}

QProcessEnvironment EnvironmentOf(const GameStart& start)
{
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    if (!start.Home.isEmpty()) {
        // The key to the display lies in the user's own home.
        const QString key = QDir::homePath() + QLatin1String("/.Xauthority");
        if (!all.contains(QStringLiteral("XAUTHORITY")) && QFileInfo::exists(key))
            all.insert(QStringLiteral("XAUTHORITY"), key);
        all.insert(QStringLiteral("HOME"), start.Home);
    }
    if (start.Unseen) {
        all.insert(QStringLiteral("SDL_VIDEODRIVER"), QStringLiteral("dummy"));
        all.insert(QStringLiteral("SDL_RENDER_DRIVER"), QStringLiteral("software"));
        all.insert(QStringLiteral("SDL_AUDIODRIVER"), QStringLiteral("dummy"));
    }
    return all;
}

} // namespace

struct GameProcess::Private
{
    QProcess Process;
    std::unique_ptr<Console> Screen;
    QByteArray Printed, Errors;
    qint64 Session = 0; ///< the game's process leads a session of its own
    bool Stopped = false;
};

GameProcess::GameProcess(QObject* parent) : QObject(parent), d(std::make_unique<Private>())
{
    d->Process.setStandardInputFile(QProcess::nullDevice());
    d->Process.setStandardOutputFile(QProcess::nullDevice());
    connect(&d->Process, &QProcess::readyReadStandardError, this,
            [this] { KeepSome(d->Errors, d->Process.readAllStandardError()); });
    connect(&d->Process, &QProcess::finished, this, [this] {
        KeepSome(d->Errors, d->Process.readAllStandardError());
        d->Screen->ReadRest();
        emit Ended();
    });
}

GameProcess::~GameProcess()
{
    disconnect(&d->Process, nullptr, this, nullptr);
    End();
}

Result<> GameProcess::Start(const GameStart& start)
{
    d->Screen = std::make_unique<Console>();
    if (const int error = d->Screen->Open())
        return Fail(start.Program, qt_error_string(error));
    connect(d->Screen.get(), &Console::Printed, this, [this](const QByteArray& bytes) {
        KeepSome(d->Printed, bytes);
        emit Spoken();
    });
    d->Process.setChildProcessModifier([screen = d->Screen->ChildEnd(), held = start.HeldFile, unseen = start.Unseen] {
        setsid();
        if (unseen) // nobody could end it later
            prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(screen, STDOUT_FILENO);
        if (held >= 0)
            fcntl(held, F_SETFD, 0);
    });
    d->Process.setProcessEnvironment(EnvironmentOf(start));
    const QString program = ProgramToStart(start.Program);
    d->Process.setWorkingDirectory(paths::FolderOfPath(program));
    d->Process.start(program, start.Arguments);
    d->Screen->CloseChildEnd();
    if (!d->Process.waitForStarted(-1))
        return Fail(start.Program, d->Process.errorString());
    d->Session = d->Process.processId();
    return {};
}

bool GameProcess::Runs() const
{
    return d->Process.state() != QProcess::NotRunning;
}

void GameProcess::Stop()
{
    if (!Runs())
        return;
    d->Stopped = true;
    if (CloseWindowsOfSession(pid_t(d->Session)) > 0)
        QTimer::singleShot(ClosePatience, this, &GameProcess::Kill);
    else
        Kill();
}

void GameProcess::Kill()
{
    if (!Runs())
        return;
    d->Stopped = true;
    // The whole session, for a game that is started by a script.
    if (d->Session <= 0 || kill(pid_t(-d->Session), SIGKILL) != 0)
        d->Process.kill();
}

void GameProcess::End()
{
    if (!d->Stopped)
        Stop();
    if (!Runs() || d->Process.waitForFinished(ClosePatience))
        return;
    Kill();
    d->Process.waitForFinished(-1);
}

const QByteArray& GameProcess::Printed() const
{
    return d->Printed;
}

const QByteArray& GameProcess::Errors() const
{
    return d->Errors;
}

int GameProcess::ExitCode() const
{
    return d->Process.exitCode();
}

bool GameProcess::Crashed() const
{
    return d->Process.exitStatus() == QProcess::CrashExit;
}

bool GameProcess::Stopped() const
{
    return d->Stopped;
}
