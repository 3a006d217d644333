#include "graphics/convert_pictures.h"

#include "decoder/pcx_files.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/images.h"
#include "test_support.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

QByteArray BmpOf(QRgb colour)
{
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(colour);
    return BitmapFile(picture);
}

QStringList Names(const TestFolder& folder)
{
    return QDir(folder.Path()).entryList(QDir::Files, QDir::Name);
}

} // namespace

// Catches: a bad picture that ends the whole folder, a file that is written over unasked or by its own neighbour, a
// report that counts wrong, files left behind by what was refused.
TEST(ConvertPictures, EachFileForItself)
{
    const TestFolder from, to;
    from.Write(QStringLiteral("a10.bmp"), BmpOf(qRgb(10, 0, 0)));
    from.Write(QStringLiteral("a9.BMP"), BmpOf(qRgb(9, 0, 0)));
    from.Write(QStringLiteral("a9.png"), "no picture");
    from.Write(QStringLiteral("A9.dib.bmp"), BmpOf(qRgb(11, 0, 0)));
    from.Write(QStringLiteral("a9.ico"), BmpOf(qRgb(12, 0, 0)));
    from.Write(QStringLiteral("readme.txt"), "text");
    from.Write(QStringLiteral("there.bmp"), BmpOf(qRgb(1, 2, 3)));
    from.Write(QStringLiteral("short.pcx"),
               BuildPcx({.Form = "24 bit", .Width = 9, .Height = 9, .Planes = 3}, 4).first(150));
    to.Write(QStringLiteral("there.pcx"), "mine");
    const QStringList files = PicturesIn(from.Path());
    ASSERT_EQ(files.size(), 7);
    EXPECT_TRUE(files.indexOf(from.Path(QStringLiteral("a9.BMP"))) <
                files.indexOf(from.Path(QStringLiteral("a10.bmp"))));

    QList<int> told;
    const ConversionReport report = ConvertPictures(files, to.Path(), {}, [&](int done) {
        told << done;
        return true;
    });
    EXPECT_EQ(report.Written, 4);
    EXPECT_EQ(report.EndEarly, QStringList(from.Path(QStringLiteral("short.pcx"))));
    EXPECT_FALSE(report.Stopped);
    ASSERT_EQ(report.Refused.size(), 3u);
    EXPECT_EQ(told.last(), 6);
    EXPECT_EQ(Names(to), QStringList({QStringLiteral("A9.dib.pcx"), QStringLiteral("a10.pcx"), QStringLiteral("a9.pcx"),
                                      QStringLiteral("short.pcx"), QStringLiteral("there.pcx")}));
    EXPECT_EQ(to.Read(QStringLiteral("there.pcx")), "mine");
    EXPECT_EQ(ReadPcx(to.Read(QStringLiteral("a9.pcx"))).pixel(3, 3), qRgb(9, 0, 0));

    const ConversionPlan over{.Form = PictureForm::Pcx, .Fewer = images::Reduction{.Colours = 4}, .Overwrite = true};
    EXPECT_EQ(ConvertPictures({from.Path(QStringLiteral("there.bmp"))}, to.Path(), over).Written, 1);
    EXPECT_EQ(ReadPcx(to.Read(QStringLiteral("there.pcx"))).pixel(0, 0), qRgb(1, 2, 3));
    EXPECT_EQ(to.Read(QStringLiteral("there.pcx")).at(65), 1) << "a palette: one plane";
    images::Stop();
}

// Catches: a stop that goes on, or counts what it stopped as a failure; a folder that cannot be written.
TEST(ConvertPictures, StopsBetweenFiles)
{
    const TestFolder from, to;
    QStringList files;
    for (int i = 0; i < 6; ++i)
        files << from.Write(QString::number(i) + QStringLiteral(".bmp"), BmpOf(qRgb(i, i, i)));
    const ConversionReport report =
        ConvertPictures(files, to.Path(), {.Form = PictureForm::Png}, [](int done) { return done < 2; });
    EXPECT_TRUE(report.Stopped);
    EXPECT_EQ(report.Written, 2);
    EXPECT_TRUE(report.Refused.empty());
    EXPECT_EQ(Names(to), QStringList({QStringLiteral("0.png"), QStringLiteral("1.png")}));
    const ConversionReport none = ConvertPictures(files.first(2), to.Path(QStringLiteral("missing")), {});
    EXPECT_EQ(none.Written, 0);
    ASSERT_EQ(none.Refused.size(), 2u);
    images::Stop();
}
