#pragma once

#include "platform/result.h"

#include <QStringList>
#include <QTextStream>
#include <span>

class AnswerList;

/// Where a verb speaks and is answered: results on Out, usage and reading errors on Err.
struct VerbStreams
{
    QTextStream& Out;
    QTextStream& Err;
    AnswerList& Answers; ///< of the asker that is installed
};

/// What a verb ends with, as the process's exit code.
enum VerbResult : int { VerbDone = 0, VerbFound = 1, VerbFailed = 2, VerbStopped = 3 };

/// One verb of gemforge-batch. To add one: a row in verbs.cpp and its handler in a file of its subject.
struct Verb
{
    const char* Name;  ///< one word or two
    const char* Usage; ///< arguments after the name
    const char* Help;  ///< what it does, its output and exit codes
    VerbResult (*Run)(const QStringList& arguments, VerbStreams& streams);
};
std::span<const Verb> Verbs();

/// Runs `arguments` (verb first). "--help" alone lists the verbs, after a verb it explains that one. An answer that
/// did not fit its question ends with VerbFailed.
VerbResult RunVerb(const QStringList& arguments, VerbStreams streams);

/// Tells path and reason of a failure.
VerbResult Failed(const Failure& failure, VerbStreams& streams);

/// Tells what is wrong with a call and how the verb is used.
VerbResult WrongUsage(const char* verb, const QString& reason, VerbStreams& streams);
