#include "windows/macro/frm_macro_edit.h"

#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/program_scope.h"
#include "frame/run_scope.h"
#include "frame/settings/form_looks.h"
#include "macro/run_macro.h"
#include "platform/images/contrast.h"
#include "services/archive_tool.h"
#include "windows/parts/dialog_support.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int LineSlot = 30;

class Workbench : public testing::Test
{
protected:
    void SetUp() override { Run.Start(); }

    /// Opens the window, acts on it, and leaves it; a question about unsaved code is answered with OK.
    void Open(const std::function<void(frmMacroEdit&)>& act, const QString& macro = {})
    {
        OnModal([&](QWidget& window) {
            act(static_cast<frmMacroEdit&>(window));
            static_cast<frmMacroEdit&>(window).txtEdit(frmMacroEdit::Code).SetModified(false);
        });
        frmMacroEdit::Run(nullptr, macro);
    }

    static EditorPane& Code(frmMacroEdit& window) { return window.txtEdit(frmMacroEdit::Code); }
    static EditorPane& Output(frmMacroEdit& window) { return window.txtEdit(frmMacroEdit::Output); }
    static void Choose(QWidget& window, const char* entry) { Part<QAction>(window, entry).trigger(); }

    static void RunTest(frmMacroEdit& window, const QString& source)
    {
        Code(window).SetText(source);
        Part<QPushButton>(window, "cmdTest").click();
    }

    /// Made in its place: a copy of one that holds no text is taken for an uninitialised one by the compiler.
    template <class Kind>
    void AnswerNext(Kind answer)
    {
        Run.Scope.Answers.Next.emplace_back(std::move(answer));
    }

    ProgramScope Run;
};

} // namespace

// Catches: a run on a document, output of an earlier run that goes or stays against the tick, a run of several steps
// for undo, a window that stays locked.
TEST_F(Workbench, TestRunsWorkOnTheOutput)
{
    const QString document = CurrentPane().Text();
    Open([&](frmMacroEdit& window) {
        RunTest(window, u"print   one!\nprint two!"_s);
        EXPECT_EQ(Output(window).Text(), u"one!two!"_s);
        EXPECT_EQ(Code(window).Text(), u"print one!\r\nprint two!\r\n"_s);
        RunTest(window, u"print three"_s);
        EXPECT_EQ(Output(window).Text(), u"one!two!three"_s);
        Output(window).ExecuteCmd(CmdUndo);
        EXPECT_EQ(Output(window).Text(), u"one!two!"_s);
        Part<QCheckBox>(window, "chkClear").setChecked(true);
        RunTest(window, u"print four"_s);
        EXPECT_EQ(Output(window).Text(), u"four"_s);
        EXPECT_TRUE(Part<QPushButton>(window, "cmdTest").isEnabled());
        EXPECT_TRUE(Part<QAction>(window, "mnusave").isEnabled());
        for (const auto& clear : {std::function<void()>([&] { Part<QPushButton>(window, "cmdClear").click(); }),
                                  std::function<void()>([&] { Choose(window, "mnuClear"); })}) {
            EXPECT_NE(Output(window).Text(), QString());
            clear();
            EXPECT_EQ(Output(window).Text(), QString());
            RunTest(window, u"print five"_s);
        }
    });
    EXPECT_EQ(CurrentPane().Text(), document);
}

// Catches: an error told with another line or marked in another colour or under the output, a mark that stays.
TEST_F(Workbench, AFaultIsMarkedInTheCode)
{
    Open([&](frmMacroEdit& window) {
        auto& tabs = Part<QTabWidget>(window, "SSmacro");
        tabs.setCurrentIndex(frmMacroEdit::Output);
        RunTest(window, u"print a\n# note\nnoword\nprint b"_s);
        EXPECT_EQ(Run.TakeMessages(), QStringList{u"Unrecognised command: noword"_s});
        EXPECT_EQ(tabs.currentIndex(), int(frmMacroEdit::Code));
        EXPECT_EQ(Code(window).CaretLine(), 2);
        EXPECT_EQ(Code(window).GetColor(LineSlot), 0x8C8CFF);
        EXPECT_EQ(Output(window).Text(), u"a"_s);
        Code(window).ExecuteCmd(CmdLineUp);
        EXPECT_EQ(Code(window).GetColor(LineSlot), 0xD4D4D4);
        RunTest(window, u"print a\n$b = 1"_s);
        EXPECT_EQ(Run.TakeMessages(), QStringList{u"Variable has no command"_s});
        EXPECT_EQ(Code(window).CaretLine(), 1);
        EXPECT_EQ(Code(window).GetColor(LineSlot), 0x0000FF);
    });
}

