#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "windows/main/main_window_test.h"

#include <QDialog>
#include <QMenu>
#include <QTimer>
#include <QToolBar>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// The page that F1 opens on a part; empty for one that leaves it to another or swallows the key.
QString PageOf(const QString& id)
{
    if (id.isEmpty() || id == NoHelpSubject || id == TextSubject)
        return {};
    return ProjectFile(u"help/"_s) + id.toLower() + u".html"_s;
}

void ExpectPage(const QString& id, const QString& part)
{
    const QString page = PageOf(id);
    EXPECT_TRUE(page.isEmpty() || QFile::exists(page)) << part << ' ' << page;
}

/// Presses Esc in each modal window that opens.
class EscapePresser : public QObject
{
public:
    EscapePresser()
    {
        connect(&often, &QTimer::timeout, this, &EscapePresser::Look);
        often.start(10);
    }

    std::set<QString> Left, Stayed;

private:
    void Look()
    {
        QWidget* window = QApplication::activeModalWidget();
        if (!window || !window->isVisible())
            return;
        const QString own = window->objectName();
        const QString name = own.isEmpty() ? QString::fromLatin1(window->metaObject()->className()) : own;
        ExpectPage(HelpSubjectOf(window), name);
        const QPointer<QWidget> open = window;
        QWidget* focus = window->focusWidget();
        QTest::keyClick(focus ? focus : window, Qt::Key_Escape);
        if (!open || !open->isVisible()) {
            Left.insert(name);
            return;
        }
        Stayed.insert(name);
        open->close();
    }

    QTimer often;
};

using EveryWindow = MainWindowTest;

} // namespace

// Catches: a command, a panel or a list whose F1 shows the contents because its page is missing or named otherwise.
TEST_F(EveryWindow, EverySubjectOfTheMainWindowHasAPage)
{
    std::set<QString> pages;
    const auto look = [&pages](const QString& id, const QString& part) {
        ExpectPage(id, part);
        pages.insert(PageOf(id));
    };
    for (const QWidget* part : Window->findChildren<QWidget*>())
        look(HelpSubjectOf(part), part->objectName());
    for (const QAction* entry : Window->findChildren<QAction*>())
        look(HelpSubjectOf(*entry), entry->objectName());
    EXPECT_GT(pages.size(), 60U);
}

// Catches: a window that Esc does not leave, one after which the main window stays shut or counts as at work, one
// without a help page. The workbench stays: Esc stops its runs.
TEST_F(EveryWindow, EscLeavesEveryWindowOfTheMenus)
{
    EscapePresser escape;
    Frame.Settings.RNDPath = Run.Work.Write(u"game"_s, "program");
    QImage sheet(64, 32, QImage::Format_RGB32);
    sheet.fill(Qt::red);
    ASSERT_TRUE(sheet.save(Frame.CurrentFolder + u"a.png"_s));
    for (const MenuRow& menu : MainMenus())
        for (const CommandRow& row : menu.Rows) {
            QAction* entry = MenuOf(row.Control);
            if (!entry || entry->isCheckable() || entry->menu() || QLatin1StringView(row.Control) == "mnuHelpView"_L1)
                continue;
            SCOPED_TRACE(row.Control);
            if (Frame.CurrentMode != ModeGfx)
                MenuOf("mnuNewGraphics")->trigger();
            CurrentPane().LoadBytes("yamyam: a.png\nyamyam.frames: 2\n");
            CurrentPane().SetSel({0, 2, 0, 2}, false);
            entry->trigger();
            QCoreApplication::processEvents();
            EXPECT_TRUE(Window->isEnabled());
            EXPECT_EQ(RunningWork(), 0);
        }
    for (const char* window : {"frmProject", "frmOptions", "frmInject", "frmPCX", "frmComment", "frmGames", "frmWizard",
                               "frmMakePreview", "frmPCXLab", "frmAVI2BMP", "frmAbout"})
        EXPECT_TRUE(escape.Left.contains(QLatin1StringView(window))) << window;
    EXPECT_EQ(escape.Stayed, std::set{u"frmMacroEdit"_s});
}
