#include "macro/language/run_loop.h"
#include "macro/language/run_state.h"
#include "macro/run_asker.h"
#include "macro/run_stage.h"

namespace {

/// The author as a message may show it: a stranger's text must not break its lines.
QString ShownAuthor(const RunState& run)
{
    constexpr qsizetype LongestAuthor = 40;
    return QString(run.Author).remove(u'^').left(LongestAuthor);
}

/// The command and what it asks for, as far as that is known before anything is evaluated.
QString ShownCommand(const ProgramLine& line)
{
    QString shown = QString::fromLatin1(line.Word->Word);
    for (size_t i = 1; i < line.Tokens.size(); ++i) {
        const Token& token = line.Tokens[i];
        const bool known = token.What == Token::Kind::Variable && token.Slot->Declared;
        shown += u' ' + PipeToSpace(known ? token.Slot->Held.Text() : token.Written);
    }
    constexpr qsizetype LongestCommand = 300;
    return shown.remove(u'^').left(LongestCommand);
}

} // namespace

bool SystemSafeCheck(RunState& run, const ProgramLine& line)
{
    if (!run.SafeSystem)
        return true;
    constexpr int SafetyMessage = 58;
    MessageRecord question = NumberedMessage(SafetyMessage, ShownAuthor(run)).value_or(MessageRecord());
    question.MessageText += QStringLiteral("^^") + ShownCommand(line);
    run.Stage.ShowTarget(true);
    const MessageAnswer answer = run.Ask.Message(question, MessagePurpose::Safety);
    run.Stage.ShowTarget(false);
    const bool passed = answer.Caption == QLatin1String("Continue");
    if (!passed)
        run.StopRequested = true;
    return passed;
}
