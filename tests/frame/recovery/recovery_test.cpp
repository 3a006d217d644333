#include "fault_steps.h"
#include "frame/files/closed_tabs.h"
#include "frame/files/tab_commands.h"
#include "frame/files/take_recovered.h"
#include "frame/host_ports.h"
#include "frame/program_scope.h"
#include "frame/recovery/recovery.h"
#include "frame/recovery/recovery_copies.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

class RecoveryTest : public FrameTest
{
protected:
    void SetUp() override
    {
        Run.Start();
        NewRun();
    }
    void TearDown() override { Frame.Keeper = nullptr; }

    /// Ends the run before, if there is one, and begins one that waits little.
    void NewRun()
    {
        keeper.reset();
        keeper = std::make_unique<Recovery>(Run.State.Path(), nullptr, RecoveryPace{30, 200, 400});
        Frame.Keeper = keeper.get();
    }

    QStringList CopyFiles(const QString& pattern) const
    {
        QStringList files;
        QDirIterator it(Run.State.Path(), {pattern}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            files << it.next();
        return files;
    }

    void Edit(const QString& text)
    {
        Run.Type(text);
        keeper->TextEdited(Frame.CurrentTab);
    }

    std::unique_ptr<Recovery> keeper;
};

// Catches: text of a killed run that is not found, or not with its file, mode, encoding and line ends; copies that
// others can read; a copy of the living run on offer.
TEST_F(RecoveryTest, UnsavedTextOutlivesTheRun)
{
    const QString conf = Run.Work.Write(QStringLiteral("soundsinfo.conf"), "latin \xE9\nb\n");
    ASSERT_TRUE(OpenDocument(conf, false));
    Edit(QStringLiteral("new "));
    EXPECT_TRUE(WaitUntil([&] { return CopyFiles(QStringLiteral("copy.json")).size() == 1; }));
    EXPECT_TRUE(keeper->FindRecovered().empty());
    for (const QString& file : CopyFiles(QStringLiteral("*"))) {
        struct stat facts
        {
        };
        ASSERT_EQ(stat(qPrintable(file), &facts), 0);
        EXPECT_EQ(facts.st_mode & 077, 0U) << file;
    }

    NewRun();
    const auto found = keeper->FindRecovered();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].DocumentPath, conf);
    EXPECT_EQ(found[0].Mode, ModeSfx);
    EXPECT_EQ(found[0].Encoding, FileEncoding::Windows1252);
    EXPECT_EQ(found[0].LineEnd, LineBreak::Lf);
    EXPECT_EQ(found[0].Bytes, "new latin \xE9\nb\n");
    EXPECT_FALSE(found[0].SameAsDisk);
    keeper->Forget(found[0]);
    EXPECT_TRUE(keeper->FindRecovered().empty());
    EXPECT_EQ(CopyFiles(QStringLiteral("*")), QStringList());
}

// Catches: a copy of every key press, and none as long as somebody keeps typing.
TEST_F(RecoveryTest, ACopyWaitsForAPauseButNotForEver)
{
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(WaitUntil([&] {
        Edit(QStringLiteral("x"));
        return !CopyFiles(QStringLiteral("copy.json")).isEmpty();
    }));
    EXPECT_GE(clock.elapsed(), 190);
}

