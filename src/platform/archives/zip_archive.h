#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QtGlobal>
#include <functional>
#include <memory>
#include <sys/types.h>
#include <vector>

struct zip;

struct ZipEntry
{
    QString Name; ///< as in the archive, with "/"; a folder's ends with it
    qint64 Size = 0;
    qint64 PackedSize = 0;
    quint32 Crc = 0;
    QDateTime Changed;
    bool Encrypted = false;
    mode_t Mode = 0; ///< kind and permissions, if a system with such wrote the entry; else 0

    bool IsFolder() const { return Name.endsWith(QLatin1Char('/')); }
};

/// A zip archive to read from. Nothing an archive says is believed before its bytes are there.
class ZipArchive
{
public:
    /// Fails for what is no regular file and for what libzip cannot read; an archive of no entries is none.
    [[nodiscard]] static Result<ZipArchive> Open(const QString& path);

    /// The same for an archive in memory; the bytes are the caller's and stay as long as the archive.
    [[nodiscard]] static Result<ZipArchive> Of(QByteArrayView bytes);

    const std::vector<ZipEntry>& Entries() const { return entries; }

    /// Index of the entry of this name, letter case ignored if none has it exactly; -1 if there is none.
    int Find(const QString& name) const;

    /// The bytes of an entry, checked against its sum. Fails for more than `limit` bytes, for a secret and for a
    /// damaged one.
    [[nodiscard]] Result<QByteArray> Read(int entry, qint64 limit) const;

    /// Takes some of an entry's bytes; what it fails with ends the reading.
    using Taker = std::function<Result<>(QByteArrayView piece)>;

    /// The same piece by piece. All bytes but the last piece's are taken before the sum is known.
    [[nodiscard]] Result<> ReadPieces(int entry, qint64 limit, const Taker& take) const;

    QString Path() const { return path; }
    qint64 FileSize() const { return fileSize; }
    zip* Handle() const { return archive.get(); } ///< for what takes entries over as they are, see zip_writer.h

private:
    ZipArchive(QString path, qint64 size, zip* archive);

    QString path;
    qint64 fileSize;
    std::unique_ptr<zip, void (*)(zip*)> archive;
    std::vector<ZipEntry> entries;
};
