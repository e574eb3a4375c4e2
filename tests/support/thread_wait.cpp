#include "support/thread_wait.h"

#include "support/real_function.h"

#include <SDL.h>

#include <utility>

static std::function<void()> sBegun;
static int sReturned;

extern "C" void SDL_WaitThread(SDL_Thread* thread, int* status) {
    static const auto real = REAL_FUNCTION(SDL_WaitThread);
    if (sBegun)
        sBegun();
    int returned = sReturned; // kept where there is no thread
    real(thread, &returned);
    sReturned = returned;
    if (status)
        *status = returned;
}

ThreadWait::ThreadWait(std::function<void()> begun) {
    sBegun = std::move(begun);
    sReturned = -1000;
}

ThreadWait::~ThreadWait() {
    sBegun = nullptr;
}

int ThreadWait::returned() const {
    return sReturned;
}
