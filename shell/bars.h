#pragma once

#include "core/export.h"
#include "gfx/surface.h"

/// Draws one hint of the bar at the bottom of a page: `icon` with its left edge at `x`, and the word `label`
/// after it, both in the middle of a bar of 70 pixels that begins at `y`. Returns the width of both and the
/// gap between them, in pixels; 0 for a null icon, which draws nothing. A null label is drawn as "". Main
/// thread.
KESTRO_API int draw_stat_icon_item_left(KestroSurface* icon, int x, int y, const char* label);
