#include "steady_frame/allocations.h"

#include "support/real_function.h"

#include <SDL.h>

#include <atomic>
#include <cstdlib>
#include <cstring>

static std::atomic<bool> sCounting{false};
static std::atomic<int> sAll{0};
static std::atomic<int> sBySdl{0};

/// Memory for what looking up the real malloc takes itself.
static char sFirst[4096];
static size_t sFirstUsed = 0;
static bool sLookingUp = false;

static bool isFirst(const void* memory) {
    return memory >= sFirst && memory < sFirst + sizeof sFirst;
}

static void* fromFirst(size_t bytes) {
    void* const memory = sFirst + sFirstUsed;
    sFirstUsed += (bytes + 15) & ~size_t{15};
    if (sFirstUsed > sizeof sFirst)
        abort();
    return memory;
}

static void count() {
    if (sCounting)
        ++sAll;
}

template <typename Function>
static Function* lookedUp(const char* name) {
    sLookingUp = true;
    auto* const found = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    sLookingUp = false;
    return found;
}

extern "C" void* malloc(size_t bytes) {
    if (sLookingUp)
        return fromFirst(bytes);
    static auto* const real = lookedUp<void*(size_t)>("malloc");
    count();
    return real(bytes);
}

extern "C" void* calloc(size_t number, size_t bytes) {
    if (sLookingUp)
        return fromFirst(number * bytes); // which is zero
    static auto* const real = lookedUp<void*(size_t, size_t)>("calloc");
    count();
    return real(number, bytes);
}

extern "C" void* realloc(void* memory, size_t bytes) {
    static auto* const real = lookedUp<void*(void*, size_t)>("realloc");
    count();
    if (!isFirst(memory))
        return real(memory, bytes);
    void* const moved = malloc(bytes);
    memcpy(moved, memory, bytes);
    return moved;
}

extern "C" void* aligned_alloc(size_t alignment, size_t bytes) {
    static auto* const real = lookedUp<void*(size_t, size_t)>("aligned_alloc");
    count();
    return real(alignment, bytes);
}

extern "C" int posix_memalign(void** memory, size_t alignment, size_t bytes) {
    static auto* const real = lookedUp<int(void**, size_t, size_t)>("posix_memalign");
    count();
    return real(memory, alignment, bytes);
}

extern "C" void free(void* memory) {
    static auto* const real = lookedUp<void(void*)>("free");
    if (!isFirst(memory))
        real(memory);
}

static void countSdl() {
    if (sCounting)
        ++sBySdl;
}

static void* sdlMalloc(size_t bytes) {
    countSdl();
    return malloc(bytes);
}

static void* sdlCalloc(size_t number, size_t bytes) {
    countSdl();
    return calloc(number, bytes);
}

static void* sdlRealloc(void* memory, size_t bytes) {
    countSdl();
    return realloc(memory, bytes);
}

Allocations allocationsDuring(const std::function<void()>& work) {
    static const int set = SDL_SetMemoryFunctions(sdlMalloc, sdlCalloc, sdlRealloc, free);
    if (set != 0)
        abort();
    sAll = 0;
    sBySdl = 0;
    sCounting = true;
    work();
    sCounting = false;
    return {sAll, sBySdl};
}
