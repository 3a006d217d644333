#include "batch/answer_list.h"

namespace {

/// What a prepared text means to a question; the text itself where it is the answer.
struct TextAs
{
    const QString& Text;

    Answer Place(const QStringList& among, auto&& make) const
    {
        const qsizetype at = among.indexOf(Text);
        return at < 0 ? Answer(Text) : Answer(make(int(at) + 1));
    }
    Answer Button(const QString& buttons) const
    {
        return Place(ButtonCaptions(buttons), [](int place) { return Pressed{place}; });
    }
    Answer OrCancel() const { return Text.isEmpty() ? Answer(Cancelled{}) : Answer(Text); }

    Answer operator()(const MessageQuestion& question) const { return Button(question.Record.MessageButtons); }
    Answer operator()(const SafetyQuestion& question) const { return Button(RecordOf(question).MessageButtons); }
    Answer operator()(const InputQuestion&) const { return OrCancel(); }
    Answer operator()(const FileQuestion& question) const
    {
        const bool several = question.For == FileQuestion::OpenMany && !Text.isEmpty();
        return several ? Answer(QStringList{Text}) : OrCancel();
    }
    Answer operator()(const FolderQuestion&) const { return OrCancel(); }
    Answer operator()(const ChoiceQuestion& question) const
    {
        if (question.Lists.size() != 1)
            return Text;
        return Place(question.Lists.front().Items, [](int place) { return place; });
    }
    template <class Kind>
    Answer operator()(const Kind&) const
    {
        return Text;
    }
};

Answer Meaning(const Question& question, const Answer& prepared)
{
    const auto* text = std::get_if<QString>(&prepared);
    return text ? std::visit(TextAs{*text}, question) : prepared;
}

/// What a question is about, for a failure.
struct SubjectOf
{
    QString operator()(const MessageQuestion& question) const
    {
        return QStringLiteral("%1 (%2)").arg(question.Record.MessageTitle, question.Record.MessageButtons);
    }
    QString operator()(const PauseQuestion& question) const { return question.Text; }
    QString operator()(const KeysQuestion&) const { return QStringLiteral("keys"); }
    QString operator()(const SafetyQuestion& question) const { return question.Command; }
    QString operator()(const auto& question) const { return question.Title; }
};

QString Shown(const Answer& answer)
{
    if (const auto* text = std::get_if<QString>(&answer))
        return u'"' + *text + u'"';
    if (const auto* pressed = std::get_if<Pressed>(&answer))
        return QStringLiteral("button %1").arg(pressed->Place);
    if (const auto* several = std::get_if<QStringList>(&answer))
        return several->join(QStringLiteral(", "));
    if (const int* place = std::get_if<int>(&answer))
        return QStringLiteral("item %1").arg(*place);
    return std::holds_alternative<KeySet>(answer) ? QStringLiteral("keys") : QStringLiteral("a cancel");
}

/// Does this kind of question take an answer only where the next one is made for it?
bool TakesOnlyItsOwn(const Question& question)
{
    return std::holds_alternative<SafetyQuestion>(question) || std::holds_alternative<KeysQuestion>(question);
}

bool IsConsent(const Question& question, const Answer& answer)
{
    return std::holds_alternative<SafetyQuestion>(question) && answer == Answer(Pressed{message::Consent});
}

} // namespace

Answer AnswerList::Ask(const Question& question)
{
    Asked.push_back(question);
    if (std::holds_alternative<PauseQuestion>(question))
        return Pressed{};
    if (AllowFiles && std::holds_alternative<SafetyQuestion>(question))
        return Pressed{message::Consent};
    if (Next.empty())
        return Unprepared(question);
    Answer answer = Meaning(question, Next.front());
    if (TakesOnlyItsOwn(question) && !IsConsent(question, answer) && !std::holds_alternative<KeySet>(answer))
        return WayOutOf(question);
    const Answer prepared = std::move(Next.front());
    Next.pop_front();
    if (Fits(question, answer))
        return answer;
    Note(QStringLiteral("%1 is no answer to: %2").arg(Shown(prepared), std::visit(SubjectOf{}, question)));
    return WayOutOf(question);
}

Answer AnswerList::Unprepared(const Question& question)
{
    const auto* message = std::get_if<MessageQuestion>(&question);
    if (!message)
        return WayOutOf(question);
    if (WhenEmpty == WhenAnswersEnd::Fail)
        Note(QStringLiteral("no answer is left for: %1").arg(SubjectOf{}(*message)));
    const message::Number number = message->Record.Number;
    const bool harmless = number == message::CallersOwn || number == message::CloseChanged;
    return WhenEmpty == WhenAnswersEnd::FirstButton && harmless ? Answer(Pressed{}) : WayOutOf(question);
}

void AnswerList::Note(const QString& reason)
{
    if (!failure)
        failure = Failure{QStringLiteral("answers"), reason};
}

Result<> AnswerList::Outcome() const
{
    return failure ? Result<>(tl::unexpected<Failure>(*failure)) : Result<>();
}
