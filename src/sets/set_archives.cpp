#include "sets/set_archives.h"

#include "platform/archives/zip_archive.h"
#include "platform/archives/zip_writer.h"
#include "platform/files/beside_file.h"
#include "platform/files/beside_folder.h"
#include "platform/files/file_steps.h"
#include "platform/files/paths.h"
#include "services/archive_tool.h"
#include "services/packing_list.h"
#include "sets/set_tree.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>

namespace {

/// The name below the top folder of an archive.
QString BelowTop(const QString& name)
{
    return name.mid(name.indexOf(u'/') + 1);
}

/// A file whose bytes are held against an archive's as these are unpacked.
class ComparedFile
{
public:
    explicit ComparedFile(const QString& path) : file(path) {}

    Result<> Open() { return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? Result<>() : Failed(); }
    Result<> Take(QByteArrayView piece)
    {
        const QByteArray own = file.read(piece.size());
        if (own.size() < piece.size() && file.error() != QFile::NoError)
            return Failed();
        isSame = isSame && QByteArrayView(own) == piece;
        return {};
    }
    bool IsSame() const { return isSame; }

private:
    Result<> Failed() const { return Fail(file.fileName(), file.errorString()); }

    QFile file;
    bool isSame = true;
};

/// What tells whether a file was touched.
struct Trace
{
    QString Path;
    qint64 Size, Changed;
    bool operator==(const Trace&) const = default;
};

/// Everything in a folder, by paths from it.
Result<std::vector<Trace>> TracesOf(const QString& folder, const CountedTurn& turn)
{
    return PackingList(folder, {}, turn, UnpackLimits{}).map([](const std::vector<ZipPart>& parts) {
        std::vector<Trace> traces;
        for (const ZipPart& part : parts) {
            Trace trace{BelowTop(part.Name), -1, 0};
            FileFacts facts{};
            const auto* file = std::get_if<PackedFile>(&part.From);
            if (file && Steps().Stat(QFile::encodeName(file->Path), &facts) == 0) {
                trace.Size = facts.st_size;
                trace.Changed = qint64(facts.st_mtim.tv_sec) * 1'000'000'000 + facts.st_mtim.tv_nsec;
            }
            traces.push_back(trace);
        }
        return traces;
    });
}

class SetComparison
{
public:
    SetComparison(const ZipArchive& zip, const CountedTurn& callback) : archive(zip), turn(callback)
    {
        for (int i = 0; i < int(archive.Entries().size()); ++i) {
            const ZipEntry& entry = archive.Entries()[size_t(i)];
            entries.insert(BelowTop(entry.Name), i);
            all += entry.Size;
        }
    }

    /// The first path that differs; a null text if none does.
    Result<QString> FirstDifference(const std::vector<ZipPart>& parts)
    {
        QSet<QString> folders; // of which an archive need not speak
        for (const ZipPart& part : parts) {
            const QString name = BelowTop(part.Name);
            if (std::holds_alternative<EmptyFolder>(part.From)) {
                folders.insert(name);
                continue;
            }
            const auto entry = entries.constFind(name);
            if (entry == entries.cend())
                return name;
            const Result<bool> same = IsSame(*entry, std::get<PackedFile>(part.From).Path);
            if (!same)
                return tl::unexpected(same.error());
            if (!*same)
                return name;
            entries.remove(name);
        }
        for (auto entry = entries.keyBegin(); entry != entries.keyEnd(); ++entry)
            if (!folders.contains(*entry))
                return *entry;
        return QString();
    }

private:
    Result<bool> IsSame(int index, const QString& path)
    {
        const ZipEntry& entry = archive.Entries()[size_t(index)];
        ComparedFile file(path);
        if (QFileInfo(path).size() != entry.Size)
            return false;
        return file.Open()
            .and_then([&] {
                return archive.ReadPieces(index, entry.Size, [&](QByteArrayView piece) -> Result<> {
                    done += piece.size();
                    if (turn && !turn(int(done * CompareSteps / std::max<qint64>(all, 1)), CompareSteps))
                        return Stopped(archive.Path());
                    return file.Take(piece);
                });
            })
            .map([&] { return file.IsSame(); });
    }

