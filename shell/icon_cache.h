#pragma once

#include "core/export.h"
#include "gfx/surface.h"
#include "gfx/surface_cache.h"

#include <SDL.h>

/// The picture `path`, such as "skin/ic-wifi-01.png", from the theme's folder, else from "./"; loaded when
/// it is first asked for, and kept in gIconCache, which owns it: use it at once. Null for a null path and
/// when there is no such picture; the next call looks again. Main thread.
KESTRO_API KestroSurface* getIconFromCache(const char* path);

/// Draws that picture in the middle of a box of 33 x 32 pixels at the top left of `cell`, whatever the size
/// of the cell. Nothing if there is no such picture. Returns 0. Main thread.
KESTRO_API int drawCachedIconCentered(const SDL_Rect& cell, const char* path);
