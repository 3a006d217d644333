#include "platform/images/image_service.h"
#include "test_support.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utime.h>

namespace {

QByteArray Png(QSize size, QRgb colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

/// Old enough to be kept.
void MakeOld(const QString& path, time_t age = 1000)
{
    const utimbuf times{1'700'000'000 - age, 1'700'000'000 - age};
    ASSERT_EQ(utime(QFile::encodeName(path).constData(), &times), 0);
}

QString RealHelper()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/gemforge-decoder");
}

/// A helper that notes its process and does something else at its first start.
class OddHelper
{
public:
    explicit OddHelper(const QByteArray& first)
    {
        const QByteArray notes = QFile::encodeName(folder.Path(QStringLiteral("notes")));
        Program = folder.Write(QStringLiteral("helper"), "#!/bin/sh\necho $$ >> " + notes + "\nif [ $(wc -l < " +
                                                             notes + ") -eq 1 ]; then\n" + first + "\nfi\nexec " +
                                                             QFile::encodeName(RealHelper()) + "\n");
        chmod(QFile::encodeName(Program).constData(), 0700);
    }

    QList<pid_t> Started() const
    {
        QList<pid_t> started;
        for (const QByteArray& line : folder.Read(QStringLiteral("notes")).split('\n'))
            if (const int process = line.toInt())
                started << process;
        return started;
    }

    TestFolder folder;
    QString Program;
};

template <class Done>
bool TurnUntil(Done done)
{
    for (int i = 0; i < 500 && !done(); ++i) {
        QCoreApplication::processEvents();
        QThread::msleep(10);
    }
    return done();
}

} // namespace

// Catches: a kept picture that outlives a change of its file, is decoded again without one, or is taken for another
// kind; a cache without a limit; a file changed this very moment that is kept although it may go on changing unseen.
TEST(Images, AreKeptByPathTimeAndSize)
{
    const TestFolder folder;
    const OddHelper helper(":");
    images::Service service({.Decoder = helper.Program, .KeptBytes = 5 * 64 * 64 * 4});
    const auto colour = [&](const QString& path) { return service.Load(path, -1).value().Pixels.pixel(3, 3); };
    const QString path = folder.Write(QStringLiteral("a.png"), Png({64, 64}, qRgb(1, 2, 3)));
    EXPECT_EQ(colour(path), qRgb(1, 2, 3));
    EXPECT_FALSE(service.Kept(path, -1)) << "too young to be trusted";
    MakeOld(path);
    EXPECT_EQ(colour(path), qRgb(1, 2, 3));
    const auto kept = service.Kept(folder.Path(QStringLiteral("A.PNG")), -1);
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->Pixels.cacheKey(), service.Load(path, -1).value().Pixels.cacheKey());
    EXPECT_EQ(kept->Pixels.format(), QImage::Format_RGB32);
    EXPECT_FALSE(service.Kept(path, WindowsBitmapKind));
    EXPECT_FALSE(service.Load(path, WindowsBitmapKind));

    folder.Write(QStringLiteral("a.png"), Png({64, 64}, qRgb(3, 2, 1))); // as many bytes
    MakeOld(path, 2000);
    EXPECT_FALSE(service.Kept(path, -1));
    EXPECT_EQ(colour(path), qRgb(3, 2, 1));
    for (int i = 0; i < 5; ++i) {
        const QString other = folder.Write(QString::number(i) + QStringLiteral(".png"), Png({64, 64}, qRgb(i, 0, 0)));
        MakeOld(other);
        EXPECT_EQ(colour(other), qRgb(i, 0, 0));
    }
    EXPECT_FALSE(service.Kept(path, -1)) << "no limit";
    EXPECT_EQ(helper.Started().size(), 2) << "one, and another after the file of the wrong kind";
}

