#pragma once

#include "batch/answer_list.h"
#include "batch/batch_host.h"

/// The host without a window, installed: what passes and lists of a benchmark tell goes to it.
struct BenchHost
{
    BenchHost() { InstallHost(Host, Answers); }

    BatchHost Host;
    AnswerList Answers;
};
