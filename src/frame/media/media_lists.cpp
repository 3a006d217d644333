#include "frame/media/media_lists.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "platform/files/paths.h"

#include <QFile>
#include <algorithm>
#include <chrono>
#include <dirent.h>
#include <memory>
#include <span>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace {

/// A folder changed within this time before it is read may change again without another time on it.
constexpr std::chrono::seconds CoarsestClock{3};
constexpr std::size_t MostRuns = 64; ///< of rows that come or go one by one; beyond, the list is made anew

std::filesystem::path Native(const QString& folder)
{
    return QFile::encodeName(folder).toStdString();
}

std::filesystem::file_time_type TimeOf(const QString& folder)
{
    std::error_code unknown;
    return std::filesystem::last_write_time(Native(folder), unknown);
}

/// Endings of patterns such as "*.pcx;*.png", with their dot.
QStringList Endings(const QString& patterns)
{
    QStringList endings;
    for (const QString& pattern : patterns.split(u';', Qt::SkipEmptyParts))
        endings << pattern.trimmed().mid(1);
    return endings;
}

/// The sort asks this of every letter.
char16_t Folded(QChar letter)
{
    const char16_t code = letter.unicode();
    if (code < 128)
        return code >= u'A' && code <= u'Z' ? char16_t(code + 32) : code;
    return letter.toCaseFolded().unicode();
}

bool Fits(const QString& name, const QStringList& endings)
{
    return std::any_of(endings.begin(), endings.end(),
                       [&](const QString& ending) { return name.endsWith(ending, Qt::CaseInsensitive); });
}

/// Rows that stand together and come or go together.
struct Run
{
    qsizetype First, Count;
};

/// The runs of `list` that `other` lacks; both are in order.
std::vector<Run> RunsMissingIn(const QStringList& other, const QStringList& list)
{
    std::vector<Run> runs;
    qsizetype at = 0;
    for (qsizetype row = 0; row < list.size(); ++row) {
        while (at < other.size() && NaturallyBefore(other[at], list[row]))
            ++at;
        if (at < other.size() && other[at] == list[row])
            ++at;
        else if (!runs.empty() && runs.back().First + runs.back().Count == row)
            ++runs.back().Count;
        else
            runs.push_back({row, 1});
    }
    return runs;
}

bool IsFile(DIR* folder, const dirent& entry)
{
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_REG;
    struct stat facts = {};
    return fstatat(dirfd(folder), entry.d_name, &facts, 0) == 0 && S_ISREG(facts.st_mode);
}

QStringList ReadFolder(const QString& folder, const QString& patterns)
{
    const QStringList endings = Endings(patterns);
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(QFile::encodeName(folder).constData()), closedir);
    QStringList names;
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        QString name = QFile::decodeName(entry->d_name);
        if (Fits(name, endings) && IsFile(open.get(), *entry))
            names << std::move(name);
    }
    std::sort(names.begin(), names.end(), NaturallyBefore);
    return names;
}

std::optional<MediaHit> FindExactly(const QString& value)
{
    for (const MediaSource source : ListSources) {
        const MediaListModel& list = Lists().List(source);
        const int row = list.Find(value);
        if (row >= 0)
            return MediaHit{source, row, list.Name(row)};
    }
    return std::nullopt;
}

} // namespace

bool NaturallyBefore(const QString& a, const QString& b)
{
    qsizetype i = 0, j = 0;
    const auto skipZeros = [](const QString& text, qsizetype& at) {
        while (at + 1 < text.size() && text[at] == u'0' && text[at + 1].isDigit())
            ++at;
    };
    const auto digits = [](const QString& text, qsizetype at) {
        qsizetype end = at;
        while (end < text.size() && text[end].isDigit())
            ++end;
        return end - at;
    };
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            skipZeros(a, i);
            skipZeros(b, j);
            const qsizetype length = digits(a, i), other = digits(b, j);
            const int order = length != other ? (length < other ? -1 : 1)
                                              : QStringView(a).mid(i, length).compare(QStringView(b).mid(j, other));
            if (order != 0)
                return order < 0;
            i += length;
            j += other;
        } else {
            const char16_t left = Folded(a[i++]), right = Folded(b[j++]);
            if (left != right)
                return left < right;
        }
    }
    const qsizetype restA = a.size() - i, restB = b.size() - j;
    return restA != restB ? restA < restB : a < b;
}

void MediaListModel::Show(const QString& newFolder, const QString& newPatterns)
{
    if (newFolder == folder && newPatterns == patterns)
        return;
    beginResetModel();
    folder = newFolder;
    patterns = newPatterns;
    isRead = false;
    endResetModel();
}

bool MediaListModel::Refresh()
{
    if (!isRead || IsAsRead())
        return false;
    const QStringList before = std::exchange(names, {});
    Read();
    QStringList now = std::exchange(names, before);
    if (now == before)
        return false;
    Become(std::move(now));
    return true;
}

