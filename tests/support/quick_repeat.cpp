#include "support/quick_repeat.h"

#include "support/real_function.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

static std::mutex sLock;
static std::condition_variable sWaited;
static bool sActive = false;
static std::vector<Uint32> sWaits;
static long sWaitsBegun = 0;

extern "C" int SDL_CondWaitTimeout(SDL_cond* cond, SDL_mutex* mutex, Uint32 ms) {
    static const auto real = REAL_FUNCTION(SDL_CondWaitTimeout);
    Uint32 length = ms;
    {
        const std::lock_guard<std::mutex> lock(sLock);
        if (sActive) {
            sWaits.push_back(ms);
            ++sWaitsBegun;
            length = std::min<Uint32>(ms, 1);
        }
    }
    sWaited.notify_all();
    return real(cond, mutex, length);
}

QuickRepeat::QuickRepeat() {
    const std::lock_guard<std::mutex> lock(sLock);
    sWaits.clear();
    sActive = true;
}

QuickRepeat::~QuickRepeat() {
    const std::lock_guard<std::mutex> lock(sLock);
    sActive = false;
}

void QuickRepeat::awaitLook() {
    std::unique_lock<std::mutex> lock(sLock);
    // The look that is under way may have begun too early; the one after it counts, and ends with a wait.
    const long enough = sWaitsBegun + 2;
    EXPECT_TRUE(sWaited.wait_for(lock, std::chrono::seconds(20), [&] { return sWaitsBegun >= enough; }))
        << "the key-repeat thread does not run";
}

std::vector<Uint32> QuickRepeat::takeWaits() {
    const std::lock_guard<std::mutex> lock(sLock);
    std::vector<Uint32> waits;
    waits.swap(sWaits);
    return waits;
}