// Catches: a white pane in the dark form, words or marks that only a white one carries.
TEST_F(Workbench, TheDarkFormIsDarkAllOver)
{
    constexpr int Texts[] = {4, 6, 8, 10, 14, 16, 20, 22, 24};
    const auto grey = [](int bgr) { return qGray(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF); };
    SetDesktopForm(LookForm::Dark);
    Open([&](frmMacroEdit& window) {
        const EditorPane& code = Code(window);
        EXPECT_LT(grey(code.GetColor(0)), 64);
        for (const int slot : Texts)
            EXPECT_GT(grey(code.GetColor(slot)), 144) << slot;
        for (const auto& source : {u"noword"_s, u"$b"_s}) {
            RunTest(window, source);
            EXPECT_LT(grey(code.GetColor(LineSlot)), 80);
        }
        EXPECT_EQ(Run.TakeMessages().size(), 2);
    });
    SetDesktopForm(LookForm::Light);
}

// Catches: a save that costs the resources or asks for a name again, one over another macro, code that is not what was
// saved, a name that stays with a new macro.
TEST_F(Workbench, MacrosAreSavedAndOpened)
{
    const QString path = Run.Work.Path(u"mine.gfb"_s), other = Run.Work.Write(u"other.gfb"_s, "print other");
    Open([&](frmMacroEdit& window) {
        const auto& save = Part<QAction>(window, "mnusave");
        const auto& name = Part<QLabel>(window, "lblFile");
        Code(window).SetText(u"  print \"a  b\"  \n$c  1\n# two  blanks \n\t if\n\n"_s);
        AnswerNext(other);
        Choose(window, "mnusave");
        EXPECT_EQ(Run.TakeMessages(), QStringList{u"Can't overwrite BASIC files!"_s});
        EXPECT_EQ(name.text(), QString());
        AnswerNext(path);
        Choose(window, "mnusave");
        EXPECT_EQ(name.text(), u"mine.gfb"_s);
        EXPECT_TRUE(save.text().contains(u"\"mine.gfb\""_s));
        EXPECT_FALSE(Code(window).Modified());
        ASSERT_TRUE(AddToResource(Run.Work.Write(u"pic.pcx"_s, "picture"), path));
        Code(window).AddText(u"print x"_s);
        Choose(window, "mnusave");
        EXPECT_EQ(*ListResource(path), QStringList({u"basic.txt"_s, u"pic.pcx"_s}));
        Choose(window, "mnuNew");
        EXPECT_EQ(Code(window).Text() + name.text(), QString());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(window.findChild<QAction*>(u"mnuRESMENU2"_s), nullptr);
        AnswerNext(path);
        Choose(window, "mnuOpen");
        EXPECT_EQ(name.text(), u"mine.gfb"_s);
        EXPECT_EQ(Part<QAction>(window, "mnuRESMENU2").text(), u"pic.pcx"_s);
        AnswerNext(Run.Work.Path(u"copy.gfb"_s));
        Choose(window, "mnusaveas");
        EXPECT_EQ(name.text(), u"copy.gfb"_s);
        EXPECT_TRUE(ReadMacroSource(Run.Work.Path(u"copy.gfb"_s)));
        EXPECT_FALSE(Code(window).Modified());
    });
    EXPECT_EQ(Run.Work.Read(u"other.gfb"_s), "print other");
    const auto source = ReadMacroSource(path);
    EXPECT_TRUE(source->startsWith("print \"a  b\"\r\n$c 1\r\n# two  blanks\r\n\tif\r\n")) << source->toStdString();
    Open([&](frmMacroEdit& window) { EXPECT_TRUE(Code(window).Text().startsWith(u"print \"a  b\"\r\n"_s)); }, path);
}

