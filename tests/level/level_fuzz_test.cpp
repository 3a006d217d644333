#include "fuzz_level.h"
#include "level/level_bytes.h"
#include "level_builder.h"
#include "mutated.h"
#include "test_support.h"

#include <gtest/gtest.h>

// Catches: reads and writes outside the bytes, endless walks, a field that a hostile file moves over another, changes
// that get lost in files that are only nearly right.
TEST(FuzzLevel, MutatedLevelsAreRefusedOrComeBackWhole)
{
    QRandomGenerator random(20240611);
    const int rounds = FuzzRounds(500);
    int taken = 0, refused = 0;
    for (const LevelPlan& plan : EveryForm()) {
        const QByteArray whole = BuildLevel(plan).Bytes;
        ASSERT_EQ(FuzzLevel(whole), QString()) << plan.Form.constData();
        for (int round = 0; round < rounds; ++round) {
            const QByteArray bytes = Mutated(whole, random);
            ASSERT_EQ(FuzzLevel(bytes), QString()) << bytes.toHex().constData();
            ++(ParseLevel(bytes, KnownOffsets) ? taken : refused);
        }
    }
    EXPECT_GT(taken, 500) << "the inputs no longer reach the writer";
    EXPECT_GT(refused, 500) << "the inputs no longer reach the refusals";
    ResetLevel();
}
