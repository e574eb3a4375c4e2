#include "gfx/surface_cache.h"

#include "core/load_order.h"
#include "core/out_of_memory.h"
#include "gfx/surface.h"
#include "gfx/surface_cache_internal.h"

#include <memory>
#include <string>
#include <utility>

LRUCache gIconCache KESTRO_LOADED_ICON_CACHE(kestro::releaseSurface, kestro::surfaceCacheCapacity);
LRUCache gTextSurfaceCache KESTRO_LOADED_TEXT_CACHE(kestro::releaseSurface, kestro::surfaceCacheCapacity);

namespace kestro {

void releaseSurface(void* surface) {
    delete static_cast<KestroSurface*>(surface);
}

KestroSurface* keepSurface(LRUCache& cache, std::string_view key, KestroSurface* surface) {
    std::unique_ptr<KestroSurface> owned(surface);
    unlessOutOfMemory(__func__, [&] {
        std::string name(key);
        cache.put(std::move(name), owned.release());
    });
    return static_cast<KestroSurface*>(cache.find(key));
}

} // namespace kestro
