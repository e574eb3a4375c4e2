#include "support/counted_list.h"
#include "support/fake_clock.h"
#include "support/kestro_test.h"

#include <climits>

/// Presses on a list of a hundred rows, at times that the test sets.
class ListMenuHeldKeysTest : public KestroTest {
protected:
    FakeClock clock;
    CountedList list{100};

    /// Presses `code` after a pause of `ms`.
    void press(int code, uint64_t ms) {
        clock.advance(ms);
        list.handleEvent(code);
        takeLog();
    }
};

TEST_F(ListMenuHeldKeysTest, TheTwelfthQuickPressJumps) {
    for (int pressed = 1; pressed <= 11; ++pressed) {
        press(6, 199);
        EXPECT_EQ(list.getCursor(), pressed);
        EXPECT_EQ(list.mPressedKeys.size(), static_cast<size_t>(pressed - 1));
    }
    press(6, 199);
    EXPECT_EQ(list.getCursor(), 17);
    EXPECT_EQ(list.mPressedKeys, std::vector<int>(11, 6));
    press(6, 0);
    EXPECT_EQ(list.getCursor(), 23);
}

TEST_F(ListMenuHeldKeysTest, UpJumpsToo) {
    list.setCursor(90);
    for (int pressed = 1; pressed <= 11; ++pressed)
        press(5, 30);
    EXPECT_EQ(list.getCursor(), 79);
    press(5, 30);
    EXPECT_EQ(list.getCursor(), 73);
}

TEST_F(ListMenuHeldKeysTest, AHeldUpGives5AlsoOnTheFirstRowWithWrapOff) {
    list.setWrap(false);
    list.setCursor(1);
    list.mPressedKeys.assign(11, 5);
    list.mLastKeyTime = clock.now();
    EXPECT_EQ(list.handleEvent(5), 5);
    EXPECT_EQ(list.handleEvent(5), 5);
    EXPECT_EQ(list.getCursor(), 0);
    takeLog();
}

TEST_F(ListMenuHeldKeysTest, EachPressOfUpOrDownLogsTheCountOnce) {
    list.handleEvent(6);
    list.handleEvent(6);
    list.handleEvent(6);
    list.handleEvent(7);
    EXPECT_EQ(takeLog(), "pressedForAWhile 0\npressedForAWhile 1\npressedForAWhile 2\n");
}

TEST_F(ListMenuHeldKeysTest, HeldForAWhileBeginsWithElevenKeys) {
    list.mPressedKeys.assign(10, 6);
    EXPECT_FALSE(list.pressedForAWhile());
    list.mPressedKeys.assign(11, 6);
    EXPECT_TRUE(list.pressedForAWhile());
    list.mPressedKeys.assign(500, 6);
    EXPECT_TRUE(list.pressedForAWhile());
    EXPECT_EQ(takeLog(), "pressedForAWhile 10\npressedForAWhile 11\npressedForAWhile 500\n");
}

TEST_F(ListMenuHeldKeysTest, TheFirstPressAfterAPauseIsNotRecorded) {
    list.addToPressedKeys(6);
    EXPECT_TRUE(list.mPressedKeys.empty());
    EXPECT_EQ(list.mLastKeyTime, clock.now());
    list.addToPressedKeys(6);
    list.addToPressedKeys(6);
    EXPECT_EQ(list.mPressedKeys, std::vector<int>(2, 6));
    clock.advance(200);
    list.addToPressedKeys(6);
    EXPECT_TRUE(list.mPressedKeys.empty());
    EXPECT_EQ(list.mLastKeyTime, clock.now());
}

TEST_F(ListMenuHeldKeysTest, APauseOf199MillisecondsDoesNotEndTheRun) {
    list.addToPressedKeys(8);
    clock.advance(199);
    list.addToPressedKeys(8);
    clock.advance(199);
    list.addToPressedKeys(8);
    EXPECT_EQ(list.mPressedKeys, std::vector<int>(2, 8));
    EXPECT_EQ(list.mLastKeyTime, clock.now());
}

TEST_F(ListMenuHeldKeysTest, AnotherDirectionNeitherCountsNorMovesTheTime) {
    list.addToPressedKeys(6);
    list.addToPressedKeys(6);
    const uint64_t last = list.mLastKeyTime;
    clock.advance(150);
    list.addToPressedKeys(5);
    EXPECT_EQ(list.mPressedKeys, std::vector<int>(1, 6));
    EXPECT_EQ(list.mLastKeyTime, last);
    clock.advance(50);
    list.addToPressedKeys(6); // 200 ms after the last one that counted
    EXPECT_TRUE(list.mPressedKeys.empty());
}

TEST_F(ListMenuHeldKeysTest, OnlyDirectionsAreRecorded) {
    list.addToPressedKeys(6);
    const uint64_t last = list.mLastKeyTime;
    clock.advance(10);
    for (const int code : {INT_MIN, -6, 0, 1, 2, 3, 4, 9, 10, 11, 42, 1002, INT_MAX})
        list.addToPressedKeys(code);
    EXPECT_TRUE(list.mPressedKeys.empty());
    EXPECT_EQ(list.mLastKeyTime, last);
    for (const int code : {5, 6, 7, 8}) {
        list.mPressedKeys.clear();
        list.addToPressedKeys(code);
        EXPECT_EQ(list.mPressedKeys, std::vector<int>(1, code));
    }
}

TEST_F(ListMenuHeldKeysTest, AlternatingUpAndDownAsFastAsAThumbCanNeverJumps) {
    list.setCursor(50);
    for (const uint64_t pause : {100u, 150u, 199u})
        for (int i = 0; i < 100; ++i) {
            press(6, pause);
            EXPECT_EQ(list.getCursor(), 51);
            press(5, pause);
            EXPECT_EQ(list.getCursor(), 50);
            EXPECT_LT(list.mPressedKeys.size(), 2u);
        }
}

TEST_F(ListMenuHeldKeysTest, PressesOfAnotherDirectionInBetweenDoNotEndARun) {
    list.addToPressedKeys(6);
    for (size_t count = 1; count <= 11; ++count) {
        clock.advance(20);
        list.addToPressedKeys(6);
        clock.advance(20);
        list.addToPressedKeys(5);
        EXPECT_EQ(list.mPressedKeys, std::vector<int>(count, 6));
    }
}

TEST_F(ListMenuHeldKeysTest, APauseRestartsTheCount) {
    for (int i = 0; i < 11; ++i)
        press(6, 20);
    press(6, 200);
    EXPECT_EQ(list.getCursor(), 12);
    for (int i = 0; i < 10; ++i)
        press(6, 20);
    EXPECT_EQ(list.getCursor(), 22);
    press(6, 20);
    EXPECT_EQ(list.getCursor(), 28);
}

TEST_F(ListMenuHeldKeysTest, AClockThatIsSetBackCountsAsAPause) {
    press(6, 0);
    press(6, 20);
    press(6, 20);
    EXPECT_EQ(list.mPressedKeys.size(), 2u);
    clock.set(1000);
    press(6, 0);
    EXPECT_TRUE(list.mPressedKeys.empty());
}

TEST_F(ListMenuHeldKeysTest, TheRunGrowsAsLongAsTheKeyIsHeld) {
    for (int i = 0; i <= 1000; ++i)
        press(7, 30);
    EXPECT_EQ(list.mPressedKeys.size(), 1000u);
    EXPECT_EQ(list.getCursor(), 0);
}
