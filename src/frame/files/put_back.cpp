#include "frame/files/put_back.h"

#include "frame/messages/messages.h"
#include "platform/files/paths.h"

namespace {

void AddPart(QStringList& parts, const char* title, const QStringList& paths)
{
    if (paths.isEmpty())
        return;
    QStringList lines = {QString::fromLatin1(title), {}};
    for (const QString& path : paths)
        lines << paths::Native(path);
    parts << lines.join(u'^');
}

} // namespace

void TellPutBack(const name_swap::PutBack& found)
{
    QStringList parts;
    AddPart(parts, "A fast test had not ended properly. These files stand in their place again:", found.Restored);
    AddPart(parts, "Somebody has written in their place meanwhile. That is kept as:", found.Kept);
    QStringList failures;
    for (const Failure& failure : found.Failures)
        failures << failure.Text();
    AddPart(parts, "This could not be put back yet and is tried again at the next start:", failures);
    if (!parts.isEmpty())
        ShowMessage(message::PutBack, parts.join(QStringLiteral("^^")));
}

void TellEndOfSwap(name_swap::PutBack found)
{
    found.Restored.clear();
    TellPutBack(found);
}

void PutBackIn(const QString& folder)
{
    TellPutBack(name_swap::FinishIn(folder));
}
