#pragma once

#include "gfx/picture_size.h"

#include <SDL.h>

#include <functional>

namespace kestro {

/// Decodes `file` from where it stands, in a copy of the process that may crash, may take half a gigabyte
/// beyond what the process has and may be silent for `patience` milliseconds in all. A copy that does not
/// come to its start, since another thread was inside SDL, is replaced after a quarter of that, up to three
/// times. The caller owns the surface, and keeps `file`. Null on failure, and if `refuses` says so of the
/// picture's size before memory for it is taken here. Any thread.
SDL_Surface* decodeInChild(SDL_RWops* file, const char* type, const std::function<bool(PictureSize)>& refuses,
                           int patience = 5000);

} // namespace kestro
