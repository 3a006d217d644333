#include "windows/main/start_up.h"

#include "conf/help_for_word.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/recovery/recovery.h"
#include "frame/settings/settings.h"
#include "frame/start/start_up.h"
#include "game/game_program.h"
#include "game/game_state.h"
#include "game/scratch_home.h"
#include "graphics/picks.h"
#include "macro/macro_ports.h"
#include "platform/desktop/program_looks.h"
#include "platform/files/beside_notes.h"
#include "platform/processes/signals.h"
#include "platform/processes/single_instance.h"
#include "platform/screen/close_requests.h"
#include "windows/files/frm_recover.h"
#include "windows/levels/frm_quick_map_view.h"
#include "windows/macro/macro_windows.h"
#include "windows/main/frmmain.h"
#include "windows/main/guarded_application.h"
#include "windows/main/handed_files.h"
#include "windows/media/media_actions.h"
#include "windows/messages/window_asker.h"
#include "windows/parts/close_guard.h"
#include "windows/parts/screen_reader.h"
#include "windows/sheet/frm_pcx.h"

#include <QApplication>
#include <QSessionManager>
#include <QTimer>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr int HandOverWait = 5000; // ms that a window may take to start or to come to an end of a step

QString MeetingOfWindows()
{
    return MeetingPoint(QStringLiteral("gemforge-window"));
}

void Welcome()
{
    if (Frame.ShowWelcome == 1 && ShowWelcomeMessage() == message::ReadHelp)
        RunHelp({});
}

/// The toolkit ends the process from inside the event loop when the display goes away.
void KeepAtExit()
{
    if (Frame.Keeper)
        static_cast<void>(Frame.Keeper->KeepAllNow());
}

/// Panes, lists and windows of one form: the desktop's, or the one that the user has fixed.
void FollowForm(ProgramLooks& looks)
{
    const auto formOf = [](bool dark) { return dark ? LookForm::Dark : LookForm::Light; };
    const int chosen = ReadIni(QStringLiteral("Misc"), QStringLiteral("ColourForm")).toInt();
    looks.Choose(ProgramLooks::Choice(std::clamp<int>(chosen, FollowDesktop, AlwaysDark)));
    QCoreApplication::processEvents(); // the desktop's answer may have come
    SetDesktopForm(formOf(looks.DesktopIsDark()));
    QObject::connect(&looks, &ProgramLooks::DesktopChanged, &looks, [=](bool dark) { SetDesktopForm(formOf(dark)); });
    QObject::connect(&Events(), &FrameEvents::ColourFormChanged, &looks,
                     [&looks] { looks.Choose(ProgramLooks::Choice(Frame.Settings.ColourForm)); });
}

int Run(QApplication& application, const StartFolders& folders, ProgramLooks& looks)
{
    Recovery keeper(folders.StateFolder, nullptr, {}, SpareRecoveryFolder());
    frmmain window;
    WindowAsker asker(&window);
    InstallHost(window, asker);
    BringMacroWindows(asker, &window);
    MacroWindows.SelectedMedia = [&window] { return window.SelectedMedia(); };
    MacroWindows.ShowMap = [&window](const QString& caption, const QString& palette) {
        frmQuickMapView::Run(caption, palette, &window);
    };
    MacroWindows.ViewLevel = RunViewer;
    MacroWindows.KnownFile = folders.StateFolder + QStringLiteral("known_macros.txt");
    FollowForm(looks);
    Picks.Sheet = [&window](const SheetRequest& request) { return frmPCX::Run(&window, request); };
    Frame.Keeper = &keeper;
    std::atexit(KeepAtExit);

    EndSignals ends;
    QObject::connect(&ends, &EndSignals::EndWanted, &window, &frmmain::EndProgram);
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &application, [] { static_cast<void>(KeepEverything()); },
        Qt::DirectConnection);

    window.RestorePosition();
    window.show();
    window.HoldTools(true);
    const CloseRequests closing(*window.windowHandle(), [&window] {
        if (QApplication::activeModalWidget()) // any other wish arrives by itself
            QTimer::singleShot(0, &window, &frmmain::CloseAfterWork);
    });
    FinishStart();
    window.ShowStarted();
    const HandedFiles handed(MeetingOfWindows(), window);
    QTimer::singleShot(0, &window, [&] {
        ShowHeldMessages();
        OfferRecovered(&window, keeper);
        Welcome();
        SweepScratchHomes();
        FindGameAtStart();
        window.HoldTools(false);
    });
    // A question of the start may have been answered by the end of the session.
    const int code = window.Ending() ? 0 : QApplication::exec();
    ResetGame(); // a game that plays a copy ends with the program
    window.Finish();
    ResetPicks();
    ResetMacroPorts();
    Frame.Keeper = nullptr;
    beside::ForgetNotes();
    return code;
}

} // namespace

int StartProgram(int argc, char** argv)
{
    OutliveFileLimits();
    GuardedApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("gemforge"));
    QGuiApplication::setDesktopFileName(QStringLiteral("gemforge"));
    ProgramLooks looks;

    WindowAsker asker(nullptr);
    Frame.Ask = &asker;
    SingleInstance instance(QStringLiteral("gemforge"));
    StartFolders folders;
    if (!instance.AnotherRuns()) {
        folders = OrdinaryFolders(QCoreApplication::applicationDirPath());
        instance.Claim(folders.ProgramFolder + QStringLiteral("data"));
        instance.Claim(folders.StateFolder);
    }
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (instance.AnotherRuns()) {
        const QString told = ToldPath(arguments);
        if (!told.isEmpty() && HandToRunningWindow(MeetingOfWindows(), told, HandOverWait))
            return 0;
        ShowMessage(message::AnotherRuns);
        return 1;
    }
    if (!PrepareStart(folders, arguments))
        return 1;
    const ScreenReader reader(ReadIni(QStringLiteral("Misc"), QStringLiteral("ScreenReader")).toInt());
    return Run(application, folders, looks);
}
