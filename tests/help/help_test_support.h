#pragma once

#include "help/help_book.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <zip.h>

/// An archive in a folder of its own.
class TestArchive
{
public:
    explicit TestArchive(const QHash<QString, QByteArray>& files)
    {
        zip_t* archive = zip_open(QFile::encodeName(Path()).constData(), ZIP_CREATE, nullptr);
        for (auto file = files.cbegin(); file != files.cend(); ++file) {
            const size_t size = size_t(file->size());
            zip_source_t* source = zip_source_buffer(archive, file->constData(), size, 0);
            const zip_int64_t index = zip_file_add(archive, file.key().toUtf8().constData(), source, 0);
            zip_set_file_compression(archive, zip_uint64_t(index), ZIP_CM_STORE, 0);
        }
        zip_close(archive);
    }

    QString Path() const { return folder.filePath(QStringLiteral("Help.zip")); }

    QByteArray Bytes() const
    {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void Overwrite(const QByteArray& bytes) const
    {
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

private:
    QTemporaryDir folder;
};

/// The shipped pages by file name.
inline QHash<QString, QByteArray> ShippedFiles()
{
    const QDir folder(ProjectFile(QStringLiteral("help")));
    QHash<QString, QByteArray> files;
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly))
            files.insert(name, file.readAll());
    }
    return files;
}

inline const HelpBook& ShippedBook()
{
    static const TestArchive archive(ShippedFiles());
    static const HelpBook book = HelpBook::Open(archive.Path()).value();
    return book;
}
