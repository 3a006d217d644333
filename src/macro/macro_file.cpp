#include "macro/macro_file.h"

#include "frame/messages/messages.h"
#include "macro/language/source_text.h"
#include "macro/run_macro.h"
#include "platform/files/paths.h"
#include "text/document_text.h"

#include <QFileInfo>

namespace {

constexpr QLatin1StringView SourceOfMacro("basic.txt");
constexpr qint64 LargestPlain = qint64(64) << 20;

/// Plain source keeps the line ends of its file.
QByteArray WithEndsOf(const QString& path, QByteArray source)
{
    const Result<QByteArray> old = paths::ReadWhole(path, LargestPlain);
    return old && old->contains('\n') && !old->contains("\r\n") ? source.replace("\r\n", "\n") : source;
}

} // namespace

ResourceResult<> SaveMacroSource(const DocumentText& code, const QString& path)
{
    QStringList typed;
    for (int i = 0; i < code.LineCount(); ++i)
        typed << code.GetLine(i);
    const QByteArray source = SourceToSave(typed).toUtf8();
    if (!IsPlainSource(path))
        return AddBytesToResource(SourceOfMacro, source, path);
    if (const Result<> written = paths::WriteWhole(path, WithEndsOf(path, source)); !written)
        return tl::unexpected(ResourceFailure{ResourceFault::Other, written.error()});
    return {};
}

void TellUnreadableMacro(const QString& path, const Failure& failure)
{
    const bool archive = QFileInfo(path).suffix().compare(QLatin1String("gfb"), Qt::CaseInsensitive) == 0;
    if (archive && failure.Reason.contains(SourceOfMacro))
        ShowMessage(message::ResourceNotFound, SourceOfMacro);
    else
        ShowFailure(failure);
}

void TellResourceFailure(const QString& name, const ResourceFailure& failure)
{
    switch (failure.What) {
    case ResourceFault::CannotAdd:
        ShowMessage(message::ResourceNotAdded);
        break;
    case ResourceFault::NotFound:
        ShowMessage(message::ResourceNotFound, name);
        break;
    case ResourceFault::NoOutputFolder:
        ShowMessage(message::ResourceFolderMissing);
        break;
    case ResourceFault::Other:
        ShowFailure(failure.Why);
        break;
    }
}
