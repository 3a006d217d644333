#include "frame/files/projects.h"

#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "frame/settings/ini_store.h"
#include "platform/files/ini_text.h"
#include "platform/files/paths.h"

#include <QSet>
#include <algorithm>

namespace {

const QString ListSection = QStringLiteral("Projects");

QString SectionOf(const QString& project)
{
    return QStringLiteral("prj_") + project;
}

QStringList OpenPaths()
{
    QStringList all;
    for (const Document& document : Frame.Documents)
        if (document.Face.Visible && document.Face.Caption != EmptyCaption)
            all << document.Path;
    return all;
}

QStringList PathsOf(const QString& project)
{
    QStringList all;
    for (int i = 1;; ++i) {
        const QString path = ReadIni(SectionOf(project), QString::number(i));
        if (path == IniFile::NotFound)
            return all;
        all << path;
    }
}

/// Why a section of this name can not be made; empty if it can.
QString FaultOfName(const QString& name)
{
    if (!IniText::MayBeSection(SectionOf(name)))
        return QStringLiteral("A project can't have that name.");
    const std::vector<ProjectEntry> all = LoadPrjList();
    const bool taken = std::any_of(all.begin(), all.end(), [&](const ProjectEntry& entry) {
        return entry.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return taken ? QStringLiteral("There is already a project with that name.") : QString();
}

void ShowTabAt(int tab)
{
    Frame.Documents.at(tab).Face.Visible = true;
    Frame.CurrentTab = tab;
    ShowTab(tab);
    Frame.StartingUp = true; // so that the selection activates nothing
    Panes().SelectTab(tab);
    Frame.StartingUp = false;
}

void ShowMissing(int tab, const QString& path)
{
    ShowMessage(message::ProjectFileGone, paths::Native(path));
    ShowTabAt(tab);
    EmptySlot(tab);
    Document& document = Frame.Documents.at(tab);
    document.Face.Visible = true;
    document.Mode = ModeTxt;
    document.Face.Picture = ModeTxt + 1;
    DocumentText& pane = Panes().Pane(tab);
    pane.AddText(QStringLiteral("You deleted or renamed this file."));
    pane.ClearUndoBuffer();
    pane.SetModified(false);
    ShowTab(tab);
}

bool LoadInto(int tab, const QString& path)
{
    ShowTabAt(tab);
    Frame.ForceLanguage = true;
    const bool opened = OpenDocument(path, false);
    Frame.ForceLanguage = false;
    return opened;
}

} // namespace

std::vector<ProjectEntry> LoadPrjList()
{
    std::vector<ProjectEntry> all;
    for (int key = 1; key <= Frame.Settings.ProjectLimit; ++key) {
        const QString name = ReadIni(ListSection, QString::number(key));
        if (name != IniFile::NotFound)
            all.push_back({name, key});
    }
    return all;
}

bool CreateProject()
{
    if (!Frame.Documents[1].Face.Visible) {
        ShowMessage(message::ProjectNeedsTwoFiles);
        return false;
    }
    const QStringList files = OpenPaths();
    if (files.size() < 2) {
        ShowNotice(QStringLiteral("A project needs two tabs with a file; save the new text first"));
        return false;
    }
    const InputQuestion question{QStringLiteral("New Project"), QStringLiteral("Name of the project"), {}};
    const QString name = AskText(question).value_or(QString()).trimmed();
    if (name.isEmpty())
        return false;
    const QString fault = FaultOfName(name);
    if (!fault.isEmpty()) {
        ShowFailure({{}, fault});
        return false;
    }
    int key = 1;
    while (ReadIni(ListSection, QString::number(key)) != IniFile::NotFound)
        ++key;
    const SettingsBatch batch;
    WriteIni(name, ListSection, QString::number(key));
    WriteSection(SectionOf(name), NumberedItems(files));
    return true;
}

void DeleteProject(const ProjectEntry& project)
{
    const SettingsBatch batch;
    WriteSection(ListSection, WithoutItem(ReadSection(ListSection), QString::number(project.Key)));
    WriteSection(SectionOf(project.Name), {});
}

void LoadProject(const QString& name)
{
    const QStringList files = PathsOf(name);
    if (files.isEmpty()) {
        ShowMessage(message::ProjectGone, name);
        return;
    }
    if (ModifiedTabs() > 0 && !Confirmed(message::CloseAllForProject))
        return;
    for (int tab = 0; tab < 8; ++tab)
        EmptySlot(tab);

    const int most = qMax(int(files.size()) - 1, 1); // a range of 0 to 0 would show as "busy"
    Busy().ShowProgress(most, 0);
    const SettingsBatch batch; // the recent list changes with each file
    QSet<QString> loaded;
    int tab = 0;
    for (const QString& path : files) {
        if (tab == 8)
            break;
        if (!paths::FileExists(path)) {
            ShowMissing(tab, path);
        } else if (!loaded.contains(paths::Canonical(path))) {
            loaded << paths::Canonical(path);
            Busy().ShowProgress(most, qMin(tab, most));
            tab += LoadInto(tab, path) ? 1 : 0;
        }
    }
    Busy().HideProgress();
    Panes().SelectTab(0);
    ActivateTab();
}
