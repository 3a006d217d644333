#include "platform/files/folder_watch.h"

#include "test_support.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <gtest/gtest.h>

namespace {

/// Lets events run until something was told; false after `ms`.
bool Tells(const int& told, int ms)
{
    for (const QDeadlineTimer end(ms); told == 0 && !end.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    return told > 0;
}

} // namespace

// Catches: a watch that stays with a folder that was renamed, or ends when the folder is deleted, so that files in the
// one that takes its name are never told; noise from the folders above.
TEST(FolderWatch, FollowsTheNameWhateverFolderHasIt)
{
    const TestFolder place;
    const QString folder = place.Path(QStringLiteral("set/"));
    ASSERT_TRUE(QDir().mkpath(folder));
    FolderWatch watch;
    int told = 0;
    QObject::connect(&watch, &FolderWatch::Changed, &watch, [&told] { ++told; });
    watch.Follow({folder, QString(), folder});
    const auto tells = [&told](const auto& change) {
        told = 0;
        change();
        return Tells(told, 5'000);
    };
    EXPECT_TRUE(tells([&] { place.Write(QStringLiteral("set/a"), "1"); }));
    EXPECT_TRUE(tells([&] {
        QDir(place.Path({})).rename(QStringLiteral("set"), QStringLiteral("old"));
        QDir().mkpath(folder);
    }));
    EXPECT_TRUE(tells([&] { place.Write(QStringLiteral("set/b"), "1"); })) << "renamed";
    EXPECT_TRUE(tells([&] { QDir(folder).removeRecursively(); }));
    EXPECT_TRUE(tells([&] { QDir().mkpath(folder); }));
    EXPECT_TRUE(tells([&] { place.Write(QStringLiteral("set/c"), "1"); })) << "deleted";
    Tells(told, 0);
    told = 0;
    place.Write(QStringLiteral("beside"), "1");
    place.Write(QStringLiteral("old/d"), "1");
    EXPECT_FALSE(Tells(told, 100));
}
