#include "help/page_archive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <memory>
#include <zip.h>

namespace {

constexpr qint64 MostBytes = qint64(64) << 20;

struct Closer
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Archive = std::unique_ptr<zip_t, Closer>;
using Entry = std::unique_ptr<zip_file_t, Closer>;

QString OpenReason(int code)
{
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    const QString reason = QString::fromLocal8Bit(zip_error_strerror(&error));
    zip_error_fini(&error);
    return reason;
}

/// The entry's bytes; a null array if they cannot be read (the archive then holds the reason).
QByteArray ReadEntry(zip_t* archive, zip_uint64_t index, qint64 size)
{
    const Entry entry(zip_fopen_index(archive, index, 0));
    if (!entry)
        return {};
    QByteArray bytes(size, Qt::Uninitialized);
    if (zip_fread(entry.get(), bytes.data(), zip_uint64_t(size)) != size) {
        zip_error_set(zip_get_error(archive), ZIP_ER_CRC, 0);
        return {};
    }
    char beyond = 0; // the check sum is compared at the entry's end
    if (zip_fread(entry.get(), &beyond, 1) != 0) {
        zip_error_set(zip_get_error(archive), ZIP_ER_CRC, 0);
        return {};
    }
    return bytes;
}

} // namespace

Result<QHash<QString, QByteArray>> ReadPageArchive(const QString& path)
{
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path))
        return Fail(shown, QStringLiteral("There is no such file."));
    int code = 0;
    const Archive archive(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &code));
    if (!archive)
        return Fail(shown, OpenReason(code));

    QHash<QString, QByteArray> pages;
    qint64 total = 0;
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        zip_stat_t about;
        if (zip_stat_index(archive.get(), zip_uint64_t(i), 0, &about) != 0)
            return Fail(shown, QString::fromLocal8Bit(zip_strerror(archive.get())));
        const QString name = QString::fromUtf8(about.name);
        if (name.endsWith(QLatin1Char('/')))
            continue;
        if (about.size > zip_uint64_t(MostBytes - total))
            return Fail(shown, QStringLiteral("%1: The archive is too large.").arg(name));
        total += qint64(about.size);
        const QByteArray bytes = ReadEntry(archive.get(), zip_uint64_t(i), qint64(about.size));
        if (bytes.isNull())
            return Fail(shown, QStringLiteral("%1: %2").arg(name, QString::fromLocal8Bit(zip_strerror(archive.get()))));
        pages.insert(name, bytes);
    }
    return pages;
}