// Catches: copies of text that was saved, closed or undone, offered at the next start; and folders left behind.
TEST_F(RecoveryTest, SettledTextIsNotKept)
{
    ASSERT_TRUE(OpenDocument(Run.Work.Write(QStringLiteral("a.conf"), "a\n"), false));
    Edit(QStringLiteral("b"));
    EXPECT_TRUE(keeper->KeepAllNow());
    EXPECT_EQ(CopyFiles(QStringLiteral("copy.json")).size(), 1);
    SaveCommand();
    keeper->WaitForWorker();
    EXPECT_EQ(CopyFiles(QStringLiteral("copy.json")).size(), 0);

    Edit(QStringLiteral("c"));
    EXPECT_TRUE(keeper->KeepAllNow());
    CurrentPane().SetModified(false);
    EXPECT_TRUE(keeper->KeepAllNow());
    EXPECT_EQ(CopyFiles(QStringLiteral("copy.json")).size(), 0);
    Edit(QStringLiteral("d"));
    EXPECT_TRUE(keeper->KeepAllNow());
    Answers.Next = {QStringLiteral("OK")};
    CloseTab();
    const std::optional<RecoveredText> closed = keeper->LastClosed();
    ASSERT_TRUE(closed);
    keeper->Forget(*closed);
    NewRun();
    EXPECT_TRUE(keeper->FindRecovered().empty());
    EXPECT_EQ(CopyFiles(QStringLiteral("*")), QStringList());
}

// Catches: a close that keeps only the tab in front, or none that was never saved.
TEST_F(RecoveryTest, TheCloseKeepsEveryUnsavedTab)
{
    Edit(QStringLiteral("unnamed "));
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("a.conf"), "a\n"));
    Edit(QStringLiteral("named "));
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("b.conf"), "b\n"));
    EXPECT_TRUE(keeper->KeepAllNow());
    NewRun();
    const auto found = keeper->FindRecovered();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_NE(found[0].DocumentPath.isEmpty(), found[1].DocumentPath.isEmpty());
}

// Catches: a tab emptied for another's save whose unsaved text is gone for good, and no word about it.
TEST_F(RecoveryTest, TextThatGivesWayIsKept)
{
    const QString path = Run.Work.Write(QStringLiteral("a.conf"), "a\n");
    ASSERT_TRUE(OpenDocument(path, false));
    Edit(QStringLiteral("precious "));
    OpenNewTab();
    ActivateTab();
    Answers.Next = {QStringLiteral("Overwrite")};
    ASSERT_TRUE(SaveDocument(path));
    EXPECT_EQ(Window.Notices.size(), 1);
    NewRun();
    const auto found = keeper->FindRecovered();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Bytes, "precious a\n");
}

// Catches: a half-written, damaged, foreign or locked copy that blocks the start or is offered as whole.
TEST_F(RecoveryTest, BrokenCopiesArePassedOver)
{
    Edit(QStringLiteral("text"));
    EXPECT_TRUE(keeper->KeepAllNow());
    keeper.reset();
    const QString header = CopyFiles(QStringLiteral("copy.json")).value(0);
    const QString data = CopyFiles(QStringLiteral("text-*")).value(0);
    const QString run = QDir::cleanPath(header + QStringLiteral("/../.."));
    QFile whole(header);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray good = whole.readAll();
    const auto write = [](const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    NewRun();
    ASSERT_EQ(keeper->FindRecovered().size(), 1U);
    const QByteArray broken[] = {"",
                                 good.left(good.size() / 2),
                                 "[]",
                                 QByteArray(good).replace("\"mode\": 1", "\"mode\": 9"),
                                 QByteArray(good).replace("\"text-1\"", "\"../lock\""),
                                 QByteArray(good).replace("\"form\": 1", "\"form\": 2")};
    for (const QByteArray& bytes : broken) {
        ASSERT_NE(bytes, good);
        write(header, bytes);
        EXPECT_TRUE(keeper->FindRecovered().empty()) << bytes.toStdString();
    }
    write(header, good);
    write(data, "other text");
    EXPECT_TRUE(keeper->FindRecovered().empty());
    QFile::remove(data);
    EXPECT_TRUE(keeper->FindRecovered().empty());
    const int lock = open(qPrintable(run + QStringLiteral("/lock")), O_RDWR);
    ASSERT_EQ(flock(lock, LOCK_EX | LOCK_NB), 0);
    write(data, "text");
    EXPECT_TRUE(keeper->FindRecovered().empty()) << "its run lives";
    close(lock);
}

// Catches: a second copy of a tab that is cut off by a kill and takes the first one along.
TEST_F(RecoveryTest, TheOldCopyCountsUntilTheNewOneIsWhole)
{
    const QString folder = Run.State.Path(QStringLiteral("other/"));
    {
        recovery::RunFolder run(folder, folder);
        ASSERT_TRUE(run.Write(QStringLiteral("tab-0"), {}, "first"));
        const FileSizeLimit full(6);
        ASSERT_TRUE(run.Write(QStringLiteral("tab-0"), {}, "second").has_value() == false);
    }
    const auto found = recovery::CopiesOfEndedRuns(folder);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].Bytes, "first");
    recovery::Sweep(folder, QDateTime::currentMSecsSinceEpoch());
    EXPECT_EQ(recovery::CopiesOfEndedRuns(folder).size(), 1U);
    recovery::Sweep(folder, QDateTime::currentMSecsSinceEpoch() + recovery::StaleAfter + 60'000);
    EXPECT_FALSE(QDir(folder).exists() && !QDir(folder).isEmpty());
}