// Catches: see-through pixels that are lost or multiplied, and an alpha channel that nobody filled taken for
// see-through.
TEST(Images, SeeThroughPixels)
{
    const TestFolder folder;
    images::Service service({.Decoder = RealHelper()});
    const auto half = service.Load(folder.Write(QStringLiteral("a.png"), Png({5, 5}, qRgba(200, 100, 50, 100))), -1);
    ASSERT_TRUE(half);
    EXPECT_EQ(half->Pixels.pixel(2, 2), qRgba(200, 100, 50, 100));
    EXPECT_EQ(half->Bits, 32);
    const auto none = service.Load(folder.Write(QStringLiteral("b.png"), Png({5, 5}, qRgba(0, 0, 0, 0))), -1);
    ASSERT_TRUE(none);
    EXPECT_EQ(none->Pixels.pixel(2, 2), qRgb(0, 0, 0));
}

// Catches: a sheet refused because its ending is that of another kind, which the game does not look at.
TEST(Images, BytesTellTheKind)
{
    const TestFolder folder;
    images::Service service({.Decoder = RealHelper()});
    const QString sheet = folder.Write(QStringLiteral("a.pcx"), Png({64, 32}, qRgb(9, 8, 7)));
    QFile file(sheet);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addDays(-1),
                     QFileDevice::FileModificationTime); // a young one is not kept
    file.close();
    for (int round = 0; round < 2; ++round) {
        const auto picture = service.Load(sheet, -1);
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture->Pixels.pixel(40, 3), qRgb(9, 8, 7));
        EXPECT_TRUE(service.Kept(sheet, -1)) << "under the kind that it was read as";
    }
}

// Catches: a helper that cannot be started, dies, talks nonsense, promises more than it sends, echoes, or hangs, and
// takes this process, the wait or the next image with it.
TEST(Images, FaultsOfTheHelperCostOneImage)
{
    const QByteArray answer = [] {
        const auto packed = decoder::Pack(decoder::Answer{.Serial = 1,
                                                          .How = decoder::Outcome::Done,
                                                          .Width = 60,
                                                          .Height = 60,
                                                          .Bits = 24,
                                                          .Behind = decoder::Payload::Words});
        return QByteArray(reinterpret_cast<const char*>(packed.data()), qsizetype(packed.size()));
    }();
    struct Oddity
    {
        const char* Script;
        const char* Reason;
    };
    const TestFolder folder;
    const QString path = folder.Write(QStringLiteral("a.png"), Png({60, 60}, qRgb(9, 8, 7)));
    const QByteArray truncated = QFile::encodeName(folder.Write(QStringLiteral("answer"), answer + "too little"));
    const QByteArray promise = "cat " + truncated + " >&0; exit";
    for (const Oddity& oddity :
         {Oddity{"exit 1", "cannot be read."}, Oddity{"kill -SEGV $$", "cannot be read."},
          Oddity{"head -c 4000 /dev/urandom >&0; exec sleep 60", "cannot be read."},
          Oddity{"head -c 16 <&0 >&0; exit", "cannot be read."}, Oddity{promise.constData(), "cannot be read."},
          Oddity{"exec sleep 60", "takes too long."}}) {
        SCOPED_TRACE(oddity.Script);
        const OddHelper helper(oddity.Script);
        images::Service service({.Decoder = helper.Program, .Patience = 1000});
        QElapsedTimer timer;
        timer.start();
        const auto failed = service.Load(path, -1);
        ASSERT_FALSE(failed);
        EXPECT_EQ(failed.error().Path, path);
        EXPECT_TRUE(failed.error().Reason.endsWith(QLatin1String(oddity.Reason))) << failed.error().Reason;
        EXPECT_LT(timer.elapsed(), 5000);
        const auto next = service.Load(path, -1);
        ASSERT_TRUE(next) << next.error().Reason;
        EXPECT_EQ(next->Pixels.pixel(0, 0), qRgb(9, 8, 7));
        EXPECT_EQ(helper.Started().size(), 2);
        EXPECT_EQ(kill(helper.Started()[0], 0), -1) << "the old one still runs";
    }
    images::Service none({.Decoder = folder.Path(QStringLiteral("none"))});
    EXPECT_EQ(none.Load(path, -1).error().Path, folder.Path(QStringLiteral("none")));
}

