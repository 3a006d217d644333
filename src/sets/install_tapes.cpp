#include "sets/install_tapes.h"

#include "frame/files/file_commands.h"
#include "platform/files/paths.h"
#include "sets/get_files.h"

#include <QDir>

namespace {

constexpr qint64 LargestTape = qint64(64) << 20;

/// Does a backup come with it?
Result<bool> CopyTape(const QString& from, const QString& to)
{
    const Result<QByteArray> tape = paths::ReadWhole(from, LargestTape);
    if (!tape)
        return tl::unexpected(tape.error());
    const bool stands = paths::FileExists(to);
    if (stands && paths::ReadWhole(to, LargestTape).value_or(QByteArray()) == *tape)
        return false;
    return MakeBackup(to).and_then([&](const QString&) { return paths::WriteWhole(to, *tape); }).map([&] {
        return stands;
    });
}

} // namespace

Result<FoundTapes> FindTapes(const QString& gameFolder)
{
    const FolderScan scan{QStringLiteral("*.tape"), true, false, true};
    return GetFiles(gameFolder, scan).map([](const std::vector<ScannedFolder>& hits) {
        return hits.empty() ? FoundTapes() : FoundTapes{hits.front().Folder, hits.front().Files};
    });
}

Result<int> CopyTapes(const FoundTapes& tapes, const QString& target)
{
    if (!QDir().mkpath(target))
        return Fail(target, qt_error_string(errno));
    int backups = 0;
    for (const QString& file : tapes.Files) {
        const Result<bool> copied = CopyTape(tapes.Folder + file, paths::Closed(target) + file);
        if (!copied)
            return tl::unexpected(copied.error());
        backups += *copied;
    }
    return backups;
}
