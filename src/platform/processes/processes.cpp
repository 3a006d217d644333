#include "platform/processes/processes.h"

#include "platform/platform_state.h"

#include <QEventLoop>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTimer>

namespace processes {

class Wait
{
public:
    explicit Wait(const ChildPlan& plan);
    ~Wait();
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;

    Result<ChildResult> Run(const QString& program, const QStringList& arguments);
    void Stop();

private:
    void AskToEnd();
    void EndChild();
    void TakeOutput();

    const ChildPlan& plan;
    QProcess process;
    QEventLoop loop;
    ChildResult result;
};

namespace {

void Keep(QByteArray& kept, const QByteArray& more)
{
    kept += more.first(std::min(more.size(), MostOutput - kept.size()));
}

QProcessEnvironment Enlarged(const QStringList& additions)
{
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    for (const QString& addition : additions)
        all.insert(addition.section(u'=', 0, 0), addition.section(u'=', 1));
    return all;
}

} // namespace

Wait::Wait(const ChildPlan& childPlan) : plan(childPlan)
{
    Platform.Waits.push_back(this);
    process.setStandardInputFile(QProcess::nullDevice());
    const auto errors = [this] { Keep(result.Errors, process.readAllStandardError()); };
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, [this] { TakeOutput(); });
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

Result<ChildResult> Wait::Run(const QString& program, const QStringList& arguments)
{
    process.setWorkingDirectory(plan.Folder);
    if (!plan.Environment.isEmpty())
        process.setProcessEnvironment(Enlarged(plan.Environment));
    process.start(program, arguments);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    if (process.error() == QProcess::FailedToStart)
        return Fail(program, process.errorString());
    if (process.state() != QProcess::NotRunning)
        EndChild();
    TakeOutput();
    Keep(result.Errors, process.readAllStandardError());
    result.Crashed = process.exitStatus() == QProcess::CrashExit;
    result.ExitCode = process.exitCode();
    return result;
}

void Wait::TakeOutput()
{
    const QByteArray more = process.readAllStandardOutput();
    Keep(result.Output, more);
    if (plan.Output && !more.isEmpty())
        plan.Output(more);
}

void Wait::AskToEnd()
{
    if (plan.AskToEnd)
        plan.AskToEnd(process.processId());
    else
        process.terminate();
}

/// The application ends, and its loops with it, before the child has.
void Wait::EndChild()
{
    result.Stopped = true;
    AskToEnd();
    if (!process.waitForFinished(plan.Patience)) {
        process.kill();
        process.waitForFinished(-1);
    }
}

void Wait::Stop()
{
    result.Stopped = true;
    AskToEnd();
    QTimer::singleShot(plan.Patience, &process, &QProcess::kill);
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

Result<ChildResult> RunAndWait(const QString& program, const QStringList& arguments, const ChildPlan& plan)
{
    return Wait(plan).Run(program, arguments);
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
