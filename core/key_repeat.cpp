#include "core/key_repeat.h"

#include "core/clock.h"
#include "core/host.h"
#include "core/key_repeat_internal.h"
#include "core/log.h"
#include "gfx/screen.h"

#include <SDL.h>

#include <atomic>

__attribute__((weak)) Mix_Chunk* gKeyChunk = nullptr;

static constexpr int keyCodes = 19;
static constexpr uint64_t firstRepeatAfter = 500; // milliseconds
static constexpr uint64_t nextRepeatAfter = 30;
static constexpr Uint32 lookEvery = 100;

/// One held key. Atomic, because clearRepeatTime writes without the lock.
struct HeldKey {
    std::atomic<uint64_t> start{0}; // systemms of the press or of the last repeat; 0 for not held
    std::atomic<int> repeats{0};    // since the last clear
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
        sRepeat.keys[code].start = now;
    SDL_UnlockMutex(sRepeat.mutex);
    tprintf("set repeat time %ld\n", static_cast<long>(now));
}

void clearRepeatTime() {
    // Unbalanced on purpose: this thread does not hold the mutex, and both calls only fail. Before the
    // first run there is no mutex at all.
    SDL_UnlockMutex(sRepeat.mutex);
    for (HeldKey& key : sRepeat.keys) {
        key.start = 0;
        key.repeats = 0;
    }
    SDL_CondSignal(sRepeat.wake);
    SDL_UnlockMutex(sRepeat.mutex);
    tprintf("clear repeat time\n");
}

/// Pushes the key once more if it has been held long enough. What is stored afterwards gives way to a
/// clear that came in between, or the key would repeat for ever.
static bool repeatKey(int code, uint64_t now) {
    HeldKey& key = sRepeat.keys[code];
    uint64_t start = key.start;
    if (start == 0)
        return false;
    const int repeats = key.repeats;
    const uint64_t elapsed = now - start;
    if (elapsed <= (repeats == 0 ? firstRepeatAfter : nextRepeatAfter))
        return false;
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    event.user.code = code;
    SDL_PushEvent(&event);
    int repeatsRead = repeats;
    key.repeats.compare_exchange_strong(repeatsRead, repeats + 1);
    tprintf("%ld send repeat key %d, count %d, diff %ld\n", static_cast<long>(now), code, repeats + 1,
            static_cast<long>(elapsed));
    key.start.compare_exchange_strong(start, now);
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
    for (;;) {
        SDL_CondWaitTimeout(sRepeat.wake, sRepeat.mutex, lookEvery);
        if (!sRepeat.running)
            break;
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
