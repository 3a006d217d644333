#pragma once

#include <QByteArray>
#include <QString>
#include <sys/stat.h>
#include <vector>

/// An entry as another program might have written it.
struct MadeEntry
{
    QByteArray Name; ///< as it stands in the archive; UTF-8 unless `Cp437`
    QByteArray Bytes;
    mode_t Mode = 0; ///< 0: written on a system without permissions
    bool Cp437 = false;
    bool Secret = false;
    bool Stored = false;
    QByteArray Comment = {};
};

/// Writes such an archive over `path`; every entry is of the same old time.
void MakeArchive(const QString& path, const std::vector<MadeEntry>& entries);

constexpr qint64 MadeTime = 1'000'000'000; ///< seconds since 1970
