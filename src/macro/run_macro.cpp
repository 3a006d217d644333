#include "macro/run_macro.h"

#include "macro/language/run_loop.h"
#include "macro/language/run_state.h"
#include "platform/paths.h"
#include "platform/zip_archive.h"

#include <QFile>

namespace {

constexpr const char* SourceEntry = "basic.txt";
constexpr qint64 LargestSource = qint64(64) << 20;

bool IsArchive(const QByteArray& bytes)
{
    return bytes.startsWith("PK\x03\x04") || bytes.startsWith("PK\x05\x06");
}

} // namespace

Result<QByteArray> ReadMacroSource(const QString& path)
{
    constexpr qint64 MarkSize = 4;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && !IsArchive(file.read(MarkSize)))
        return paths::ReadWhole(path, LargestSource);
    const Result<ZipArchive> archive = ZipArchive::Open(path);
    if (!archive)
        return tl::unexpected(archive.error());
    const int entry = archive->Find(QLatin1String(SourceEntry));
    if (entry < 0)
        return Fail(path, QStringLiteral("Can't find the file: 'basic.txt' in the resource."));
    return archive->Read(entry, LargestSource);
}

std::optional<MacroError> RunMacro(const MacroRequest& request, RunStage& stage, RunAsker& asker, RunScope& scope)
{
    const auto run = std::make_unique<RunState>(stage, asker, scope);
    run->MacroPath = request.Path;
    run->TestRun = request.TestRun;
    run->Paths.SetFolder(request.Folder);
    if (request.Seed)
        run->Random.Seed(*request.Seed);
    return RunProgram(*run, request.Source);
}