// Catches: a wait for a hung helper that nobody can end, that holds keys and mouse back, or whose end hangs the next
// image; a queued image that is read although nobody waits for it any more.
TEST(Images, AWaitEndsWhenItIsGivenUp)
{
    const TestFolder folder;
    const QString path = folder.Write(QStringLiteral("a.png"), Png({60, 60}, qRgb(9, 8, 7)));
    const QString other = folder.Write(QStringLiteral("b.png"), Png({60, 60}, qRgb(1, 2, 3)));
    const OddHelper helper("exec sleep 60");
    images::Service service({.Decoder = helper.Program, .Patience = 60'000});
    int turns = 0;
    bool inner = false;
    const auto stopped = service.Load(path, -1, [&] {
        if (++turns == 2)
            inner = service.ReadHeader(other, -1, [] { return false; }).has_value();
        return turns < 4;
    });
    ASSERT_FALSE(stopped);
    EXPECT_EQ(stopped.error().Path, path);
    EXPECT_EQ(turns, 4);
    EXPECT_FALSE(inner);
    const auto next = service.Load(other, -1);
    ASSERT_TRUE(next) << next.error().Reason;
    EXPECT_EQ(next->Pixels.pixel(0, 0), qRgb(1, 2, 3));
    EXPECT_EQ(helper.Started().size(), 2);
}

// A helper that somebody else ended between two images is no fault of the second.
TEST(Images, AHelperKilledWhileIdleIsReplaced)
{
    const TestFolder folder;
    const OddHelper helper(":");
    images::Service service({.Decoder = helper.Program});
    service.Warm();
    ASSERT_TRUE(service.Load(folder.Write(QStringLiteral("a.png"), Png({6, 6}, qRgb(1, 1, 1))), -1));
    ASSERT_EQ(helper.Started().size(), 1);
    kill(helper.Started()[0], SIGKILL);
    EXPECT_TRUE(service.Load(folder.Write(QStringLiteral("b.png"), Png({6, 6}, qRgb(1, 1, 1))), -1));
    EXPECT_EQ(helper.Started().size(), 2);
}

// Catches: a wait that stops the windows, an answer that comes before the asking routine has returned or to somebody
// who is gone, and a request that is waited for behind all that are not.
TEST(Images, LaterAndWaitingForms)
{
    const TestFolder folder;
    const QString path = folder.Write(QStringLiteral("a.png"), Png({60, 60}, qRgb(9, 8, 7)));
    const OddHelper helper("exec sleep 60");
    images::Service service({.Decoder = helper.Program, .Patience = 1000, .KeptBytes = 0});
    int ticks = 0, good = 0, bad = 0, strange = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(50);
    EXPECT_FALSE(service.Load(path, -1));
    EXPECT_GT(ticks, 5);

    auto gone = std::make_unique<QObject>();
    service.LoadLater(path, -1, gone.get(), [&](const auto&) { ++strange; });
    for (int i = 0; i < 200; ++i)
        service.LoadLater(path, -1, &timer, [&](const auto& picture) { ++(picture ? good : bad); });
    service.LoadLater(folder.Path(QStringLiteral("none.png")), -1, &timer,
                      [&](const auto& picture) { ++(picture ? good : bad); });
    gone.reset();
    EXPECT_TRUE(service.Load(path, -1));
    EXPECT_EQ(good + bad, 0);
    QCoreApplication::processEvents();
    EXPECT_LT(good, 150) << "who waits was served last";
    EXPECT_TRUE(TurnUntil([&] { return good + bad == 201; }));
    EXPECT_EQ(good, 200);
    EXPECT_EQ(strange, 0);
    for (int i = 0; i < 200; ++i)
        service.LoadLater(path, -1, &timer, [&](const auto&) { ++strange; });
}

// Catches: huge, endless and missing files that are read all the same, or waited for.
TEST(Images, WhatIsNoImageIsRefused)
{
    const TestFolder folder;
    images::Service service({.Decoder = RealHelper()});
    const auto reason = [&](const QString& path) {
        const auto picture = service.Load(path, -1);
        return picture ? QStringLiteral("read") : picture.error().Reason;
    };
    const QString tooLarge = QStringLiteral("The image cannot be read: it is too large.");
    QByteArray huge = "BM" + QByteArray(24, '\0') + QByteArray::fromHex("01001800") + QByteArray(24, '\0');
    huge.replace(10, 12, QByteArray::fromHex("3600000028000000409c0000"))
        .replace(22, 4, QByteArray::fromHex("409c0000"));
    EXPECT_EQ(reason(folder.Write(QStringLiteral("huge.bmp"), huge)), tooLarge);
    huge = "GIF89a" + QByteArray::fromHex("010001000000002c00000000ffffffff0008");
    EXPECT_EQ(reason(folder.Write(QStringLiteral("huge.gif"), huge)), tooLarge);
    EXPECT_EQ(reason(folder.Write(QStringLiteral("text.pcx"), "no image at all")),
              QStringLiteral("The image cannot be read."));
    EXPECT_EQ(reason(folder.Write(QStringLiteral("empty.bmp"), {})), QStringLiteral("The image cannot be read."));
    EXPECT_EQ(reason(folder.Write(QStringLiteral("a.jpeg2"), huge)),
              QStringLiteral("This is no image of a known kind."));
    EXPECT_EQ(reason(folder.Path(QStringLiteral("none.png"))), qt_error_string(ENOENT));
    const QString fifo = folder.Path(QStringLiteral("fifo.png")), endless = folder.Path(QStringLiteral("zero.png"));
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), endless));
    EXPECT_EQ(reason(fifo), qt_error_string(ENODEV));
    EXPECT_EQ(reason(endless), qt_error_string(ENODEV));
    QFile sparse(folder.Path(QStringLiteral("sparse.bmp")));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly) && sparse.resize(qint64(1) << 33));
    EXPECT_EQ(reason(sparse.fileName()), qt_error_string(EFBIG));
    EXPECT_TRUE(service.ReadHeader(folder.Write(QStringLiteral("a.png"), Png({60, 50}, qRgb(1, 1, 1))), -1));
}

