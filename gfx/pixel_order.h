#pragma once

#include <SDL.h>

namespace kestro {

/// Whether the pixels of `surface` come blue first, so that red and blue change places on the way to
/// ARGB8888: 1 or 0, as resizeBilinear_cpu takes it.
inline int swapsRedAndBlue(const SDL_Surface* surface) {
    return SDL_PIXELORDER(surface->format->format) >= SDL_PACKEDORDER_XBGR ? 1 : 0;
}

} // namespace kestro
