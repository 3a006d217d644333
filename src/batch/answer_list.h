#pragma once

#include "frame/messages/asker.h"

#include <deque>

/// What a message is answered with when no prepared answer is left; any other question is then Cancelled.
enum class WhenAnswersEnd {
    FirstButton, ///< of a caller's own message and of message::CloseChanged; of others the way out
    WayOut,
    Fail ///< noted as a failure, and the way out
};

/// Answers prepared in advance, taken in order. A text fits a message as a button's caption, a choice as an item's
/// text, an archive as an entry's path; an empty one cancels an input box and a file dialog. An answer that does not
/// fit is noted as a failure and the question has its way out for an answer.
///
/// A consent takes the next answer only if that is its first button, and is refused else. A pause ends at once and
/// takes none; keys are held only if the next answer says so.
class AnswerList : public Asker
{
public:
    explicit AnswerList(WhenAnswersEnd ending = WhenAnswersEnd::WayOut) : WhenEmpty(ending) {}

    Answer Ask(const Question& question) override;

    /// The first answer that did not fit or, if messages are to Fail, was not there.
    Result<> Outcome() const;

    /// The questions of a kind asked so far, in order.
    template <class Kind>
    std::vector<Kind> AskedFor() const
    {
        std::vector<Kind> of;
        for (const Question& question : Asked)
            if (const Kind* kind = std::get_if<Kind>(&question))
                of.push_back(*kind);
        return of;
    }

    std::deque<Answer> Next;
    std::vector<Question> Asked;
    WhenAnswersEnd WhenEmpty;
    bool AllowFiles = false; ///< every consent is given, and takes no answer

private:
    Answer Unprepared(const Question& question);
    void Note(const QString& reason);

    std::optional<Failure> failure;
};
