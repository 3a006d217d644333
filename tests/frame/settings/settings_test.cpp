#include "frame/media/media_lists.h"
#include "frame/program_scope.h"
#include "frame/settings/history.h"
#include "frame/settings/settings.h"

using Settings = FrameTest;

// Catches: a key of the shipped settings that LoadSettings does not find, or that a bound forbids.
TEST_F(Settings, TheShippedSettingsLoadWithoutACorrection)
{
    Run.Start();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    EXPECT_EQ(Frame.Settings.SpacerWidth, 43);
    EXPECT_EQ(Frame.Settings.UndoLimit, -1);
    EXPECT_EQ(Frame.Settings.LineCommentSearchChar, QStringLiteral("~"));
    EXPECT_EQ(Frame.Settings.SheetKinds.Words(), (QStringList{QStringLiteral("pcx"), QStringLiteral("png")}));
    EXPECT_EQ(Frame.Settings.ComType[1], QStringLiteral("-e \"print graphicsinfo.conf\""));
    EXPECT_TRUE(Frame.Settings.AnimModes.contains(QStringLiteral("pingpong2")));
    EXPECT_TRUE(ReadWordList(QStringLiteral("AnimModifiers")).contains(QStringLiteral("opaque_player")));
    EXPECT_EQ(Window.Pane(7).GetColor(8), 0xB00000);
    EXPECT_EQ(Window.Pane(7).GetColor(16), 255);
}

// Catches: broken numbers read as 0 (an undo limit of 0, black on black), silent corrections, and a correction that
// is told key by key.
TEST_F(Settings, BrokenAndMissingNumbersTakeTheShippedValueAndAreToldOnce)
{
    Run.Edit("SpacerWidth=43\n", "SpacerWidth=wide\n");
    Run.Edit("UndoLimit=-1\n", "");
    Run.Edit("MainFontSize=9.75", "MainFontSize=9,75");
    Run.Edit("WindowColour=16050410", "WindowColour=");
    Run.Edit("ColourForm=0", "ColourForm=grey"); // is asked for twice
    Run.Start();
    EXPECT_EQ(Frame.Settings.SpacerWidth, 43);
    EXPECT_EQ(Frame.Settings.UndoLimit, -1);
    EXPECT_EQ(Window.Pane(0).FontSize(), 9.75);
    EXPECT_EQ(Window.Pane(0).GetColor(0), 16050410);
    const QStringList told = Run.TakeMessages();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0].count(u"[Misc]"), 3);
    EXPECT_EQ(told[0].count(u"[Syntax Colours]"), 2);
}

// Catches: a new release that calls the settings of the one before broken, or leaves its new ones out.
TEST_F(Settings, WhatAnOlderFileLacksIsAddedInSilence)
{
    Run.Edit("ColourForm=0", "");
    Run.Edit("LineHints=1\n", "");
    Run.Start();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    EXPECT_EQ(Frame.Settings.LineHints, 1);
    EXPECT_TRUE(Run.UserIni().contains("ColourForm=0") && Run.UserIni().contains("LineHints=1\n"));
}

// Catches: a correction that is told again at every start, tool bars that lose their rows because a key of theirs is
// missing or nonsense, and rows that the user has stored being put back with the broken ones.
TEST_F(Settings, CorrectedValuesAreInTheFile)
{
    Run.Edit("SpacerWidth=43\n", "SpacerWidth=wide\n");
    Run.Edit("N3=True\n", "N3=maybe\n");
    Run.Edit("N4=False\n", "N4=True\n");
    Run.Edit("C1=tbFile\nW1=360\n", "");
    Run.Start();
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    const std::vector<CoolBarBand> bands = Frame.Settings.Bands;
    ASSERT_EQ(bands.size(), 6U);
    EXPECT_EQ(bands[0], (CoolBarBand{QStringLiteral("File"), QStringLiteral("tbFile"), 360, false}));
    EXPECT_TRUE(bands[2].NewRow && bands[3].NewRow);
    for (const char* line : {"SpacerWidth=43\n", "C1=tbFile\n", "W1=360\n", "N3=True\n", "N4=True\n"})
        EXPECT_TRUE(Run.UserIni().contains(line)) << line;
    LoadSettings();
    EXPECT_EQ(Run.TakeMessages(), QStringList());
}

// Catches: bounds that only the options window keeps, so that a width from the file makes a negative tab size.
TEST_F(Settings, NumbersAreHeldWithinTheirBounds)
{
    Run.Edit("SpacerWidth=43", "SpacerWidth=3");
    Run.Edit("UndoLimit=-1", "UndoLimit=99999999999");
    Run.Edit("RecentLimit=50", "RecentLimit=0");
    Run.Start();
    EXPECT_EQ(Frame.Settings.SpacerWidth, 10);
    EXPECT_EQ(Frame.Settings.UndoLimit, 9999);
    EXPECT_EQ(Frame.Settings.RecentLimit, 10);
}

// Catches: a toggle that only changes memory, and one that reads the check mark back to front.
TEST_F(Settings, AToggleIsInTheFileAtOnce)
{
    Run.Start();
    ToggleView(2);
    EXPECT_EQ(Frame.Settings.ShowSpaces, 1);
    EXPECT_TRUE(Run.UserIni().contains("ShowSpaces=1"));
    ToggleView(2);
    EXPECT_TRUE(Run.UserIni().contains("ShowSpaces=0"));
    EXPECT_TRUE(Run.UserIni().contains("; Settings of Gemforge.")) << "a comment went";
}

