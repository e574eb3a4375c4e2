#include "gfx/surface_cache.h"

#include "core/load_order.h"
#include "gfx/surface.h"
#include "gfx/surface_cache_internal.h"

LRUCache gIconCache KESTRO_LOADED_ICON_CACHE(kestro::releaseSurface, kestro::surfaceCacheCapacity);
LRUCache gTextSurfaceCache KESTRO_LOADED_TEXT_CACHE(kestro::releaseSurface, kestro::surfaceCacheCapacity);

namespace kestro {

void releaseSurface(void* surface) {
    delete static_cast<KestroSurface*>(surface);
}

} // namespace kestro
