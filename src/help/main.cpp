#include "help/help_window.h"
#include "platform/desktop/program_looks.h"
#include "platform/processes/running_window.h"

#include <QApplication>

/// Help [ID]: shows the page for the id, in the window that runs already if there is one.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Gemforge Help"));
    QApplication::setDesktopFileName(QStringLiteral("gemforge"));
    const ProgramLooks looks;

    const QString id = QApplication::arguments().mid(1).join(QLatin1Char(' '));
    const QString folder = QApplication::applicationDirPath();
    const QString meetingPoint = MeetingPoint(QStringLiteral("gemforge-help"), folder);
    if (HandToRunningWindow(meetingPoint, id))
        return 0;

    RunningWindow others(meetingPoint);
    const QString archive = folder + QStringLiteral("/Help.zip");
    HelpWindow window(HelpBook::Open(archive));
    window.Follow(archive);
    QObject::connect(&others, &RunningWindow::TextCame, &window, &HelpWindow::ShowIdInFront);
    window.ShowId(id);
    window.show();
    return QApplication::exec();
}
