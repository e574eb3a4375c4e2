#pragma once

#include "gfx/byte_reader.h"
#include "gfx/picture_size.h"

#include <algorithm>

namespace kestro {

// One reader for each format. Each is given a file that SDL_image takes for one of that format, at its
// beginning, and reads it the way that format's decoder does: a claim that only the decoder sees would get
// past the limits.

PictureSize bmpSize(ByteReader& file);
PictureSize gifSize(ByteReader& file);
PictureSize iconSize(ByteReader& file); ///< icons and cursors
PictureSize jpegSize(ByteReader& file);
PictureSize lbmSize(ByteReader& file);
PictureSize pcxSize(ByteReader& file);
PictureSize pngSize(ByteReader& file);
PictureSize pnmSize(ByteReader& file);
PictureSize qoiSize(ByteReader& file);
PictureSize svgSize(ByteReader& file);
PictureSize tgaSize(ByteReader& file);
PictureSize tiffSize(ByteReader& file);
PictureSize webpSize(ByteReader& file);
PictureSize xcfSize(ByteReader& file);
PictureSize xpmSize(ByteReader& file);
PictureSize xvSize(ByteReader& file);

/// A code of four letters as a number read with be32.
constexpr uint32_t fourLetters(const char (&text)[5]) {
    uint32_t code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<uint8_t>(text[i]);
    return code;
}

inline PictureSize larger(PictureSize a, PictureSize b) {
    return {std::max(a.width, b.width), std::max(a.height, b.height)};
}

} // namespace kestro
