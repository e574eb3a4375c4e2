#include "shell/icon_cache.h"

#include "core/host.h"
#include "gfx/image.h"
#include "gfx/surface_cache_internal.h"

KestroSurface* getIconFromCache(const char* path) {
    if (!path)
        return nullptr;
    if (void* const cached = gIconCache.find(path))
        return static_cast<KestroSurface*>(cached);
    KestroSurface* const icon = LoadKestroSurface(gThemePath, "./", path);
    return icon ? kestro::keepSurface(gIconCache, path, icon) : nullptr;
}

int drawCachedIconCentered(const SDL_Rect& cell, const char* path) {
    KestroSurface* const icon = getIconFromCache(path);
    if (!icon)
        return 0;
    SDL_Rect place = cell;
    place.x += (33 - icon->getWidth()) / 2;
    place.y += (32 - icon->getHeight()) / 2;
    icon->render(nullptr, &place, true, nullptr);
    return 0;
}
