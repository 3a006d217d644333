#pragma once

#include <QString>
#include <QTemporaryDir>
#include <ostream>

inline std::ostream& operator<<(std::ostream& out, const QString& text)
{
    return out << text.toStdString();
}

/// Without it the framework prints a text as a list of letters.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

/// A file or folder of the project: its sources, help pages, data of the tests.
QString ProjectFile(const QString& name);

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
