#include "services/made_archive.h"

#include <QFile>
#include <zip.h>

void MakeArchive(const QString& path, const std::vector<MadeEntry>& entries)
{
    zip_t* const archive = zip_open(QFile::encodeName(path), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const MadeEntry& entry : entries) {
        const zip_flags_t names = entry.Cp437 ? ZIP_FL_ENC_CP437 : ZIP_FL_ENC_UTF_8;
        zip_source_t* const source =
            zip_source_buffer(archive, entry.Bytes.constData(), zip_uint64_t(entry.Bytes.size()), 0);
        const auto at = zip_uint64_t(zip_file_add(archive, entry.Name, source, names));
        zip_file_set_mtime(archive, at, time_t(MadeTime), 0);
        if (entry.Mode)
            zip_file_set_external_attributes(archive, at, 0, ZIP_OPSYS_UNIX, zip_uint32_t(entry.Mode) << 16);
        else
            zip_file_set_external_attributes(archive, at, 0, ZIP_OPSYS_DOS, 0x20);
        if (entry.Secret)
            zip_file_set_encryption(archive, at, ZIP_EM_TRAD_PKWARE, "word");
        if (entry.Stored)
            zip_set_file_compression(archive, at, ZIP_CM_STORE, 0);
        if (!entry.Comment.isEmpty())
            zip_file_set_comment(archive, at, entry.Comment, zip_uint16_t(entry.Comment.size()), 0);
    }
    if (zip_close(archive) != 0)
        qFatal("cannot write %s: %s", qPrintable(path), zip_strerror(archive));
}