// Catches: a helper that runs without its limits, so that an image whose loading never ends (an X11 bitmap with a
// number too few does that to the library) runs for ever, or one that takes it over reaches the user's files.
TEST(Images, AnEndlessImageEndsByTheLimits)
{
    const TestFolder folder;
    const OddHelper helper(":");
    images::Service service({.Decoder = helper.Program});
    const QString path = folder.Write(QStringLiteral("a.png"), Png({6, 6}, qRgb(1, 1, 1)));
    ASSERT_TRUE(service.Load(path, -1));
    QFile limits(QStringLiteral("/proc/%1/limits").arg(helper.Started()[0]));
    QFile status(QStringLiteral("/proc/%1/status").arg(helper.Started()[0]));
    ASSERT_TRUE(limits.open(QIODevice::ReadOnly) && status.open(QIODevice::ReadOnly));
    const QByteArray limited = limits.readAll().simplified();
    for (const char* limit : {"Max address space 1610612736 1610612736", "Max file size 0 0", "Max open files 16 16"})
        EXPECT_TRUE(limited.contains(limit)) << limit;
    EXPECT_TRUE(status.readAll().simplified().contains("NoNewPrivs: 1"));

    QByteArray bitmap = "#define s_width 19\n#define s_height 11\nstatic char s_bits[] = {\n";
    bitmap += QByteArray("0x49,\n").repeated(32) + "};\n";
    QElapsedTimer timer;
    timer.start();
    const auto endless = service.Load(folder.Write(QStringLiteral("endless.xbm"), bitmap), -1);
    ASSERT_FALSE(endless);
    EXPECT_LT(timer.elapsed(), 8000) << "the patience of the caller ended it, not the limit";
    EXPECT_TRUE(service.Load(path, -1));
}