// Catches: a recovered text that overwrites its file without a question, that is lost if the program is killed right
// after it was taken, or that lands on another text.
TEST_F(RecoveryTest, ATakenTextIsUnsavedTextOfItsFile)
{
    const QString path = Run.Work.Write(QStringLiteral("soundsinfo.conf"), "a\n");
    ASSERT_TRUE(OpenDocument(path, false));
    Edit(QStringLiteral("kept "));
    EXPECT_TRUE(keeper->KeepAllNow());
    CurrentPane().SetModified(false);
    NewDocument(ModeGfx);
    keeper->WaitForWorker();
    NewRun();
    EXPECT_TRUE(keeper->FindRecovered().empty()) << "given up";

    Run.OpenInNewTab(path);
    Edit(QStringLiteral("kept "));
    EXPECT_TRUE(keeper->KeepAllNow());
    keeper.reset();
    Frame.Keeper = nullptr;
    CurrentPane().SetModified(false);
    CloseTab();
    NewRun();
    const auto found = keeper->FindRecovered();
    ASSERT_EQ(found.size(), 1U);
    Run.Work.Write(QStringLiteral("soundsinfo.conf"), "b\n");
    ASSERT_TRUE(TakeRecovered(found[0]));
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("kept a"));
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(Frame.CurrentMode, ModeSfx);
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("soundsinfo.conf"));
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("soundsinfo.conf")), "b\n") << "no question";
    NewRun();
    EXPECT_EQ(keeper->FindRecovered().size(), 1U) << "the taken text is unsaved still";
    const int holder = Frame.CurrentTab;
    OpenNewTab();
    ActivateTab();
    ASSERT_TRUE(TakeRecovered(found[0]));
    EXPECT_EQ(Frame.CurrentTab, holder) << "its file stands in two tabs";
}

// Catches: a state folder that fills up during a session, and copies that fail from then on although a spare folder has
// room; an old copy that stays beside the new one; a copy that is left where there is room again.
TEST_F(RecoveryTest, AFolderThatFillsUpGoesOverToTheSpare)
{
    const QString base = Run.State.Path(QStringLiteral("base/")), spare = Run.State.Path(QStringLiteral("spare/"));
    const auto bytes = [](const QString& folder) {
        QByteArrayList all;
        for (const RecoveredText& text : recovery::CopiesOfEndedRuns(folder))
            all << text.Bytes;
        return all.join(',');
    };
    {
        recovery::RunFolder run(base, spare);
        ASSERT_TRUE(run.Write(QStringLiteral("tab-0"), {}, "first"));
        ASSERT_TRUE(run.Write(QStringLiteral("tab-1"), {}, "other"));
        FileSteps full = FileSteps::OfSystem();
        full.Open = [open = full.Open, here = QFile::encodeName(base)](const char* path, int flags, mode_t mode) {
            if ((flags & O_CREAT) == 0 || !QByteArray(path).startsWith(here))
                return open(path, flags, mode);
            errno = ENOSPC;
            return -1;
        };
        const FileStepsScope scope(full);
        EXPECT_TRUE(run.Write(QStringLiteral("tab-0"), {}, "second"));
    }
    EXPECT_EQ(bytes(base), "other");
    EXPECT_EQ(bytes(spare), "second");
    {
        recovery::RunFolder run(base, spare);
        ASSERT_TRUE(run.Write(QStringLiteral("tab-0"), {}, "third"));
        run.Remove(QStringLiteral("tab-0"));
    }
    EXPECT_EQ(bytes(base), "other");
}

