#include "level/level_files.h"

#include "level/level_bytes.h"
#include "level/level_header.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

/// Far above any level: the largest map has 32 KB, all custom elements together some hundred.
constexpr qint64 LargestLevel = qint64(16) << 20;

const QString NoLevelMessage =
    QStringLiteral("Either this isn't an RND level or it isn't supported. LoadLevel currently supports:-^^"
                   "V1.0,  V1.2,  V1.4  and RND1 type levels");

Result<QByteArray> ReadWorking(const QString& name)
{
    return paths::ReadWhole(WorkingPath(name), LargestLevel);
}

bool WorkingExists(const QString& name)
{
    return Level.Folder && QFile::exists(WorkingPath(name));
}

/// Drops the chunks of an earlier level that mean nothing to the open one.
Result<> DropForeignTail()
{
    const Result<QByteArray> tail = LevelTail();
    if (!tail)
        return tl::unexpected(tail.error());
    if (!tail->isEmpty() && FamilyOfTail(*tail) != Level.Family)
        RemoveLevelTail();
    return {};
}

/// Without a sync, which a macro over a thousand levels would wait half a minute for: nobody needs a working file after
/// a power cut.
Result<> WriteWorking(const QString& name, QByteArrayView bytes)
{
    const QString path = WorkingPath(name);
    if (!Level.Folder->isValid())
        return Fail(QDir::tempPath(), Level.Folder->errorString());
    return paths::WriteScratch(path, bytes);
}

Result<> WriteWorkingFiles(QByteArrayView bytes, qsizetype mapEnd)
{
    Result<> written = WriteWorking(WorkingLevel, bytes.first(mapEnd));
    if (!written || mapEnd == bytes.size())
        return written;
    return WriteWorking(WorkingTail, bytes.sliced(mapEnd));
}

/// Puts the path to a reason that has none.
tl::unexpected<Failure> ForFile(const QString& path, const Failure& failure)
{
    return Fail(failure.Path.isEmpty() ? path : failure.Path, failure.Reason);
}

/// A failure leaves no level open.
Result<> Opened(Result<> done)
{
    if (!done)
        CloseLevel();
    return done;
}

Result<> OpenBytes(const QByteArray& bytes, bool keepWorking)
{
    Result<LevelRecord> level = ParseLevel(bytes, ReadLevelOffsets);
    if (!level)
        return Opened(Fail({}, NoLevelMessage));
    static_cast<LevelRecord&>(Level) = std::move(*level);
    if (keepWorking && Level.MapEnd == bytes.size())
        return Opened(DropForeignTail());
    return Opened(WriteWorkingFiles(bytes, Level.MapEnd));
}

} // namespace

// Resources of a static library are only linked if something asks for them, from outside any namespace.
static void HoldLevelImages()
{
    Q_INIT_RESOURCE(levels);
}

QByteArray LevelImage(const QString& name)
{
    HoldLevelImages();
    QFile image(QStringLiteral(":/custom/") + name);
    return image.open(QIODevice::ReadOnly) ? image.readAll() : QByteArray();
}

QString WorkingPath(const QString& name)
{
    if (!Level.Folder)
        Level.Folder = std::make_shared<QTemporaryDir>();
    return Level.Folder->isValid() ? Level.Folder->filePath(name) : QString();
}

void RemoveWorkingFiles()
{
    Level.Folder.reset();
}

void CloseLevel()
{
    static_cast<LevelRecord&>(Level) = {};
    Level.CurrentLevelPath.clear();
    RemoveWorkingFiles();
}

// One that can not be read is a failure, since the level would lose it.
Result<QByteArray> LevelTail()
{
    return WorkingExists(WorkingTail) ? ReadWorking(WorkingTail) : QByteArray();
}

Result<> LoadLevelTail(const QString& path)
{
    return paths::ReadWhole(path, LargestLevel).and_then([](const QByteArray& bytes) {
        return WriteWorking(WorkingTail, bytes);
    });
}

void RemoveLevelTail()
{
    if (WorkingExists(WorkingTail))
        QFile::remove(WorkingPath(WorkingTail));
}

Result<> LoadLevel(const QString& path, bool keepWorking)
{
    const Result<QByteArray> bytes = keepWorking ? ReadWorking(WorkingLevel) : paths::ReadWhole(path, LargestLevel);
    if (!keepWorking)
        CloseLevel(); // only now, since the file may be one of the working files
    return bytes ? OpenBytes(*bytes, keepWorking) : Opened(tl::unexpected(bytes.error()));
}

Result<> LoadNewLevel()
{
    const Result<> written = WriteWorking(WorkingLevel, LevelImage(QStringLiteral("BLANKLEVEL")));
    return written ? LoadLevel({}, true) : Opened(written);
}

Result<> SaveLevel(const QString& path, bool keepOpen, const paths::BeforeReplace& before)
{
    if (!WorkingExists(WorkingLevel))
        return {};
    const Result<QByteArray> working = ReadWorking(WorkingLevel);
    if (!working)
        return tl::unexpected(working.error());
    const Result<QByteArray> tail = LevelTail();
    if (!tail)
        return tl::unexpected(tail.error());
    Result<QByteArray> patched = PatchLevel(Level, *working);
    if (!patched)
        return ForFile(path, patched.error());
    Result<> written = paths::WriteWhole(path, patched->append(*tail), before);
    if (written && !keepOpen)
        RemoveWorkingFiles();
    return written;
}

Result<> TestCustomFile(const QString& path)
{
    const Result<QByteArray> bytes = paths::ReadWhole(path, LargestLevel);
    if (!bytes)
        return tl::unexpected(bytes.error());
    QStringList marks = CustomMarks(Level.Family);
    for (const QString& mark : marks)
        if (mark.size() >= 3 && bytes->startsWith(mark.toLatin1()))
            return {};
    const QString last = marks.takeLast();
    return Fail({}, QStringLiteral("This file isn't a custom element file.^Its header doesn't start with %1 or %2")
                        .arg(marks.join(QStringLiteral(", ")), last));
}

Result<LevelFile> ReadLevelFile(const QString& path)
{
    Result<QByteArray> bytes = paths::ReadWhole(path, LargestLevel);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<LevelRecord> level = ParseLevel(*bytes, ReadLevelOffsets);
    if (!level)
        return ForFile(path, level.error());
    return LevelFile{std::move(*level), std::move(*bytes)};
}
