#include "frame/files/recent_list.h"

#include "frame/files/closed_tabs.h"
#include "frame/files/file_commands.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/settings/ini_store.h"
#include "platform/files/paths.h"

#include <algorithm>

namespace {

const QString RecentSection = QStringLiteral("Recent");

int IconOf(const QString& path)
{
    const QString name = paths::FileNameOfPath(path).toLower();
    for (int mode = 1; mode < ModeCount; ++mode)
        if (Frame.ConfNames.at(mode) == name)
            return mode + 1;
    return 1;
}

bool IsArtworkFolder(const QString& name)
{
    const QString lower = name.toLower();
    return lower == QLatin1StringView("graphics") || lower == QLatin1StringView("music") ||
           lower == QLatin1StringView("sounds");
}

/// Name of the level set that a conf path of at least five parts belongs to; empty if it fits no form.
QString SetName(const QStringList& parts)
{
    const qsizetype last = parts.size() - 1;
    const auto own = Frame.ConfNames.begin() + ModeLvl;
    if (std::find(own, Frame.ConfNames.end(), parts[last].toLower()) != Frame.ConfNames.end())
        return parts[last - 1];
    if (!parts[last].endsWith(QLatin1StringView(".conf"), Qt::CaseInsensitive))
        return {};
    if (IsArtworkFolder(parts[last - 1]))
        return parts[last - 2];
    return IsArtworkFolder(parts[last - 2]) ? parts[last - 1] : QString();
}

QStringList RecentPaths()
{
    QStringList all;
    for (const RecentEntry& entry : Frame.Recent)
        all << entry.Path;
    return all;
}

} // namespace

QString RecentDisplayName(const QString& path, bool shortName)
{
    const QStringList parts = QString(path).replace(u'\\', u'/').split(u'/');
    const QString set = parts.size() < 5 ? QString() : SetName(parts);
    if (set.isEmpty())
        return path;
    const QString label = u'[' + set + u']';
    const bool isConf = parts.last().endsWith(QLatin1StringView(".conf"), Qt::CaseInsensitive);
    return shortName ? label : label + QStringLiteral(" - ") + (isConf ? parts.last() : QString());
}

void RecentLoad()
{
    Frame.Recent.clear();
    for (int i = 1; i <= Frame.Settings.RecentLimit; ++i) {
        const QString path = ReadIni(RecentSection, QString::number(i));
        if (path == IniFile::NotFound)
            break;
        Frame.Recent.push_back({RecentDisplayName(path, false), path, IconOf(path)});
    }
    emit Events().RecentChanged();
}

void RecentAdd(const QString& path)
{
    const QStringList before = RecentPaths();
    QStringList order = before;
    order.removeAll(path);
    order.prepend(path);
    if (order != before) {
        const SettingsBatch batch;
        for (int i = 0; i < order.size() && i < Frame.Settings.RecentLimit; ++i)
            WriteIni(order[i], RecentSection, QString::number(i + 1));
    }
    RecentLoad();
}

void RecentOpenSelected(int index)
{
    Tools().CloseLists();
    const QString path = RecentPaths().value(index);
    if (path.isEmpty() || !MayGiveUp(CurrentPane()))
        return;
    if (paths::FileExists(path)) {
        OpenDocument(path, false);
    } else {
        QStringList rest = RecentPaths();
        rest.removeAt(index);
        WriteSection(RecentSection, NumberedItems(rest));
        RecentLoad();
        ShowMessage(message::RecentFileGone, paths::Native(path));
    }
    Panes().FocusPane();
}

void ShowRecentList()
{
    RecentLoad();
    Tools().ShowList(ListKind::Recent);
}
