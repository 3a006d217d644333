#include "frame/files/closed_tabs.h"
#include "frame/frame_state.h"
#include "frame/program_scope.h"
#include "frame/recovery/recovery.h"
#include "macro/run_macro.h"
#include "windows/files/recovery_view.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/parts/dialog_support.h"

#include <QAction>
#include <QDirIterator>

using namespace Qt::StringLiterals;

namespace {

class KeptCodeTest : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        NewRun();
    }
    void TearDown() override { Frame.Keeper = nullptr; }

    void NewRun()
    {
        keeper.reset();
        keeper = std::make_unique<Recovery>(Run.State.Path(), nullptr, RecoveryPace{5, 50, 50});
        Frame.Keeper = keeper.get();
    }

    static EditorPane& Code(QWidget& window) { return static_cast<frmMacroEdit&>(window).txtEdit(frmMacroEdit::Code); }

    static void Open(const QString& macro, std::function<void(QWidget&)> act)
    {
        OnModal(std::move(act));
        frmMacroEdit::Run(nullptr, macro);
    }

    bool HasCopy() const
    {
        QDirIterator copies(Run.State.Path(), {u"copy.json"_s}, QDir::Files, QDirIterator::Subdirectories);
        return copies.hasNext();
    }

    ProgramScope Run;
    std::unique_ptr<Recovery> keeper;
};

} // namespace

// Catches: code without a copy while its user types, one that stays when the code is saved, code that comes back as a
// document or without its macro, undo that does not show what the file holds.
TEST_F(KeptCodeTest, OutlivesItsRunAndComesBackOnTheWorkbench)
{
    const QString macro = Run.Work.Write(u"mine.gfbasic"_s, "print old\n");
    Open(macro, [&](QWidget& window) {
        Code(window).InsertText(u"# new\r\n"_s, {});
        EXPECT_TRUE(WaitUntil([&] { return HasCopy(); }));
        Part<QAction>(window, "mnusave").trigger();
        keeper->WaitForWorker();
        EXPECT_FALSE(HasCopy());
        Code(window).InsertText(u"# newer\r\n"_s, {});
        Frame.Closing = true;
        window.close();
        Frame.Closing = false;
    });
    EXPECT_FALSE(CurrentPane().Modified());
    EXPECT_EQ(Run.Work.Read(u"mine.gfbasic"_s), "# new\nprint old\n");
    NewRun();
    const auto found = keeper->FindRecovered();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].Code);
    EXPECT_EQ(ViewOf(found[0]).Lines, u"+ # newer\n  # new\n  print old\n"_s);
    OnModal([&](QWidget& window) {
        EXPECT_EQ(Code(window).GetLine(0), u"# newer"_s);
        EXPECT_TRUE(Code(window).Modified());
        EXPECT_TRUE(keeper->FindRecovered().empty()) << "the old copy stays";
        Code(window).ExecuteCmd(CmdUndo);
        EXPECT_EQ(Code(window).GetLine(0), u"# new"_s);
        EXPECT_TRUE(Part<QAction>(window, "mnusave").text().contains(u"mine.gfbasic"_s));
        Code(window).SetModified(false);
    });
    frmMacroEdit::TakeBack(nullptr, found[0]);
}

// Catches: code that is lost where its user lets it go by mistake, or is offered at the next start then.
TEST_F(KeptCodeTest, WhatIsGivenUpIsKeptAsClosed)
{
    Open({}, [&](QWidget& window) {
        Code(window).SetText(u"print gone"_s);
        Run.Scope.Answers.Next.emplace_back(Pressed{1});
        window.close();
        EXPECT_FALSE(window.isVisible());
    });
    ReopenClosedTab();
    EXPECT_EQ(Run.Scope.Host.ShownCode, "print gone");
    EXPECT_EQ(CurrentPane().Text().contains(u"print gone"_s), false);
    NewRun();
    EXPECT_TRUE(keeper->FindRecovered().empty());
    EXPECT_TRUE(keeper->LastClosed());
}