// Catches: unsaved code that goes unasked, or with the program's end; a window that Esc closes.
TEST_F(Workbench, UnsavedCodeIsNotLost)
{
    OnModal([&](QWidget& window) {
        auto& workbench = static_cast<frmMacroEdit&>(window);
        Code(workbench).SetText(u"print mine"_s);
        for (const char* entry : {"mnuNew", "mnuOpen", "mnuExit"}) {
            AnswerNext(Pressed{2});
            Choose(window, entry);
            EXPECT_EQ(Run.TakeMessages().size(), 1) << entry;
        }
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(Code(workbench).Text(), u"print mine"_s);
        Frame.Closing = true;
        window.close();
        EXPECT_FALSE(window.isVisible());
        Frame.Closing = false;
    });
    frmMacroEdit::Run(nullptr, {});
    EXPECT_EQ(CurrentPane().Text(), u"print mine"_s);
    EXPECT_TRUE(CurrentPane().Modified());
}

// Catches: a run that Esc's wish or the close box does not end, a window that closes under its run or never.
TEST_F(Workbench, ARunEndsBeforeTheWindow)
{
    OnModal([&](QWidget& window) {
        auto& workbench = static_cast<frmMacroEdit&>(window);
        const QString endless = u"print a\nlabel @a1\ngotolabel @a1"_s;
        QTimer::singleShot(50, &window, [] { StopRuns(StopReason::Esc); });
        RunTest(workbench, endless);
        EXPECT_EQ(Output(workbench).Text(), u"a"_s);
        EXPECT_TRUE(window.isVisible());
        QTimer::singleShot(50, &window, [&] {
            window.close();
            EXPECT_TRUE(window.isVisible());
        });
        AnswerNext(Pressed{1});
        RunTest(workbench, endless);
        EXPECT_FALSE(window.isVisible());
    });
    frmMacroEdit::Run(nullptr, {});
}

// Catches: a run without a name for the open file, the document's name lost to a test run that saves its output.
TEST_F(Workbench, TheOpenFilesNameComesBack)
{
    Frame.Settings.SafeSystemBASIC = 0;
    const QString folder = Frame.CurrentFolder, file = Frame.CurrentFile, target = Run.Work.Path(u"out.txt"_s);
    Open([&](frmMacroEdit& window) {
        EXPECT_FALSE(Frame.CurrentFile.isEmpty());
        RunTest(window, u"print words\nopenfilesave "_s + target);
        EXPECT_EQ(Frame.CurrentFile, u"out.txt"_s);
    });
    EXPECT_EQ(Run.Work.Read(u"out.txt"_s), "words");
    EXPECT_EQ(Frame.CurrentFolder + u'|' + Frame.CurrentFile, folder + u'|' + file);
}

// Catches: a prompt in front of another line or with another answer's effect, `break` that does nothing, a tick that
// stays.
TEST_F(Workbench, StepsThroughTheLines)
{
    Open([&](frmMacroEdit& window) {
        auto& step = Part<QCheckBox>(window, "chkStep");
        step.setChecked(true);
        AnswerNext(Pressed{1});
        AnswerNext(Pressed{3});
        RunTest(window, u"print a\n# note\nprint b\nprint c"_s);
        EXPECT_EQ(Run.TakeMessages(), QStringList({u"Line: 0^^print a"_s, u"Line: 2^^print b"_s}));
        EXPECT_EQ(Output(window).Text(), u"ab"_s); // the line at hand still runs
        EXPECT_EQ(Code(window).GetColor(LineSlot), 0xA4FE9E);
        EXPECT_EQ(Code(window).CaretLine(), 2);
        EXPECT_FALSE(step.isChecked());
        AnswerNext(Pressed{2});
        RunTest(window, u"print d\nbreak\nprint e\nprint f"_s);
        EXPECT_EQ(Run.TakeMessages(), QStringList{u"Line: 2^^print e"_s});
        EXPECT_EQ(Output(window).Text(), u"abdef"_s);
    });
}

