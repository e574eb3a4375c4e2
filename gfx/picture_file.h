#pragma once

#include <SDL.h>

namespace kestro {

/// The picture file `path` as SDL_image decodes it, owned by the caller; null on failure and for a null
/// path. Links are followed, but only a regular file is opened: a pipe or a device might keep the caller
/// waiting for ever. Any thread.
///
/// A file whose header claims more than 16384 pixels a side or 64 megapixels (see picture_size.h) is
/// refused with a log line, before memory of that size is taken.
SDL_Surface* decodePicture(const char* path);

} // namespace kestro
