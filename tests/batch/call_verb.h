#pragma once

#include "batch/answer_list.h"
#include "batch/verbs.h"

/// What a verb printed and ended with.
struct Spoken
{
    int Code = 0;
    QString Out, Err;
};

inline Spoken Called(const QStringList& arguments, AnswerList answers = AnswerList())
{
    Spoken spoken;
    QTextStream out(&spoken.Out), err(&spoken.Err);
    spoken.Code = RunVerb(arguments, {out, err, answers});
    return spoken;
}
