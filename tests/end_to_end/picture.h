#pragma once

#include <SDL.h>

#include <cstdint>
#include <string>
#include <vector>

/// Pixels in memory, each 0xRRGGBB.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;

    uint32_t at(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }

    /// The part `rect`, which must lie inside.
    Picture part(const SDL_Rect& rect) const;

    /// With the part `rect` blackened.
    Picture without(const SDL_Rect& rect) const;

    /// Turned by a quarter clockwise.
    Picture turned() const;

    /// How many different colours there are.
    int colors() const;

    bool operator==(const Picture& other) const;
    bool operator!=(const Picture& other) const { return !(*this == other); }
};

/// Keeps GoogleTest from printing all the pixels.
void PrintTo(const Picture& picture, std::ostream* stream);

/// The PNG file `path`; an empty picture if it cannot be read.
Picture readPicture(const std::string& path);

/// Writes a picture into the PNG file `path`. Returns whether it could.
bool writePicture(const Picture& picture, const std::string& path);

/// Whether no channel of a pixel differs by more than `tolerance`.
bool looksLike(uint32_t a, uint32_t b, int tolerance);

/// The same for all pixels: graphics drivers blend and round in ways of their own.
bool looksLike(const Picture& a, const Picture& b, int tolerance);
