#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The pictures of tests/data/pictures, see README.md there: names of all, and where one is.
std::vector<std::string> pictureNames();
std::string picturePath(const std::string& name);

/// A number of `count` bytes as it stands in a file.
std::string littleEndian(size_t count, uint64_t number);
std::string bigEndian(size_t count, uint64_t number);

/// A piece of a PNG file, from its four letters and what follows them, with the right length and sum.
std::string pngChunk(const std::string& kindAndContent);

/// A file of some bytes whose header claims a size; what should follow it is missing.
struct PictureHeader {
    std::string extension;
    std::string bytes;
};

/// One such file of every format that SDL_image decodes and that can claim 20,000 pixels a side. None has
/// more than 65 bytes, but for PCX, which is not told from other files below 128.
std::vector<PictureHeader> headersClaiming(uint32_t width, uint32_t height);
