#include "support/scarce_sdl.h"

#include "support/real_function.h"

#include <SDL.h>

ScarceSdl gScarceSdl;

extern "C" SDL_mutex* SDL_CreateMutex() {
    static const auto real = REAL_FUNCTION(SDL_CreateMutex);
    return gScarceSdl.noMutex ? nullptr : real();
}

extern "C" SDL_cond* SDL_CreateCond() {
    static const auto real = REAL_FUNCTION(SDL_CreateCond);
    return gScarceSdl.noCondition ? nullptr : real();
}

extern "C" SDL_Thread* SDL_CreateThread(SDL_ThreadFunction body, const char* name, void* data) {
    static const auto real = REAL_FUNCTION(SDL_CreateThread);
    return gScarceSdl.noThread ? nullptr : real(body, name, data);
}
