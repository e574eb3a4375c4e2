#include "support/real_function.h"
#include "support/repeat_test.h"

#include <atomic>

static std::atomic<int> sSignals{0};

extern "C" int SDL_CondSignal(SDL_cond* cond) {
    static const auto real = REAL_FUNCTION(SDL_CondSignal);
    ++sSignals;
    return real(cond);
}

/// When the key-repeat thread is woken before its time.
class RepeatWakeTest : public RepeatTest {};

TEST_F(RepeatWakeTest, ClearingWakesTheThread) {
    whileRunning([&] {
        sSignals = 0;
        clearRepeatTime();
        EXPECT_EQ(takeLog(), "clear repeat time\n");
        EXPECT_EQ(sSignals, 1);
    });
}

TEST_F(RepeatWakeTest, PressingWakesTheThread) {
    whileRunning([&] {
        sSignals = 0;
        setRepeatTime(5);
        EXPECT_EQ(sSignals, 1);
        clearRepeatTime();
        takeLog();
    });
}

TEST_F(RepeatWakeTest, EndOfTheRunWakesTheThread) {
    whileRunning([&] { sSignals = 0; });
    EXPECT_EQ(sSignals, 1);
}
