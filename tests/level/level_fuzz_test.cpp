#include "fuzz_level.h"
#include "level/level_bytes.h"
#include "level_builder.h"
#include "test_support.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

QByteArray Mutated(QByteArray bytes, QRandomGenerator& random)
{
    for (int change = random.bounded(1, 6); change > 0 && !bytes.isEmpty(); --change) {
        const int at = random.bounded(int(random.bounded(2) ? bytes.size() : qMin(bytes.size(), qsizetype(300))));
        const QByteArray wide = QByteArray::fromHex(random.bounded(2) ? "ffffffff" : "7ffffff8");
        switch (random.bounded(5)) {
        case 0:
            bytes[at] = char(random.bounded(256));
            break;
        case 1:
            bytes.replace(at, 4, wide);
            break;
        case 2:
            bytes.remove(at, random.bounded(1, 12));
            break;
        case 3:
            bytes.insert(at, bytes.mid(random.bounded(int(bytes.size())), random.bounded(1, 12)));
            break;
        default:
            bytes[at] = char(bytes[at] ^ (1 << random.bounded(8)));
        }
    }
    return bytes;
}

} // namespace

// Catches: reads and writes outside the bytes, endless walks, a field that a hostile file moves over another, changes
// that get lost in files that are only nearly right.
TEST(FuzzLevel, MutatedLevelsAreRefusedOrComeBackWhole)
{
    QRandomGenerator random(20240611);
    int taken = 0, refused = 0;
    for (const LevelPlan& plan : EveryForm()) {
        const QByteArray whole = BuildLevel(plan).Bytes;
        ASSERT_EQ(FuzzLevel(whole), QString()) << plan.Form.constData();
        for (int round = 0; round < 500; ++round) {
            const QByteArray bytes = Mutated(whole, random);
            ASSERT_EQ(FuzzLevel(bytes), QString()) << bytes.toHex().constData();
            ++(ParseLevel(bytes, KnownOffsets) ? taken : refused);
        }
    }
    EXPECT_GT(taken, 500) << "the inputs no longer reach the writer";
    EXPECT_GT(refused, 500) << "the inputs no longer reach the refusals";
    ResetLevel();
}
