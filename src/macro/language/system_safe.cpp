#include "frame/messages/asker.h"
#include "macro/language/run_loop.h"
#include "macro/language/run_state.h"
#include "macro/language/seen_target.h"

namespace {

/// What the command works with, as far as that is known before anything is evaluated.
QString ShownArguments(const ProgramLine& line)
{
    QStringList shown;
    for (size_t i = 1; i < line.Tokens.size(); ++i) {
        const Token& token = line.Tokens[i];
        const bool known = token.What == Token::Kind::Variable && token.Slot->Declared;
        shown << PipeToSpace(known ? token.Slot->Held.Text() : token.Written);
    }
    constexpr qsizetype Longest = 300;
    return shown.join(u' ').remove(u'^').left(Longest);
}

} // namespace

bool SystemSafeCheck(RunState& run, const ProgramLine& line)
{
    if (!run.SafeSystem)
        return true;
    const SafetyQuestion question{run.Author, QString::fromLatin1(line.Word->Word), ShownArguments(line)};
    const SeenTarget seen(run);
    const bool passed = Ask(question) == Answer(Pressed{message::Consent});
    if (!passed)
        run.RequestStop();
    return passed;
}
