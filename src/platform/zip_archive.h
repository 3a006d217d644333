#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QtGlobal>
#include <memory>
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

private:
    ZipArchive(QString path, zip* archive);

    QString path;
    std::unique_ptr<zip, void (*)(zip*)> archive;
    std::vector<ZipEntry> entries;
};
