#include "platform/processes.h"

#include "platform/platform_state.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace processes {

class Wait
{
public:
    Wait();
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    Result<ChildResult> Run(const QString& program, const QStringList& arguments, const QString& folder);
    void Stop();

private:
    void EndChild();

    QProcess process;
    QEventLoop loop;
    ChildResult result;
};

namespace {

constexpr int Patience = 2000; ///< ms between asking a child to end and making it

void Keep(QByteArray& kept, const QByteArray& more)
{
    kept += more.first(std::min(more.size(), MostOutput - kept.size()));
}

} // namespace

Wait::Wait()
{
    Platform.Waits.push_back(this);
    process.setStandardInputFile(QProcess::nullDevice());
    const auto output = [this] { Keep(result.Output, process.readAllStandardOutput()); };
    const auto errors = [this] { Keep(result.Errors, process.readAllStandardError()); };
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, output);
    QObject::connect(&process, &QProcess::readyReadStandardError, &process, errors);
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            loop.quit();
    });
}

Wait::~Wait()
{
    std::erase(Platform.Waits, this);
}

Result<ChildResult> Wait::Run(const QString& program, const QStringList& arguments, const QString& folder)
{
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    if (process.error() == QProcess::FailedToStart)
        return Fail(program, process.errorString());
    if (process.state() != QProcess::NotRunning)
        EndChild();
    Keep(result.Output, process.readAllStandardOutput());
    Keep(result.Errors, process.readAllStandardError());
    result.Crashed = process.exitStatus() == QProcess::CrashExit;
    result.ExitCode = process.exitCode();
    return result;
}

/// The application ends, and its loops with it, before the child has.
void Wait::EndChild()
{
    result.Stopped = true;
    process.terminate();
    if (!process.waitForFinished(Patience)) {
        process.kill();
        process.waitForFinished(-1);
    }
}

void Wait::Stop()
{
    result.Stopped = true;
    process.terminate();
    QTimer::singleShot(Patience, &process, &QProcess::kill);
}

Result<> StartDetached(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    if (process.startDetached())
        return {};
    return Fail(program, process.errorString());
}

Result<ChildResult> RunAndWait(const QString& program, const QStringList& arguments, const QString& folder)
{
    return Wait().Run(program, arguments, folder);
}

void StopWaiting()
{
    for (Wait* const wait : Platform.Waits)
        wait->Stop();
}

int Waiting()
{
    return int(Platform.Waits.size());
}

QString ShortPath(const QString& path)
{
    return path;
}

} // namespace processes
