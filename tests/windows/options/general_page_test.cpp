#include "game/stand_in_place.h"
#include "windows/options/find_game.h"
#include "windows/options/options_fixture.h"

#include <QMenu>

using GeneralPageTest = OptionsWindow;

// Catches: a setting on the wrong box, a box without its setting, an Apply that forgets a key or writes another page's,
// values that reach the file but not the program.
TEST_F(GeneralPageTest, EveryBoxIsItsSettingAndApplyPutsAllInForce)
{
    const QByteArray before = Run.UserIni();
    struct
    {
        const char *Box, *Section, *Key;
    } const ticks[] = {{"chkOther2", "Misc", "OpenSaveInLevelDir"},
                       {"chkOther4", "Misc", "BackupOnSave"},
                       {"chkOther5", "Misc", "QuickClose"},
                       {"chkOther6", "Misc", "DisableSoundLaunch"},
                       {"chkOther7", "Misc", "MenuIcons"},
                       {"chkOther8", "Misc", "Gradients"},
                       {"chkOther9", "Misc", "SafeSystemBASIC"},
                       {"chkSortComList", "Misc", "SortGotoList"},
                       {"chkAutoComp0", "AutoCompleteTemplate", "0"},
                       {"chkAutoComp3", "AutoCompleteTemplate", "3"},
                       {"chkNag0", "Nags", "0"},
                       {"chkNag4", "Nags", "4"},
                       {"chkQuickEle0", "QuickElementTemplate", "0"},
                       {"chkQuickEle9", "QuickElementTemplate", "9"}};
    Options([&](frmOptions& window) {
        for (const char* act : {"chkOther0", "chkOther1", "chkOther3"})
            EXPECT_FALSE(Part<QCheckBox>(window, act).isChecked());
        for (const auto& tick : ticks) {
            auto& box = Part<QCheckBox>(window, tick.Box);
            EXPECT_EQ(box.isChecked(), Ini(tick.Section, tick.Key) == QStringLiteral("1")) << tick.Box;
            box.click();
        }
        Type(window, "txtMarginSize", "60");
        Type(window, "txtUndoLimit", "5");
        Type(window, "txtRecentMax", "20");
        Type(window, "txtProjectMax", "4");
        Type(window, "txtFindMax", "5");
        Type(window, "txtReplaceMax", "6");
        Type(window, "txtSearch", "!");
        Type(window, "txtline", "+");
        EXPECT_EQ(Run.UserIni(), before) << "nothing is written before Apply";
        std::map<const char*, bool> ticked;
        for (const auto& tick : ticks)
            ticked[tick.Box] = Part<QCheckBox>(window, tick.Box).isChecked();
        Click(window, "cmblApply0");
        EXPECT_TRUE(window.isVisible());
        for (const auto& tick : ticks)
            EXPECT_EQ(Ini(tick.Section, tick.Key), ticked[tick.Box] ? QStringLiteral("1") : QStringLiteral("0"))
                << tick.Key;
    });
    const SettingsRecord& settings = Frame.Settings;
    EXPECT_EQ(settings.SpacerWidth, 60);
    EXPECT_EQ(settings.RecentLimit, 20);
    EXPECT_EQ(settings.ProjectLimit, 4);
    EXPECT_EQ(settings.FindHistoryLimit, 5);
    EXPECT_EQ(settings.ReplaceHistoryLimit, 6);
    EXPECT_EQ(settings.LineCommentSearchChar + settings.LineCommentLineChar, QStringLiteral("!+"));
    EXPECT_EQ(settings.QuickClose, 1);
    EXPECT_EQ(settings.Nags[0], 0);
    EXPECT_EQ(settings.QuickElementTemplate[9], 0);
    EXPECT_EQ(settings.AutoCompleteTemplate[3], 0);
    EXPECT_FALSE(Window->Menus().Find(QStringLiteral("mnuFile"))->actions().constFirst()->isVisible())
        << "the menus' titles go at once";
    QCoreApplication::processEvents();
    EXPECT_FALSE(MenuOf("mnuSave")->isIconVisibleInMenu()) << "pictures go when the window is active again";
    CurrentPane().SetUndoLimit(settings.UndoLimit);
    const QByteArray colours = before.sliced(before.indexOf("[Syntax Colours]"));
    EXPECT_TRUE(Run.UserIni().endsWith(colours)) << "Apply of this page touched a colour";
    EXPECT_EQ(Window->focusWidget(), WidgetOf(CurrentPane()));
}

