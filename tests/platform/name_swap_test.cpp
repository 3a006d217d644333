#include "fault_steps.h"
#include "platform/files/beside_notes.h"
#include "platform/files/name_swap.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

const QByteArray Conf = "the author's conf, which nobody may lose\n";
const QByteArray Small = "one block\n";
const QString ConfName = QStringLiteral("set/graphics/graphicsinfo.conf");
const QString Sounds = QStringLiteral("set/sounds");

/// A level set whose conf gives way to a small one, in a state folder of its own.
class NameSwap : public testing::TestWithParam<bool>
{
public:
    NameSwap() { qputenv("XDG_STATE_HOME", QFile::encodeName(state.Path())); }
    ~NameSwap() override { qunsetenv("XDG_STATE_HOME"); }

protected:
    void Prepare()
    {
        QDir(folder.Path(QStringLiteral("set"))).removeRecursively();
        QDir(state.Path(QStringLiteral("gemforge"))).removeRecursively();
        folder.Write(ConfName, Conf);
        folder.Write(Sounds + QStringLiteral("/ding.wav"), "sound");
    }
    name_swap::Plan Plan() const
    {
        return {folder.Path(ConfName),
                QStringLiteral("graphicsinfo.confABCDE"),
                Small,
                {{folder.Path(Sounds), folder.Path(QStringLiteral("set/_gfg_sounds"))},
                 {folder.Path(QStringLiteral("set/music")), folder.Path(QStringLiteral("set/_gfg_music"))}}};
    }
    /// The system's calls, unsynced; where told so, of a file system that cannot exchange two names.
    FileSteps Table() const
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = [](int) { return 0; };
        if (!GetParam())
            steps.Exchange = [](const char*, const char*) {
                errno = EINVAL;
                return -1;
            };
        return steps;
    }
    /// Nothing but what stood there before; the notes are gone too.
    void ExpectAsBefore(const std::string& when)
    {
        beside::SweepNoted(); // as each start does
        EXPECT_EQ(folder.Read(ConfName), Conf) << when;
        EXPECT_EQ(folder.Read(Sounds + QStringLiteral("/ding.wav")), "sound") << when;
        EXPECT_EQ(Names(QStringLiteral("set")), QStringList({QStringLiteral("graphics"), QStringLiteral("sounds")}))
            << when;
        EXPECT_EQ(Names(QStringLiteral("set/graphics")).size(), 1) << when;
        EXPECT_EQ(QDir(state.Path(QStringLiteral("gemforge/swaps"))).entryList(QDir::Files).size(), 0) << when;
    }
    QStringList Names(const QString& name) const
    {
        return QDir(folder.Path(name)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// Runs `work` in a process that ends at its `nth` call; true if it came to its end before.
    template <class Work>
    bool EndsBefore(int nth, Work work)
    {
        const pid_t child = fork();
        if (child == 0) {
            const FileStepsScope scope(FailingAt(Table(), nth, -1, std::make_shared<int>(0)));
            work();
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WEXITSTATUS(status) == 1;
    }

    TestFolder folder, state;
};

void SwapAndBack(const name_swap::Plan& plan)
{
    if (auto swap = name_swap::Begin(plan))
        swap->End();
}

// Catches: a swap that loses or doubles a name on its ordinary way, also behind a link.
TEST_P(NameSwap, StandsInAndGoesBack)
{
    const FileStepsScope scope(Table());
    for (const bool link : {false, true}) {
        Prepare();
        if (link) {
            QFile::rename(folder.Path(ConfName), folder.Path(QStringLiteral("real.conf")));
            QFile::link(QStringLiteral("../../real.conf"), folder.Path(ConfName));
        }
        auto swap = name_swap::Begin(Plan());
        ASSERT_TRUE(swap);
        EXPECT_EQ(folder.Read(ConfName), Small);
        EXPECT_EQ(folder.Read(QStringLiteral("set/graphics/graphicsinfo.confABCDE")), Conf);
        EXPECT_FALSE(QDir(folder.Path(Sounds)).exists());
        const name_swap::PutBack back = swap->End();
        EXPECT_EQ(back.Restored, QStringList(folder.Path(ConfName)));
        EXPECT_TRUE(back.Kept.isEmpty() && back.Failures.empty());
        ExpectAsBefore(link ? "link" : "file");
        EXPECT_EQ(QFileInfo(folder.Path(ConfName)).isSymLink(), link);
    }
}

// Catches: a moment at which a kill leaves the conf under another name for good, or a hidden file in the author's
// folder; a second kill while it is put back.
TEST_P(NameSwap, KilledAnywhereIsPutBackByTheNextStart)
{
    int points = 0;
    for (int nth = 1;; ++nth) {
        Prepare();
        if (EndsBefore(nth, [&] { SwapAndBack(Plan()); }))
            break;
        ++points;
        const FileStepsScope scope(Table());
        EXPECT_TRUE(name_swap::FinishAll().Failures.empty());
        EXPECT_TRUE(name_swap::FinishIn(folder.Path(QStringLiteral("set/graphics/"))).Failures.empty());
        ExpectAsBefore("killed at step " + std::to_string(nth));
    }
    EXPECT_GT(points, 20);
    for (int nth = 1;; ++nth) {
        Prepare();
        EndsBefore(1'000'000, [&] {
            auto swap = name_swap::Begin(Plan());
            _exit(0);
        });
        ASSERT_EQ(folder.Read(ConfName), Small);
        if (EndsBefore(nth, [] { name_swap::FinishAll(); }))
            break;
        const FileStepsScope scope(Table());
        EXPECT_TRUE(name_swap::FinishAll().Failures.empty());
        ExpectAsBefore("put back, killed at step " + std::to_string(nth));
    }
}

// Catches: a failing step (full disk, no permission, broken disk) that leaves the small conf in the author's place.
TEST_P(NameSwap, FailingAnywhereLeavesAllAsItWas)
{
    for (const int error : {ENOSPC, EACCES, EIO}) {
        for (int nth = 1;; ++nth) {
            Prepare();
            const auto count = std::make_shared<int>(0);
            {
                const FileStepsScope scope(FailingAt(Table(), nth, error, count));
                SwapAndBack(Plan());
            }
            if (*count < nth)
                break;
            const FileStepsScope scope(Table());
            EXPECT_TRUE(name_swap::FinishAll().Failures.empty());
            name_swap::FinishIn(folder.Path(QStringLiteral("set/graphics/")));
            ExpectAsBefore(std::to_string(error) + " at step " + std::to_string(nth));
        }
    }
}

// Catches: a text that somebody has saved during the test, or over the kept file, being thrown away.
TEST_P(NameSwap, KeepsWhatOthersHaveWrittenMeanwhile)
{
    const FileStepsScope scope(Table());
    const QString aside = QStringLiteral("set/graphics/graphicsinfo.conf_000.GemforgeBackup");
    Prepare();
    auto first = name_swap::Begin(Plan());
    folder.Write(ConfName, "saved by another editor");
    EXPECT_EQ(first->End().Kept, QStringList(folder.Path(aside)));
    EXPECT_EQ(folder.Read(ConfName), Conf);
    EXPECT_EQ(folder.Read(aside), "saved by another editor");

    Prepare();
    auto second = name_swap::Begin(Plan());
    QFile::remove(folder.Path(ConfName));
    folder.Write(ConfName, Conf);
    folder.Write(QStringLiteral("set/graphics/graphicsinfo.confABCDE"), "edited by hand");
    EXPECT_EQ(second->End().Kept, QStringList(folder.Path(aside)));
    EXPECT_EQ(folder.Read(ConfName), Conf);
    EXPECT_EQ(folder.Read(aside), "edited by hand");

    Prepare();
    auto third = name_swap::Begin(Plan());
    folder.Write(Sounds + QStringLiteral("/new.wav"), "new");
    QFile::remove(folder.Path(ConfName));
    const name_swap::PutBack back = third->End();
    EXPECT_EQ(folder.Read(ConfName), Conf);
    EXPECT_EQ(back.Kept, QStringList(folder.Path(QStringLiteral("set/_gfg_sounds"))));
    EXPECT_EQ(folder.Read(QStringLiteral("set/_gfg_sounds/ding.wav")), "sound");
}

// Catches: a second program that takes the small conf of the first for the author's, and an own swap undone under way.
TEST_P(NameSwap, RefusesWhereAnotherSwapIsInForce)
{
    const FileStepsScope scope(Table());
    Prepare();
    auto swap = name_swap::Begin(Plan());
    ASSERT_TRUE(swap);
    EXPECT_FALSE(name_swap::Begin(Plan()));
    name_swap::FinishAll();
    name_swap::FinishIn(folder.Path(QStringLiteral("set/graphics/")));
    EXPECT_EQ(folder.Read(ConfName), Small);
    swap->End();
    ExpectAsBefore("both");
}

// Catches: a text in the conf's place that equals it, so that the wrong one of the two is thrown away.
TEST_P(NameSwap, TellsEqualTextsApart)
{
    const FileStepsScope scope(Table());
    Prepare();
    const QString path = folder.Path(ConfName);
    QFile::rename(path, folder.Path(QStringLiteral("real.conf")));
    QFile::link(QStringLiteral("../../real.conf"), path);
    name_swap::Plan plan = Plan();
    plan.Bytes = Conf;
    SwapAndBack(plan);
    EXPECT_TRUE(QFileInfo(path).isSymLink());
    ExpectAsBefore("equal");
}

// Catches: a hidden folder that is there already being merged with or written over.
TEST_P(NameSwap, RefusesAFolderNameThatIsTaken)
{
    const FileStepsScope scope(Table());
    Prepare();
    folder.Write(QStringLiteral("set/_gfg_sounds/old.wav"), "old");
    const auto swap = name_swap::Begin(Plan());
    ASSERT_FALSE(swap);
    EXPECT_EQ(swap.error().Path, folder.Path(QStringLiteral("set/_gfg_sounds")));
    EXPECT_EQ(folder.Read(ConfName), Conf);
}

INSTANTIATE_TEST_SUITE_P(FileSystems, NameSwap, testing::Values(true, false),
                         [](const auto& row) { return row.param ? "Exchanging" : "Renaming"; });

} // namespace
