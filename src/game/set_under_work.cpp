#include "game/set_under_work.h"

#include "conf/line_pass.h"
#include "frame/documents/documents.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "game/finding_places.h"
#include "game/game_folders.h"
#include "game/game_state.h"
#include "platform/files/paths.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

constexpr const char* YesWords[] = {"true", "yes", "on", "1"}; ///< as the game reads them

/// The level "NNN.level" that is selected in the list of the document's folder; elsewhere in the set the one that was
/// tested last.
std::optional<int> SelectedLevel(const QString& setFolder)
{
    const MediaListModel& list = Lists().Base;
    static const QRegularExpression form(QStringLiteral("^(\\d{3})\\.level$"));
    const auto match = form.match(list.Name(Lists().SavedListIndex.at(size_t(MediaSource::PCXBrowser))));
    if (match.hasMatch() && paths::Canonical(list.Folder()) == paths::Canonical(setFolder))
        TheGame.Level = {setFolder, match.captured(1).toInt()};
    return TheGame.Level.first == setFolder ? std::optional(TheGame.Level.second) : std::nullopt;
}

} // namespace

bool IsGroupOfSets(const QString& folder)
{
    constexpr qint64 Most = qint64(1) << 20;
    const auto conf = paths::ReadWhole(folder + Frame.ConfNames.at(ModeLvl), Most);
    if (!conf)
        return false;
    const ConfIndex index(*conf);
    const QString key = QStringLiteral("level_group");
    const int line = index.LineOfKey(key);
    const auto says = [&](const char* word) { return index.LineOfValue(QString::fromLatin1(word), key) == line; };
    return line >= 0 && std::any_of(std::begin(YesWords), std::end(YesWords), says);
}

std::optional<SetWish> WishOfCurrentSet()
{
    if (!HasFile(Frame.Documents.at(Frame.CurrentTab))) {
        ShowNotice(QStringLiteral("This text has no file, so it belongs to no level set yet. Save it first."));
        return {};
    }
    const QString folder = SetFolderOf(Frame.CurrentFolder);
    if (folder.isEmpty() || IsGroupOfSets(folder)) {
        ShowNotice(folder.isEmpty()
                       ? QStringLiteral("There is no levelinfo.conf in this folder or above it.")
                       : QStringLiteral("This folder is a group of level sets. Open a file of one of them."));
        return {};
    }
    return SetWish{folder, SelectedLevel(folder), TextsOfTabs(), true};
}
