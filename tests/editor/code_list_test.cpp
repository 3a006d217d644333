#include "pane_fixture.h"

#include <QListView>

namespace {

struct CodeListTest : PaneTest
{
    CodeListTest()
    {
        Component()->resize(600, 300);
        Component()->show();
        pane->CodeList = [this](EditorPane&, bool) { return words; };
        pane->CodeListPick = [this](EditorPane&, const QString& item) {
            picked << item;
            return inserts;
        };
    }

    QString Selected() const
    {
        const auto* view = Component()->findChild<QListView*>();
        return view && view->isVisible() ? view->currentIndex().data().toString() : u"<closed>"_s;
    }

    QStringList words{u"zonk"_s, u"yamyam"_s, u"Yamyam_2"_s, u"boring[1]"_s, u"left.right?"_s, u"yam"_s};
    QStringList picked;
    bool inserts = true;
};

// Catches: another item chosen than the first that begins with the word, a list that opens too early, stays without a
// match, or sorts.
TEST_F(CodeListTest, TypingOpensFollowsAndCloses)
{
    Type(u"y"_s);
    EXPECT_FALSE(pane->CodeListOpen());
    Type(u"A"_s);
    EXPECT_TRUE(pane->CodeListOpen());
    EXPECT_EQ(Selected(), u"yamyam"_s);
    Type(u"myam_"_s);
    EXPECT_EQ(Selected(), u"Yamyam_2"_s);
    Press(Qt::Key_Backspace);
    QCoreApplication::processEvents();
    EXPECT_EQ(Selected(), u"yamyam"_s);
    Type(u"q"_s);
    EXPECT_FALSE(pane->CodeListOpen());
    pane->SetText({});
    Type(u"qq"_s);
    EXPECT_FALSE(pane->CodeListOpen());
    words.clear();
    pane->SetText({});
    Type(u"ya"_s);
    EXPECT_FALSE(pane->CodeListOpen());
    EXPECT_FALSE(Press(Qt::Key_Escape));
}

// Catches: keys that reach the text instead of the list, a word completed twice or not at all.
TEST_F(CodeListTest, KeysChoose)
{
    Type(u"ya"_s);
    Press(Qt::Key_Down);
    EXPECT_EQ(Selected(), u"Yamyam_2"_s);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Selected(), u"yam"_s);
    Press(Qt::Key_Up);
    EXPECT_EQ(Selected(), u"left.right?"_s);
    Press(Qt::Key_PageUp);
    EXPECT_EQ(Selected(), u"zonk"_s);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), u"yamyam|"_s);
    EXPECT_EQ(picked, QStringList(u"yamyam"_s));
    EXPECT_FALSE(pane->CodeListOpen());
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(Shown(), u"ya|"_s) << "one step";
    inserts = false;
    Press(Qt::Key_Space, Qt::ControlModifier);
    Press(Qt::Key_Tab);
    EXPECT_EQ(picked.size(), 2);
    EXPECT_EQ(Shown(), u"ya|"_s);
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(Press(Qt::Key_Escape));
    EXPECT_FALSE(Press(Qt::Key_Escape));
    Press(Qt::Key_Space, Qt::ControlModifier);
    Press(Qt::Key_Left);
    EXPECT_FALSE(pane->CodeListOpen());
    pane->SetText({});
    Type(u"yam"_s);
    pane->CloseCodeList();
    EXPECT_FALSE(pane->CodeListOpen());
}

// Catches: an item with a bracket in front that no typing finds.
TEST_F(CodeListTest, ABracketInFrontCounts)
{
    words << u"[yard]"_s;
    Type(u"[ya"_s);
    EXPECT_EQ(Selected(), u"[yard]"_s);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Left);
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Selected(), u"[yard]"_s) << "inside the word";
    pane->SetText({});
    Type(u"(ya"_s);
    EXPECT_EQ(Selected(), u"yamyam"_s);
}

// Catches: Enter behind a finished word that changes nothing instead of breaking the line.
TEST_F(CodeListTest, EnterBehindAWholeWordBreaksTheLine)
{
    Type(u"yamyam"_s);
    ASSERT_TRUE(pane->CodeListOpen());
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), u"yamyam\n|"_s);
    EXPECT_TRUE(picked.isEmpty());
}

// Catches: Ctrl+Space that shows nothing where no word begins, a pick by the mouse that goes astray.
TEST_F(CodeListTest, OpensAnywhereAndTakesAClick)
{
    Put(u"x.|"_s);
    Press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(Selected(), u"zonk"_s);
    auto* view = Component()->findChild<QListView*>();
    emit view->clicked(view->model()->index(3, 0));
    EXPECT_EQ(Shown(), u"x.boring[1]|"_s.replace('['_L1, "["_L1));
    EXPECT_FALSE(pane->CodeListOpen());
    Press(Qt::Key_Space, Qt::ControlModifier);
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(Component(), &out);
    EXPECT_FALSE(pane->CodeListOpen());
}

// Catches: values that are not narrowed, one taken by Enter that only holds what is typed, a piece of the value left
// over by a pick, words of the mode lost.
TEST_F(CodeListTest, ValuesStandInFrontAndAreNarrowed)
{
    pane->CodeValues = [this](EditorPane&) {
        const int caret = pane->CaretColumn();
        const QString line = pane->GetLine(0);
        OfferedValues offered{{u"rocks.png"_s, u"old rocks.png"_s, u"cave.pcx"_s}, {}, line.mid(2, caret - 2), true};
        offered.Place = {0, 2, 0, int(line.size())};
        return offered;
    };
    QStringList seen;
    pane->CodePicture = [&seen](EditorPane&, const QString& file, const std::function<void()>&) {
        seen << file;
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::red);
        return picture;
    };
    Put(u"k:|rest"_s);
    Press(Qt::Key_Space, Qt::ControlModifier);
    const auto* view = Component()->findChild<QListView*>();
    EXPECT_EQ(view->model()->rowCount(), 3 + words.size());
    EXPECT_EQ(Selected(), u"rocks.png"_s);
    const auto picture = view->model()->index(0, 0).data(Qt::DecorationRole).value<QPixmap>();
    EXPECT_EQ(picture.toImage().pixelColor(picture.rect().center()), QColor(Qt::red));
    EXPECT_FALSE(seen.contains(words.constFirst())) << "a word is no file";
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), u"k:rocks.png|"_s);

    Put(u"k:|"_s);
    Type(u"ro"_s);
    EXPECT_EQ(view->model()->rowCount(), 2 + words.size());
    EXPECT_EQ(Selected(), u"rocks.png"_s);
    Put(u"k:|"_s);
    Type(u"cave.p"_s);
    EXPECT_EQ(Selected(), u"cave.pcx"_s) << "over what parts words";
    Press(Qt::Key_Tab);
    EXPECT_EQ(Shown(), u"k:cave.pcx|"_s);
    Put(u"k:|"_s);
    Press(Qt::Key_Space, Qt::ControlModifier);
    Type(u"ld"_s);
    EXPECT_TRUE(pane->CodeListOpen());
    EXPECT_EQ(Selected(), QString()) << "none begins so";
    Press(Qt::Key_Return);
    EXPECT_EQ(Shown(), u"k:ld\n|"_s);
}

} // namespace
