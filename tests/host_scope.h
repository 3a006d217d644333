#pragma once

#include "batch/answer_list.h"
#include "batch/batch_host.h"
#include "test_support.h"

/// Installs a host without a window and prepared answers for the scope, with a fresh frame state.
class HostScope
{
public:
    HostScope();
    ~HostScope();
    HostScope(const HostScope&) = delete;
    HostScope& operator=(const HostScope&) = delete;

    BatchHost Host;
    AnswerList Answers;
};
