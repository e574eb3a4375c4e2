#pragma once

#include "gfx/surface.h"

#include <SDL.h>

namespace kestro {

/// The renderer if it can still be drawn with: null while no screen is open and after SDL has taken the
/// video system away.
SDL_Renderer* liveRenderer();

/// A number that changes whenever a screen ends and its textures with it.
unsigned screenGeneration();

/// Where drawing goes; null means the window itself.
SDL_Texture* targetTexture();

/// Size of the window in pixels, as the display sees it.
SDL_Point windowSize();

/// A snapshot of the frame as it was drawn: on a rotated screen it is turned upright, and has the logical
/// size. Owned by the caller. Null on failure.
KestroSurface* pageSnapshot();

} // namespace kestro
