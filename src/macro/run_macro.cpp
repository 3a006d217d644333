#include "macro/run_macro.h"

#include "frame/run_scope.h"
#include "macro/language/run_loop.h"
#include "macro/language/run_state.h"
#include "platform/files/paths.h"
#include "services/archive_tool.h"

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
    const ResourceResult<QByteArray> source = ReadResource(QLatin1String(SourceEntry), path, LargestSource);
    if (source)
        return *source;
    if (source.error().What == ResourceFault::NotFound)
        return Fail(path, QStringLiteral("Can't find the file: 'basic.txt' in the resource."));
    return tl::unexpected(source.error().Why);
}

bool IsPlainSource(const QString& path)
{
    if (!paths::FileExists(path))
        return path.endsWith(QLatin1String(".gfbasic"), Qt::CaseInsensitive);
    const Result<QByteArray> bytes = paths::ReadWhole(path, LargestSource);
    return bytes && !IsArchive(*bytes) && !bytes->contains('\0'); // damaged archives are none
}

std::optional<MacroError> RunMacro(const MacroRequest& request, RunStage& stage, RunScope& scope)
{
    const auto run = std::make_unique<RunState>(stage, scope);
    run->MacroPath = request.Path;
    run->TestRun = request.TestRun;
    run->Paths.SetFolder(request.Folder);
    if (request.Seed)
        run->Random.Seed(*request.Seed);
    stage.SetTurn([&scope] { return scope.Turn(); });
    std::optional<MacroError> error = RunProgram(*run, request.Source);
    scope.TurnNow();
    stage.SetTurn({});
    return error;
}
