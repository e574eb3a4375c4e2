#include "support/moved_clock.h"

#include "support/fake_clock.h"
#include "support/real_function.h"
#include "support/sent_signals.h"

#include <atomic>
#include <cerrno>
#include <ctime>
#include <pthread.h>

static constexpr int64_t nanosecondsPerSecond = 1'000'000'000;
static std::atomic<bool> sActive{false};
static std::atomic<int64_t> sOffset{0}; // nanoseconds

static int64_t nanosecondsOf(const timespec& time) {
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

static timespec timespecOf(int64_t nanoseconds) {
    return {nanoseconds / nanosecondsPerSecond, nanoseconds % nanosecondsPerSecond};
}

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    static const auto real = REAL_FUNCTION(clock_gettime);
    const int status = real(clock, time);
    if (status == 0 && clock == CLOCK_REALTIME && sActive)
        *time = timespecOf(nanosecondsOf(*time) + sOffset);
    return status;
}

/// The kernel ends such a wait by the wall clock, wherever that has been set meanwhile.
extern "C" int pthread_cond_timedwait(pthread_cond_t* condition, pthread_mutex_t* mutex,
                                      const timespec* end) {
    static const auto real = REAL_FUNCTION(pthread_cond_timedwait);
    constexpr int64_t slice = 2'000'000;
    const unsigned signals = sentSignals();
    while (sActive) {
        timespec now{};
        clock_gettime(CLOCK_REALTIME, &now);
        const int64_t left = nanosecondsOf(*end) - nanosecondsOf(now);
        if (left <= 0)
            return ETIMEDOUT;
        const timespec soon = timespecOf(nanosecondsOf(now) - sOffset + (left < slice ? left : slice));
        const int status = real(condition, mutex, &soon);
        if (status != ETIMEDOUT)
            return status;
        if (sentSignals() != signals) // who signals holds the mutex, as this does between two slices
            return 0;
    }
    return real(condition, mutex, end);
}

MovedClock::MovedClock() {
    sOffset = 0;
    moveWallClock(0);
    sActive = true;
}

MovedClock::~MovedClock() {
    sActive = false;
    moveWallClock(0);
}

void MovedClock::move(int64_t ms) {
    sOffset += ms * 1'000'000;
    moveWallClock(sOffset / 1000);
}
