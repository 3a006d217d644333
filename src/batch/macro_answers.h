#pragma once

#include "batch/answer_list.h"

#include <functional>

/// Prepared answers of a macro's run, and who hears what came of them.
class MacroAnswers : public AnswerList
{
public:
    explicit MacroAnswers(const QStringList& answers) : AnswerList(WhenAnswersEnd::FirstButton)
    {
        for (const QString& answer : answers)
            Next.push_back(answer);
    }

    Answer Ask(const Question& question) override;

    std::function<void(const MessageRecord&)> OnMessage; ///< told of each message of the macro's own
    std::function<void(const QString&)> OnMisfit;        ///< told of the first answer that does not fit
    std::function<void()> OnRefused;                     ///< told of a consent that was refused
};
