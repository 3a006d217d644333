#include "macro/macro_file.h"

#include "frame/messages/messages.h"
#include "macro/language/source_text.h"
#include "text/document_text.h"

#include <QFileInfo>

namespace {

constexpr QLatin1StringView SourceOfMacro("basic.txt");

} // namespace

ResourceResult<> SaveMacroSource(const DocumentText& code, const QString& path)
{
    QStringList typed;
    for (int i = 0; i < code.LineCount(); ++i)
        typed << code.GetLine(i);
    return AddBytesToResource(SourceOfMacro, SourceToSave(typed).toUtf8(), path);
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
