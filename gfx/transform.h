#pragma once

#include "core/export.h"
#include "gfx/surface.h"

/// A new surface with the picture of `s` scaled to width x height pixels, owned by the caller. Works on
/// the copy in memory: null if there is none, or on failure. A copy that is not 32 bits deep comes out
/// cropped to the size, not scaled. Main thread, like everything here.
KESTRO_API KestroSurface* ScaleSurface(KestroSurface* s, int width, int height);

/// A new surface with the picture of `s` turned by `degrees` clockwise, just large enough to hold it,
/// owned by the caller; null on failure. It has a copy of its pixels in memory.
KESTRO_API KestroSurface* RotateSurface(KestroSurface* s, int degrees);

/// A new surface with the part `rect` of the copy in memory of `s`, owned by the caller. The part is
/// blended onto transparent black, as the copy's blend mode says. Null if `rect` is null or there is no
/// copy. If the texture cannot be made, the new surface has only its copy in memory.
KESTRO_API KestroSurface* CropSurface(KestroSurface* s, SDL_Rect* rect);

/// Fits w x h into maxW x maxH, keeping the ratio; a small picture grows until it touches the box. Sizes
/// are truncated to whole pixels. Both outputs are 0 if a maximum or the whole picture is 0, and where the
/// larger ratio is not above 0. Returns outH. Any thread.
KESTRO_API int getScaledSizeKeepRatio(int w, int h, int maxW, int maxH, int& outW, int& outH);
