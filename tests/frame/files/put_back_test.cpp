#include "frame/files/put_back.h"

#include "frame/program_scope.h"

// Catches: a file that could not be put back and of which nobody hears, a message without anything to tell.
TEST_F(FrameTest, WhatWasPutBackIsTold)
{
    Run.Start();
    TellPutBack({});
    EXPECT_EQ(Run.TakeMessages(), QStringList());
    name_swap::PutBack found;
    found.Restored = {QStringLiteral("/set/001.level")};
    found.Failures.push_back({QStringLiteral("/set/busy.conf"), QStringLiteral("it is in use")});
    TellPutBack(found);
    TellEndOfSwap(found);
    const QStringList told = Run.TakeMessages();
    ASSERT_EQ(told.size(), 2);
    for (const QString& text : told) {
        EXPECT_TRUE(text.contains(QLatin1String("/set/busy.conf")) && text.contains(QLatin1String("it is in use")));
        EXPECT_EQ(text.contains(QLatin1String("001.level")), text == told.front()) << "a swap that ends as it should";
    }
}
