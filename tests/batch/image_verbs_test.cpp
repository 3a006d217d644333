#include "batch/call_verb.h"
#include "decoder/film_files.h"
#include "decoder/pcx_files.h"
#include "host_scope.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/images.h"

#include <QDir>
#include <QSet>
#include <gtest/gtest.h>

namespace {

struct ImageVerbs : testing::Test
{
    ~ImageVerbs() override { images::Stop(); }

    QString Path(const char* name) const { return folder.Path(QString::fromLatin1(name)); }
    QByteArray Read(const char* name) const { return folder.Read(QString::fromLatin1(name)); }

    /// A call whose words are parted by blanks; "@" stands for the folder.
    Spoken Call(const char* words) const
    {
        QStringList arguments = QString::fromLatin1(words).split(u' ');
        return Called(arguments.replaceInStrings(QStringLiteral("@"), folder.Path()));
    }

    HostScope scope;
    TestFolder folder;
};

QImage Slopes()
{
    QImage picture(80, 50, QImage::Format_RGB32);
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 80; ++x)
            picture.setPixel(x, y, qRgb(x * 3, y * 5, x + y));
    return picture;
}

} // namespace

// Catches: an option that changes nothing, a form that does not go by the name, colours beyond the palette.
TEST_F(ImageVerbs, PcxConvertsAPicture)
{
    folder.Write(QStringLiteral("in.bmp"), BitmapFile(Slopes()));
    EXPECT_EQ(Call("pcx @in.bmp @out.pcx").Code, VerbDone);
    EXPECT_EQ(ReadPcx(Read("out.pcx")), Slopes());
    QList<QImage> reduced;
    for (const char* call : {"pcx @in.bmp @out.pcx --colours 9", "pcx --neuquant @in.bmp @out.pcx --colours 9"}) {
        EXPECT_EQ(Call(call).Code, VerbDone);
        reduced << ReadPcx(Read("out.pcx"));
        EXPECT_EQ(Read("out.pcx").at(65), 1) << "planes";
        QSet<QRgb> colours;
        for (int i = 0; i < 80 * 50; ++i)
            colours << reduced.constLast().pixel(i % 80, i / 80);
        EXPECT_LE(colours.size(), 9);
    }
    EXPECT_NE(reduced[0], reduced[1]);
    EXPECT_EQ(Call("pcx @in.bmp @out.png").Code, VerbDone);
    Call("pcx @in.bmp @whole.pcx");
    folder.Write(QStringLiteral("cut.pcx"), Read("whole.pcx").chopped(500));
    const Spoken cut = Call("pcx @cut.pcx @cut.png");
    EXPECT_EQ(cut.Code, VerbFound);
    EXPECT_EQ(cut.Err, Path("cut.pcx") + QStringLiteral(": the image file ends early\n"));
    EXPECT_EQ(QImage(Path("cut.png")).size(), Slopes().size());
    EXPECT_EQ(QImage(Path("out.png")).convertToFormat(QImage::Format_RGB32), Slopes());
}

