#include "support/sdl_memory.h"

#include <SDL.h>

#include <algorithm>
#include <atomic>
#include <cstdint>

static SDL_malloc_func sRealMalloc;
static SDL_calloc_func sRealCalloc;
static SDL_realloc_func sRealRealloc;
static SDL_free_func sRealFree;
static std::atomic<size_t> sLargest{0};
static std::atomic<size_t> sWatchedSize{SIZE_MAX};
static std::atomic<int> sGranted{0};

static bool isGranted(size_t bytes) {
    size_t largest = sLargest;
    while (bytes > largest && !sLargest.compare_exchange_weak(largest, bytes)) {
    }
    return bytes < sWatchedSize || sGranted-- > 0;
}

static void* watchedMalloc(size_t bytes) {
    return isGranted(bytes) ? sRealMalloc(bytes) : nullptr;
}

static void* watchedCalloc(size_t count, size_t bytes) {
    return isGranted(count * bytes) ? sRealCalloc(count, bytes) : nullptr;
}

static void* watchedRealloc(void* memory, size_t bytes) {
    return isGranted(bytes) ? sRealRealloc(memory, bytes) : nullptr;
}

SdlMemory::SdlMemory() {
    sLargest = 0;
    sWatchedSize = SIZE_MAX;
    SDL_GetMemoryFunctions(&sRealMalloc, &sRealCalloc, &sRealRealloc, &sRealFree);
    SDL_SetMemoryFunctions(watchedMalloc, watchedCalloc, watchedRealloc, sRealFree);
}

SdlMemory::~SdlMemory() {
    SDL_SetMemoryFunctions(sRealMalloc, sRealCalloc, sRealRealloc, sRealFree);
}

size_t SdlMemory::largest() const {
    return sLargest;
}

void SdlMemory::refuse(size_t bytes, int granted) {
    sGranted = granted;
    sWatchedSize = bytes;
}
