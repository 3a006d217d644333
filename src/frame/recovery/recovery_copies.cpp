#include "frame/recovery/recovery_copies.h"

#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <map>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString LockName = QStringLiteral("lock");
const QString HeaderName = QStringLiteral("copy.json");
constexpr int Form = 1;
constexpr qint64 LargestHeader = 1 << 20;

QString HashOf(QByteArrayView bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256).toHex());
}

/// The lock of a run's folder; -1 if another holds it or there is none.
int LockRun(const QString& run, int flags)
{
    const int file = open(QFile::encodeName(run + LockName), O_RDWR | O_CLOEXEC | flags, 0600);
    if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0)
        return file;
    if (file >= 0)
        close(file);
    return -1;
}

bool OnlyWeWrite(const QString& folder)
{
    struct stat facts
    {
    };
    return stat(QFile::encodeName(folder), &facts) == 0 && facts.st_uid == getuid() && (facts.st_mode & 0022) == 0;
}

/// Text of the user must not lie where others can read, exchange or plant it: neither the recovery folder nor the one
/// it lies in may be another's.
bool IsOurs(const QString& folder)
{
    return OnlyWeWrite(folder) && OnlyWeWrite(paths::FolderOfPath(folder.chopped(1)));
}

QStringList FoldersIn(const QString& folder)
{
    QStringList all;
    for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        all << folder + name + u'/';
    return all;
}

/// Calls `visit` with the folder of each run that has ended, holding its lock meanwhile. What has no lock is foreign.
template <class Visit>
void ForEachEndedRun(const QString& folder, Visit visit)
{
    if (folder.isEmpty() || !IsOurs(folder))
        return;
    for (const QString& run : FoldersIn(folder)) {
        const int lock = LockRun(run, 0);
        if (lock < 0)
            continue;
        visit(run);
        close(lock);
    }
}

std::optional<QJsonObject> ReadHeader(const QString& copy)
{
    const Result<QByteArray> bytes = paths::ReadWhole(copy + HeaderName, LargestHeader);
    if (!bytes)
        return std::nullopt;
    const QJsonObject header = QJsonDocument::fromJson(*bytes).object();
    return header[u"form"].toInt() == Form ? std::optional(header) : std::nullopt;
}

bool SameOnDisk(const RecoveredText& text)
{
    if (text.DocumentPath.isEmpty())
        return false;
    const Result<QByteArray> bytes = paths::ReadWhole(text.DocumentPath, paths::LargestDocument);
    return bytes && *bytes == text.Bytes;
}

/// The copy in a folder; nothing if it is not whole or not ours.
std::optional<RecoveredText> ReadCopy(const QString& copy)
{
    const std::optional<QJsonObject> header = ReadHeader(copy);
    if (!header)
        return std::nullopt;
    const QString data = (*header)[u"data"].toString();
    const int mode = (*header)[u"mode"].toInt(-1), encoding = (*header)[u"encoding"].toInt(-1);
    const int lineEnd = (*header)[u"lineEnd"].toInt(-1);
    const bool known = mode >= 0 && mode < 8 && encoding >= 0 && encoding <= int(FileEncoding::Windows1252) &&
                       lineEnd >= 0 && lineEnd <= int(LineBreak::Cr);
    if (!known || data.isEmpty() || data.contains(u'/'))
        return std::nullopt;
    Result<QByteArray> bytes = paths::ReadWhole(copy + data, paths::LargestDocument);
    if (!bytes || HashOf(*bytes) != (*header)[u"hash"].toString())
        return std::nullopt;
    RecoveredText text;
    text.Folder = copy;
    text.DocumentPath = (*header)[u"path"].toString();
    text.Mode = mode;
    text.Encoding = FileEncoding(encoding);
    text.LineEnd = LineBreak(lineEnd);
    text.Kept = QDateTime::fromMSecsSinceEpoch((*header)[u"kept"].toInteger());
    text.Bytes = std::move(*bytes);
    text.Code = (*header)[u"code"].toBool();
    text.SameAsDisk = SameOnDisk(text);
    return text;
}

QByteArray HeaderOf(const recovery::CopyFacts& facts, const QString& data, QByteArrayView bytes)
{
    const QJsonObject header = {
        {QStringLiteral("form"), Form},
        {QStringLiteral("path"), facts.DocumentPath},
        {QStringLiteral("mode"), facts.Mode},
        {QStringLiteral("encoding"), int(facts.Encoding)},
        {QStringLiteral("lineEnd"), int(facts.LineEnd)},
        {QStringLiteral("kept"), facts.Kept},
        {QStringLiteral("data"), data},
        {QStringLiteral("hash"), HashOf(bytes)},
        {QStringLiteral("code"), facts.Code},
    };
    return QJsonDocument(header).toJson();
}

/// Last sign of life in a copy's folder.
qint64 LastChange(const QString& copy)
{
    qint64 last = 0;
    for (const QFileInfo& file : QDir(copy).entryInfoList(QDir::Files | QDir::Hidden))
        last = std::max(last, file.lastModified().toMSecsSinceEpoch());
    return last;
}

