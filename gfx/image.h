#pragma once

#include "core/export.h"
#include "gfx/surface.h"

/// Loads a picture that a theme may override: `themeDir` + `name`, else `defaultDir` + `name`. Nothing is
/// put between folder and name, so folders end in "/"; a null folder or an unusable picture passes to the
/// next, and using the default is logged. A `name` that begins with "/" is loaded as it is.
///
/// Returns a new surface with a copy of its pixels in memory, owned by the caller; null for a null `name`,
/// without a screen, and when nothing could be loaded. A picture of over 16384 pixels a side or 64 megapixels
/// counts as unusable and is logged; nothing of its size is allocated. Main thread.
KESTRO_API KestroSurface* LoadKestroSurface(const char* themeDir, const char* defaultDir, const char* name);

/// Loads the picture `path`, scaled to width x height pixels, or fitted into them when `keepRatio` is set.
/// If `path` cannot be loaded and `useTheme` is set, `name` is looked for in its place: as it is if it
/// begins with "/", then in the theme's folder, then in "./".
///
/// Returns a new surface with a copy of its pixels in memory, owned by the caller, or null. A picture that
/// has the wanted size already keeps its own pixel format; any other comes out as ARGB8888. Null texts
/// count as "". Main thread.
KESTRO_API KestroSurface* LoadKestroSurfaceSpecSized(const char* path, int width, int height,
                                                     const char* name, bool useTheme, bool keepRatio);
