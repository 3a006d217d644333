#include "frame/settings/settings_table.h"
#include "windows/options/options_fixture.h"
#include "windows/options/setting_finder.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QRubberBand>
#include <QTreeWidget>

namespace {

class FindSettingTest : public OptionsWindow
{
protected:
    static SettingFinder& Finder(QWidget& window) { return Part<SettingFinder>(window, "txtFindSetting"); }

    static QStringList FoundBy(QWidget& window, const QString& words)
    {
        SettingFinder& finder = Finder(window);
        finder.setFocus();
        finder.selectAll();
        QTest::keyClicks(&finder, words);
        return finder.Found();
    }

    /// Keys go to the list while it shows.
    static void PressInList(QWidget& window, Qt::Key key)
    {
        QTest::keyClick(Finder(window).completer()->popup(), key);
        QCoreApplication::processEvents();
    }

    /// The part that is marked as found last.
    static QString Marked(QWidget& window)
    {
        const auto marks = window.findChildren<QRubberBand*>();
        if (marks.isEmpty())
            return {};
        const QRubberBand& mark = *marks.last();
        const QWidget* part = mark.parentWidget()->childAt(mark.geometry().center());
        return mark.isVisible() && part ? part->objectName() : QString();
    }

    /// Names of the parts that Tab stops at, from the tabs on to the page's end.
    static QStringList TabStops(frmOptions& window)
    {
        QStringList names;
        const QWidget* first = window.SSTab()->focusProxy();
        for (const QWidget* part = first->nextInFocusChain(); part != first; part = part->nextInFocusChain()) {
            const bool stops = (part->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !part->focusProxy();
            if (stops && part->isVisibleTo(&window))
                names << part->objectName();
        }
        names.removeOne(QStringLiteral("txtFindSetting"));
        return names;
    }
};

} // namespace

// Catches: a setting that no page can change, a part that the search does not know.
TEST_F(FindSettingTest, EverySettingStandsOnAPage)
{
    Options([](frmOptions& window) {
        for (const SettingRow& row : SettingRows()) {
            const QString key = QString::fromLatin1(row.Key);
            const QString words = key.size() == 1 ? QString::fromLatin1(row.Section) : key;
            EXPECT_FALSE(FoundBy(window, words).isEmpty()) << row.Section << '/' << row.Key;
        }
        EXPECT_EQ(FoundBy(window, QStringLiteral("no such thing")), QStringList());
        QTest::keyClick(&Finder(window), Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
    });
}

// Catches: a search that leads to another part than the one named, to a page that is not in front, to a command that a
// search of the page has hidden; one that minds the order of words, or is left with a word in it.
TEST_F(FindSettingTest, TheSearchLeadsToThePart)
{
    Options([](frmOptions& window) {
        window.SSTab()->setCurrentIndex(2);
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(window.focusWidget(), &Finder(window));
        FoundBy(window, QStringLiteral("limits SPACER"));
        PressInList(window, Qt::Key_Return);
        EXPECT_EQ(window.SSTab()->currentIndex(), 0);
        EXPECT_EQ(Marked(window), QStringLiteral("txtMarginSize"));
        EXPECT_EQ(Finder(window).text(), QString());

        const QStringList bolds = FoundBy(window, QStringLiteral("bold colours"));
        ASSERT_EQ(bolds.size(), 10); // a kind each, and the lists' font
        PressInList(window, Qt::Key_Down);
        PressInList(window, Qt::Key_Down);
        PressInList(window, Qt::Key_Return);
        EXPECT_EQ(window.SSTab()->currentIndex(), 1);
        EXPECT_EQ(Marked(window), QStringLiteral("Check1_1"));

        Part<QLineEdit>(window, "txtFindCommand").setText(QStringLiteral("goto"));
        FoundBy(window, QStringLiteral("shortcuts redo"));
        PressInList(window, Qt::Key_Return);
        EXPECT_EQ(window.SSTab()->currentIndex(), 3);
        const QTreeWidgetItem* item = Part<QTreeWidget>(window, "treeCommands").currentItem();
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->text(0), QStringLiteral("Redo"));
        EXPECT_FALSE(item->isHidden());
    });
}

// Catches: a part that keeps the keys of the pages for itself, a key line that lets them go.
TEST_F(FindSettingTest, CtrlTabTurnsThePagesFromEverywhere)
{
    Options([](frmOptions& window) {
        window.SSTab()->setCurrentIndex(1);
        const auto press = [&](const char* part, Qt::Key key, Qt::KeyboardModifiers modifiers) {
            auto& box = Part<QWidget>(window, part);
            box.setFocus();
            QTest::keyClick(&box, key, modifiers);
            return window.SSTab()->currentIndex();
        };
        EXPECT_EQ(press("cmbStyle", Qt::Key_Tab, Qt::ControlModifier), 2);
        EXPECT_EQ(press("cmbScreenReader", Qt::Key_PageDown, Qt::ControlModifier), 3);
        EXPECT_EQ(press("txtNewKey", Qt::Key_Tab, Qt::ControlModifier), 3);
        EXPECT_EQ(press("txtFindCommand", Qt::Key_Tab, Qt::ControlModifier), 0);
        EXPECT_EQ(press("chkOther0", Qt::Key_PageUp, Qt::ControlModifier), 3);
    });
}

// Catches: a stop of Tab that nobody sees, buttons before what they apply.
TEST_F(FindSettingTest, TabGoesThroughThePageToItsButtons)
{
    struct
    {
        const char *First, *Last;
    } const pages[] = {
        {"chkOther0", "chkQuickEle9"}, {"cmbStyle", "Command2"}, {"chkLineNumbers", "cmbScreenReader"}, {}};
    Options([&](frmOptions& window) {
        for (int page = 0; page < window.SSTab()->count(); ++page) {
            window.SSTab()->setCurrentIndex(page);
            QStringList stops = TabStops(window);
            stops.removeOne(QStringLiteral("cmdUndoFileTypes")); // where there is nothing to undo it is greyed
            EXPECT_FALSE(stops.contains(QString())) << page;
            ASSERT_GT(stops.size(), 5) << page;
            EXPECT_EQ(stops.last(2),
                      (QStringList{QStringLiteral("cmblApply%1").arg(page), QStringLiteral("cmdCancel%1").arg(page)}));
            if (!pages[page].First)
                continue;
            EXPECT_EQ(stops.first(), QString::fromLatin1(pages[page].First));
            EXPECT_EQ(stops.at(stops.size() - 3), QString::fromLatin1(pages[page].Last));
        }
    });
}
