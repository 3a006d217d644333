#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <sys/types.h>
#include <vector>

/// Single bytes of a file of any size, read and written where they stand; the rest of the file is never touched. It
/// stays open between calls, and is opened anew when its path has come to lead to another file.
///
/// What a write replaces is kept until it is synced: a write that fails, or one that the disk refuses at the sync,
/// leaves the old bytes. A write within one page of memory is there whole or not at all if the process ends; any
/// other goes by way of in_place.h.
class ByteFile
{
public:
    explicit ByteFile(QString path);
    ~ByteFile(); ///< synced as far as it goes
    ByteFile(const ByteFile&) = delete;
    ByteFile& operator=(const ByteFile&) = delete;

    [[nodiscard]] Result<qint64> Size();

    /// Up to `size` bytes from `at` on, fewer at the file's end.
    [[nodiscard]] Result<QByteArray> Read(qint64 at, qsizetype size);

    /// Bytes from `at` on, which is within the file or its end; there the file grows. Fails beyond it.
    [[nodiscard]] Result<> Write(qint64 at, QByteArrayView bytes);

    /// To be called when a row of writes is at an end. On failure all since the last sync has been put back.
    [[nodiscard]] Result<> Sync();

private:
    struct Piece
    {
        qint64 At;
        QByteArray Old;
        qsizetype Written;
    };

    int Open(bool toWrite);
    int PutBack(const Piece& piece);
    void Close();
    Result<> Failed(int error) const;

    QString path;
    int file = -1;
    bool writable = false;
    dev_t device = 0;
    ino_t number = 0;
    std::vector<Piece> kept;
};
