#include "fuzz_macro.h"
#include "host_scope.h"
#include "mutated.h"

#include <gtest/gtest.h>

// Catches: a crash, a hang or a text that is no longer whole, by whatever a macro's source holds.
TEST(FuzzMacro, NoSourceBreaksTheRun)
{
    HostScope host;
    TestFolder folder;
    QRandomGenerator random(20240612);
    for (int round = 0; round < 4000; ++round) {
        QByteArray program = RandomProgram(random);
        if (round % 3 == 0)
            program = Mutated(program, random);
        const QString fault = FuzzMacro(program, folder.Path());
        ASSERT_EQ(fault, QString()) << program.toStdString();
    }
}