void MediaListModel::Become(QStringList now)
{
    const std::vector<Run> gone = RunsMissingIn(now, names), come = RunsMissingIn(names, now);
    if (gone.size() + come.size() > MostRuns) {
        beginResetModel();
        names = std::move(now);
        endResetModel();
        return;
    }
    for (auto run = gone.rbegin(); run != gone.rend(); ++run) {
        beginRemoveRows({}, int(run->First), int(run->First + run->Count - 1));
        names.remove(run->First, run->Count);
        endRemoveRows();
    }
    for (const Run& run : come) {
        beginInsertRows({}, int(run.First), int(run.First + run.Count - 1));
        names = names.first(run.First) + now.mid(run.First, run.Count) + names.mid(run.First);
        endInsertRows();
    }
}

bool MediaListModel::IsAsRead() const
{
    return !mayBeTorn && TimeOf(folder) == folderTime;
}

void MediaListModel::Read() const
{
    folderTime = TimeOf(folder);
    mayBeTorn = folderTime > std::filesystem::file_time_type::clock::now() - CoarsestClock;
    names = folder.isEmpty() ? QStringList() : ReadFolder(folder, patterns);
}

const QStringList& MediaListModel::Names() const
{
    if (!isRead)
        Read();
    isRead = true;
    return names;
}

int MediaListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(Names().size());
}

QVariant MediaListModel::data(const QModelIndex& index, int role) const
{
    const bool shown = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
    return index.isValid() && shown ? QVariant(Name(index.row())) : QVariant();
}

QString MediaListModel::Name(int row) const
{
    return Names().value(row);
}

int MediaListModel::Find(const QString& value) const
{
    if (value.isEmpty())
        return -1;
    const QStringList& all = Names();
    const auto hit = std::find_if(all.begin(), all.end(),
                                  [&](const QString& name) { return name.startsWith(value, Qt::CaseInsensitive); });
    return hit == all.end() ? -1 : int(hit - all.begin());
}

MediaListModel& MediaLists::List(MediaSource source)
{
    return source == MediaSource::PCXBrowser ? Base : source == MediaSource::Extra ? Extra : Rnd;
}

MediaLists& Lists()
{
    if (!Frame.Lists)
        Frame.Lists = std::make_shared<MediaLists>();
    return *Frame.Lists;
}

QString MediaPattern(const char* pattern)
{
    const QLatin1StringView words(pattern);
    return words == QLatin1StringView("*.pcx") ? Frame.Settings.SheetKinds.Patterns() : QString(words);
}

void ShowMedia()
{
    const ModeRow& mode = Modes().at(Frame.CurrentMode);
    Frame.Media.BaseFolder = Frame.CurrentFolder;
    Frame.Media.BasePattern = MediaPattern(mode.BasePattern);
    Frame.Media.ListPattern = MediaPattern(mode.ListPattern);
    MediaLists& lists = Lists();
    lists.Base.Show(Frame.Media.BaseFolder, Frame.Media.BasePattern);
    lists.Extra.Show(Frame.Media.ExtraFolder, Frame.Media.ListPattern);
    lists.Rnd.Show(Frame.Media.RndFolder, Frame.Media.ListPattern);
    lists.Macros.Show(Frame.MacrosFolder, QStringLiteral("*.gfb"));
    emit Events().MediaChanged();
}

void RefreshMedia()
{
    bool changed = false;
    for (const MediaSource source : ListSources)
        changed |= Lists().List(source).Refresh();
    changed |= Lists().Macros.Refresh();
    if (changed)
        emit Events().MediaChanged();
}

void SetExtraFolder(const QString& folder)
{
    Frame.Media.ExtraFolder = folder;
    ShowMedia();
}

QString PathOf(MediaSource source, const QString& file)
{
    const bool isList = std::ranges::find(ListSources, source) != ListSources.end();
    return isList ? Lists().List(source).Folder() + file : paths::Inside(file);
}

std::optional<MediaHit> FindImageInLists(const QString& value)
{
    std::optional<MediaHit> hit = FindExactly(value);
    for (const QString& twin : Frame.Settings.SheetKinds.Twins(value))
        if (!hit)
            hit = FindExactly(twin);
    return hit;
}

bool IsMediaName(const QString& name)
{
    return std::ranges::any_of(std::span(Modes()).subspan(ModeGfx), [&](const ModeRow& mode) {
        return Fits(name, Endings(MediaPattern(mode.BasePattern)));
    });
}

void InsertFileName(const QString& name)
{
    if (name.isEmpty())
        return;
    EditorPane& pane = CurrentPane();
    Range at = pane.GetSel(true);
    if (!pane.SelText().isEmpty())
        pane.ReplaceSel(name);
    else
        pane.InsertText(name, {at.StartLine, at.StartCol, at.StartLine, at.StartCol});
    at.StartCol += int(name.size());
    pane.SetSel({at.StartLine, at.StartCol, at.StartLine, at.StartCol}, false);
}