    static constexpr int CompareSteps = 1000;

    const ZipArchive& archive;
    const CountedTurn& turn;
    QHash<QString, int> entries;
    qint64 all = 0, done = 0;
};

Result<> NotTheSame(const QString& path, const QString& difference)
{
    return Fail(path, QStringLiteral("Archive and folder differ: ") + difference);
}

Result<> CheckSame(const QString& folder, const QString& archive, const CountedTurn& turn)
{
    QString difference;
    return IsSameSet(folder, archive, turn, &difference).and_then([&](bool same) {
        return same ? Result<>() : NotTheSame(archive, difference);
    });
}

/// A hidden file that goes with its scope unless it has been moved to its place.
class HiddenFile
{
public:
    explicit HiddenFile(const QString& target) : name(NameBeside(QFile::encodeName(target))) {}
    ~HiddenFile()
    {
        if (!name.isEmpty())
            Steps().Unlink(name);
    }
    HiddenFile(const HiddenFile&) = delete;
    HiddenFile& operator=(const HiddenFile&) = delete;

    QString Path() const { return QFile::decodeName(name); }
    /// A failure of work on it as people know the place.
    Failure InOpenWords(Failure failure, const QString& target) const
    {
        failure.Path.replace(Path(), target);
        failure.Reason.replace(Path(), target);
        return failure;
    }
    Result<> MoveOver(const QString& target)
    {
        const QByteArray to = QFile::encodeName(target);
        if (Steps().Rename(name, to) != 0)
            return Fail(target, qt_error_string(errno));
        name.clear();
        const int error = SyncFolderOf(to);
        return error ? Fail(target, qt_error_string(error)) : Result<>();
    }

private:
    QByteArray name;
};

/// Brings a folder back into sight: to its place or, if that is taken by now, beside it. Where it stands then; empty:
/// it could not be moved.
QString PutBack(const QString& taken, const QString& folder)
{
    constexpr int MostNames = 1000;
    for (int number = 0; number < MostNames; ++number) {
        const QString place = number == 0 ? folder : QStringLiteral("%1_%2").arg(folder).arg(number);
        const QByteArray to = QFile::encodeName(place);
        if (Steps().RenameNew(QFile::encodeName(taken), to) == 0) {
            static_cast<void>(SyncFolderOf(to)); // a failed sync is no reason to take it out of sight again
            return place;
        }
        if (errno != EEXIST)
            break;
    }
    return {};
}

/// Removes a folder of which an archive with these traces stands. It goes out of sight at once, so that no half of it
/// is ever seen; one that has changed meanwhile comes back.
Result<> RemoveZipped(const QString& folder, const std::vector<Trace>& traces)
{
    const Result<BesideFolder> away = BesideFolder::Make(paths::FolderOfPath(folder));
    if (!away)
        return tl::unexpected(away.error());
    if (Result<> taken = away->Take(folder); !taken)
        return taken;
    const QString name = paths::FileNameOfPath(folder);
    const QString taken = away->Path() + name;
    const auto now = TracesOf(taken, {});
    Result<> removed = !now             ? Result<>(tl::unexpected(now.error()))
                       : *now != traces ? Fail(folder, QStringLiteral("The folder has changed meanwhile."))
                                        : RemoveTree(taken);
    if (!removed && QFileInfo::exists(taken))
        if (const QString place = PutBack(taken, folder); !place.isEmpty() && place != folder)
            return Fail(place, removed.error().Reason);
    return removed.map_error([&](const Failure& failure) { return away->InOpenWords(failure); });
}

/// Does the archive hold one folder of this name, letter case ignored, and nothing else, and each file once? The
/// folder's name as the archive has it.
Result<QString> OneTopFolder(const QString& path, const QString& name)
{
    return ZipArchive::Open(path).and_then([&](const ZipArchive& archive) -> Result<QString> {
        QString top;
        QSet<QString> files;
        for (const ZipEntry& entry : archive.Entries()) {
            const QString first = entry.Name.section(u'/', 0, 0);
            if (!entry.Name.contains(u'/') || (!top.isNull() && first != top) ||
                first.compare(name, Qt::CaseInsensitive) != 0)
                return Fail(path, QStringLiteral("The archive holds something else than its folder: ") + entry.Name);
            if (files.contains(entry.Name) && !entry.Name.endsWith(u'/'))
                return Fail(path, QStringLiteral("The archive holds two files of one name: ") + entry.Name);
            files.insert(entry.Name);
            top = first;
        }
        return top;
    });
}

SwappedSet Swapped(const Result<>& removed)
{
    return removed ? SwappedSet() : SwappedSet{true, removed.error()};
}

} // namespace

