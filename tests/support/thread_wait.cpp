#include "support/thread_wait.h"

#include "support/real_function.h"

#include <SDL.h>

#include <utility>

static std::function<void()> sBegun;

extern "C" void SDL_WaitThread(SDL_Thread* thread, int* status) {
    static const auto real = REAL_FUNCTION(SDL_WaitThread);
    if (sBegun)
        sBegun();
    real(thread, status);
}

ThreadWait::ThreadWait(std::function<void()> begun) {
    sBegun = std::move(begun);
}

ThreadWait::~ThreadWait() {
    sBegun = nullptr;
}
