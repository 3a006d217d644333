#pragma once

#include "batch/answer_list.h"
#include "batch/batch_host.h"

#include <QTemporaryDir>

inline std::ostream& operator<<(std::ostream& out, const QString& text)
{
    return out << text.toStdString();
}

/// Without it the framework prints a text as a list of letters.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

/// A folder of its own for one test; gone at the end.
class TestFolder
{
public:
    QString Path(const QString& name = {}) const; ///< "/" at the end without a name
    QString Write(const QString& name, const QByteArray& bytes) const;
    QByteArray Read(const QString& name) const;

private:
    QTemporaryDir folder;
};

/// Installs a host without a window and prepared answers for the scope, with a fresh frame state.
class HostScope
{
public:
    HostScope();
    ~HostScope();
    HostScope(const HostScope&) = delete;
    HostScope& operator=(const HostScope&) = delete;

    BatchHost Host;
    AnswerList Answers;
};

/// Runs `call` while no file may grow beyond `bytes`: a full disk without a hook in the code.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    quint64 before;
};
