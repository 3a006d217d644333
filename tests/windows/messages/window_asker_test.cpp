#include "windows/messages/window_asker.h"

#include "frame/files/file_commands.h"
#include "frame/messages/messages.h"
#include "windows/parts/dialog_support.h"
#include "windows/parts/file_filter.h"
#include "windows/parts/icons.h"

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>

// Catches: patterns shown twice or not understood, a macro's filter with its bar at the end losing its pattern or
// gaining an empty one, and a description in brackets taken for patterns.
TEST(FileFilter, TakesThePairsOfTheProgram)
{
    EXPECT_EQ(DialogFilters(DocumentFilter()),
              (QStringList{QStringLiteral("RND Config Files (*.conf)"),
                           QStringLiteral("Text Files (*.txt *.doc *.me *.now *.1st *.nfo *.c *.h)"),
                           QStringLiteral("RND V1.0 Config Files (Unsupported) (*.cnf)")}));
    EXPECT_EQ(DialogFilters(QStringLiteral("Files (*.txt)|*.txt|")), QStringList{QStringLiteral("Files (*.txt)")});
    EXPECT_EQ(DialogFilters(QStringLiteral("Old (*.pcx,*.png)|*.pcx,*.png|All|*")),
              (QStringList{QStringLiteral("Old (*.pcx *.png)"), QStringLiteral("All (*)")}));
    EXPECT_TRUE(DialogFilters(QStringLiteral("Files ()||")).isEmpty());
    EXPECT_TRUE(DialogFilters({}).isEmpty());
}

// Catches: a cancel that is not told apart from an empty text, and a prompt taken as rich text or with a letter eaten.
TEST(WindowAsker, InputGivesTheTextOrNothing)
{
    WindowAsker asker(nullptr);
    const auto ask = [&](Qt::Key key) {
        OnModal([key](QWidget& window) {
            EXPECT_EQ(window.windowTitle(), QStringLiteral("New Project"));
            const auto* label = window.findChild<QLabel*>();
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
            EXPECT_EQ(label->text(), QStringLiteral("<u>Name</u> && more"));
            auto* line = window.findChild<QLineEdit*>();
            EXPECT_EQ(line->text(), QStringLiteral("old"));
            QTest::keyClicks(line, QStringLiteral(" new "));
            QTest::keyClick(line, key);
        });
        return asker.Ask(
            InputQuestion{QStringLiteral("New Project"), QStringLiteral("<u>Name</u> & more"), QStringLiteral("old")});
    };
    EXPECT_EQ(ask(Qt::Key_Return), Answer(QStringLiteral(" new ")));
    EXPECT_EQ(ask(Qt::Key_Escape), Answer(Cancelled{}));
}

// Catches: a dialog that starts in another folder or without the preset name, a second question about a file that is
// there (the command asks it with message 9), and a cancel that gives a name.
TEST(WindowAsker, SaveFileLeavesOverwritingToTheCommand)
{
    const TestFolder folder;
    const QString path = folder.Write(QStringLiteral("soundsinfo.conf"), "x");
    WindowAsker asker(nullptr);
    const FileQuestion question{FileQuestion::Save, QStringLiteral("Save file as"), DocumentFilter(), folder.Path(),
                                QStringLiteral("soundsinfo.conf")};
    const auto ask = [&](bool accept) {
        OnModal([accept](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save file as"));
            if (accept)
                QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
            EXPECT_EQ(dialog.isVisible(), !accept);
        });
        return asker.Ask(question);
    };
    EXPECT_EQ(ask(true), Answer(path));
    EXPECT_EQ(ask(false), Answer(Cancelled{}));
}

// Catches: pictures that are not in a program which only links the library, and numbers that miss the file names.
TEST(Icons, ComeFromTheResources)
{
    EXPECT_FALSE(CommandIcon(QStringLiteral("tidy_up")).pixmap(16, 16).isNull());
    EXPECT_TRUE(CommandIcon(QStringLiteral("nothing")).isNull());
    const std::pair<const char*, int> lists[] = {{"mode", 9},  {"recent", 8}, {"message", 12}, {"mark", 30},
                                                 {"goto", 63}, {"macro", 2},  {"tree", 3},     {"zip", 2}};
    for (const auto& [list, count] : lists) {
        for (int i = 1; i <= count; ++i)
            EXPECT_FALSE(ListImage(QString::fromLatin1(list), i).pixmap(16, 16).isNull()) << list << i;
        EXPECT_TRUE(ListImage(QString::fromLatin1(list), count + 1).isNull()) << list;
        EXPECT_TRUE(ListImage(QString::fromLatin1(list), 0).isNull()) << list;
    }
}
