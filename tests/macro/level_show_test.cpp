#include "level/level_files.h"
#include "level/level_viewer.h"
#include "macro/macro_ports.h"
#include "macro_scope.h"
#include "services/registry_store.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Macros that show levels to a person who is played by the test.
struct LevelShowTest : testing::Test
{
    LevelShowTest()
    {
        Frame.DataFolder = ProjectFile(u"data/"_s);
        Level.Viewer = scope.Folder.Write(u"viewer"_s, "");
        MacroWindows.RegistryFile = scope.Folder.Path(u"registry.json"_s);
        MacroWindows.ShowMap = [this](const QString& caption, const QString& palette) {
            seen << caption + u'|' + palette + u'|' + Level.Info.Cavename;
        };
        MacroWindows.ViewLevel = [this](const QString&, const QString& file) { return View(file); };
    }
    ~LevelShowTest() override
    {
        ResetMacroPorts();
        ResetLevel();
    }

    /// The viewer's side.
    Result<> View(const QString& file)
    {
        RegistryStore store(MacroWindows.RegistryFile);
        const std::optional<ViewRequest> request = TakeViewRequest(store);
        const Result<LevelFile> level = ReadLevelFile(file);
        seen << (request ? request->Message + u'|' + request->Palette : u"nothing"_s) + u'|' +
                    (level ? level->Record.Info.Cavename : level.error().Reason);
        shown = file;
        EXPECT_FALSE(TakeViewRequest(store)) << "a second viewer, started by hand, takes it too";
        return answers ? AnswerView(store, *answers) : Result<>();
    }

    QString Run(const QStringList& lines)
    {
        struct WithWindow : PlainStage
        {
            using PlainStage::PlainStage;
            bool HasWindow() const override { return true; }
        } stage(scope.Clipboard);
        RunScope turns(RunKind::Macro, u"trial"_s);
        MacroRequest request;
        request.Source = PrepareSource(lines.join(u"\r\n"_s));
        request.Folder = scope.Folder.Path();
        const std::optional<MacroError> error = RunMacro(request, stage, turns);
        return error ? error->Text : stage.TargetLines().Text();
    }

    MacroScope scope;
    QStringList seen;
    QString shown;
    std::optional<ViewAnswer> answers;
};

} // namespace

// Catches: changes of the open level that the viewer does not get, a rectangle that is off by one, the working file
// left behind, a level that is closed by being shown.
TEST_F(LevelShowTest, MemoryShowsTheOpenLevelAndBringsARectangle)
{
    answers = ViewAnswer{false, LevelBox{2, 3, 6, 5}};
    EXPECT_EQ(Run({u"levload new"_s, u"levset name inside"_s, u"levshow memory Draw|one"_s,
                   u"print [lastboxx1] [lastboxy1] [lastboxx2] [lastboxy2] | [lastmessageresult] | [lvi:name]"_s}),
              u"3476  inside"_s);
    ASSERT_EQ(seen.size(), 1);
    EXPECT_TRUE(seen.first().startsWith(u"Draw one|"_s) && seen.first().endsWith(u"|inside"_s)) << seen.first();
    EXPECT_FALSE(QFile::exists(shown));
}

// Catches: an answer of an earlier view that counts again, a cancel that changes the box.
TEST_F(LevelShowTest, AViewerThatLeavesNoAnswerChangesNothing)
{
    answers = ViewAnswer{true, LevelBox{0, 0, 0, 0}};
    const QStringList macro = {u"levload new"_s, u"levset name n"_s, u"setpoint 5 5 5 5"_s, u"levshow memory Look"_s,
                               u"print [lastboxx1] [lastmessageresult]"_s};
    EXPECT_EQ(Run(macro), u"1cancel"_s);
    answers.reset();
    EXPECT_EQ(Run(macro), u"5"_s);
}

// Catches: a map that is shown under another palette than its folder's, files that are none, a missing viewer that is
// told too late, after a wish was left in the registry.
TEST_F(LevelShowTest, QuickFilesAndRefusals)
{
    EXPECT_EQ(Run({u"levshow quick Look"_s}), u"You need to use 'LevLoad $file' or 'LevLoad new' to view a level."_s);
    const QString caves = scope.Folder.Write(u"My Caves/001.level"_s, LevelImage(u"LEVEL"_s));
    EXPECT_EQ(Run({u"cd my|caves"_s, u"levload 001.level"_s, u"levshow QUICK A|look"_s}), QString());
    EXPECT_EQ(seen, QStringList{u"A look|my caves.gif|gemforge example level"_s});
    seen.clear();
    EXPECT_EQ(Run({u"cd my|caves"_s, u"levshow 001.LEVEL Look"_s}), QString());
    EXPECT_EQ(shown, caves);
    EXPECT_EQ(seen, QStringList{u"Look||gemforge example level"_s});
    EXPECT_EQ(Run({u"levshow nothing.level Look"_s}), u"File doesn't exist or is not a level.^^nothing.level"_s);
    QFile::remove(Level.Viewer);
    EXPECT_EQ(Run({u"cd my|caves"_s, u"levshow 001.level Look"_s}),
              u"Can't find the Mapglass.exe! It should be in the same folder as the Gemforge.exe"_s);
    RegistryStore store(MacroWindows.RegistryFile);
    EXPECT_FALSE(TakeViewRequest(store));
}

// Catches: a level or its working files left open for the next macro, a clipboard that ends with its run, a box or a
// frequency that does not.
TEST_F(LevelShowTest, ARunLeavesItsClipboardAlone)
{
    const QString made = Run({u"levload new"_s, u"levpoke 7 2 1"_s, u"setpoint 1 1 3 2"_s, u"levcopy"_s,
                              u"levreplacefreq 0"_s, u"print [lastboxx2]"_s});
    EXPECT_EQ(made, u"3"_s);
    EXPECT_EQ(Level.CurrentLevelPath, QString());
    EXPECT_FALSE(Level.Folder);
    EXPECT_EQ(Run({u"print [levclipwidth] [levclipheight] [lastboxx2]"_s, u"levload new"_s, u"levpaste 64 32"_s,
                   u"levpaste 62 32"_s, u"levreplace 7 9"_s, u"print [lvp:63:32]"_s, u"levclear"_s}),
              u"3219"_s);
}

// Catches: custom elements that are written cut, or over a file that then is gone.
TEST_F(LevelShowTest, CustomElementsKeepTheFileBeforeThem)
{
    const QByteArray level = LevelImage(u"LEVEL"_s) + "CUS4" + QByteArray("\0\0\0\6custom", 10);
    const QByteArray customs = level.sliced(level.indexOf("CUS4"));
    scope.Folder.Write(u"caves/001.level"_s, level);
    scope.Folder.Write(u"caves/mine.cust"_s, "older");
    EXPECT_EQ(Run({u"cd caves"_s, u"levload 001.level"_s, u"levsavecustoms mine"_s}), QString());
    EXPECT_EQ(scope.Folder.Read(u"caves/mine.cust"_s), customs);
    EXPECT_EQ(scope.Folder.Read(u"caves/mine.cust_000.GemforgeBackup"_s), "older");
}
