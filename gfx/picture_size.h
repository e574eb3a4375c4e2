#pragma once

#include <SDL.h>

#include <cstdint>

namespace kestro {

/// What a picture may measure at most, limits included: pixels a side, and 64 megapixels (of a million)
/// in all, which are 256 MB once decoded.
constexpr uint32_t maxPictureSide = 16384;
constexpr uint64_t maxPicturePixels = 64'000'000;

/// A size in pixels; a side that is not known is 0.
struct PictureSize {
    uint32_t width = 0;
    uint32_t height = 0;
};

/// The size of the room that SDL_image would make for the picture in `file`, as far as its header tells.
///
/// `type` is the extension of the file's name without the dot, or null. Some formats claim several sizes:
/// then it is the larger of each side. Both sides are 0 for what no reader here knows. Only a few bytes are
/// read, none of their claims is followed beyond the file, and the file stands afterwards where it stood.
PictureSize pictureSize(SDL_RWops* file, const char* type);

/// Whether SDL_image decodes `file` with code of its own, which broken files are known to break, and not by a
/// library that is well looked after. The file stands afterwards where it stood.
bool hasFragileDecoder(SDL_RWops* file, const char* type);

/// Whether a picture of this size is refused.
bool isTooLarge(PictureSize size);

} // namespace kestro
