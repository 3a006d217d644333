#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>
#include <functional>

/// Other programs, started and waited for.
namespace processes {

struct ChildResult
{
    int ExitCode = 0; ///< of a process that ended by itself
    bool Crashed = false;
    bool Stopped = false; ///< ended by StopWaiting or by the end of this program
    QByteArray Output, Errors;
};

/// What is kept of each of the child's two outputs; the rest is read and dropped.
constexpr qsizetype MostOutput = qsizetype(64) << 20;

/// Starts a program that lives on by itself. Fails if it cannot be started.
[[nodiscard]] Result<> StartDetached(const QString& program, const QStringList& arguments);

/// How a child runs and is ended.
struct ChildPlan
{
    QString Folder = {};          ///< empty: the current one
    QStringList Environment = {}; ///< NAME=VALUE, in addition to ours
    /// Asks the child to end, by whatever it minds; without it, terminate. Gets its process number.
    std::function<void(qint64 process)> AskToEnd = {};
    int Patience = 2000; ///< ms between asking and killing
    std::function<void(QByteArrayView output)> Output =
        {}; ///< what it prints, as it comes; kept in the result all the same
};

/// Starts a program without input, and returns when it has ended. Events go on meanwhile; there is no time limit.
/// Fails only if it cannot be started.
[[nodiscard]] Result<ChildResult> RunAndWait(const QString& program, const QStringList& arguments,
                                             const ChildPlan& plan = {});

/// Ends the children of all waits in progress, each in its own way. Their RunAndWait then returns.
void StopWaiting();

/// How many waits are in progress.
int Waiting();

/// The form of a path that a command line takes: here the path itself.
QString ShortPath(const QString& path);

} // namespace processes
