#include "fault_steps.h"
#include "mutated.h"
#include "platform/archives/zip_archive.h"
#include "services/archive_tool.h"
#include "services/made_archive.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

constexpr QLatin1StringView Everything("/");

class UnpackStrangers : public testing::Test
{
protected:
    void SetUp() override { Prepare(); }
    void Prepare() const
    {
        QDir(folder.Path(QStringLiteral("target"))).removeRecursively();
        folder.Write(QStringLiteral("target/old"), "old");
        folder.Write(QStringLiteral("target/full/x"), "x");
        folder.Write(QStringLiteral("outside/precious"), "precious");
        QFile::link(folder.Path(QStringLiteral("outside")), target + QStringLiteral("/linked"));
    }
    void ExpectUntouched() const
    {
        const QStringList names = QDir(target).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        EXPECT_EQ(names, QStringList({QStringLiteral("full"), QStringLiteral("linked"), QStringLiteral("old")}));
        EXPECT_EQ(folder.Read(QStringLiteral("target/old")), "old");
        EXPECT_EQ(QDir(folder.Path(QStringLiteral("outside"))).entryList(QDir::Files),
                  QStringList(QStringLiteral("precious")));
        EXPECT_EQ(folder.Read(QStringLiteral("outside/precious")), "precious");
    }

    const TestFolder folder;
    const QString target = folder.Path(QStringLiteral("target"));
    const QString archive = folder.Path(QStringLiteral("a.zip"));
};

} // namespace

// Catches an entry that gets out of the target, or one that is found to be bad when others are already there.
TEST_F(UnpackStrangers, NothingLeavesTheTarget)
{
    const MadeEntry Bad[] = {{"../out", "x"},
                             {"a/../../out", "x"},
                             {"..\\out", "x"},
                             {"/tmp/out", "x"},
                             {"\\out", "x"},
                             {"C:\\out", "x"},
                             {"c:out", "x"},
                             {"way", "/etc/passwd", S_IFLNK | 0777},
                             {"pipe", "", S_IFIFO | 0600},
                             {"linked/precious", "x"},
                             {"linked/new/x", "x"},
                             {"linked/", ""},
                             {"full", "x"},
                             {"old/x", "x"},
                             {"good/x", "x"},
                             {"secret", "x", 0, false, true},
                             {QByteArray(300, 'n'), "x"},
                             {QByteArray("a/").repeated(30000), ""}};
    for (const MadeEntry& bad : Bad) {
        SCOPED_TRACE(bad.Name.constData());
        MakeArchive(archive, {{"good", "good"}, {"old", "new"}, bad});
        EXPECT_FALSE(UnzipFiles(Everything, archive, target));
        ExpectUntouched();
        EXPECT_TRUE(UnzipFiles(QStringLiteral("good"), archive, target)) << "a good one alone";
        QFile::remove(target + QStringLiteral("/good"));
    }
    MakeArchive(archive, {{"a/..", "x"}, {"linked", "replaced"}, {"./b//c", "c"}});
    EXPECT_FALSE(UnzipFiles(QStringLiteral(".."), archive, target));
    ExpectUntouched();
    EXPECT_TRUE(UnzipFiles(QStringLiteral("linked"), archive, target));
    EXPECT_EQ(folder.Read(QStringLiteral("target/linked")), "replaced");
    EXPECT_EQ(folder.Read(QStringLiteral("outside/precious")), "precious");
    EXPECT_TRUE(UnzipFiles(QStringLiteral("./b/"), archive, target));
    EXPECT_EQ(folder.Read(QStringLiteral("target/b/c")), "c");
}

TEST_F(UnpackStrangers, Limits)
{
    MakeArchive(archive, {{"zeros", QByteArray(1 << 20, '\0')}, {"one", "1"}, {"two", "2"}});
    const auto unpacks = [&](const UnpackLimits& limits) {
        const bool done = UnzipFiles(Everything, archive, target, {}, limits).has_value();
        if (!done)
            ExpectUntouched();
        Prepare();
        return done;
    };
    EXPECT_TRUE(unpacks({}));
    EXPECT_FALSE(unpacks({.Entries = 2}));
    EXPECT_TRUE(unpacks({.Entries = 3, .Bytes = (1 << 20) + 2}));
    EXPECT_FALSE(unpacks({.Bytes = (1 << 20) + 1}));
    EXPECT_FALSE(unpacks({.AnyRatio = 1 << 20, .Ratio = 100}));
    EXPECT_TRUE(unpacks({.AnyRatio = 1 << 21, .Ratio = 100}));
    EXPECT_TRUE(unpacks({.AnyRatio = 1 << 20, .Ratio = 1000}));

    // An archive that tells less than it holds.
    MakeArchive(archive, {{"zeros", QByteArray(1 << 20, '\0')}});
    QByteArray lying = folder.Read(QStringLiteral("a.zip"));
    const QByteArray size = QByteArray::fromHex("00001000");
    ASSERT_EQ(lying.count(size), 2);
    folder.Write(QStringLiteral("a.zip"), lying.replace(size, QByteArray::fromHex("0a000000")));
    EXPECT_FALSE(unpacks({}));

    folder.Write(QStringLiteral("Set/a"), "aaa");
    EXPECT_FALSE(ZipFiles(folder.Path(QStringLiteral("Set")), archive, {}, {.Bytes = 2}));
    EXPECT_FALSE(ZipFiles(folder.Path(QStringLiteral("Set")), archive, {}, {.Entries = 1}));
}

