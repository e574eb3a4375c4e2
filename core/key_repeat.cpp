#include "core/key_repeat.h"

#include "core/clock.h"
#include "core/host.h"
#include "core/key_repeat_internal.h"
#include "core/log.h"
#include "gfx/screen.h"

#include <SDL.h>

#include <algorithm>
#include <atomic>
#include <cstdint>

__attribute__((weak)) Mix_Chunk* gKeyChunk = nullptr;

static constexpr int keyCodes = 19;
static constexpr uint64_t firstRepeatAfter = 500; // milliseconds
static constexpr uint64_t nextRepeatAfter = 30;
static constexpr Uint32 lookEvery = 100;

/// When a key was pressed or last repeated, and how often it has been repeated. Both in one word, so that the
/// thread can tell whether a clear, which comes without the lock, has been in between.
class HeldKey {
public:
    struct State {
        uint64_t start;   // systemms; 0 for not held
        unsigned repeats; // since the last clear
    };

    State get() const { return unpacked(mPacked); }
    void release() { mPacked = 0; }

    /// Leaves the count alone.
    void press(uint64_t now) {
        uint64_t old = mPacked;
        while (!mPacked.compare_exchange_weak(old, packed({now, unpacked(old).repeats})))
            continue;
    }

    /// Counts a repeat, unless the state is no longer `old`.
    void repeat(State old, uint64_t now) {
        uint64_t expected = packed(old);
        mPacked.compare_exchange_strong(expected, packed({now, std::min(old.repeats + 1, mostRepeats)}));
    }

private:
    static constexpr unsigned repeatBits = 20; // a day of repeats; the rest holds the time for centuries
    static constexpr unsigned mostRepeats = (1u << repeatBits) - 1;
    std::atomic<uint64_t> mPacked{0};

    static uint64_t packed(State state) { return state.start << repeatBits | state.repeats; }
    static State unpacked(uint64_t word) {
        return {word >> repeatBits, static_cast<unsigned>(word) & mostRepeats};
    }
};

static struct {
    HeldKey keys[keyCodes];
    SDL_mutex* mutex = nullptr;
    SDL_cond* wake = nullptr;
    SDL_Thread* thread = nullptr;
    bool running = false; // under the mutex
    int runs = 0;         // nested runs of the window loop
} sRepeat;

void setRepeatTime(int code) {
    const uint64_t now = systemms();
    SDL_LockMutex(sRepeat.mutex);
    if (code >= 0 && code < keyCodes)
        sRepeat.keys[code].press(now);
    // Its wait is one until a time of the wall clock: where that was set back meanwhile, it would last that
    // long.
    SDL_CondSignal(sRepeat.wake);
    SDL_UnlockMutex(sRepeat.mutex);
    tprintf("set repeat time %ld\n", static_cast<long>(now));
}

void clearRepeatTime() {
    // Unbalanced on purpose: this thread does not hold the mutex, and both calls only fail. Before the
    // first run there is no mutex at all.
    SDL_UnlockMutex(sRepeat.mutex);
    for (HeldKey& key : sRepeat.keys)
        key.release();
    SDL_CondSignal(sRepeat.wake);
    SDL_UnlockMutex(sRepeat.mutex);
    tprintf("clear repeat time\n");
}

/// Pushes the key once more if it has been held long enough. What is stored afterwards gives way to a
/// clear that came in between, or the key would repeat for ever.
static bool repeatKey(int code, uint64_t now) {
    HeldKey& key = sRepeat.keys[code];
    const HeldKey::State held = key.get();
    if (held.start == 0)
        return false;
    const uint64_t elapsed = now - held.start;
    if (elapsed <= (held.repeats == 0 ? firstRepeatAfter : nextRepeatAfter))
        return false;
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    event.user.code = code;
    SDL_PushEvent(&event);
    key.repeat(held, now);
    tprintf("%ld send repeat key %d, count %d, diff %ld\n", static_cast<long>(now), code,
            static_cast<int>(held.repeats + 1), static_cast<long>(elapsed));
    return true;
}

/// One look at the directions. Runs under the mutex, tone included, so that SDL cannot be shut down
/// meanwhile (see quitSdl).
static void repeatHeldKeys() {
    if (!SDL_WasInit(SDL_INIT_EVENTS))
        return;
    const uint64_t now = systemms();
    bool pushed = false;
    for (int code = 5; code <= 8; ++code)
        pushed |= repeatKey(code, now);
    if (pushed)
        kestro::playKeyTone();
}

int checkRepeatThread(void*) {
    if (!sRepeat.mutex)
        return 0;
    SDL_LockMutex(sRepeat.mutex);
    while (sRepeat.running) { // which a short run has ended before the thread comes here
        SDL_CondWaitTimeout(sRepeat.wake, sRepeat.mutex, lookEvery);
        if (sRepeat.running)
            repeatHeldKeys();
    }
    SDL_UnlockMutex(sRepeat.mutex);
    return 0;
}

static void destroyLock() {
    SDL_DestroyMutex(sRepeat.mutex);
    SDL_DestroyCond(sRepeat.wake);
    sRepeat.mutex = nullptr; // the next run's clear unlocks it before it exists again
    sRepeat.wake = nullptr;
}

namespace kestro {

void startKeyRepeat() {
    clearRepeatTime();
    if (++sRepeat.runs > 1)
        return;
    sRepeat.mutex = SDL_CreateMutex();
    sRepeat.wake = SDL_CreateCond();
    sRepeat.running = true;
    tprintf("init check_repeat_thread\n");
    if (sRepeat.mutex && sRepeat.wake)
        sRepeat.thread = SDL_CreateThread(checkRepeatThread, "repeatkey", nullptr);
}

void stopKeyRepeat() {
    if (--sRepeat.runs > 0)
        return;
    SDL_LockMutex(sRepeat.mutex);
    sRepeat.running = false;
    SDL_CondSignal(sRepeat.wake);
    SDL_UnlockMutex(sRepeat.mutex);
    if (sRepeat.thread) {
        SDL_WaitThread(sRepeat.thread, nullptr);
        sRepeat.thread = nullptr;
        tprintf("deinit check_repeat_thread\n");
    }
    destroyLock();
}

void playKeyTone() {
    Mix_Chunk* const tone = gKeyChunk; // read once: two threads play it
    if (!tone)
        return;
    Mix_HaltChannel(-1);
    if (Mix_PlayChannelTimed(-1, tone, 0, -1) == -1)
        tprintf("Mix_PlayChunk: %s\n", SDL_GetError());
}

void quitSdl() {
    SDL_LockMutex(sRepeat.mutex);
    ScreenUninit();
    SDL_Quit();
    SDL_UnlockMutex(sRepeat.mutex);
}

} // namespace kestro
