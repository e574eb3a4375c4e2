#pragma once

#include <cstdint>
#include <vector>

/// While it lives, time stands still for the library and moves only by call: it takes the place of
/// gettimeofday and usleep in this process. A sleep is noted and moves the time by its length at once.
/// Any thread may read the time. SDL's own clocks go on as usual.
class FakeClock {
public:
    explicit FakeClock(uint64_t startMs = 1'000'000'000'000);
    ~FakeClock();
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;

    uint64_t now() const; ///< milliseconds
    void set(uint64_t ms);
    void advance(uint64_t ms);
    void advanceMicroseconds(uint64_t length);

    /// The lengths in microseconds of all sleeps since the last call.
    std::vector<uint64_t> takeSleeps();
};

/// Without a FakeClock: lets gettimeofday tell another time than the system's, by so many microseconds; see
/// MovedClock.
void moveWallClock(int64_t microseconds);

/// While it lives, a sleep ends only when the test says so, whether the clock stands still or not. For one
/// thread that sleeps again and again.
class HeldSleep {
public:
    HeldSleep();
    ~HeldSleep(); ///< ends the sleep
    HeldSleep(const HeldSleep&) = delete;
    HeldSleep& operator=(const HeldSleep&) = delete;

    /// Waits until the next sleep has begun, and returns its length in microseconds. Fails the test when that
    /// does not come.
    uint64_t await();

    void end(); ///< ends the sleep that was waited for
};

/// A start for a FakeClock that lies far after all that went before in this process, so that nothing which
/// the library remembers of an earlier test looks recent.
uint64_t laterStart();
