#include "frame/media/inject_path.h"
#include "windows/main/frmmain.h"

#include "frame/documents/documents.h"
#include "frame/files/file_commands.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "macro/start_macro.h"
#include "platform/files/paths.h"
#include "platform/sound/audio.h"
#include "windows/macro/macro_buttons.h"
#include "windows/main/dropped_files.h"
#include "windows/main/line_hints_view.h"
#include "windows/main/pane_split.h"
#include "windows/main/sound_sign.h"
#include "windows/main/status_panels.h"
#include "windows/media/extra_page.h"
#include "windows/media/folder_tree.h"
#include "windows/media/macro_tree.h"
#include "windows/media/media_actions.h"
#include "windows/media/media_tabs.h"
#include "windows/media/media_view.h"
#include "windows/media/media_watch.h"

#include <QDir>
#include <QTimer>

// The lists beside the text.

void frmmain::AddMediaLists()
{
    ssML = new MediaTabs;
    watch = new MediaWatch(this);
    connect(ssML, &MediaTabs::Clicked, this, &frmmain::LeaveLists);
    connect(ssML, &MediaTabs::Inserted, this, [this](const QString& name) {
        InsertFileName(name);
        LeaveLists();
    });
    // After the click: a window opens.
    connect(ssML, &MediaTabs::Opened, this, OpenMediaEntry, Qt::QueuedConnection);
    connect(ssML, &MediaTabs::MenuWanted, this,
            [this](MediaSource source, const QPoint& at) { PopUpMediaMenu(ssML->View(source), at); });
    connect(&ssML->Extra(), &ExtraPage::DriveChosen, this, &frmmain::FocusPane);
    connect(&ssML->Extra(), &ExtraPage::InjectWanted, this, InsertInjectPath);
    connect(&ssML->Macros(), &MacroTree::Pressed, this, &frmmain::LeaveLists);
    connect(&ssML->Macros(), &MacroTree::Started, this, &frmmain::RunMacroFile, Qt::QueuedConnection);
    connect(
        &ssML->Macros(), &MacroTree::Opened, this,
        [this](const QString& path) {
            if (IsRndPathSet())
                EditMacro(path);
        },
        Qt::QueuedConnection);
    connect(watch, &MediaWatch::Changed, this, [this] {
        RefreshMedia();
        ssML->LookAtPictures();
        ssML->Extra().Refresh();
        if (!isActiveWindow())
            ssML->SaveSelection(); // its files stand elsewhere now
    });
    connect(buttons, &MacroButtons::Wanted, this, &frmmain::RunMacroFile, Qt::QueuedConnection);
    split->SetMedia(ssML);
    audio::OnTrouble(ShowNotice);
    auto* sign = new SoundSign(panels);
    connect(sign, &SoundSign::StopWanted, this, [] { StopPreview(); });
    panels->addPermanentWidget(sign);
}

/// The lists are a palette: the keyboard belongs to the text.
void frmmain::LeaveLists()
{
    StopPreview();
    FocusPane();
}

void frmmain::MediaChanged()
{
    hints->WordsChanged();
    if (Frame.Media.ExtraFolder.isEmpty()) {
        SetExtraFolder(paths::Closed(QDir::homePath()));
        return;
    }
    ssML->ShowLists();
    buttons->Look();
    watch->Follow({Frame.Media.BaseFolder, Frame.Media.ExtraFolder, Frame.Media.RndFolder, Frame.MacrosFolder});
}

/// After the click or the key: dialogs may open.
void frmmain::RunMacroFile(const QString& path)
{
    HideLists();
    StartMacro(path);
}

bool frmmain::RunMacroOfKey(QChar key)
{
    const QString path = locked || !key.isLetterOrNumber() ? QString() : MacroOfKey(key);
    if (path.isEmpty())
        return false;
    QTimer::singleShot(0, this, [this, path] { RunMacroFile(path); });
    return true;
}

void frmmain::LoadMacroButtons()
{
    buttons->Load(*menus.Find(QStringLiteral("mnuExtra")), *bars.Bar(ToolStrip::tbExtra));
    TakeCommandKeys();
}

QString frmmain::SelectedMedia() const
{
    const QWidget* front = ssML->currentWidget();
    if (front->isAncestorOf(&ssML->Macros()) || front == &ssML->Macros())
        return ssML->Macros().SelectedPath();
    for (const MediaSource source : {MediaSource::PCXBrowser, MediaSource::Extra, MediaSource::Rnd}) {
        const MediaView& view = ssML->View(source);
        if (front == &view || front->isAncestorOf(&view))
            return view.Path();
    }
    return {};
}

void frmmain::StyleMediaLists()
{
    ssML->SetStyle();
}

void frmmain::ShowMediaEntry(const MediaHit& entry)
{
    ssML->ShowList(entry.Source);
    MediaView& view = ssML->View(entry.Source);
    view.EndFilter();
    view.SelectRow(entry.Row);
}

bool frmmain::CanPreview(int mode) const
{
    return mode != ModeLvl && HasMediaTool(mode);
}

void frmmain::PreviewMedia(const MediaRequest& request)
{
    Lists().SavedListIndex.at(size_t(request.Entry.Source)) = request.Entry.Row;
    OpenByMode(this, request);
    FocusPane();
}

void frmmain::RefreshLists()
{
    paths::ChangeToFolder(Frame.CurrentFolder);
    RefreshMedia();
    ssML->LookAtPictures();
    ssML->Extra().Refresh();
    watch->Follow({Frame.Media.BaseFolder, Frame.Media.ExtraFolder, Frame.Media.RndFolder, Frame.MacrosFolder});
    ssML->RestoreSelection();
}