// Catches: a watch list that lags, lacks what a run has left or shows beside the commands.
TEST_F(Workbench, WatchesARun)
{
    Open([&](frmMacroEdit& window) {
        auto& list = Part<QListWidget>(window, "lstWatch");
        const auto line = [&list](const QString& text) { return list.findItems(text, Qt::MatchExactly).size(); };
        RunTest(window, u"dim $two\ndim $one\nset $one =7\nvarlen $one\nlabel @Here\nlistadd x\nlistadd y"_s);
        auto& watch = Part<QCheckBox>(window, "chkWatch");
        EXPECT_FALSE(list.isVisible());
        watch.setChecked(true);
        EXPECT_TRUE(list.isVisible());
        EXPECT_FALSE(Part<QListWidget>(window, "lstCom").isVisible());
        EXPECT_EQ(Part<QLabel>(window, "labcom").text(), u"Watch"_s);
        EXPECT_EQ(list.item(0)->text(), u"$two = "_s);
        EXPECT_EQ(list.item(1)->text(), u"$one = 7"_s);
        EXPECT_EQ(list.item(2)->text(), u"@Here,Line = 4"_s);
        EXPECT_EQ(line(u"[LastLen] = 1"_s), 1);
        EXPECT_EQ(line(u"[ListCount] = 2"_s), 1);
        RunTest(window, u"loop 2\nendloop\nnoword"_s);
        EXPECT_EQ(line(u"$one = 7"_s), 0);
        watch.setChecked(false);
        EXPECT_EQ(Part<QLabel>(window, "labcom").text(), u"Commands"_s);
    });
}

// Catches: a heading that is put in, a word that stays selected and is typed over, words of the table that are missing,
// a filter that leaves the headings.
TEST_F(Workbench, CommandsAreFoundAndPutIn)
{
    Open([&](frmMacroEdit& window) {
        auto& list = Part<QListWidget>(window, "lstCom");
        const auto choose = [&list](const QString& text) {
            list.setCurrentItem(list.findItems(text, Qt::MatchExactly).value(0));
            emit list.itemActivated(list.currentItem());
        };
        EXPECT_EQ(list.item(0)->text(), u"--------BASIC-------"_s);
        for (const char* word : {"if", "[br]", "==", "[numerical]", "print"})
            EXPECT_EQ(list.findItems(QLatin1String(word), Qt::MatchExactly).size(), 1) << word;
        choose(u"--------TEXT--------"_s);
        choose(u"print"_s);
        choose(u"[br]"_s);
        EXPECT_EQ(Code(window).Text(), u"print[br]"_s);
        Part<QLineEdit>(window, "txtFilter").setText(u"CASEsel"_s);
        for (int row = 0; row < list.count(); ++row)
            EXPECT_EQ(list.item(row)->isHidden(), list.item(row)->text() != u"caseselect"_s);
    });
}

// Catches: a resource added to a macro without a file, to itself, or not shown; one that goes against the answer.
TEST_F(Workbench, ResourcesAreAddedAndTakenAway)
{
    const QString path = Run.Work.Path(u"m.gfb"_s), picture = Run.Work.Write(u"pic & co.pcx"_s, "picture");
    Open([&](frmMacroEdit& window) {
        Choose(window, "mnuResAdd");
        EXPECT_EQ(Run.TakeMessages(), QStringList{u"You need to save the file first."_s});
        AnswerNext(path);
        Choose(window, "mnusave");
        AnswerNext(path);
        Choose(window, "mnuResAdd");
        EXPECT_EQ(Run.TakeMessages().size(), 1);
        AnswerNext(picture);
        Choose(window, "mnuResAdd");
        EXPECT_EQ(Part<QAction>(window, "mnuRESMENU2").text(), u"pic && co.pcx"_s);
        EXPECT_EQ(window.findChild<QAction*>(u"mnuRESMENU1"_s), nullptr);
        AnswerNext(Pressed{2});
        Choose(window, "mnuRESMENU2");
        EXPECT_EQ(ListResource(path)->size(), 2);
        AnswerNext(Pressed{1});
        Choose(window, "mnuRESMENU2");
        EXPECT_EQ(*ListResource(path), ArchiveList({u"basic.txt"_s}));
    });
}

