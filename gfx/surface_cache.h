#pragma once

#include "core/export.h"
#include "services/lru_cache.h"

/// The pictures loaded by name, as KestroSurface pointers. Lives from library load to exit; emptied when
/// the screen closes. It guards itself, but looking up and then loading is not one step: drawing thread
/// only.
extern KESTRO_API LRUCache gIconCache;

/// The rendered texts of DrawString, as KestroSurface pointers, some of them null. Lives as gIconCache.
extern KESTRO_API LRUCache gTextSurfaceCache;
