#include "decoder/film/read_film.h"

#include "decoder/decode_here.h"
#include "decoder/film_files.h"
#include "decoder/sample_images.h"
#include "mutated.h"
#include "test_support.h"

extern "C" {
#include <libavutil/log.h>
}
#include <cmath>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// What reading a film in this process comes to.
struct ReadHere
{
    film::Facts Told;
    QList<int> Numbers;
    QList<QImage> Tiles;
};

QImage TileImage(const film::Tile& tile)
{
    const QImage below(reinterpret_cast<const uchar*>(tile.data()), 32, 32, 96, QImage::Format_BGR888);
    return below.mirrored().convertToFormat(QImage::Format_RGB32);
}

ReadHere ReadFilmHere(const QByteArray& bytes, const film::Request& request = {}, int most = 1000)
{
    av_log_set_level(AV_LOG_QUIET);
    const int file = memfd_create("film", MFD_CLOEXEC);
    EXPECT_EQ(write(file, bytes.constData(), size_t(bytes.size())), bytes.size());
    ReadHere read;
    film::ReadFilm(file, request,
                   {.Begins =
                        [&](const film::Facts& facts) {
                            read.Told = facts;
                            return true;
                        },
                    .Shows =
                        [&](quint32 number, const film::Tile& tile) {
                            read.Numbers << int(number);
                            read.Tiles << TileImage(tile);
                            return read.Tiles.size() < most;
                        },
                    .Works = [] {}});
    close(file);
    return read;
}

double MeanDifference(const QImage& one, const QImage& other)
{
    double sum = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x)
            for (const int shift : {0, 8, 16})
                sum += std::abs(int(one.pixel(x, y) >> shift & 0xff) - int(other.pixel(x, y) >> shift & 0xff));
    return sum / (32 * 32 * 3);
}

} // namespace

