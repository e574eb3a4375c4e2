#include "support/tone_log.h"

#include "core/host.h"
#include "support/real_function.h"

#include <SDL_mixer.h>

#include <atomic>
#include <cstdio>
#include <mutex>

static std::atomic<bool> sNoting{false};
static std::atomic<const char*> sError{nullptr};
static std::mutex sLock;
static std::vector<std::string> sCalls;

static void note(const std::string& call) {
    const std::lock_guard<std::mutex> lock(sLock);
    sCalls.push_back(call);
}

extern "C" int Mix_HaltChannel(int channel) {
    static const auto real = REAL_FUNCTION(Mix_HaltChannel);
    if (!sNoting)
        return real(channel);
    note("halt " + std::to_string(channel));
    return 0;
}

extern "C" int Mix_PlayChannelTimed(int channel, Mix_Chunk* chunk, int loops, int ticks) {
    static const auto real = REAL_FUNCTION(Mix_PlayChannelTimed);
    if (!sNoting)
        return real(channel, chunk, loops, ticks);
    char call[128];
    snprintf(call, sizeof call, "play %s on %d, loops %d, ticks %d",
             chunk && chunk == gKeyChunk ? "the key tone" : "another sound", channel, loops, ticks);
    note(call);
    if (const char* const error = sError)
        return SDL_SetError("%s", error);
    return 0;
}

ToneLog::ToneLog() {
    sCalls.clear();
    sError = nullptr;
    sNoting = true;
}

ToneLog::~ToneLog() {
    sNoting = false;
}

std::vector<std::string> ToneLog::take() {
    const std::lock_guard<std::mutex> lock(sLock);
    std::vector<std::string> calls;
    calls.swap(sCalls);
    return calls;
}

void ToneLog::failWith(const char* error) {
    sError = error;
}
