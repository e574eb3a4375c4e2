#pragma once

#include "gfx/surface.h"

#include <SDL.h>

#include <memory>
#include <string>

inline constexpr SDL_Color white{255, 255, 255, 255};

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

/// A surface in memory that frees itself.
using MemorySurface = std::unique_ptr<SDL_Surface, FreeSurface>;

using KestroSurfacePtr = std::unique_ptr<KestroSurface>;

/// A picture of one colour (0xAARRGGBB), which can be drawn but is no render target.
KestroSurfacePtr solidPicture(int w, int h, Uint32 color);

/// An 8 x 8 picture whose pixels all have colours of their own, so that a turn or a shift shows.
KestroSurfacePtr patternPicture();

/// An empty render target.
KestroSurfacePtr emptyTarget(int w, int h);

/// The colour 0xAARRGGBB of a pixel in memory (32 bits deep), or of a render target's texture.
Uint32 pixelOf(const SDL_Surface* surface, int x, int y);
Uint32 pixelOf(KestroSurface* target, int x, int y);

/// What a BMP file holds, as ARGB8888; null if there is none.
MemorySurface loadedBmp(const std::string& path);
