#include "platform/archives/zip_archive.h"
#include "test_support.h"

#include <QFile>
#include <gtest/gtest.h>
#include <random>
#include <zip.h>

namespace {

QString MadeArchive(const TestFolder& folder)
{
    QString path = folder.Path(QStringLiteral("Set.zip"));
    const auto add = [&](zip_t* archive, const char* name, const QByteArray& bytes) {
        zip_source_t* const source = zip_source_buffer(archive, bytes.constData(), zip_uint64_t(bytes.size()), 0);
        ASSERT_GE(zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8), 0);
    };
    zip_t* const archive = zip_open(QFile::encodeName(path), ZIP_CREATE, nullptr);
    const QByteArray text = "a level\n", much(5 << 20, '\0');
    add(archive, "Levels/\xC3\xBC.level", text);
    add(archive, "much", much);
    zip_dir_add(archive, "empty", ZIP_FL_ENC_UTF_8);
    EXPECT_EQ(zip_close(archive), 0);
    return path;
}

quint32 Sum(const QByteArray& bytes)
{
    quint32 sum = ~0u;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320u : 0);
    }
    return ~sum;
}

} // namespace

// Names, sizes and bytes as they went in; a limit holds against an entry that unpacks to a thousand times its size.
TEST(ZipArchive, ListsAndReads)
{
    const TestFolder folder;
    MadeArchive(folder);
    const auto archive = ZipArchive::Open(folder.Path(QStringLiteral("SET.ZIP")));
    ASSERT_TRUE(archive) << archive.error().Reason;
    ASSERT_EQ(archive->Entries().size(), 3u);
    EXPECT_EQ(archive->Entries()[0].Name, QStringLiteral("Levels/ü.level"));
    EXPECT_EQ(archive->Entries()[0].Size, 8);
    EXPECT_EQ(archive->Entries()[2].Name, QStringLiteral("empty/"));
    EXPECT_FALSE(archive->Entries()[0].Encrypted);
    const int much = archive->Find(QStringLiteral("MUCH"));
    ASSERT_EQ(much, 1);
    EXPECT_LT(archive->Entries()[1].PackedSize, 10000);
    EXPECT_EQ(*archive->Read(0, 8), "a level\n");
    EXPECT_FALSE(archive->Read(0, 7));
    EXPECT_EQ(archive->Read(much, 5 << 20)->size(), 5 << 20);
    EXPECT_FALSE(archive->Read(much, (5 << 20) - 1));
    EXPECT_EQ(archive->Find(QStringLiteral("none")), -1);
    EXPECT_FALSE(archive->Read(-1, 10));
    EXPECT_FALSE(archive->Read(3, 10));
}

// A damaged archive ends in a failure, or in bytes that passed their sum; never in a crash or in wrong bytes.
TEST(ZipArchive, DamagedArchives)
{
    const TestFolder folder;
    QFile file(MadeArchive(folder));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray whole = file.readAll();
    const QString name = QStringLiteral("damaged.zip");
    for (const QByteArray& bytes : {QByteArray(), QByteArray("PK\3\4"), whole.left(whole.size() / 2), whole.mid(40)}) {
        const auto archive = ZipArchive::Open(folder.Write(name, bytes));
        EXPECT_TRUE(!archive || !archive->Read(0, 1 << 20));
    }
    std::mt19937 random(7);
    int refused = 0;
    for (int round = 0; round < 1500; ++round) {
        QByteArray bytes = whole;
        for (int edits = 0; edits < 4; ++edits)
            bytes[qsizetype(random() % size_t(bytes.size()))] = char(random());
        QFile::remove(folder.Path(name)); // writing over it waits for the disk
        const auto archive = ZipArchive::Open(folder.Write(name, bytes));
        const auto read = archive ? archive->Read(0, 1 << 20) : Fail({}, {});
        refused += !read;
        EXPECT_TRUE(!read || Sum(*read) == archive->Entries()[0].Crc);
    }
    EXPECT_GT(refused, 0);
    EXPECT_FALSE(ZipArchive::Open(folder.Path()));
    EXPECT_FALSE(ZipArchive::Open(folder.Path(QStringLiteral("none"))));
    EXPECT_FALSE(ZipArchive::Open(QStringLiteral("/dev/null")));
}
