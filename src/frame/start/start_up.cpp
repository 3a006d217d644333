#include "frame/start/start_up.h"

#include "frame/files/file_commands.h"
#include "frame/files/put_back.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/settings/settings_table.h"
#include "platform/files/beside_notes.h"
#include "platform/files/in_place.h"
#include "platform/files/paths.h"

#include <QCoreApplication>
#include <QDir>

namespace {

constexpr const char* Tables[] = {"basic", "compat", "lg_gfxact", "lg_gfxele",  "lg_other",
                                  "links", "user",   "mapele",    "levelheader"};

/// Full path of the last table that is missing, in the order of checking; empty if all are there.
QString MissingTable()
{
    QString missing;
    for (const char* name : Tables) {
        const QString path = Frame.DataFolder + QString::fromLatin1(name) + QStringLiteral(".ini");
        if (!paths::FileExists(path))
            missing = path;
    }
    return missing;
}

void ShowFirstTab()
{
    for (int tab = 0; tab < 8; ++tab) {
        Document fresh;
        fresh.Face.Visible = tab == 0;
        fresh.Face.Caption = EmptyCaption;
        Frame.Documents.at(tab) = fresh;
        ShowTab(tab);
    }
    Panes().SelectTab(0);
    Frame.CurrentTab = 0;
}

} // namespace

/// A shell that was given no quotes cuts a path at its blanks.
QString ToldPath(const QStringList& arguments)
{
    QString told = arguments.value(0);
    const QString joined = arguments.join(u' ');
    if (arguments.size() > 1 && paths::FileExists(joined))
        told = joined;
    if (told.size() >= 2 && told.startsWith(u'"') && told.endsWith(u'"'))
        told = told.mid(1, told.size() - 2);
    if (told.isEmpty())
        return {};
    const QString whole = QDir::current().absoluteFilePath(paths::Inside(told));
    const QString cleaned = QDir::cleanPath(whole), real = paths::Canonical(whole);
    return paths::Canonical(cleaned) == real ? cleaned : real; // ".." behind a link leads elsewhere
}

void FillConfNames()
{
    const auto compat = [](const QString& key) {
        return ReadIni(QStringLiteral("RND Compatibility"), key, QStringLiteral("compat"));
    };
    Frame.ConfNames[0].clear();
    for (int mode = 1; mode < ModeCount; ++mode)
        Frame.ConfNames.at(mode) =
            compat(QStringLiteral("ConfName%1").arg(mode)) + u'.' + compat(QStringLiteral("ConfigExtension"));
}

bool PrepareStart(const StartFolders& folders, const QStringList& arguments)
{
    Frame.StartTicks.start();
    Frame.CommandLine = ToldPath(arguments);
    Frame.ProgramFolder = paths::Closed(folders.ProgramFolder);
    Frame.SettingsReadOnly = folders.SettingsReadOnly;
    paths::ChangeToFolder(Frame.ProgramFolder);
    Frame.StartingUp = true;
    // Before any file is read: what an earlier run began to write in place and could not end.
    Frame.FinishedWrites = in_place::FinishInterrupted();
    beside::SweepNoted();
    Frame.PutBack = name_swap::FinishAll();
    Frame.MacrosFolder = Frame.ProgramFolder + QStringLiteral("Macros/");
    if (!paths::FolderExists(Frame.MacrosFolder))
        QDir().mkpath(Frame.MacrosFolder);
    Frame.HelpExe = folders.HelpProgram.isEmpty() ? Frame.ProgramFolder + QStringLiteral("Help") : folders.HelpProgram;
    Frame.HelpZip = Frame.ProgramFolder + QStringLiteral("Help.zip");
    Frame.DataFolder = Frame.ProgramFolder + QStringLiteral("data/");

    const QString missing = MissingTable();
    if (!missing.isEmpty()) {
        ShowMessage(message::FileMissing, paths::Native(missing));
        return false;
    }
    if (!paths::FileExists(Frame.HelpExe) || !paths::FileExists(Frame.HelpZip)) {
        ShowMessage(message::HelpMissing);
        return false;
    }
    Frame.CurrentFolder = Frame.CommandLine.isEmpty() ? Frame.ProgramFolder : QString();
    FillConfNames();
    return true;
}

void FinishStart()
{
    Frame.HoldMessages = true;
    Frame.DocumentLoading = false;
    ShowFirstTab();
    Frame.FlashCount = -1;
    Frame.CurrentMode = ModeGfx;
    MakeLanguages();
    for (int tab = 0; tab < 8; ++tab)
        Panes().Pane(tab).SetLanguage(QStringLiteral("GFX"));
    LoadSettings();
    RecentLoad();
    if (Frame.CommandLine.isEmpty() || !OpenDocument(Frame.CommandLine, false))
        NewDocument(Frame.CurrentMode);
    ShowCurrentPath();
    Frame.StartingUp = false;
    if (!Frame.FinishedWrites.isEmpty())
        ShowNotice(QStringLiteral("The interrupted save of these files was finished: ") +
                   Frame.FinishedWrites.join(QStringLiteral(", ")));
    TellPutBack(Frame.PutBack);
    Panes().FocusPane();
}

int ShowWelcomeMessage()
{
    Frame.ShowWelcome = 0;
    const int answer = ShowMessage(message::Welcome);
    if (answer == message::WelcomeOk)
        Panes().FocusPane();
    else if (answer == message::WelcomeOptions)
        Tools().OpenTool(ToolWindow::Options);
    else if (answer == message::DoNotShowAgain)
        ChangeSetting(SettingOf(QLatin1StringView("Misc"), QLatin1StringView("1stTime")), 0);
    return answer;
}
