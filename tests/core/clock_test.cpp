#include "core/clock.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <ctime>

static uint64_t realTime() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1'000'000;
}

TEST(Clock, CountsMillisecondsSinceTheEpoch) {
    const uint64_t before = realTime();
    const uint64_t now = systemms();
    const uint64_t after = realTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, after);
}

TEST(Clock, TruncatesMicroseconds) {
    FakeClock clock(1234);
    EXPECT_EQ(systemms(), 1234u);
    clock.advanceMicroseconds(999);
    EXPECT_EQ(systemms(), 1234u);
    clock.advanceMicroseconds(1);
    EXPECT_EQ(systemms(), 1235u);
}
