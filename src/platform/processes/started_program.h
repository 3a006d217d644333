#pragma once

#include "platform/result.h"

#include <QStringList>

namespace processes {

/// A program that was started and lives on by itself, whatever becomes of this object. It can be watched, not ended.
class StartedProgram
{
public:
    /// Without input, its output is dropped. Fails if it cannot be started.
    [[nodiscard]] static Result<StartedProgram> Start(const QString& program, const QStringList& arguments,
                                                      const QString& folder);
    StartedProgram(StartedProgram&& other) noexcept;
    StartedProgram& operator=(StartedProgram&&) = delete;
    ~StartedProgram();

    qint64 Process() const { return process; }
    bool HasEnded() const;

private:
    explicit StartedProgram(qint64 number);

    qint64 process;
    int watch; ///< tells of the end, also of a process that is nobody's child any more; -1: there is none
};

} // namespace processes
