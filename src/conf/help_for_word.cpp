#include "conf/help_for_word.h"

#include "frame/documents/documents.h"
#include "frame/editor_pane.h"
#include "frame/frame_state.h"
#include "platform/processes/processes.h"

#include <iterator>

namespace {

constexpr const char* NumberedWords[] = {"custom", "char", "group"};

/// By mode code.
constexpr const char* Folders[] = {"!other infos\\", "!graphics info\\", "!sounds info\\", "!music info\\",
                                   "!level info\\"};

} // namespace

QString HelpIdForWord(const QString& word, int mode)
{
    QString page = word;
    for (const char* numbered : NumberedWords)
        if (word.startsWith(QLatin1String(numbered) + QLatin1Char('_'), Qt::CaseInsensitive))
            page = QString::fromLatin1(numbered);
    const bool known = mode > 0 && mode < int(std::size(Folders));
    return QString::fromLatin1(Folders[known ? mode : 0]) + page;
}

void HelpForWord(const QString& helpId)
{
    const bool inText = helpId == QLatin1StringView("TEXT");
    RunHelp(inText ? HelpIdForWord(CurrentPane().CurrentWord(), Frame.CurrentMode) : helpId);
}

void RunHelp(const QString& helpId)
{
    const QStringList arguments = helpId.isEmpty() ? QStringList() : QStringList(helpId);
    const Result<> started = processes::StartDetached(processes::ShortPath(Frame.HelpExe), arguments);
    if (!started)
        ShowFailure(started.error());
}
