#pragma once

#include "core/export.h"
#include "gfx/surface.h"

#include <SDL.h>

/// Fills a rectangle of `s` with a colour (red, green, blue, alpha from 0 to 255), blending: alpha 0 leaves
/// it as it is. Null `s` means the current render target, null `rect` all of it. A surface that cannot be
/// a target (see CreateSurface) is left alone; one that has no texture at all fills the window. Main
/// thread.
KESTRO_API void FillRect(KestroSurface* s, SDL_Rect* rect, unsigned char r, unsigned char g, unsigned char b,
                         unsigned char a);

/// The same, replacing: alpha is written as given, and 0 makes the rectangle transparent.
KESTRO_API void ClearRect(KestroSurface* s, SDL_Rect* rect, unsigned char r, unsigned char g, unsigned char b,
                          unsigned char a);

/// The same, with any of SDL's blend modes.
KESTRO_API void FillRectInternal(KestroSurface* s, SDL_Rect* rect, unsigned char r, unsigned char g,
                                 unsigned char b, unsigned char a, SDL_BlendMode mode);