// Catches: a program folder that can not be written and a message at each of a hundred writes, or a value that falls
// back as soon as it is read again.
TEST_F(Settings, AReadOnlyFileIsToldOnceAndChangesHoldInMemory)
{
    Run.SettingsReadOnly = true;
    Run.Start();
    const QByteArray before = Run.UserIni();
    WriteIni(5, QStringLiteral("Misc"), QStringLiteral("SpacerWidth"));
    WriteIni(QStringLiteral("new"), QStringLiteral("Nowhere"), QStringLiteral("key"));
    WriteSection(QStringLiteral("Projects"), QStringLiteral("1=Mine") + QChar(0));
    EXPECT_EQ(ReadIni(QStringLiteral("misc"), QStringLiteral("spacerwidth")), QStringLiteral("5"));
    EXPECT_EQ(ReadIni(QStringLiteral("Nowhere"), QStringLiteral("key")), QStringLiteral("new"));
    EXPECT_EQ(ReadIni(QStringLiteral("Projects"), QStringLiteral("1")), QStringLiteral("Mine"));
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_EQ(Run.UserIni(), before);
}

// Catches: a full disk that empties user.ini, or whose later recovery loses what was set meanwhile.
TEST_F(Settings, AFullDiskKeepsTheFileAndTheNextWriteBringsBoth)
{
    Run.Start();
    const QByteArray before = Run.UserIni();
    {
        const FileSizeLimit full(10);
        WriteIni(60, QStringLiteral("Misc"), QStringLiteral("SpacerWidth"));
    }
    EXPECT_EQ(Run.UserIni(), before);
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    WriteIni(20, QStringLiteral("Misc"), QStringLiteral("RecentLimit"));
    EXPECT_TRUE(Run.UserIni().contains("SpacerWidth=60"));
    EXPECT_TRUE(Run.UserIni().contains("RecentLimit=20"));
}

// Catches: a history whose outer blanks, tabs or backslashes are lost in the ini file, and items behind a gap.
TEST_F(Settings, HistoriesSurviveAFile)
{
    for (const char* text : {" two ", "a\tb", "\\s+\\n", "plain", "", "a b", "line\nbreak", "\\"}) {
        const QString item = QString::fromLatin1(text);
        const QString stored = EscapedItem(item);
        EXPECT_EQ(stored, stored.trimmed());
        EXPECT_EQ(UnescapedItem(stored), item) << stored;
    }
    Run.Edit("[Replace History]", "[Replace History]\n1=one\n2=two\n4=four");
    Run.Start();
    EXPECT_EQ(Frame.Globals.ReplaceMRUList, QStringLiteral("one\ntwo"));
    Frame.Settings.FindHistoryLimit = 3;
    Frame.Globals.FindMRUList = QStringLiteral(" blank \nb\nc\nd");
    SaveHistories();
    EXPECT_EQ(ReadIni(QStringLiteral("Find History"), QStringLiteral("4")), QStringLiteral("[NOT FOUND]"));
    Frame.Globals.FindMRUList.clear();
    LoadHistories();
    EXPECT_EQ(Frame.Globals.FindMRUList, QStringLiteral(" blank \nb\nc"));
}

// Catches: the example pane of another window that recolours all tabs.
TEST_F(Settings, ColoursOfOnePaneLeaveTheTabsAlone)
{
    Run.Start();
    WriteIni(255, QStringLiteral("Syntax Colours"), QStringLiteral("WindowColour"));
    LoadSyntaxColours(Window.txtBuffer(), QStringLiteral("Syntax Colours"));
    EXPECT_EQ(Window.txtBuffer().GetColor(0), 255);
    EXPECT_EQ(Window.Pane(0).GetColor(0), 16050410);
}

// Catches: game folders that are derived from the executable alone, where packages put the data elsewhere.
TEST_F(Settings, TheGamesDataMayLieApartFromItsExecutable)
{
    const TestFolder game;
    const QString program = game.Write(QStringLiteral("games/rocksndiamonds"), "game");
    game.Write(QStringLiteral("share/rocksndiamonds/levels/readme"), "");
    game.Write(QStringLiteral("share/rocksndiamonds/graphics/gfx_classic/RocksDC.png"), "");
    Run.Edit("RNDPath=", "RNDPath=" + program.toUtf8());
    Run.Start();
    EXPECT_EQ(Frame.Settings.RndFolder, game.Path(QStringLiteral("share/rocksndiamonds/")));
    EXPECT_EQ(Frame.Settings.LevelsFolder, Frame.Settings.RndFolder + QStringLiteral("levels/"));
    EXPECT_EQ(Frame.Media.RndFolder, Frame.Settings.RndFolder + QStringLiteral("graphics/gfx_classic/"));
    EXPECT_TRUE(FindImageInLists(QStringLiteral("rocksdc.png")));
    EXPECT_TRUE(IsRndPathSet());

    Frame.Settings.RNDPath.clear();
    DeriveGameFolders();
    EXPECT_EQ(Frame.Settings.LevelsFolder, QString());
    EXPECT_EQ(Frame.Media.RndFolder, QString());
    EXPECT_FALSE(IsRndPathSet());
    EXPECT_EQ(Run.TakeMessages().size(), 1);
}
