#pragma once

#include "gfx/surface.h"
#include "services/lru_cache.h"

#include <string_view>

namespace kestro {

/// How many surfaces a cache is made for; it holds one more when full.
constexpr int surfaceCacheCapacity = 100;

/// The release function of caches that hold KestroSurface pointers: deletes the surface; ignores null.
/// What enters such a cache is converted from KestroSurface*, never from a derived class.
void releaseSurface(void* surface);

/// Gives `surface`, which may be null, to such a cache under `key`, where there is none yet. Returns what
/// stands there then: null when there was no memory for the entry, and the surface is gone.
KestroSurface* keepSurface(LRUCache& cache, std::string_view key, KestroSurface* surface);

} // namespace kestro
