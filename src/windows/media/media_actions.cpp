#include "windows/media/media_actions.h"

#include "frame/documents/documents.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "frame/settings/settings.h"
#include "level/level_viewer.h"
#include "platform/files/paths.h"
#include "platform/processes/processes.h"
#include "platform/sound/audio.h"
#include "windows/media/media_view.h"
#include "windows/sheet/frm_pcx.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QMenu>
#include <QUrl>

namespace {

void OpenOutside(const QString& path)
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        ShowNotice(QStringLiteral("No program answers for ") + paths::Native(path));
}

QString PathOf(const MediaHit& entry)
{
    return PathOf(entry.Source, entry.Name);
}

void ShowSheet(QWidget* owner, const MediaRequest& request)
{
    OpenSheet(owner, {.Source = request.Entry.Source,
                      .File = request.Entry.Name,
                      .Block = request.Block,
                      .Purpose = request.Quick ? SheetPurpose::Quick : SheetPurpose::Edit,
                      .Prompt = {}});
}

/// The endings that the media player takes; all else is the module player's.
constexpr QLatin1StringView MediaPlayerKinds[] = {QLatin1StringView("mid"), QLatin1StringView("mp3")};

void PlayWave(QWidget*, const MediaRequest& request)
{
    audio::PlayMedia(PathOf(request.Entry)); // what cannot be played is silent
}

void PlayMusic(QWidget*, const MediaRequest& request)
{
    const QString path = PathOf(request.Entry);
    if (std::ranges::find(MediaPlayerKinds, path.right(3).toLower()) != std::end(MediaPlayerKinds)) {
        audio::StopModule();
        audio::PlayMedia(path);
    } else {
        audio::StopMedia();
        audio::PlayModule(path);
    }
}

struct ToolRow
{
    int FirstMode, LastMode;
    void (*Open)(QWidget* owner, const MediaRequest& request);
};
constexpr ToolRow MediaTools[] = {
    {ModeGfx, ModeGfx, ShowSheet},
    {ModeSfx, ModeSfx, PlayWave},
    {ModeMus, ModeMus, PlayMusic},
    {ModeLvl, ModeLvl, [](QWidget*, const MediaRequest& request) { ShowLevel(PathOf(request.Entry)); }},
    {ModeHlt, ModeEdi, ShowSheet},
};

const ToolRow* ToolOf(int mode)
{
    const auto row = std::ranges::find_if(
        MediaTools, [&](const ToolRow& tool) { return mode >= tool.FirstMode && mode <= tool.LastMode; });
    return row == std::end(MediaTools) ? nullptr : row;
}

} // namespace

void OpenMediaEntry(const MediaHit& entry)
{
    Tools().PreviewMedia({entry, std::nullopt});
}

bool HasMediaTool(int mode)
{
    return ToolOf(mode) != nullptr;
}

void OpenByMode(QWidget* owner, const MediaRequest& request)
{
    const ToolRow* tool = ToolOf(Frame.CurrentMode);
    if (tool && !request.Entry.Name.isEmpty())
        tool->Open(owner, request);
}

void ShowLevel(const QString& path)
{
    if (path.isEmpty())
        return;
    const QString viewer = ViewerProgram();
    if (!paths::FileExists(viewer)) {
        ShowMessage(message::MapglassMissing);
        return;
    }
    Busy().SetEnabled(false);
    const Result<> ended = RunViewer(viewer, path);
    Busy().SetEnabled(true);
    if (!ended)
        ShowFailure(ended.error());
}

Result<> RunViewer(const QString& program, const QString& level)
{
    RunScope run(RunKind::Child, paths::FileNameOfPath(program));
    run.OnStop = [] { processes::StopWaiting(); };
    return processes::RunAndWait(program, {processes::ShortPath(level)}).map([](const auto&) {});
}

void ShowInFolder(const QString& path)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        OpenOutside(paths::FolderOfPath(path));
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)) << QString();
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [path](QDBusPendingCallWatcher* done) {
        if (QDBusPendingReply<>(*done).isError())
            OpenOutside(paths::FolderOfPath(path));
        done->deleteLater();
    });
}

void PopUpMediaMenu(MediaView& view, const QPoint& onScreen)
{
    auto* menu = new QMenu(&view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString path = view.Path();
    const auto add = [&](const char* caption, auto&& run) {
        QAction* entry = menu->addAction(QString::fromLatin1(caption), &view, run, Qt::QueuedConnection);
        entry->setEnabled(!path.isEmpty());
        return entry;
    };
    const int mode = Frame.CurrentMode;
    if (HasMediaTool(mode))
        menu->setDefaultAction(add(mode == ModeSfx || mode == ModeMus ? "Play" : "Preview",
                                   [entry = view.Entry()] { OpenMediaEntry(entry); }));
    if (audio::IsPlaying())
        menu->addAction(QStringLiteral("Stop"), &view, [] { StopPreview(); });
    add("Insert Name", [name = view.Selected()] {
        InsertFileName(name);
        Panes().FocusPane();
    });
    menu->addSeparator();
    add("Open With Another Program", [path] { OpenOutside(path); });
    add("Show in Folder", [path] { ShowInFolder(path); });
    menu->addSeparator();
    menu->addAction(
        QStringLiteral("Filter"), &view, [&view] { view.OpenFilter(); }, Qt::QueuedConnection);
    menu->popup(onScreen);
}