Result<bool> IsSameSet(const QString& folder, const QString& path, const CountedTurn& turn, QString* difference)
{
    const Result<ZipArchive> archive = ZipArchive::Open(path);
    if (!archive)
        return tl::unexpected(archive.error());
    return PackingList(folder, {}, turn, UnpackLimits{})
        .and_then(
            [&](const std::vector<ZipPart>& parts) { return SetComparison(*archive, turn).FirstDifference(parts); })
        .map([&](const QString& first) {
            if (difference)
                *difference = first;
            return first.isNull();
        });
}

Result<bool> RemoveUnzipped(const QString& folder, const QString& archive)
{
    const auto traces = TracesOf(folder, {});
    const Result<bool> same = traces ? IsSameSet(folder, archive) : tl::unexpected(traces.error());
    return same && *same ? RemoveZipped(folder, *traces).map([] { return true; }) : same;
}

QString UnzippedFolder(const QString& archive)
{
    return SetNode{archive, {}}.Folder();
}

Result<SwappedSet> ZipSet(const QString& folder, const QString& archive, const CountedTurn& turn)
{
    if (QFileInfo(folder).isSymLink())
        return Fail(folder, QStringLiteral("The folder is a link."));
    const auto traces = TracesOf(folder, turn);
    const auto parts = PackingList(folder, archive, turn, UnpackLimits{});
    if (!traces || !parts)
        return tl::unexpected(traces ? parts.error() : traces.error());
    HiddenFile made(archive);
    return WriteZip(made.Path(), *parts, nullptr, turn)
        .and_then([&] { return CheckSame(folder, made.Path(), turn); })
        .map_error([&](const Failure& failure) { return made.InOpenWords(failure, archive); })
        .and_then([&] { return made.MoveOver(archive); })
        .map([&] { return Swapped(RemoveZipped(folder, *traces)); });
}

Result<SwappedSet> UnzipSet(const QString& archive, bool keepArchive, const CountedTurn& turn)
{
    const QString folder = UnzippedFolder(archive), above = paths::FolderOfPath(archive);
    const QString name = paths::FileNameOfPath(folder);
    const Result<QString> top = OneTopFolder(archive, name);
    const Result<BesideFolder> beside = top ? BesideFolder::Make(above) : tl::unexpected(top.error());
    if (!beside)
        return tl::unexpected(beside.error());
    return UnzipFiles(name.toLower() + u'/', archive, beside->Path(), turn)
        .and_then([&] { return CheckSame(beside->Path() + *top, archive, turn); })
        .map_error([&](const Failure& failure) { return beside->InOpenWords(failure); })
        .and_then([&] { return beside->MoveOver(*top, folder); })
        .map([&]() -> SwappedSet {
            if (keepArchive)
                return {};
            const bool gone = Steps().Unlink(QFile::encodeName(archive)) == 0;
            return Swapped(gone ? Result<>() : Fail(archive, qt_error_string(errno)));
        });
}
