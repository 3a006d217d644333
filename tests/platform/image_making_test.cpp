#include "platform/images/bitmap_file.h"
#include "platform/images/images.h"
#include "platform/images/picture_maker.h"
#include "test_support.h"

#include <QCoreApplication>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

QImage Slopes(int side)
{
    QImage picture(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) % 256));
    return picture;
}

/// A helper that does something else at its first start.
QString OddMaker(const TestFolder& folder, const QByteArray& first)
{
    const QByteArray mark = QFile::encodeName(folder.Path(QStringLiteral("mark")));
    const QString program =
        folder.Write(QStringLiteral("helper"),
                     "#!/bin/sh\nif [ ! -e " + mark + " ]; then touch " + mark + "; " + first + "; fi\nexec " +
                         QFile::encodeName(QCoreApplication::applicationDirPath()) + "/gemforge-decoder\n");
    chmod(QFile::encodeName(program).constData(), 0700);
    return program;
}

} // namespace

// Catches: pixels or palettes lost on the way to the process and back, odd widths, a picture of another format.
TEST(ImageMaking, ReducesAndWritesWhatIsHere)
{
    for (const QSize size : {QSize(1, 1), QSize(301, 200), QSize(64, 3)}) {
        const QImage picture = Slopes(301).copy(QRect(QPoint(), size));
        const auto reduced = images::Reduce(picture, {.Colours = 200, .Method = images::Quantizer::NeuQuant});
        ASSERT_TRUE(reduced) << reduced.error().Reason;
        EXPECT_EQ(reduced->size(), size);
        EXPECT_EQ(reduced->colorCount(), 256);
        const auto gif = images::GifBytes(*reduced);
        ASSERT_TRUE(gif) << gif.error().Reason;
        EXPECT_EQ(QImage::fromData(*gif).convertToFormat(QImage::Format_RGB32),
                  reduced->convertToFormat(QImage::Format_RGB32));
        for (const QImage& form : {picture, *reduced, picture.convertToFormat(QImage::Format_ARGB32)}) {
            const QImage read = QImage::fromData(BitmapFile(form), "BMP");
            EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), form.convertToFormat(QImage::Format_RGB32));
        }
    }
    EXPECT_FALSE(images::Reduce(QImage(), {}));
    images::Stop();
}

// Catches: a stop that waits for the work, or leaves a process behind that answers the next call with the last
// picture; a process that died in between and costs the next picture.
TEST(ImageMaking, StopsAndOutlivesItsProcess)
{
    int turns = 0;
    const auto stopped =
        images::Reduce(Slopes(2500), {.Method = images::Quantizer::NeuQuant}, [&] { return ++turns < 3; });
    ASSERT_FALSE(stopped);
    EXPECT_EQ(stopped.error().Reason, QStringLiteral("Stopped."));
    const auto next = images::Reduce(Slopes(40), {});
    ASSERT_TRUE(next);
    EXPECT_EQ(next->size(), QSize(40, 40));
    images::Stop();

    for (const char* first : {"exit 1", "kill -SEGV $$", "head -c 28 <&0 >&0; exit"}) {
        const TestFolder folder;
        images::PictureMaker maker(OddMaker(folder, first));
        const decoder::Request request{.What = decoder::Task::Reduced};
        EXPECT_FALSE(maker.Make(request, Slopes(9), {})) << "a fresh one that fails is not tried again";
        EXPECT_TRUE(maker.Make(request, Slopes(9), {})) << first;
    }
    const TestFolder folder;
    images::PictureMaker none(folder.Path(QStringLiteral("none")));
    EXPECT_EQ(none.Make({.What = decoder::Task::Gif}, Slopes(9), {}).error().Path, folder.Path(QStringLiteral("none")));
}
