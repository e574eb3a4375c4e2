#pragma once

#include "gfx/surface.h"

namespace kestro {

/// `s` as the one class of surface that has a texture; null for null and for any other class.
SDL2KestroSurface* textured(KestroSurface* s);

/// A new surface that owns both, which may be null. Without memory for it frees both and returns null.
SDL2KestroSurface* newSurface(SDL_Texture* texture, SDL_Surface* copy);

/// A new surface that owns a texture made from `pixels`, and `kept`, which may be null. Null, owning nothing,
/// if that cannot be made.
SDL2KestroSurface* surfaceOf(SDL_Surface* pixels, SDL_Surface* kept);

/// A new surface that owns a texture made from `copy`, and `copy` itself. If that cannot be made,
/// frees `copy` and returns null; null for null.
SDL2KestroSurface* surfaceOwning(SDL_Surface* copy);

/// A new texture of w x h pixels that can be a render target, cleared to transparent; null on failure.
SDL_Texture* createTargetTexture(int w, int h);

} // namespace kestro