/// Is it the copy of a text that the user has let go?
bool IsClosed(const QString& copy)
{
    return paths::FileNameOfPath(copy.chopped(1)).startsWith(recovery::ClosedCopies);
}

void RemoveIfEmpty(const QString& run)
{
    if (!FoldersIn(run).isEmpty())
        return;
    QFile::remove(run + LockName);
    QDir().rmdir(run);
}

} // namespace

namespace recovery {

RunFolder::RunFolder(const QString& base, const QString& spare)
{
    for (const QString& folder : {base, spare})
        if (!folder.isEmpty())
            places.push_back({folder});
}

RunFolder::~RunFolder()
{
    for (const Place& place : places) {
        if (place.Lock < 0)
            continue;
        RemoveIfEmpty(place.Own);
        close(place.Lock);
    }
}

Result<> RunFolder::Open(Place& place)
{
    if (place.Lock >= 0)
        return {};
    const QString id = QStringLiteral("%1-%2")
                           .arg(QDateTime::currentMSecsSinceEpoch())
                           .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
    place.Own = place.Folder + id + u'/';
    const bool made = folders::MakePrivate(place.Own);
    const int error = errno;
    if (made && !IsOurs(place.Folder))
        return Fail(place.Folder, QStringLiteral("The folder is open to others."));
    if (made)
        place.Lock = LockRun(place.Own, O_CREAT);
    return place.Lock >= 0 ? Result<>() : Fail(place.Own, qt_error_string(made ? errno : error));
}

/// In the first place that takes it; a folder that was full may have room again. What an earlier one holds is older.
Result<> RunFolder::Write(const QString& name, const CopyFacts& facts, QByteArrayView bytes)
{
    Result<> written;
    for (Place& place : places) {
        const Result<> tried = WriteIn(place, name, facts, bytes);
        if (!tried) {
            written = written ? tried : written; // the first reason counts
            continue;
        }
        for (const Place& other : places)
            if (&other != &place)
                RemoveFrom(other, name);
        return {};
    }
    return written;
}

Result<> RunFolder::WriteIn(Place& place, const QString& name, const CopyFacts& facts, QByteArrayView bytes)
{
    if (Result<> opened = Open(place); !opened)
        return opened;
    const QString copy = place.Own + name + u'/';
    const QString data = QStringLiteral("text-%1").arg(++generation);
    Result<> text = paths::WriteWholePrivate(copy + data, bytes);
    if (!text)
        return text;
    Result<> mark = paths::WriteWholePrivate(copy + HeaderName, HeaderOf(facts, data, bytes));
    if (!mark) {
        QFile::remove(copy + data); // a full folder needs the room
        return mark;
    }
    for (const QString& old : QDir(copy).entryList({QStringLiteral("text-*")}, QDir::Files))
        if (old != data)
            QFile::remove(copy + old);
    return {};
}

void RunFolder::RemoveFrom(const Place& place, const QString& name)
{
    if (place.Lock >= 0)
        QDir(place.Own + name).removeRecursively();
}

void RunFolder::Remove(const QString& name)
{
    for (const Place& place : places)
        RemoveFrom(place, name);
}

std::vector<RecoveredText> CopiesOfEndedRuns(const QString& folder)
{
    std::vector<RecoveredText> all;
    ForEachEndedRun(folder, [&](const QString& run) {
        for (const QString& copy : FoldersIn(run))
            if (std::optional<RecoveredText> text = IsClosed(copy) ? std::nullopt : ReadCopy(copy))
                all.push_back(std::move(*text));
    });
    std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.Kept > b.Kept; });
    return all;
}

std::optional<RecoveredText> LastClosedCopy(const QString& folder)
{
    if (folder.isEmpty() || !IsOurs(folder))
        return {};
    std::multimap<qint64, QString, std::greater<>> copies; // by the time they were kept, the newest first
    for (const QString& run : FoldersIn(folder))
        for (const QString& copy : FoldersIn(run))
            if (const std::optional<QJsonObject> header = IsClosed(copy) ? ReadHeader(copy) : std::nullopt)
                copies.emplace((*header)[u"kept"].toInteger(), copy);
    for (const auto& [kept, copy] : copies)
        if (std::optional<RecoveredText> text = ReadCopy(copy))
            return text;
    return {};
}

void RemoveCopy(const QString& copyFolder)
{
    const QString run = paths::FolderOfPath(copyFolder.chopped(1));
    QDir(copyFolder).removeRecursively();
    const int lock = LockRun(run, 0);
    if (lock < 0)
        return;
    RemoveIfEmpty(run);
    close(lock);
}

void Sweep(const QString& folder, qint64 now)
{
    ForEachEndedRun(folder, [&](const QString& run) {
        for (const QString& copy : FoldersIn(run))
            if (now - LastChange(copy) > (IsClosed(copy) ? ClosedStaleAfter : StaleAfter))
                QDir(copy).removeRecursively();
        RemoveIfEmpty(run);
    });
}

} // namespace recovery

QString SpareRecoveryFolder()
{
    const QString temporary = QDir::tempPath(); // empty if TMPDIR names no folder
    return (temporary.isEmpty() ? QStringLiteral("/tmp") : temporary) +
           QStringLiteral("/gemforge-%1/recovery/").arg(getuid());
}
