#include "host_scope.h"

#include "frame/frame_state.h"

#include <gtest/gtest.h>

HostScope::HostScope()
{
    ResetFrame();
    InstallHost(Host, Answers);
}

HostScope::~HostScope()
{
    const Result<> answered = Answers.Outcome();
    EXPECT_TRUE(answered) << (answered ? QString() : answered.error().Text()).toStdString();
    EXPECT_TRUE(Answers.Next.empty()) << "an answer was prepared for a question that nobody asked";
    ResetFrame();
    Frame.Host = nullptr;
    Frame.Ask = nullptr;
}
