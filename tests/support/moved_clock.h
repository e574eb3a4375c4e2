#pragma once

#include <cstdint>

/// While it lives, the system's wall clock can be moved for this process and goes on from there, as when
/// somebody sets it: for gettimeofday, clock_gettime, and for waits until a time of that clock, which then
/// last longer or end. Not together with a FakeClock.
class MovedClock {
public:
    MovedClock();
    ~MovedClock();
    MovedClock(const MovedClock&) = delete;
    MovedClock& operator=(const MovedClock&) = delete;

    void move(int64_t ms);
};
