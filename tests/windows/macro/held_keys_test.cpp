#include "platform/screen/other_windows.h"
#include "windows/macro/held_keys.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

unsigned BitOfKey(WatchedKey key)
{
    return 1U << unsigned(key);
}

} // namespace

// Catches: keys that cannot be asked for without an X server, one that stays held, a key taken for a button of the same
// number.
TEST(HeldKeys, OfOurOwnWindowsWithoutAServer)
{
    if (keys::Held())
        GTEST_SKIP() << "an X server answers";
    QWidget window;
    window.show();
    HeldKeys held;
    EXPECT_EQ(held.Now(), Answer(KeySet{}));
    QTest::keyPress(&window, Qt::Key_Left);
    QTest::keyPress(&window, Qt::Key_Shift);
    EXPECT_EQ(held.Now(), Answer(KeySet{BitOfKey(WatchedKey::Left) | BitOfKey(WatchedKey::Shift)}));
    QTest::keyRelease(&window, Qt::Key_Left);
    QTest::keyPress(&window, Qt::Key_A);
    EXPECT_EQ(held.Now(), Answer(KeySet{BitOfKey(WatchedKey::Shift)}));
    QTest::keyRelease(&window, Qt::Key_Shift);
    QTest::mousePress(&window, Qt::RightButton);
    EXPECT_EQ(held.Now(), Answer(KeySet{BitOfKey(WatchedKey::RightButton)}));
    QTest::mouseRelease(&window, Qt::RightButton);
    EXPECT_EQ(held.Now(), Answer(KeySet{}));
}
