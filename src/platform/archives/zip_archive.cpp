#include "platform/archives/zip_archive.h"

#include "platform/files/file_steps.h"
#include "platform/files/paths.h"

#include <QFile>
#include <algorithm>
#include <fcntl.h>
#include <zip.h>

namespace {

constexpr qsizetype ZipChunk = qsizetype(1) << 16; ///< bytes of an entry read at a time

QString Words(zip_error_t* error)
{
    return QString::fromUtf8(zip_error_strerror(error));
}

ZipEntry Described(zip* archive, zip_uint64_t index)
{
    zip_stat_t facts;
    zip_stat_init(&facts);
    ZipEntry entry;
    if (zip_stat_index(archive, index, 0, &facts) != 0)
        return entry;
    entry.Name = QString::fromUtf8(facts.name);
    entry.Size = qint64(std::min<zip_uint64_t>(facts.size, zip_uint64_t(INT64_MAX)));
    entry.PackedSize = qint64(std::min<zip_uint64_t>(facts.comp_size, zip_uint64_t(INT64_MAX)));
    entry.Crc = facts.crc;
    entry.Changed = QDateTime::fromSecsSinceEpoch(facts.mtime);
    entry.Encrypted = facts.encryption_method != ZIP_EM_NONE;
    zip_uint8_t system = ZIP_OPSYS_DOS;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) == 0 && system == ZIP_OPSYS_UNIX)
        entry.Mode = attributes >> 16;
    return entry;
}

} // namespace

ZipArchive::ZipArchive(QString from, qint64 size, zip* opened)
    : path(std::move(from)), fileSize(size), archive(opened, zip_discard)
{
    const zip_int64_t count = zip_get_num_entries(opened, 0);
    for (zip_int64_t index = 0; index < count; ++index)
        entries.push_back(Described(opened, zip_uint64_t(index)));
}

Result<ZipArchive> ZipArchive::Open(const QString& told)
{
    const QString found = paths::Existing(told);
    const QString path = found.isEmpty() ? told : found;
    const int file = Persist([&] { return Steps().Open(QFile::encodeName(path), O_RDONLY | O_NONBLOCK, 0); });
    FileFacts facts{};
    if (file < 0 || fstat(file, &facts) != 0)
        return Fail(path, qt_error_string(errno));
    if (!S_ISREG(facts.st_mode)) {
        Steps().Close(file);
        return Fail(path, qt_error_string(S_ISDIR(facts.st_mode) ? EISDIR : ENODEV));
    }
    int code = 0;
    zip* const opened = zip_fdopen(file, 0, &code);
    if (!opened) {
        Steps().Close(file);
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        const QString reason = Words(&error);
        zip_error_fini(&error);
        return Fail(path, reason);
    }
    return ZipArchive(path, facts.st_size, opened);
}

Result<ZipArchive> ZipArchive::Of(QByteArrayView bytes)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = zip_source_buffer_create(bytes.data(), zip_uint64_t(bytes.size()), 0, &error);
    zip* const opened = source ? zip_open_from_source(source, 0, &error) : nullptr;
    const QString reason = opened ? QString() : Words(&error);
    zip_error_fini(&error);
    if (opened)
        return ZipArchive({}, bytes.size(), opened);
    zip_source_free(source);
    return Fail({}, reason);
}

int ZipArchive::Find(const QString& name) const
{
    for (const Qt::CaseSensitivity letters : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const ZipEntry& entry) { return entry.Name.compare(name, letters) == 0; });
        if (found != entries.end())
            return int(found - entries.begin());
    }
    return -1;
}

Result<> ZipArchive::ReadPieces(int entry, qint64 limit, const Taker& take) const
{
    if (entry < 0 || size_t(entry) >= entries.size())
        return Fail(path, QStringLiteral("No such entry"));
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(zip_fopen_index(archive.get(), zip_uint64_t(entry), 0),
                                                                 zip_fclose);
    if (!file)
        return Fail(path, Words(zip_get_error(archive.get())));
    QByteArray buffer(ZipChunk, Qt::Uninitialized);
    for (qint64 all = 0;;) {
        const zip_int64_t got = zip_fread(file.get(), buffer.data(), zip_uint64_t(ZipChunk));
        if (got < 0)
            return Fail(path, Words(zip_file_get_error(file.get())));
        all += got;
        if (all > limit)
            return Fail(path, qt_error_string(EFBIG));
        if (got == 0)
            return {};
        if (Result<> taken = take(QByteArrayView(buffer).first(got)); !taken)
            return taken;
    }
}

Result<QByteArray> ZipArchive::Read(int entry, qint64 limit) const
{
    // The size in the directory may lie, so the bytes grow only as they come.
    QByteArray bytes;
    return ReadPieces(entry, limit,
                      [&](QByteArrayView piece) {
                          bytes.append(piece);
                          return Result<>();
                      })
        .map([&] { return bytes; });
}
