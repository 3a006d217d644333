#include "game/prepared_set.h"

#include "conf/conf_lines.h"
#include "conf/line_pass.h"
#include "frame/frame_state.h"
#include "game/finding_places.h"
#include "game/game_folders.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

constexpr const char* Identifier = "gemforge_test";
constexpr const char* ArtworkFolders[] = {"graphics", "sounds", "music"};
constexpr qint64 LargestConf = qint64(64) << 20;

Result<> WriteText(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(paths::FolderOfPath(path));
    return paths::AppendScratch(path, bytes);
}

void LinkIfThere(const QString& from, const QString& to)
{
    const QString real = QFileInfo(from).canonicalFilePath();
    if (!real.isEmpty())
        QFile::link(real, to);
}

/// The folders around a set that are groups of sets, the outermost first, each with "/" at the end.
QStringList GroupsAround(const QString& set)
{
    QStringList groups;
    QDir at(set);
    while (at.cdUp() && at.exists(Frame.ConfNames.at(ModeLvl)))
        groups.prepend(paths::Closed(at.path()));
    return groups;
}

/// Texts of a group count for the sets in it.
void CopyGroupTexts(const QString& group, const QString& to, const UnsavedTexts& texts)
{
    QDir().mkpath(to);
    for (const QFileInfo& file : QDir(group).entryInfoList({QStringLiteral("*.conf")}, QDir::Files)) {
        const auto unsaved = texts.constFind(paths::Canonical(file.filePath()));
        const auto bytes =
            unsaved != texts.cend() ? Result<QByteArray>(*unsaved) : paths::ReadWhole(file.filePath(), LargestConf);
        if (bytes)
            static_cast<void>(WriteText(to + file.fileName(), *bytes));
    }
}

/// The sets whose artwork a levelinfo.conf wants ("graphics_set: NAME" and its like).
QSet<QString> NamedArtwork(const QByteArray& levelinfo)
{
    QSet<QString> names;
    qsizetype from = 0;
    while (from < levelinfo.size()) {
        const QString line = QString::fromUtf8(TakeLine(levelinfo, from).Text);
        for (const char* folder : {"graphics_set", "sounds_set", "music_set"})
            if (line.trimmed().startsWith(QLatin1String(folder)))
                names << line.section(u':', 1).section(u'#', 0, 0).trimmed();
    }
    names.remove({});
    return names;
}

/// Artwork of another level set, as a set without levels.
void BorrowArtwork(const QString& name, const QString& levels)
{
    const QString conf = Frame.ConfNames.at(ModeLvl);
    const QStringList roots = {GameUserFolder() + GameCompat(QStringLiteral("DefMyDocsRND3")) + u'/',
                               Frame.Settings.LevelsFolder};
    for (const QString& root : roots) {
        const QString from = root + name + u'/', to = levels + name + u'/';
        const auto levelinfo = paths::ReadWhole(from + conf, LargestConf);
        if (root.isEmpty() || name.contains(u'/') || !levelinfo || QFileInfo::exists(to))
            continue;
        QDir().mkpath(to);
        static_cast<void>(WriteText(to + conf, *levelinfo));
        for (const char* folder : ArtworkFolders)
            LinkIfThere(from + QLatin1String(folder), to + QLatin1String(folder));
    }
}

/// What the player has set, where it does not lead to others.
void BringUserFiles(const QString& userFolder, bool usersSetup)
{
    const QString own = GameUserFolder();
    for (const char* folder : ArtworkFolders)
        LinkIfThere(own + QLatin1String(folder), userFolder + QLatin1String(folder));
    if (!usersSetup)
        return;
    for (const char* file : {"setup.conf", "editorsetup.conf"})
        QFile::copy(own + QLatin1String(file), userFolder + QLatin1String(file));
}

/// What the game knows of a set, so that it begins with a level.
QByteArray StateOfSet(int level)
{
    const QByteArray number = QByteArray::number(level);
    return "last_played_level: " + number + "\nhandicap_level: " + number + '\n';
}

} // namespace

bool PreparedSet::IsInMenu() const
{
    const auto now = paths::ReadWhole(StateFile, LargestConf);
    return now && !now->isEmpty() && *now != StateBefore;
}

void PreparedSet::LeadBack(GameFinding& finding) const
{
    for (QString* path : {&finding.File, &finding.Picture})
        if (path->startsWith(Copy))
            path->replace(0, Copy.size(), From);
    finding.Text.replace(Copy, From);
}

Result<PreparedSet> PrepareSet(const SetWish& wish)
{
    auto home = ScratchHome::Make();
    if (!home)
        return tl::unexpected(home.error());
    const QString levels = home->Folder() + QStringLiteral("levels/");
    const QString user = home->UserFolder();
    const QString name = paths::FileNameOfPath(wish.Folder.chopped(1));
    QString within = levels;
    for (const QString& group : GroupsAround(wish.Folder)) {
        within += paths::FileNameOfPath(group.chopped(1)) + u'/';
        CopyGroupTexts(group, within, wish.Texts);
    }
    PreparedSet set{
        std::move(*home), wish.Folder, within + name + u'/', {QStringLiteral("-l"), levels.chopped(1)}, {}, {}, {}};
    const auto copied = CopySet(set.From, set.Copy, wish.Texts);
    if (!copied)
        return tl::unexpected(copied.error());
    set.Count = *copied;

    const QString conf = set.Copy + Frame.ConfNames.at(ModeLvl);
    const auto levelinfo = paths::ReadWhole(conf, LargestConf);
    if (!levelinfo)
        return tl::unexpected(levelinfo.error());
    for (const QString& artwork : NamedArtwork(*levelinfo))
        BorrowArtwork(artwork, levels);
    BringUserFiles(user, wish.UsersSetup);

    // Of two equal keys the later counts, so that the set has a name of its own here.
    set.StateFile = user + QStringLiteral("levelsetup/") + name + QStringLiteral("/levelsetup.conf");
    if (wish.Level)
        set.StateBefore = StateOfSet(*wish.Level);
    const std::pair<QString, QByteArray> texts[] = {
        {conf, QByteArray("\nidentifier: ") + Identifier + '\n'},
        {user + GameCompat(QStringLiteral("DefMyDocsRND2")), QByteArray("last_level_series: ") + Identifier + '\n'},
        {user + QStringLiteral("serversetup.conf"), "use_api_server: off\nask_for_using_api_server: off\n"},
        {set.StateFile, set.StateBefore},
    };
    for (const auto& [path, bytes] : texts)
        if (const Result<> done = bytes.isEmpty() ? Result<>() : WriteText(path, bytes); !done)
            return tl::unexpected(done.error());
    return set;
}
