#pragma once

namespace kestro {

/// How many surfaces a cache is made for; it holds one more when full.
constexpr int surfaceCacheCapacity = 100;

/// The release function of caches that hold KestroSurface pointers: deletes the surface; ignores null.
/// What enters such a cache is converted from KestroSurface*, never from a derived class.
void releaseSurface(void* surface);

} // namespace kestro