// Catches: what cannot be read or written that ends well, without its path, or leaves a file behind or takes one away;
// a call that is not understood and does something.
TEST_F(ImageVerbs, FailuresLeaveNothing)
{
    folder.Write(QStringLiteral("in.bmp"), BitmapFile(Slopes()));
    folder.Write(QStringLiteral("bad.png"), "bad");
    folder.Write(QStringLiteral("good.bmp"), BitmapFile(FilmFrames(1, {32, 32}).front()));
    folder.Write(QStringLiteral("wide.avi"), BuildAvi(FilmFrames(2, {40, 32}), {.Size = {40, 32}}));
    folder.Write(QStringLiteral("out.pcx"), "old");
    folder.Write(QStringLiteral("out.bmp"), "old");
    const auto before = QDir(folder.Path()).entryList(QDir::Files);
    for (const char* call :
         {"pcx @bad.png @out.pcx", "pcx @none.png @out.pcx", "pcx @in.bmp @missing/out.pcx", "film @bad.png @out.bmp",
          "film @wide.avi @out.bmp", "film @none.avi @out.bmp", "sheet @out.bmp @bad.png", "sheet @out.bmp @in.bmp",
          "sheet @new.bmp @good.bmp @bad.png", "sheet @missing/out.png @in.bmp --fit whole"}) {
        const Spoken spoken = Call(call);
        EXPECT_EQ(spoken.Code, VerbFailed) << call;
        EXPECT_TRUE(spoken.Err.contains(folder.Path())) << call << ": " << spoken.Err.toStdString();
        EXPECT_TRUE(spoken.Out.isEmpty()) << call;
    }
    for (const char* call : {"pcx", "pcx @in.bmp", "pcx @in.bmp @out.gif", "pcx @in.bmp @out.pcx --colours 1",
                             "pcx @in.bmp @out.pcx --colours", "pcx @in.bmp @out.pcx --odd", "film @wide.avi @out.txt",
                             "film @wide.avi @out.bmp --tiles 26", "film @wide.avi @out.bmp --fit 1,2,3",
                             "film @wide.avi @out.bmp --fit 1,2,0,9", "sheet @out.bmp"}) {
        const Spoken spoken = Call(call);
        EXPECT_EQ(spoken.Code, VerbFailed) << call;
        EXPECT_TRUE(spoken.Err.contains(QStringLiteral("Use: gemforge-batch"))) << call;
    }
    EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files), before);
    EXPECT_EQ(Read("out.pcx"), "old");
    EXPECT_EQ(Read("out.bmp"), "old");
}

// Catches: options of the sheet that are not taken, a sheet of pictures in another order, a form by another rule.
TEST_F(ImageVerbs, FilmsAndPicturesBecomeSheets)
{
    QList<QImage> frames = FilmFrames(6);
    frames[3] = frames[2];
    folder.Write(QStringLiteral("a.avi"), BuildAvi(frames));
    EXPECT_EQ(Call("film @a.avi @out.bmp --tiles 2").Out,
              Path("out.bmp") + QStringLiteral(": 5 tiles of 6 frames, 64 by 96\n"));
    EXPECT_EQ(QImage(Path("out.bmp")).size(), QSize(64, 96));
    EXPECT_EQ(Call("film @a.avi @out.pcx --tiles 3 --keep-repeats").Code, VerbDone);
    const QImage sheet = ReadPcx(Read("out.pcx"));
    ASSERT_EQ(sheet.size(), QSize(96, 64));
    EXPECT_EQ(sheet.copy(0, 32, 32, 32), frames[3]);

    const QByteArray whole = Read("a.avi");
    folder.Write(QStringLiteral("cut.avi"), whole.first(whole.indexOf("movi") + 4 + 3 * (8 + 32 * 32 * 3) + 100));
    const Spoken cut = Call("film @cut.avi @out.bmp");
    EXPECT_EQ(cut.Code, VerbFound);
    EXPECT_EQ(cut.Err, Path("out.bmp") + QStringLiteral(": the film tells of 6 frames, not all can be read\n"));
    EXPECT_EQ(QImage(Path("out.bmp")).size(), QSize(512, 32));
    EXPECT_TRUE(Call("film @a.avi @none.bmp --fit 40,40,8,8").Err.contains(QStringLiteral("outside of the picture")));

    ASSERT_TRUE(QDir(folder.Path()).mkdir(QStringLiteral("tiles")));
    for (const int i : {10, 9, 1})
        folder.Write(QStringLiteral("tiles/%1.bmp").arg(i), BitmapFile(FilmFrames(11)[i]));
    EXPECT_EQ(Call("sheet @out.png @tiles --tiles 3").Code, VerbDone);
    const QImage pictures = QImage(Path("out.png")).convertToFormat(QImage::Format_RGB32);
    for (const auto& [column, frame] : {std::pair(0, 1), std::pair(1, 9), std::pair(2, 10)})
        EXPECT_EQ(pictures.copy(column * 32, 0, 32, 32), FilmFrames(11)[frame]);
}
