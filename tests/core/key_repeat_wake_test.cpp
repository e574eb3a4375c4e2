#include "support/repeat_test.h"
#include "support/sent_signals.h"

/// When the key-repeat thread is woken before its time.
class RepeatWakeTest : public RepeatTest {
protected:
    void startCounting() { mBefore = sentSignals(); }
    unsigned counted() const { return sentSignals() - mBefore; }

private:
    unsigned mBefore = 0;
};

TEST_F(RepeatWakeTest, ClearingWakesTheThread) {
    whileRunning([&] {
        startCounting();
        clearRepeatTime();
        EXPECT_EQ(takeLog(), "clear repeat time\n");
        EXPECT_EQ(counted(), 1U);
    });
}

TEST_F(RepeatWakeTest, PressingWakesTheThread) {
    whileRunning([&] {
        startCounting();
        setRepeatTime(5);
        EXPECT_EQ(counted(), 1U);
        clearRepeatTime();
        takeLog();
    });
}

TEST_F(RepeatWakeTest, EndOfTheRunWakesTheThread) {
    whileRunning([&] { startCounting(); });
    EXPECT_EQ(counted(), 1U);
}
