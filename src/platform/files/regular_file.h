#pragma once

#include <QString>

/// An open file for a helper to read, closed with the scope. Only a regular one: a fifo is not waited for.
class RegularFile
{
public:
    /// `mostBytes`: a larger one is refused.
    RegularFile(const QString& path, quint64 mostBytes);
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    int Handle = -1;
    int Error = 0; ///< the system's number, or 0
};