// Catches: parts that only the mouse reaches, a key of the text that goes astray or that a list sends to the code, an
// empty watch list before a run.
TEST_F(Workbench, KeysAloneReachEveryPart)
{
    Open([&](frmMacroEdit& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
        Code(window).FocusPane();
        const auto key = [&window](Qt::Key pressed, Qt::KeyboardModifiers held = {}) {
            QTest::keyClick(window.focusWidget(), pressed, held);
        };
        const std::pair<Qt::Key, const char*> ticks[] = {{Qt::Key_W, "chkClear"},
                                                         {Qt::Key_P, "chkSpace"},
                                                         {Qt::Key_S, "chkStep"},
                                                         {Qt::Key_M, "chkWatch"},
                                                         {Qt::Key_9, "chkTerminal9"}};
        for (const auto& [letter, name] : ticks) {
            key(letter, Qt::AltModifier);
            auto& box = Part<QCheckBox>(window, name);
            EXPECT_TRUE(QTest::qWaitFor([&box] { return box.isChecked(); })) << name;
        }
        Code(window).FocusPane();
        key(Qt::Key_F6);
        auto& watch = Part<QListWidget>(window, "lstWatch");
        EXPECT_TRUE(watch.hasFocus());
        EXPECT_EQ(watch.findItems(u"[ListCount] = 0"_s, Qt::MatchExactly).size(), 1);
        key(Qt::Key_F6);
        Part<QCheckBox>(window, "chkWatch").setChecked(false);
        key(Qt::Key_F6);
        EXPECT_TRUE(Part<QLineEdit>(window, "txtFilter").hasFocus());
        key(Qt::Key_F6);
        QTest::keyClicks(window.focusWidget(), u"print \"mine\""_s);
        key(Qt::Key_F6);
        Part<QListWidget>(window, "lstCom").setFocus();
        key(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(Code(window).SelText(), QString());
        Code(window).FocusPane();
        key(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(Code(window).SelText(), u"print \"mine\""_s);
        Part<QCheckBox>(window, "chkStep").setChecked(false);
        key(Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Output(window).Text() == u"mine"_s; }));
        key(Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Output(window).Text().isEmpty(); }));
        EXPECT_EQ(Part<QTabWidget>(window, "SSmacro").currentIndex(), int(frmMacroEdit::Output));
    });
}

// Catches: code on a dark desktop that stays light, or that cannot be read on a mark; a form that is not taken back.
TEST_F(Workbench, CodeFollowsTheDesktopsForm)
{
    Open([&](frmMacroEdit& window) {
        EXPECT_EQ(Code(window).GetColor(8), 0xB00000);
        Code(window).SetText(u"noword"_s);
        const auto reads = [&window](int slot, int background) {
            EXPECT_GE(Contrast(FromBgr(Code(window).GetColor(slot)), FromBgr(Code(window).GetColor(background))),
                      TextContrast)
                << slot << " on " << background;
        };
        SetDesktopForm(LookForm::Dark);
        Part<QPushButton>(window, "cmdTest").click();
        Run.TakeMessages();
        for (const int slot : {4, 6, 8, 10, 14, 16, 20, 22, 24}) {
            reads(slot, 0);
            reads(slot, LineSlot);
        }
        SetDesktopForm(LookForm::Light);
        EXPECT_EQ(Code(window).GetColor(8), 0xB00000);
        EXPECT_EQ(Code(window).GetColor(0), 0xFFFFFF);
    });
}
