#pragma once

#include <SDL.h>

namespace kestro {

/// The picture file `path` as SDL_image decodes it, owned by the caller; null on failure and for a null
/// path. A file whose header claims more than 16384 pixels a side or 64 megapixels is refused with a log
/// line, before memory of that size is taken.
SDL_Surface* decodePicture(const char* path);

} // namespace kestro
