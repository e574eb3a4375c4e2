#include "support/surfaces.h"

#include "gfx/screen.h"
#include "support/screen_test.h"

KestroSurfacePtr solidPicture(int w, int h, Uint32 color) {
    const MemorySurface solid(filledSurface(w, h, color));
    return KestroSurfacePtr(CreateSurface(solid.get()));
}

KestroSurfacePtr patternPicture() {
    const MemorySurface pattern(filledSurface(8, 8, 0));
    for (unsigned i = 0; i < 64; ++i) {
        const SDL_Rect one{static_cast<int>(i % 8), static_cast<int>(i / 8), 1, 1};
        SDL_FillRect(pattern.get(), &one, 0xFF000000 | i << 18 | (63 - i) << 9 | i * 3);
    }
    return KestroSurfacePtr(CreateSurface(pattern.get()));
}

KestroSurfacePtr emptyTarget(int w, int h) {
    return KestroSurfacePtr(CreateSurface(w, h));
}

Uint32 pixelOf(const SDL_Surface* surface, int x, int y) {
    const char* const row = static_cast<const char*>(surface->pixels) + y * surface->pitch;
    return reinterpret_cast<const Uint32*>(row)[x];
}

Uint32 pixelOf(KestroSurface* target, int x, int y) {
    SDL_Texture* const before = SDL_GetRenderTarget(gRenderer);
    EXPECT_EQ(SDL_SetRenderTarget(gRenderer, static_cast<SDL2KestroSurface*>(target)->getTexture()), 0);
    Uint32 color = 0;
    const SDL_Rect one{x, y, 1, 1};
    EXPECT_EQ(SDL_RenderReadPixels(gRenderer, &one, SDL_PIXELFORMAT_ARGB8888, &color, 4), 0);
    SDL_SetRenderTarget(gRenderer, before);
    return color;
}

MemorySurface loadedBmp(const std::string& path) {
    const MemorySurface loaded(SDL_LoadBMP(path.c_str()));
    return MemorySurface(loaded ? SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0)
                                : nullptr);
}
