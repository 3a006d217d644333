#include "batch/macro_answers.h"

Answer MacroAnswers::Ask(const Question& question)
{
    const auto* message = std::get_if<MessageQuestion>(&question);
    if (message && message->Record.Number == message::CallersOwn && OnMessage)
        OnMessage(message->Record);
    const bool fine = Outcome().has_value();
    Answer answer = AnswerList::Ask(question);
    if (const Result<> outcome = Outcome(); fine && !outcome && OnMisfit)
        OnMisfit(outcome.error().Reason);
    const bool consent = answer == Answer(Pressed{message::Consent});
    if (std::holds_alternative<SafetyQuestion>(question) && !consent && OnRefused)
        OnRefused();
    return answer;
}