// Catches: a copy that failed and is tried again only with the next edit; a failure told at each attempt, and an end of
// it that is not.
TEST_F(RecoveryTest, AFailedCopyIsTriedAgainWithoutAnEdit)
{
    Edit(QStringLiteral("x"));
    {
        const FileSizeLimit full(0);
        EXPECT_FALSE(keeper->KeepAllNow());
        EXPECT_TRUE(WaitUntil([&] { return Window.Notices.size() == 1; }));
        for (int turn = 0; turn < 50; ++turn) {
            QCoreApplication::processEvents();
            QThread::msleep(10);
        }
        EXPECT_EQ(Window.Notices.size(), 1);
        EXPECT_EQ(CopyFiles(QStringLiteral("copy.json")), QStringList());
    }
    EXPECT_TRUE(WaitUntil([&] { return CopyFiles(QStringLiteral("copy.json")).size() == 1; }));
    EXPECT_TRUE(WaitUntil([&] { return Window.Notices.size() == 2; }));
}

// Catches: a state folder that cannot be written and a crash, a message at every copy, or a close that hangs.
TEST_F(RecoveryTest, AFolderThatCannotBeWrittenIsToldOnce)
{
    Run.State.Write(QStringLiteral("blocked"), "a file");
    keeper = std::make_unique<Recovery>(Run.State.Path(QStringLiteral("blocked")));
    Frame.Keeper = keeper.get();
    for (int i = 0; i < 3; ++i) {
        Edit(QStringLiteral("x"));
        EXPECT_FALSE(keeper->KeepAllNow());
    }
    EXPECT_TRUE(WaitUntil([&] { return Window.Notices.size() == 1; }));
    EXPECT_TRUE(keeper->FindRecovered().empty());
}

/// Writes two copies of one text in a process of its own that ends at the nth system call. True if it got through.
static bool WriteUntil(int nth, const QString& folder)
{
    const pid_t child = fork();
    if (child == 0) {
        const FileStepsScope scope(FailingAt(FileSteps::OfSystem(), nth, -1, std::make_shared<int>()));
        recovery::RunFolder run(folder, folder);
        const bool both = run.Write(QStringLiteral("tab-0"), {}, "first").has_value() &&
                          run.Write(QStringLiteral("tab-0"), {}, "second").has_value();
        _exit(both ? 1 : 2);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 2) << status;
    return WEXITSTATUS(status) == 1;
}

// Catches: a moment at which a kill leaves half a copy, two of one text, or none although one was whole.
TEST(RecoveryCopies, AKillAtAnyStepLeavesTheOldOrTheNewCopy)
{
    bool done = false;
    QByteArray last;
    for (int nth = 1; !done; ++nth) {
        SCOPED_TRACE(nth);
        ASSERT_LT(nth, 500);
        const TestFolder own;
        const QString folder = own.Path(QStringLiteral("recovery/"));
        done = WriteUntil(nth, folder);
        recovery::Sweep(folder, QDateTime::currentMSecsSinceEpoch());
        const auto found = recovery::CopiesOfEndedRuns(folder);
        ASSERT_EQ(found.size(), last.isEmpty() && found.empty() ? 0U : 1U);
        const QByteArray now = found.empty() ? QByteArray() : found[0].Bytes;
        EXPECT_TRUE(now == last || (last.isEmpty() && now == "first") || (last == "first" && now == "second"));
        last = now;
    }
    EXPECT_EQ(last, "second");
}