// Catches: an undo limit or spacer width that waits for the next start.
TEST_F(GeneralPageTest, LimitsReachThePanesAtOnce)
{
    ToggleView(5);
    CurrentPane().LoadBytes("");
    Options([](frmOptions& window) {
        Type(window, "txtUndoLimit", "1");
        Type(window, "txtMarginSize", "11");
        Click(window, "cmblApply0");
    });
    for (const char* text : {"a", "b"}) {
        CurrentPane().ExecuteCmd(CmdOpenUndoGroup);
        CurrentPane().SetSelText(QString::fromLatin1(text));
        CurrentPane().ExecuteCmd(CmdCloseUndoGroup);
        CurrentPane().SetSel({0, 1, 0, 1}, false);
    }
    CurrentPane().ExecuteCmd(CmdUndo);
    CurrentPane().ExecuteCmd(CmdUndo);
    EXPECT_FALSE(CurrentPane().Text().isEmpty()) << "one step back is all";
}

// Catches: a wrong number that stays when its box is left, or that an Apply takes from the box with the focus.
TEST_F(GeneralPageTest, WrongValuesAreMendedWhenTheBoxIsLeftOrApplied)
{
    Options([](frmOptions& window) {
        for (const auto& [typed, kept] : {std::pair("0", "10"), std::pair("999", "200"), std::pair("1234", "200")}) {
            Type(window, "txtMarginSize", typed);
            EXPECT_EQ(TextOf(window, "txtMarginSize"), QString::fromLatin1(kept));
        }
        Type(window, "txtUndoLimit", "-1");
        EXPECT_EQ(TextOf(window, "txtUndoLimit"), QStringLiteral("-1"));
        Type(window, "txtUndoLimit", "-2");
        EXPECT_EQ(TextOf(window, "txtUndoLimit"), QStringLiteral("-1"));
        Type(window, "txtline", "");
        EXPECT_EQ(TextOf(window, "txtline"), QStringLiteral("-"));
        Type(window, "txtSearch", "");
        EXPECT_EQ(TextOf(window, "txtSearch"), QStringLiteral("="));
        auto& box = Part<QLineEdit>(window, "txtRecentMax");
        box.setFocus();
        box.setText(QStringLiteral("1"));
        Part<QLineEdit>(window, "txtline").setText(TextOf(window, "txtSearch"));
        Click(window, "cmblApply0");
        EXPECT_EQ(box.text(), QStringLiteral("10"));
        EXPECT_NE(Frame.Settings.LineCommentLineChar, Frame.Settings.LineCommentSearchChar);
    });
    EXPECT_EQ(Frame.Settings.RecentLimit, 10);
}

