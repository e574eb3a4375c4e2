#include "support/fake_clock.h"

#include "support/real_function.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <sys/time.h>
#include <unistd.h>

static std::atomic<bool> sActive{false};
static std::atomic<uint64_t> sMicroseconds{0};
static std::atomic<int64_t> sMovedBy{0}; // microseconds
static std::mutex sSleepsLock;
static std::vector<uint64_t> sSleeps;

struct Held {
    std::mutex lock;
    std::condition_variable changed;
    bool holding = false;
    std::vector<uint64_t> begun; // lengths
    size_t awaited = 0;
    size_t ended = 0;
};

static Held& sHeld = *new Held; // for good, as a thread may still sleep when the process ends

/// Whether the sleep was held, and has come to its end.
static bool holdSleep(uint64_t length) {
    std::unique_lock<std::mutex> lock(sHeld.lock);
    if (!sHeld.holding)
        return false;
    sHeld.begun.push_back(length);
    const size_t number = sHeld.begun.size();
    sHeld.changed.notify_all();
    sHeld.changed.wait(lock, [number] { return !sHeld.holding || sHeld.ended >= number; });
    return true;
}

HeldSleep::HeldSleep() {
    const std::lock_guard<std::mutex> lock(sHeld.lock);
    sHeld.begun.clear();
    sHeld.awaited = sHeld.ended = 0;
    sHeld.holding = true;
}

HeldSleep::~HeldSleep() {
    const std::lock_guard<std::mutex> lock(sHeld.lock);
    sHeld.holding = false;
    sHeld.changed.notify_all();
}

uint64_t HeldSleep::await() {
    std::unique_lock<std::mutex> lock(sHeld.lock);
    const bool begun = sHeld.changed.wait_for(lock, std::chrono::seconds(20),
                                              [] { return sHeld.begun.size() > sHeld.awaited; });
    EXPECT_TRUE(begun) << "no thread sleeps";
    return begun ? sHeld.begun[sHeld.awaited++] : 0;
}

void HeldSleep::end() {
    const std::lock_guard<std::mutex> lock(sHeld.lock);
    sHeld.ended = sHeld.awaited;
    sHeld.changed.notify_all();
}

static uint64_t movedTime(int (*real)(timeval*, void*)) {
    timeval now{};
    real(&now, nullptr);
    return static_cast<uint64_t>(now.tv_sec * 1'000'000 + now.tv_usec + sMovedBy);
}

void moveWallClock(int64_t microseconds) {
    sMovedBy = microseconds;
}

extern "C" int gettimeofday(timeval* time, void* zone) noexcept {
    static const auto real = REAL_FUNCTION(gettimeofday);
    if (!sActive && sMovedBy == 0)
        return real(time, zone);
    const uint64_t now = sActive ? sMicroseconds.load() : movedTime(real);
    time->tv_sec = static_cast<time_t>(now / 1'000'000);
    time->tv_usec = static_cast<suseconds_t>(now % 1'000'000);
    return 0;
}

extern "C" int usleep(useconds_t length) {
    static const auto real = REAL_FUNCTION(usleep);
    if (holdSleep(length))
        return 0;
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