// Damage anywhere: either what was packed comes out, or nothing does. Changing such an archive does no harm either.
TEST_F(UnpackStrangers, DamagedArchives)
{
    const QByteArray text = QByteArray("some text that packs well ").repeated(40);
    MakeArchive(archive, {{"a", text}, {"b/c", "c"}, {"d", text, S_IFREG | 0600, false, false, true}});
    const QByteArray whole = folder.Read(QStringLiteral("a.zip"));
    QRandomGenerator random(20);
    int refused = 0;
    FileSteps steps = FileSteps::OfSystem();
    steps.Sync = steps.SyncAll = [](int) { return 0; }; // hundreds of them would take their time
    const FileStepsScope scope(steps);
    for (int round = 0; round < 1500; ++round) {
        QFile::remove(archive);
        const QByteArray bytes = round < whole.size() ? whole.left(round) : Mutated(whole, random);
        folder.Write(QStringLiteral("a.zip"), bytes);
        const auto kept = ZipArchive::Open(archive);
        const Result<> unpacked = UnzipFiles(Everything, archive, target);
        refused += !unpacked;
        if (unpacked) {
            for (const ZipEntry& entry : kept->Entries()) {
                const auto safe = SafeName(entry.Name);
                ASSERT_TRUE(safe);
                EXPECT_TRUE(entry.IsFolder() || QFileInfo(target + QLatin1Char('/') + *safe).size() == entry.Size);
            }
            Prepare();
        } else {
            ExpectUntouched();
        }
        const bool changed = AddBytesToResource(QStringLiteral("new"), "new", archive).has_value();
        EXPECT_TRUE(changed || folder.Read(QStringLiteral("a.zip")) == bytes);
    }
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 1500);
}

// A process that ends in between leaves every file old or new, never a part of one.
TEST_F(UnpackStrangers, EndOfProcessAtAnyStep)
{
    const QByteArray big(300000, 'n');
    MakeArchive(archive, {{"old", big}, {"new", big}});
    for (int nth = 1, status = 0; status == 0; ++nth) {
        SCOPED_TRACE(nth);
        Prepare();
        const pid_t child = fork();
        if (child == 0) {
            FileSteps steps = FileSteps::OfSystem();
            steps.SyncAll = [](int) { return 0; };
            const FileStepsScope scope(FailingAt(std::move(steps), nth, -1, std::make_shared<int>(0)));
            _exit(UnzipFiles(Everything, archive, target) && nth > 10 ? 1 : 2);
        }
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_NE(WEXITSTATUS(status), 2);
        const QByteArray old = folder.Read(QStringLiteral("target/old")),
                         made = folder.Read(QStringLiteral("target/new"));
        EXPECT_TRUE(old == "old" || old == big);
        EXPECT_TRUE(made == "<no such file>" || made == big);
    }
}

// Any step that fails is told, and until the first file is placed nothing has changed; a full disk among them.
TEST_F(UnpackStrangers, AnyFailingStepIsTold)
{
    const QByteArray big(300000, 'n');
    MakeArchive(archive, {{"old", big}});
    int calls = 0, passedOver = 0;
    for (int nth = 1; nth == calls + 1; ++nth) {
        SCOPED_TRACE(nth);
        Prepare();
        const auto count = std::make_shared<int>(0);
        Result<> result;
        {
            FileSteps steps = FileSteps::OfSystem();
            steps.SyncAll = [](int) { return 0; };
            const FileStepsScope scope(FailingAt(std::move(steps), nth, EIO, count));
            result = UnzipFiles(Everything, archive, target);
        }
        calls = std::min(*count, nth);
        passedOver += result && *count >= nth;
        const QByteArray old = folder.Read(QStringLiteral("target/old"));
        EXPECT_TRUE(result ? old == big : old == "old" || old == big);
    }
    EXPECT_GE(calls, 8);
    EXPECT_LE(passedOver, 3) << "closing the folder, removing what is gone already";

    Prepare();
    const FileSizeLimit limit(100000);
    EXPECT_FALSE(UnzipFiles(Everything, archive, target));
    ExpectUntouched();
}
