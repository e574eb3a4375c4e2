#pragma once

#include "gfx/picture_size.h"

#include <SDL.h>

namespace kestro {

// Small files that are dear to decode though their size is allowed.

/// Whether a picture of this size cannot come from the few bytes of `file`: above 4 megapixels, no format
/// gets 10,000 pixels out of a byte unless it is made for it, or its end is missing. Drawings can, and are
/// let pass.
bool isTooLargeFor(SDL_RWops* file, PictureSize size);

/// How often a progressive JPEG file goes over the whole picture; 0 for any other file. Real ones do it about
/// ten times. The file stands afterwards where it stood.
int passes(SDL_RWops* file);
constexpr int mostPasses = 100;

/// Opens what is left of a PNG file without its texts and its colour profile, which are never looked at, but
/// which its decoder unpacks, however many there are. The copy goes when it is closed; it is null where
/// nothing has to be left out, for other files, for those above 64 MB, and without memory. The file stands
/// afterwards where it stood.
SDL_RWops* withoutTexts(SDL_RWops* file);

} // namespace kestro
