#include "frame/frame_events.h"
#include "windows/main/main_window_test.h"
#include "windows/parts/icons.h"

#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <set>

using CommandTable = MainWindowTest;

namespace {

template <class Visit>
void ForEachRow(Visit visit)
{
    for (const MenuRow& menu : MainMenus())
        for (const CommandRow& row : menu.Rows)
            if (*row.ButtonKey)
                visit(row);
}

/// A menu's captions in their order, "-" for a separator, rows that do not show included.
QString Whole(const MenuRow& menu)
{
    QStringList texts{QString::fromLatin1(menu.Caption)};
    for (const CommandRow& row : menu.Rows) {
        texts << QString::fromLatin1(row.Caption);
        if (row.Flags & SeparatorBehind)
            texts << QStringLiteral("-");
    }
    return texts.join(u'|');
}

QStringList Texts(const QList<QAction*>& actions)
{
    QStringList texts;
    for (const QAction* action : actions)
        if (action->isVisible())
            texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

} // namespace

// Catches: a row that was copied and not finished: a control, shortcut or button key twice, no icon, an entry that does
// nothing.
TEST_F(CommandTable, EveryRowIsWholeAndItsOwn)
{
    std::set<QString> controls, shortcuts, keys;
    ForEachRow([&](const CommandRow& row) {
        SCOPED_TRACE(row.Control);
        EXPECT_TRUE(controls.insert(QString::fromLatin1(row.Control)).second);
        EXPECT_TRUE(keys.insert(QString::fromLatin1(row.ButtonKey)).second);
        EXPECT_STRNE(row.Caption, "");
        EXPECT_EQ(row.Action != NotThere, MenuOf(row.Control) != nullptr);
        EXPECT_FALSE(CommandIcon(QString::fromLatin1(row.ButtonKey)).isNull());
        if (*row.Shortcut) {
            const QKeySequence keysOf(QString::fromLatin1(row.Shortcut), QKeySequence::PortableText);
            EXPECT_EQ(keysOf.toString(QKeySequence::PortableText), QString::fromLatin1(row.Shortcut));
            EXPECT_TRUE(shortcuts.insert(QString::fromLatin1(row.Shortcut)).second);
        }
        if (row.Flags & OpensMenu) {
            EXPECT_NE(Window->Menus().Find(QString::fromLatin1(row.Control)), nullptr);
        }
    });
}

// Catches: an entry or menu at another place than told, a separator at an end or beside another one, a title entry
// that can be chosen, an empty menu.
TEST_F(CommandTable, MenusStandInTheToldOrder)
{
    const std::pair<const char*, const char*> told[] = {
        {"mnuFile", "File|New|Open|Open Recent|Revert To Saved|Insert File|-|Project|-|Save|Save As..|-|Open Tab|"
                    "Close Tab|Reopen Closed Tab|Close All Tabs|-|Options"},
        {"mnuNew", "New|Graphics|Sound|Music|Level Info|Help Text|Help Anim|Editor Setup|-|Text File"},
        {"mnuEdit", "Edit|Undo|Redo|-|Cut|Cut Append|Copy|Paste|-|Select Line|Select Element Block|"
                    "Select Between Comments|Select All|-|Quick Element|Edit Element|Quick Preview|Edit Animation|-|"
                    "Insert A Comment Separator|Comment Selected|Uncomment Selected|Toggle Comment|Tidy Up"},
        {"mnuSearch", "Find|Find|Find Next|Find Previous|-|Replace|-|Goto Comment|Goto Next Comment|"
                      "Goto Previous Comment|-|Goto Line Number|Goto Top|Goto Bottom|-|Goto Block|-|Next Mark|"
                      "Previous Mark|List Of Marks"},
        {"mnuView", "View|Line Numbers|Spaces + Tabs|Colours|-|Super Tab|Line Hints|Thumbnails"},
        {"mnuRND", "RnD|Run Rocks'n'Diamonds|Run RnD - Fast Test Selected Element|Test Set Safely|Level Manager|-|"
                   "Check For Errors|-|Check With The Game|View Error Log|The Game's Words|Extract From RnD|-|Games"},
        {"mnuExtra", "Extra|Game Structure Wizard|Make Level Preview Palette|Make Editor Headline|-|PCX Lab|"
                     "AVI To Bitmap|-|Gemforge BASIC|Record Macro"},
        {"mnuHelp", "Help|Help|-|About"}};
    for (const auto& [control, whole] : told) {
        const auto row = std::ranges::find(MainMenus(), QLatin1StringView(control),
                                           [](const MenuRow& menu) { return QLatin1StringView(menu.Control); });
        EXPECT_EQ(Whole(*row), QString::fromLatin1(whole));
        if (ShownRows(*row).empty()) // all its tools are to come: the menu bar does not have it
            continue;
        const QMenu* menu = Window->Menus().Find(QString::fromLatin1(control));
        const QStringList texts = Texts(menu->actions());
        SCOPED_TRACE(texts.join(u'|').toStdString());
        QStringList order = QString::fromLatin1(whole).split(u'|');
        for (const QString& text : texts) {
            const qsizetype at = order.indexOf(text);
            ASSERT_GE(at, 0) << text;
            order.remove(0, at + 1);
        }
        EXPECT_GT(texts.size(), 1);
        EXPECT_FALSE(texts.contains(QString()) || texts.constLast() == QLatin1String("-"));
        EXPECT_FALSE(texts.join(QString()).contains(QLatin1String("--")));
        EXPECT_FALSE(menu->actions().constFirst()->isEnabled());
    }
    emit Events().MenuStripsChanged(true);
    EXPECT_EQ(Texts(Window->Menus().Find(QStringLiteral("mnuView"))->actions()).constFirst(), QStringLiteral("View"));
    emit Events().MenuStripsChanged(false);
    EXPECT_EQ(Texts(Window->Menus().Find(QStringLiteral("mnuView"))->actions()).constFirst(),
              QStringLiteral("Line Numbers"));
}

// Catches: a tip taken from the menu where the button has its own, a bar without buttons that shows.
TEST_F(CommandTable, ToolBarsFollowTheRows)
{
    EXPECT_EQ(ButtonOf("mnuProject")->toolTip(), QStringLiteral("Projects"));
    EXPECT_EQ(ButtonOf("mnuSaveAs")->toolTip(), QStringLiteral("Save As..."));
    EXPECT_EQ(ButtonOf("mnuViewColours")->toolTip(), QStringLiteral("Syntax Colours"));
    EXPECT_EQ(ButtonOf("mnuTidyup")->toolTip(), QStringLiteral("Tidy Up"));
    for (const ToolStrip strip : {ToolStrip::tbFile, ToolStrip::tbRnD, ToolStrip::tbExtra}) {
        const QToolBar* bar = Window->Bars().Bar(strip);
        EXPECT_EQ(bar->isVisible(), !bar->actions().isEmpty());
    }
    const auto* button =
        qobject_cast<QToolButton*>(Window->Bars().Bar(ToolStrip::tbFile)->widgetForAction(ButtonOf("mnuNew")));
    EXPECT_EQ(button->menu(), Window->Menus().Find(QStringLiteral("mnuNew")));
    EXPECT_EQ(button->popupMode(), QToolButton::MenuButtonPopup);
}

// Catches: a command left on from the mode before, a button that follows its entry in the sound modes, a command that
// stays live in a disabled window, and one that shows where no tool opens the media.
TEST_F(CommandTable, CommandsFollowModeAndLock)
{
    EXPECT_TRUE(MenuOf("mnuSelectEleBlock")->isEnabled() && ButtonOf("mnuSelectEleBlock")->isEnabled());
    MenuOf("mnuNewSound")->trigger();
    EXPECT_EQ(Frame.CurrentMode, ModeSfx);
    EXPECT_FALSE(MenuOf("mnuSelectEleBlock")->isEnabled() || ButtonOf("mnuSelectEleBlock")->isEnabled());
    EXPECT_TRUE(MenuOf("mnuEDViewElement")->isEnabled());
    EXPECT_FALSE(ButtonOf("mnuEDViewElement")->isEnabled());
    SetMode(ModeEdi);
    EXPECT_TRUE(MenuOf("mnuExtraHeadline")->isEnabled() && ButtonOf("mnuExtraHeadline")->isEnabled());
    EXPECT_FALSE(MenuOf("mnuEDViewElement")->isEnabled());
    Busy().SetEnabled(false);
    EXPECT_FALSE(MenuOf("mnuExtraHeadline")->isEnabled() || MenuOf("mnuSave")->isEnabled());
    Busy().SetEnabled(true);
    EXPECT_TRUE(MenuOf("mnuExtraHeadline")->isEnabled() && MenuOf("mnuSave")->isEnabled());
    const CommandRow opener{"x", "x", "", ToolStrip::None, "", nullptr, OpensMedia, [] {}, InMode(ModeSfx), NoMode};
    EXPECT_FALSE(IsVisible(opener, {ModeSfx, false, false}));
    EXPECT_TRUE(IsVisible(opener, {ModeGfx, false, false}));
    EXPECT_FALSE(EntryEnabled(opener, {ModeSfx, false, false}));
    EXPECT_TRUE(EntryEnabled(opener, {ModeSfx, true, false}));
}

// Catches: a toggle by menu or by button after which the two differ, or that is forgotten at the next start.
TEST_F(CommandTable, ViewTogglesKeepEntryButtonAndKeyTogether)
{
    struct
    {
        const char* Control;
        const char* Key;
    } const toggles[] = {{"mnuViewLineNums", "ShowLineNumbers"},
                         {"mnuViewSpaces", "ShowSpaces"},
                         {"mnuViewColours", "UseColour"},
                         {"mnuSuperTab", "SuperTab"}};
    for (const auto& toggle : toggles) {
        SCOPED_TRACE(toggle.Control);
        bool on = MenuOf(toggle.Control)->isChecked();
        for (QAction* action : {MenuOf(toggle.Control), ButtonOf(toggle.Control)}) {
            EXPECT_EQ(ButtonOf(toggle.Control)->isChecked(), on);
            action->trigger();
            on = !on;
            EXPECT_EQ(MenuOf(toggle.Control)->isChecked(), on);
            EXPECT_EQ(ButtonOf(toggle.Control)->isChecked(), on);
            EXPECT_TRUE(Run.UserIni().contains(QByteArray(QByteArray(toggle.Key) + (on ? "=1" : "=0"))));
        }
        WriteIni(on ? QStringLiteral("0") : QStringLiteral("1"), QStringLiteral("Misc"), QLatin1StringView(toggle.Key));
        LoadSettings();
        EXPECT_EQ(MenuOf(toggle.Control)->isChecked(), !on) << "settings read anew";
    }
}

// Catches: bars that get lost, doubled or keep their old row when the stored order differs or names nonsense.
TEST_F(CommandTable, CoolBarTakesTheStoredOrder)
{
    for (const auto& [key, value] : {std::pair("C1", "tbView"), std::pair("C2", "tbView"), std::pair("C3", "nonsense"),
                                     std::pair("N2", "True"), std::pair("N3", "False")})
        WriteIni(QString::fromLatin1(value), QStringLiteral("Coolbar Bands"), QString::fromLatin1(key));
    LoadSettings();
    QCoreApplication::processEvents();
    const CoolBar& bars = Window->Bars();
    for (const ToolStrip strip : {ToolStrip::tbFile, ToolStrip::tbEdit, ToolStrip::tbFind, ToolStrip::tbView})
        EXPECT_TRUE(bars.Bar(strip)->isVisible());
    EXPECT_EQ(bars.Bar(ToolStrip::tbView)->y(), bars.Bar(ToolStrip::tbFind)->y());
    EXPECT_LT(bars.Bar(ToolStrip::tbEdit)->y(), bars.Bar(ToolStrip::tbView)->y());
}

// Catches: a move by the user that is not stored, one that comes back in another order or on another row, a bar that
// leaves the top of the window.
TEST_F(CommandTable, CoolBarIsStoredAsTheUserHasMovedIt)
{
    const CoolBar& bars = Window->Bars();
    QToolBar* edit = bars.Bar(ToolStrip::tbEdit);
    EXPECT_TRUE(edit->isMovable());
    EXPECT_FALSE(edit->isAreaAllowed(Qt::LeftToolBarArea));
    Window->removeToolBarBreak(bars.Bar(ToolStrip::tbFind));
    Window->insertToolBar(bars.Bar(ToolStrip::tbFile), edit);
    edit->show();
    Window->insertToolBarBreak(bars.Bar(ToolStrip::tbView));
    QCoreApplication::processEvents();
    const auto where = [&] {
        QList<std::pair<QString, QPoint>> places;
        for (const QToolBar* bar : Window->findChildren<QToolBar*>())
            places << std::pair(bar->objectName(), bar->pos());
        std::ranges::sort(places, {}, [](const auto& place) { return place.first; });
        return places;
    };
    const auto moved = where();
    bars.SaveCoolbar();
    EXPECT_TRUE(Run.UserIni().contains("C1=tbEdit"));
    EXPECT_TRUE(Run.UserIni().contains("C2=tbFile"));
    EXPECT_TRUE(Run.UserIni().contains("N3=False"));
    EXPECT_TRUE(Run.UserIni().contains("N4=True"));
    LoadSettings();
    QCoreApplication::processEvents();
    EXPECT_EQ(where(), moved);
    bars.SaveCoolbar();
    EXPECT_EQ(ReadIni(QStringLiteral("Coolbar Bands"), QStringLiteral("N5")), QStringLiteral("False"));
}
