#include "support/fake_clock.h"

#include "support/real_function.h"

#include <atomic>
#include <mutex>
#include <sys/time.h>
#include <unistd.h>

static std::atomic<bool> sActive{false};
static std::atomic<uint64_t> sMicroseconds{0};
static std::mutex sSleepsLock;
static std::vector<uint64_t> sSleeps;

extern "C" int gettimeofday(timeval* time, void* zone) noexcept {
    static const auto real = REAL_FUNCTION(gettimeofday);
    if (!sActive)
        return real(time, zone);
    const uint64_t now = sMicroseconds;
    time->tv_sec = static_cast<time_t>(now / 1'000'000);
    time->tv_usec = static_cast<suseconds_t>(now % 1'000'000);
    return 0;
}

extern "C" int usleep(useconds_t length) {
    static const auto real = REAL_FUNCTION(usleep);
    if (!sActive)
        return real(length);
    const std::lock_guard<std::mutex> lock(sSleepsLock);
    sSleeps.push_back(length);
    sMicroseconds += length;
    return 0;
}

FakeClock::FakeClock(uint64_t startMs) {
    set(startMs);
    sSleeps.clear();
    sActive = true;
}

FakeClock::~FakeClock() {
    sActive = false;
}

uint64_t FakeClock::now() const {
    return sMicroseconds / 1000;
}

void FakeClock::set(uint64_t ms) {
    sMicroseconds = ms * 1000;
}

void FakeClock::advance(uint64_t ms) {
    sMicroseconds += ms * 1000;
}

void FakeClock::advanceMicroseconds(uint64_t length) {
    sMicroseconds += length;
}

std::vector<uint64_t> FakeClock::takeSleeps() {
    const std::lock_guard<std::mutex> lock(sSleepsLock);
    std::vector<uint64_t> sleeps;
    sleeps.swap(sSleeps);
    return sleeps;
}

uint64_t laterStart() {
    static std::atomic<uint64_t> last{1'000'000'000'000};
    return last += 1'000'000'000;
}
