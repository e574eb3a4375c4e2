#include "core/clock.h"
#include "support/fake_clock.h"

#include <gtest/gtest.h>

#include <ctime>

TEST(Clock, CountsMillisecondsSinceTheEpoch) {
    const auto before = static_cast<uint64_t>(time(nullptr));
    const uint64_t now = systemms();
    const auto after = static_cast<uint64_t>(time(nullptr));
    EXPECT_GE(now / 1000, before);
    EXPECT_LE(now / 1000, after);
}

TEST(Clock, TruncatesMicroseconds) {
    FakeClock clock(1234);
    EXPECT_EQ(systemms(), 1234u);
    clock.advance(1);
    EXPECT_EQ(systemms(), 1235u);
}
