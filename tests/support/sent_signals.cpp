#include "support/sent_signals.h"

#include "support/real_function.h"

#include <SDL_mutex.h>

#include <atomic>

static std::atomic<unsigned> sSignals{0};

unsigned sentSignals() {
    return sSignals;
}

extern "C" int SDL_CondSignal(SDL_cond* condition) {
    static const auto real = REAL_FUNCTION(SDL_CondSignal);
    ++sSignals;
    return real(condition);
}
