#include "support/reused_memory.h"

#include <SDL.h>

#include <cstring>
#include <map>
#include <mutex>

static SDL_malloc_func sRealMalloc;
static SDL_calloc_func sRealCalloc;
static SDL_realloc_func sRealRealloc;
static SDL_free_func sRealFree;

static std::mutex sLock;
static std::map<void*, size_t> sGiven;      // blocks in use, with their sizes
static std::multimap<size_t, void*> sLetGo; // blocks to be used again

static void* take(size_t bytes) {
    const std::lock_guard<std::mutex> guard(sLock);
    const auto free = sLetGo.find(bytes);
    void* const block = free == sLetGo.end() ? sRealMalloc(bytes) : free->second;
    if (free != sLetGo.end())
        sLetGo.erase(free);
    if (block)
        sGiven[block] = bytes;
    return block;
}

static void* takeZeroed(size_t count, size_t bytes) {
    void* const block = take(count * bytes);
    return block ? memset(block, 0, count * bytes) : nullptr;
}

static void* resize(void* block, size_t bytes) {
    const std::lock_guard<std::mutex> guard(sLock);
    void* const moved = sRealRealloc(block, bytes);
    if (moved && sGiven.erase(block) > 0)
        sGiven[moved] = bytes;
    return moved;
}

static void letGo(void* block) {
    const std::lock_guard<std::mutex> guard(sLock);
    const auto given = sGiven.find(block);
    if (given == sGiven.end())
        return sRealFree(block);
    sLetGo.emplace(given->second, block);
    sGiven.erase(given);
}

ReusedMemory::ReusedMemory() {
    SDL_GetMemoryFunctions(&sRealMalloc, &sRealCalloc, &sRealRealloc, &sRealFree);
    SDL_SetMemoryFunctions(take, takeZeroed, resize, letGo);
}

ReusedMemory::~ReusedMemory() {
    SDL_SetMemoryFunctions(sRealMalloc, sRealCalloc, sRealRealloc, sRealFree);
    for (const auto& [size, block] : sLetGo)
        sRealFree(block);
    sLetGo.clear();
    sGiven.clear(); // what is still in use is freed as any other memory
}
