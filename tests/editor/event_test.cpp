#include "pane_fixture.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

namespace {

struct EventTest : PaneTest
{
    EventTest()
    {
        Component()->resize(600, 300);
        Component()->show();
        QObject::connect(pane.get(), &EditorPane::SelectionChanged, pane.get(), [this] { heard += 's'_L1; });
        QObject::connect(pane.get(), &EditorPane::TextChanged, pane.get(), [this] { heard += 't'_L1; });
        QObject::connect(pane.get(), &EditorPane::ModifiedChanged, pane.get(),
                         [this](bool modified) { heard += modified ? 'M'_L1 : 'm'_L1; });
        QObject::connect(pane.get(), &EditorPane::MousePressed, pane.get(), [this](Qt::MouseButton button, auto keys) {
            heard += QString::number(button) + (keys & Qt::AltModifier ? "a"_L1 : ""_L1);
        });
    }

    QString Heard()
    {
        QCoreApplication::processEvents();
        return std::exchange(heard, {});
    }

    void Mouse(QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::KeyboardModifiers keys = {})
    {
        QWidget* viewport = Component()->viewport();
        QMouseEvent event(type, place, viewport->mapToGlobal(place), button, button, keys);
        QCoreApplication::sendEvent(viewport, &event);
    }

    QString heard;
};

// Catches: a pane that was disabled for a run and keeps the desktop's colours afterwards.
TEST_F(EventTest, ColoursSurviveADisabledWindow)
{
    pane->SetColor(0, 0xE8D0D0);
    pane->SetText(u"some text"_s);
    const auto plainBack = [this] { return Component()->SendScintilla(QsciScintillaBase::SCI_STYLEGETBACK, 0UL); };
    const long before = plainBack();
    Component()->setEnabled(false);
    Component()->setEnabled(true);
    EXPECT_EQ(plainBack(), before);
}

// Catches: an event missed, told twice or told before the text is what it tells of.
TEST_F(EventTest, EachChangeIsToldOnceAndBehindIt)
{
    QString seen;
    QObject::connect(pane.get(), &EditorPane::TextChanged, pane.get(), [&] { seen = pane->Text(); });
    pane->SetText(u"abc"_s);
    EXPECT_EQ(seen, u"abc"_s);
    EXPECT_EQ(heard, u"tMs"_s);
    Heard();
    pane->SetModified(false);
    EXPECT_EQ(Heard(), u"m"_s);
    pane->SetSel({0, 1, 0, 2}, true);
    EXPECT_EQ(heard, u"s"_s);
    pane->SetSel({0, 1, 0, 2}, true);
    EXPECT_EQ(Heard(), u"s"_s);
    Press(Qt::Key_Right);
    EXPECT_EQ(Heard(), u"s"_s);
    Type(u"x"_s);
    EXPECT_EQ(seen, u"abxc"_s);
    EXPECT_EQ(Heard(), u"tMs"_s);
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(Heard(), u"tms"_s);
    pane->LoadBytes("new");
    EXPECT_EQ(Heard(), u"ts"_s);
}

// Catches: the flag of a text that is being loaded told as set.
TEST_F(EventTest, AListenerMayClearTheFlag)
{
    QObject::connect(pane.get(), &EditorPane::TextChanged, pane.get(), [&] { pane->SetModified(false); });
    pane->SetText(u"template"_s);
    EXPECT_EQ(Heard(), u"ts"_s);
    EXPECT_FALSE(pane->Modified());
}

// Catches: an event for each edit of a batch, a batch that ends early, a redraw left off.
TEST_F(EventTest, ABatchTellsOnceAtItsEnd)
{
    {
        const EditBatch batch(*pane);
        for (int i = 0; i < 10; ++i) {
            const EditBatch inner(*pane);
            pane->AddText(u"x"_s);
        }
        EXPECT_EQ(Heard(), QString());
        EXPECT_FALSE(Component()->updatesEnabled());
    }
    EXPECT_EQ(Heard(), u"tMs"_s);
    EXPECT_TRUE(Component()->updatesEnabled());
    pane->LockRedraw(true);
    pane->LockRedraw(true);
    pane->ExecuteCmd(CmdDocumentEnd);
    pane->LockRedraw(false);
    EXPECT_FALSE(Component()->updatesEnabled());
    EXPECT_EQ(Heard(), QString());
    pane->LockRedraw(false);
    EXPECT_EQ(Heard(), u"s"_s);
    EXPECT_TRUE(Component()->updatesEnabled());
}

// Catches: a menu of the component's own, a right click that leaves the caret elsewhere or drops a selection, text
// pasted by the middle button of a shortcut.
TEST_F(EventTest, MousePresses)
{
    pane->SetText(u"abc\ndef\nghi"_s);
    Heard();
    const int height = int(Component()->SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0L));
    const QPointF second(100, height * 1.5), third(100, height * 2.5);
    Mouse(QEvent::MouseButtonPress, second, Qt::RightButton);
    EXPECT_EQ(Heard(), u"s2"_s);
    EXPECT_EQ(Shown(), u"abc\ndef|\nghi"_s);
    pane->SelectLine(1, false);
    Heard();
    Mouse(QEvent::MouseButtonPress, QPointF(5, height * 1.5), Qt::RightButton);
    EXPECT_EQ(Heard(), u"2"_s);
    QGuiApplication::clipboard()->setText(u"paste"_s, QClipboard::Selection);
    Mouse(QEvent::MouseButtonPress, third, Qt::MiddleButton, Qt::AltModifier);
    EXPECT_EQ(Heard(), u"s4a"_s);
    Mouse(QEvent::MouseButtonPress, second, Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(Heard(), u"s1a"_s);
    Mouse(QEvent::MouseMove, QPointF(5, height * 0.5), Qt::LeftButton, Qt::AltModifier);
    Mouse(QEvent::MouseButtonRelease, QPointF(5, height * 0.5), Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(Shown(), u"abc\ndef|\nghi"_s) << "a shortcut selects nothing";
    Mouse(QEvent::MouseButtonPress, second, Qt::LeftButton);
    EXPECT_EQ(Heard(), u"1"_s);
    Mouse(QEvent::MouseButtonRelease, second, Qt::LeftButton);
    EXPECT_EQ(Shown(), u"abc\ndef|\nghi"_s);
    Mouse(QEvent::MouseButtonPress, QPointF(5, height * 0.5), Qt::LeftButton, Qt::ControlModifier);
    Mouse(QEvent::MouseMove, second, Qt::LeftButton, Qt::ControlModifier);
    Mouse(QEvent::MouseButtonRelease, second, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_TRUE(pane->GetSel(true).ColumnSel);
    Heard();
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(Component(), &menuKey);
    EXPECT_TRUE(menuKey.isAccepted());
    EXPECT_EQ(Heard(), u"2"_s);
    QObject::connect(pane.get(), &EditorPane::MouseMoved, pane.get(), [this] { heard += 'v'_L1; });
    Mouse(QEvent::MouseMove, third, Qt::NoButton);
    EXPECT_EQ(Heard(), u"v"_s);
}

// Catches: a dropped file written into the text as its address, its place told as the caret's.
TEST_F(EventTest, DroppedFilesAreTold)
{
    QStringList told;
    Range place;
    QObject::connect(pane.get(), &EditorPane::FilesDropped, pane.get(), [&](const QStringList& paths, const Range& at) {
        told = paths;
        place = at;
    });
    pane->SetText(u"ab\r\ncd"_s);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/tmp/a b.conf"_s), QUrl(u"https://example.org/x"_s)});
    files.setText(u"file:///tmp/a b.conf"_s);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(Component()->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(300, Component()->textHeight(1) * 1.5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(Component()->viewport(), &drop);
    EXPECT_EQ(told, QStringList(u"/tmp/a b.conf"_s));
    EXPECT_EQ(place, (Range{1, 2, 1, 2}));
    EXPECT_EQ(pane->Text(), u"ab\r\ncd"_s);
}

// Catches: a key that the pane takes from the window's menus, one of the usual keys that does nothing.
TEST_F(EventTest, KeysOfMenusAreLeftAlone)
{
    pane->SetText(u"ab cd"_s);
    for (const char key : QByteArray("LTDBQWERFOSZXCVAYPGNHIJKMU"))
        EXPECT_FALSE(Press(key, Qt::ControlModifier, QChar(key - 64))) << key;
    for (const int key : {Qt::Key_F1, Qt::Key_F3, Qt::Key_Escape})
        EXPECT_FALSE(Press(key));
    EXPECT_FALSE(Press(Qt::Key_K, Qt::AltModifier, u"k"_s));
    for (const int key : {Qt::Key_L, Qt::Key_T, Qt::Key_Z, Qt::Key_V}) {
        QKeyEvent claim(QEvent::ShortcutOverride, key, Qt::ControlModifier);
        claim.ignore();
        QCoreApplication::sendEvent(Component(), &claim);
        EXPECT_FALSE(claim.isAccepted()) << key;
    }
    EXPECT_EQ(pane->Text(), u"ab cd"_s);
    QKeyEvent claim(QEvent::ShortcutOverride, Qt::Key_Left, Qt::ControlModifier);
    QCoreApplication::sendEvent(Component(), &claim);
    EXPECT_TRUE(claim.isAccepted());
}

struct KeyCase
{
    int Key;
    Qt::KeyboardModifiers Keys;
    const char *Before, *After;
};

TEST_F(EventTest, UsualKeysEdit)
{
    const Qt::KeyboardModifiers ctrl = Qt::ControlModifier, shift = Qt::ShiftModifier, alt = Qt::AltModifier;
    const KeyCase cases[] = {
        {Qt::Key_Right, ctrl, "|ab cd", "ab |cd"},
        {Qt::Key_Left, ctrl | shift, "ab cd|", "ab |cd["},
        {Qt::Key_End, ctrl, "|ab\ncd", "ab\ncd|"},
        {Qt::Key_Home, shift, "ab|", "|ab["},
        {Qt::Key_Home, Qt::KeypadModifier, "ab|", "|ab"},
        {Qt::Key_Backspace, ctrl, "ab cd|.e", "ab |.e"},
        {Qt::Key_Delete, ctrl, "|ab cd", "|cd"},
        {Qt::Key_Backspace, shift, "ab|", "a|"},
        {Qt::Key_Tab, {}, "a|", "a\t|"},
        {Qt::Key_Tab, {}, "[a\nb|", "[\ta\n\tb|"},
        {Qt::Key_Backtab, shift, "[\ta\n\tb|", "[a\nb|"},
        {Qt::Key_Enter, Qt::KeypadModifier, "a|b", "a\n|b"},
        {Qt::Key_Down, ctrl | shift, "|a\n\nb", "[a\n\n|b"},
        {Qt::Key_Right, alt | shift, "a|b", "a[b|"},
    };
    for (const KeyCase& row : cases) {
        SCOPED_TRACE(testing::Message() << row.Key << " on " << row.Before);
        Put(QString::fromUtf8(row.Before));
        EXPECT_TRUE(Press(row.Key, row.Keys));
        EXPECT_EQ(Shown(), QString::fromUtf8(row.After));
    }
    Put(u"|abc"_s);
    Press(Qt::Key_Insert);
    Type(u"x"_s);
    pane->SetOvertype(false);
    Type(u"y"_s);
    EXPECT_EQ(Shown(), u"xy|bc"_s);
}

// Catches: assistive technology that is told the whole text at each move, or a pane without name and role.
TEST_F(EventTest, AccessibilityIsAPlainWidget)
{
    SetUpAccessibility(false);
    const auto plain = MakePane();
    WidgetOf(*plain)->setAccessibleName(u"Text"_s);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(WidgetOf(*plain));
    ASSERT_TRUE(interface);
    EXPECT_FALSE(interface->textInterface());
    EXPECT_EQ(interface->role(), QAccessible::EditableText);
    EXPECT_EQ(interface->text(QAccessible::Name), u"Text"_s);
    SetUpAccessibility(true);
    const auto telling = MakePane();
    interface = QAccessible::queryAccessibleInterface(WidgetOf(*telling));
    ASSERT_TRUE(interface);
    EXPECT_TRUE(interface->textInterface());
}

// Catches: a pane that dies with its window, or a widget left behind.
TEST(PaneLife, PaneAndWidgetMayGoInAnyOrder)
{
    const HostScope host;
    auto parent = std::make_unique<QWidget>();
    auto first = MakePane(parent.get());
    const QPointer<QWidget> kept = WidgetOf(*first);
    EXPECT_TRUE(first->Visible());
    first->SetVisible(false);
    EXPECT_FALSE(first->Visible());
    EXPECT_TRUE(kept->isHidden());
    first.reset();
    EXPECT_TRUE(kept);
    auto second = MakePane(parent.get());
    parent.reset();
    EXPECT_FALSE(kept);
    second.reset();
    auto alone = MakePane();
    EXPECT_TRUE(alone->Visible());
    const QPointer<QWidget> widget = WidgetOf(*alone);
    alone.reset();
    EXPECT_FALSE(widget);
}

} // namespace