// Catches: unsaved text lost at a close, or with the tab that gives way to a save, where the state folder can not be
// written; a spare folder whose copies the next start does not find.
TEST_F(RecoveryTest, TextIsKeptElsewhereOrNotGivenUp)
{
    const QString blocked = Run.Work.Write(QStringLiteral("file"), "x") + QStringLiteral("/inner");
    QString spare = Run.Work.Path(QStringLiteral("spare"));
    const auto begin = [&] {
        keeper.reset();
        keeper = std::make_unique<Recovery>(blocked, nullptr, RecoveryPace{30, 200, 400}, spare);
        Frame.Keeper = keeper.get();
    };
    begin();
    const QString one = Run.Work.Write(QStringLiteral("one.conf"), "1\n");
    ASSERT_TRUE(OpenDocument(one, false));
    Edit(QStringLiteral("new "));
    EXPECT_TRUE(keeper->KeepAllNow());
    begin();
    ASSERT_EQ(keeper->FindRecovered().size(), 1U);
    EXPECT_EQ(keeper->FindRecovered()[0].Bytes, "new 1\n");
    const QByteArray around = QFile::encodeName(Run.Work.Path());
    ASSERT_EQ(chmod(around, 0777), 0);
    EXPECT_TRUE(keeper->FindRecovered().empty()) << "others may have planted it";
    EXPECT_FALSE(keeper->KeepAllNow()) << "others may read or exchange it";
    ASSERT_EQ(chmod(around, 0700), 0);

    spare = blocked;
    begin();
    const Result<> kept = keeper->KeepAllNow();
    ASSERT_FALSE(kept);
    EXPECT_TRUE(kept.error().Path.startsWith(blocked));
    OpenNewTab();
    ActivateTab();
    Answers.Next = {QStringLiteral("Overwrite"), QStringLiteral("OK")};
    EXPECT_FALSE(SaveDocument(one));
    EXPECT_EQ(Panes().Pane(0).FileBytes(), "new 1\n");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("one.conf")), "1\n");
}

// Catches: a text let go that is lost, one offered at the next start as if its run had died, an older closed text
// brought back first, a closed text that never goes, a saved document whose tab cannot be reopened.
TEST_F(RecoveryTest, ClosedTabsComeBack)
{
    const QString conf = Run.Work.Write(QStringLiteral("soundsinfo.conf"), "a: 1\n");
    OpenNewTab();
    ActivateTab();
    ASSERT_TRUE(OpenDocument(conf, false));
    CloseTab();
    OpenNewTab();
    ActivateTab();
    Edit(QStringLiteral("unsaved"));
    Answers.Next = {QStringLiteral("OK")};
    CloseTab();
    EXPECT_EQ(Frame.CurrentTab, 0);
    NewRun();
    EXPECT_TRUE(keeper->FindRecovered().empty());

    ReopenClosedTab();
    EXPECT_EQ(CurrentPane().FileBytes(), "unsaved");
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_FALSE(keeper->LastClosed());
    ReopenClosedTab();
    EXPECT_EQ(Frame.Documents.at(Frame.CurrentTab).Path, conf);
    EXPECT_FALSE(CurrentPane().Modified());
    const int tab = Frame.CurrentTab;
    ReopenClosedTab();
    EXPECT_EQ(Frame.CurrentTab, tab) << "nothing is left";

    Edit(QStringLiteral("x"));
    ASSERT_TRUE(keeper->KeepClosed(Frame.CurrentTab));
    keeper.reset();
    recovery::Sweep(Run.State.Path(QStringLiteral("recovery/")),
                    QDateTime::currentMSecsSinceEpoch() + 6 * recovery::Day);
    NewRun();
    EXPECT_TRUE(keeper->LastClosed());
    keeper.reset();
    recovery::Sweep(Run.State.Path(QStringLiteral("recovery/")),
                    QDateTime::currentMSecsSinceEpoch() + 8 * recovery::Day);
    NewRun();
    EXPECT_FALSE(keeper->LastClosed());
}
