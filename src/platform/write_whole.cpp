#include "platform/paths.h"
#include "platform/standard_folders.h"
#include "platform/whole_file.h"

namespace {

Result<> Written(const QString& path, QByteArrayView bytes, mode_t mode, const paths::BeforeReplace& before = {})
{
    WholeFile file;
    file.Before = before;
    return file.Open(path, mode).and_then([&] { return file.CommitAs(bytes); });
}

} // namespace

namespace paths {

Result<> WriteWhole(const QString& path, QByteArrayView bytes, const BeforeReplace& before)
{
    return Written(path, bytes, 0666, before);
}

Result<> WriteWholePrivate(const QString& path, QByteArrayView bytes)
{
    folders::MakePrivate(FolderOfPath(path)); // if it cannot be made, the write tells why
    return Written(path, bytes, 0600);
}

} // namespace paths
