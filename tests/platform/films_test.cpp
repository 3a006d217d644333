#include "platform/images/films.h"

#include "decoder/film_files.h"
#include "test_support.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

struct Heard
{
    films::Reading Reading;
    QList<int> Numbers;
    int Begun = 0;
};

Heard ReadFilmWith(const QString& helper, const QString& path, const films::Plan& plan = {}, const Turn& goes = {},
                   int most = 100'000)
{
    Heard heard;
    const auto shows = [&](int number, films::TileView) {
        heard.Numbers << number;
        return heard.Numbers.size() < most;
    };
    const auto begins = [&](const films::Facts&) { ++heard.Begun; };
    heard.Reading = films::ReadWith(helper, 1000, path, plan, {.Begins = begins, .Shows = shows, .Goes = goes});
    return heard;
}

QString RealFilmHelper()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/gemforge-film");
}

template <class Packed>
QByteArray Said(const Packed& packed)
{
    return {reinterpret_cast<const char*>(packed.data()), qsizetype(packed.size())};
}

} // namespace

// Catches: limits of the helper that are too tight for a film, frames lost on the way, a failure told as another, a
// film that is read further than wanted.
TEST(Films, AreReadByTheHelper)
{
    const TestFolder folder;
    const QList<QImage> frames = FilmFrames(40);
    const QString raw = folder.Write(QStringLiteral("Raw.avi"), BuildAvi(frames));
    const QString packed = folder.Write(QStringLiteral("packed.mp4"), EncodedFilm("libx264", "mp4", frames));
    for (const QString& path : {raw, packed, folder.Path(QStringLiteral("RAW.AVI"))}) {
        const Heard heard = ReadFilmWith(RealFilmHelper(), path);
        EXPECT_EQ(heard.Reading.How, films::End::Whole);
        EXPECT_EQ(heard.Numbers.size(), 40);
        EXPECT_EQ(heard.Reading.Told.Length, 40u);
        EXPECT_EQ(heard.Begun, 1);
    }
    EXPECT_EQ(ReadFilmWith(RealFilmHelper(), raw, {}, {}, 3).Numbers.size(), 3);
    const QString wide =
        folder.Write(QStringLiteral("wide.avi"), BuildAvi(FilmFrames(2, {64, 48}), {.Size = {64, 48}}));
    const Heard wrong = ReadFilmWith(RealFilmHelper(), wide);
    EXPECT_EQ(wrong.Reading.How, films::End::WrongSize);
    EXPECT_EQ(wrong.Reading.Told.Width, 64u);
    EXPECT_EQ(wrong.Begun, 0);
    EXPECT_EQ(ReadFilmWith(RealFilmHelper(), wide, {.How = films::Fit::Middle}).Numbers.size(), 2);
    const QString odd = folder.Write(QStringLiteral("odd.avi"), BuildAvi(frames, {.Codec = "QQQQ"}));
    EXPECT_EQ(ReadFilmWith(RealFilmHelper(), odd).Reading.How, films::End::NoDecoder);
    for (const QString& none :
         {folder.Path(), folder.Path(QStringLiteral("none.avi")), folder.Write(QStringLiteral("text.avi"), "text")})
        EXPECT_EQ(ReadFilmWith(RealFilmHelper(), none).Reading.How, films::End::NotOpened);
    EXPECT_FALSE(ReadFilmWith(RealFilmHelper(), folder.Path(QStringLiteral("none.avi"))).Reading.Reason.isEmpty());
}

// Catches: a helper that cannot be started, dies, talks nonsense, promises more than it sends, or hangs, and takes this
// process or the wait with it; frames that came before its end and are lost.
TEST(Films, FaultsOfTheHelperEndTheFilm)
{
    const TestFolder folder;
    const QString film = folder.Write(QStringLiteral("a.avi"), BuildAvi(FilmFrames(2)));
    const QByteArray facts = Said(film::Pack(film::Facts{film::Outcome::Reads, 32, 32, 9, true, 25, 1}));
    const QByteArray frame = Said(film::Pack(film::Frame{film::Step::Frame, 0})) + QByteArray(3072, 'x');
    struct Row
    {
        QByteArray Says, Does;
        films::End How;
        int Frames;
    };
    const Row rows[] = {{"", "exit 1", films::End::NotOpened, 0},
                        {"", "kill -SEGV $$", films::End::NotOpened, 0},
                        {"", "exec sleep 60", films::End::NotOpened, 0},
                        {QByteArray(4000, '\x5a'), "exec sleep 60", films::End::NotOpened, 0},
                        {Said(film::Pack(film::Facts{film::Outcome::Reads, 0, 0})), "exit", films::End::NotOpened, 0},
                        {facts, "exit", films::End::Broken, 0},
                        {facts + frame + frame, "exit", films::End::Broken, 2},
                        {facts + frame + frame.first(500), "exec sleep 60", films::End::Broken, 1},
                        {facts + frame + facts, "exit", films::End::Broken, 1}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.Says.size() << ", " << row.Does.constData());
        const QByteArray words = QFile::encodeName(folder.Write(QStringLiteral("words"), row.Says));
        const QString helper =
            folder.Write(QStringLiteral("helper"), "#!/bin/sh\ncat " + words + " >&0\n" + row.Does + "\n");
        chmod(QFile::encodeName(helper).constData(), 0700);
        const Heard heard = ReadFilmWith(helper, film);
        EXPECT_EQ(heard.Reading.How, row.How);
        EXPECT_EQ(heard.Numbers.size(), row.Frames);
    }
    EXPECT_EQ(ReadFilmWith(folder.Path(QStringLiteral("nothing")), film).Reading.How, films::End::NotOpened);
}

// Catches: a stop that waits for the film's end, also where frames come without a pause.
TEST(Films, StopAtATurn)
{
    const TestFolder folder;
    QList<QImage> frames;
    for (int i = 0; i < 400; ++i)
        frames << FilmFrames(30);
    const QString path = folder.Write(QStringLiteral("long.avi"), BuildAvi(frames));
    const Heard heard = ReadFilmWith(RealFilmHelper(), path, {}, [] { return false; });
    EXPECT_LT(heard.Numbers.size(), 12000);
    EXPECT_EQ(heard.Reading.How, films::End::Stopped);
}