// Catches: frames upside down, shifted, with red for blue or in another order, a wrong count, a rate or length that is
// not the film's.
TEST(ReadFilm, UncompressedFramesToThePixel)
{
    const QList<QImage> frames = FilmFrames(9);
    const ReadHere read = ReadFilmHere(BuildAvi(frames));
    EXPECT_EQ(read.Told, (film::Facts{film::Outcome::Reads, 32, 32, 9, true, 25, 1}));
    EXPECT_EQ(read.Tiles, frames);
    EXPECT_EQ(read.Numbers, QList<int>({0, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(ReadFilmHere(BuildAvi(frames), {}, 4).Tiles, frames.first(4)) << "more than wanted";
}

// Catches: a codec or container that is not read, frames lost at the end of one that holds some back, numbers that
// begin late in one that shuffles them.
TEST(ReadFilm, CompressedFilmsLookLikeTheirFrames)
{
    struct Row
    {
        const char *Encoder, *Container;
        double Most; ///< mean difference of a channel
    };
    constexpr Row Rows[] = {{"cinepak", "avi", 12},   {"mjpeg", "avi", 12},   {"msvideo1", "avi", 12},
                            {"libx264", "avi", 12},   {"libx264", "mp4", 12}, {"mpeg4", "mov", 12},
                            {"ffv1", "matroska", 12}, {"gif", "gif", 60},     {"rawvideo", "avi", 0}};
    const QList<QImage> frames = FilmFrames(20);
    for (const Row& row : Rows) {
        SCOPED_TRACE(testing::Message() << row.Encoder << " in " << row.Container);
        const QByteArray film = EncodedFilm(row.Encoder, row.Container, frames);
        ASSERT_FALSE(film.isEmpty()) << "the encoder is missing";
        const ReadHere read = ReadFilmHere(film);
        ASSERT_EQ(read.Told.How, film::Outcome::Reads);
        ASSERT_EQ(read.Tiles.size(), frames.size());
        for (int i = 0; i < frames.size(); ++i) {
            EXPECT_EQ(read.Numbers[i], i);
            EXPECT_LE(MeanDifference(read.Tiles[i], frames[i]), row.Most) << i;
        }
    }
}

// Catches: a dropped frame that shortens the film, and one whose damage brings the frame before into its place.
TEST(ReadFilm, AFrameWithoutBytesStays)
{
    QList<QImage> frames = FilmFrames(8);
    frames[3] = frames[4] = QImage();
    const ReadHere read = ReadFilmHere(BuildAvi(frames));
    frames[3] = frames[4] = frames[2];
    EXPECT_EQ(read.Tiles, frames);
    EXPECT_EQ(read.Numbers.last(), 7);
}

// Catches: a film that is read though its frames are no tiles, a failure told as another, sound taken for pictures.
TEST(ReadFilm, WhatCannotBeReadIsToldBeforeAnyFrame)
{
    const QList<QImage> frames = FilmFrames(3);
    const auto refused = [](const QByteArray& film) {
        const ReadHere read = ReadFilmHere(film);
        EXPECT_TRUE(read.Tiles.isEmpty());
        return read.Told.How;
    };
    const QList<QImage> wide = FilmFrames(3, {34, 32});
    EXPECT_EQ(refused(BuildAvi(wide, {.Size = {34, 32}})), film::Outcome::WrongSize);
    EXPECT_EQ(refused(BuildAvi(frames, {.Codec = "QQQQ"})), film::Outcome::NoDecoder);
    EXPECT_EQ(refused(BuildAvi(frames, {.HasPictures = false})), film::Outcome::NotOpened);
    EXPECT_EQ(refused("no film"), film::Outcome::NotOpened);
    EXPECT_EQ(refused({}), film::Outcome::NotOpened);
    EXPECT_EQ(refused("#EXTM3U\nfile:///etc/passwd\n"), film::Outcome::NotOpened);
    EXPECT_EQ(refused("ffconcat version 1.0\nfile 'other.avi'\n"), film::Outcome::NotOpened);
}

// Catches: another part than the one asked for, one that reaches outside, a picture that is cut where it should be
// scaled; blocks that blur when a small film grows.
TEST(ReadFilm, OtherSizesAreCutAndScaled)
{
    QImage frame(96, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 96; ++x)
            frame.setPixel(x, y, qRgb(x / 32 * 100, y / 32 * 200, 50));
    const QByteArray film = BuildAvi({frame}, {.Size = frame.size()});
    const auto tile = [&](const film::Request& request) { return ReadFilmHere(film, request).Tiles.value(0); };
    const QImage part = tile({.How = film::Fit::Part, .X = 64, .Y = 32});
    EXPECT_EQ(part, frame.copy(64, 32, 32, 32));
    EXPECT_EQ(tile({.How = film::Fit::Part, .X = 40, .Y = 20}), frame.copy(40, 20, 32, 32)) << "no whole tile";
    const QImage edge = tile({.How = film::Fit::Part, .X = 80, .Y = 48, .Width = 5000, .Height = 5000});
    EXPECT_EQ(edge.pixel(16, 16), qRgb(200, 200, 50));
    EXPECT_TRUE(tile({.How = film::Fit::Part, .X = 96, .Y = 0}).isNull());
    const QImage whole = tile({.How = film::Fit::Whole}), middle = tile({.How = film::Fit::Middle});
    EXPECT_EQ(whole.pixel(1, 1), qRgb(0, 0, 50));
    EXPECT_EQ(whole.pixel(30, 30), qRgb(200, 200, 50));
    EXPECT_EQ(middle.pixel(1, 30), qRgb(0, 200, 50));
    EXPECT_EQ(middle.pixel(16, 1), qRgb(100, 0, 50));
    const QImage small = frame.copy(24, 24, 16, 16);
    EXPECT_EQ(ReadFilmHere(BuildAvi({small}, {.Size = small.size()}), {.How = film::Fit::Whole}).Tiles.value(0),
              small.scaled(32, 32));
}

// Catches: reads outside of the bytes, endless runs, messages that are taken for others; with sanitizers.
TEST(ReadFilm, MutatedFilmsAndMessages)
{
    QRandomGenerator random(20240701);
    const QList<QImage> frames = FilmFrames(4);
    QList<QByteArray> films{BuildAvi(frames), BuildAvi(FilmFrames(3, {50, 20}), {.Size = {50, 20}})};
    for (const auto& [encoder, container] :
         {std::pair("cinepak", "avi"), std::pair("mjpeg", "avi"), std::pair("msvideo1", "avi"),
          std::pair("libx264", "mp4"), std::pair("gif", "gif")})
        films << EncodedFilm(encoder, container, frames);
    int read = 0, refused = 0;
    for (const QByteArray& film : films)
        for (int round = 0; round < 40; ++round) {
            const ReadHere here = ReadFilmHere(Mutated(film, random), {.How = film::Fit(random.bounded(4))}, 50);
            ++(here.Tiles.isEmpty() ? refused : read);
        }
    EXPECT_GT(read, 60);
    EXPECT_GT(refused, 20);

    const auto bytes = [](const auto& packed) {
        return QByteArray(reinterpret_cast<const char*>(packed.data()), qsizetype(packed.size()));
    };
    const film::Request request{film::Fit::Part, 1, 2, 3, 4};
    const film::Facts facts{film::Outcome::Reads, 32, 32, 9, true, 25, 1};
    const QByteArray messages[] = {bytes(Pack(request)), bytes(Pack(facts)),
                                   bytes(Pack(film::Frame{film::Step::Frame, 7}))};
    EXPECT_EQ(film::UnpackRequest(BytesOf(messages[0])), request);
    EXPECT_EQ(film::UnpackFacts(BytesOf(messages[1])), facts);
    int taken = 0;
    for (int round = 0; round < 3000; ++round) {
        const QByteArray odd = Mutated(messages[round % 3], random);
        if (const auto was = film::UnpackRequest(BytesOf(odd))) {
            ++taken;
            EXPECT_EQ(bytes(Pack(*was)), odd);
            EXPECT_TRUE(was->Width > 0 && was->Height > 0 && was->X <= film::LongestSide);
        }
        if (const auto was = film::UnpackFacts(BytesOf(odd))) {
            ++taken;
            EXPECT_EQ(bytes(Pack(*was)), odd);
            EXPECT_TRUE(was->RateSeconds > 0);
        }
        if (const auto was = film::UnpackFrame(BytesOf(odd))) {
            ++taken;
            EXPECT_EQ(bytes(Pack(*was)), odd);
        }
    }
    EXPECT_GT(taken, 20) << "the inputs no longer get through";
}