// Catches: a position that is stored without being asked for, the frame counted as part of the window, a maximised
// window whose own size is lost, an act that is done again at the next Apply.
TEST_F(GeneralPageTest, ThePositionIsStoredWhereTicked)
{
    Window->resize(900, 600);
    Window->move(30, 40);
    Options([&](frmOptions& window) {
        Click(window, "cmblApply0");
        EXPECT_EQ(Ini("Window Positions", "Width"), QStringLiteral("1240"));
        Click(window, "chkOther0");
        Click(window, "cmblApply0");
    });
    EXPECT_EQ(Ini("Window Positions", "Width"), QStringLiteral("900"));
    EXPECT_EQ(Ini("Window Positions", "Left"), QString::number(Window->pos().x()));
    EXPECT_EQ(Ini("Window Positions", "Max"), QStringLiteral("0"));
    Window->showMaximized();
    QCoreApplication::processEvents();
    Options([&](frmOptions& window) {
        EXPECT_FALSE(Part<QCheckBox>(window, "chkOther0").isChecked());
        Click(window, "chkOther0");
        Click(window, "cmblApply0");
    });
    EXPECT_EQ(Ini("Window Positions", "Width"), QStringLiteral("900"));
    EXPECT_EQ(Ini("Window Positions", "Max"), QStringLiteral("2"));
}

// Catches: help in a window that has none, Enter that closes or applies, Close or Esc that keeps what was not applied.
TEST_F(GeneralPageTest, KeysLeaveTheSettingsAlone)
{
    const QByteArray before = Run.UserIni();
    Options([](frmOptions& window) {
        auto& box = Part<QLineEdit>(window, "txtFindMax");
        box.setFocus();
        box.setText(QStringLiteral("7"));
        QTest::keyClick(&box, Qt::Key_F1);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        Click(window, "cmdCancel0");
        EXPECT_FALSE(window.isVisible());
    });
    Options([](frmOptions& window) {
        EXPECT_EQ(TextOf(window, "txtFindMax"), QStringLiteral("30"));
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(Run.UserIni(), before);
}

namespace {

/// A game that the machine may have is not found beside another.
class GamePathTest : public OptionsWindow
{
protected:
    GamePathTest()
    {
        QByteArray compat = Run.Program.Read(QStringLiteral("data/compat.ini"));
        Run.Program.Write(QStringLiteral("data/compat.ini"), compat.replace("GameFolder2=", "Elsewhere="));
    }
};

} // namespace

// Catches: a program that is taken without its proof, folders that are missing without a word or told although they are
// there, a list that keeps the folder of a game that was not applied.
TEST_F(GamePathTest, TheGameIsProvenAndItsFoldersAreLookedFor)
{
    const StandInPlace place;
    const QString script = place.Home.Write(QStringLiteral("bin/other"), "#!/bin/sh\necho 1.0\n");
    QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_FALSE(IsTheGame(script));
    const auto shown = Run.Scope.Answers.AskedFor<MessageQuestion>();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].Record.Number, message::NotTheGame);
    EXPECT_TRUE(IsTheGame(place.Program()));

    Run.TakeMessages();
    ShowGameFolders(script);
    const QStringList missing = Run.TakeMessages();
    ASSERT_EQ(missing.size(), 2);
    EXPECT_TRUE(missing[0].contains(QStringLiteral("graphics/gfx_classic")));
    EXPECT_EQ(Frame.Media.RndFolder, QString());

    Options([&](frmOptions& window) {
        Run.Scope.Answers.Next.emplace_back(place.Program());
        Click(window, "cmdGetRnDPath");
        EXPECT_EQ(TextOf(window, "txtRndPath"), place.Program());
        EXPECT_EQ(Frame.Media.RndFolder, place.Game.Path(QStringLiteral("graphics/gfx_classic/")));
        Click(window, "cmdCancel0");
    });
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    EXPECT_EQ(Frame.Media.RndFolder, QString()) << "not applied";
    EXPECT_EQ(Frame.Settings.RNDPath, QString());
    Options([&](frmOptions& window) {
        Type(window, "txtRndPath", place.Program().toLatin1().constData());
        Click(window, "cmblApply0");
    });
    EXPECT_EQ(Frame.Settings.RNDPath, place.Program());
    EXPECT_EQ(Frame.Settings.LevelsFolder, place.Game.Path(QStringLiteral("levels/")));
    EXPECT_EQ(Frame.Media.RndFolder, place.Game.Path(QStringLiteral("graphics/gfx_classic/")));
}
