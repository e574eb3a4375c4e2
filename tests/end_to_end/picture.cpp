#include "end_to_end/picture.h"

#include <SDL_image.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <ostream>
#include <set>

Picture Picture::part(const SDL_Rect& rect) const {
    Picture cut{rect.w, rect.h, {}};
    for (int y = rect.y; y < rect.y + rect.h; ++y)
        for (int x = rect.x; x < rect.x + rect.w; ++x)
            cut.pixels.push_back(at(x, y));
    return cut;
}

Picture Picture::without(const SDL_Rect& rect) const {
    Picture rest = *this;
    for (int y = rect.y; y < rect.y + rect.h; ++y)
        for (int x = rect.x; x < rect.x + rect.w; ++x)
            rest.pixels[static_cast<size_t>(y * width + x)] = 0;
    return rest;
}

Picture Picture::turned() const {
    Picture result{height, width, {}};
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x)
            result.pixels.push_back(at(y, height - 1 - x));
    return result;
}

int Picture::colors() const {
    return static_cast<int>(std::set<uint32_t>(pixels.begin(), pixels.end()).size());
}

bool Picture::operator==(const Picture& other) const {
    return width == other.width && height == other.height && pixels == other.pixels;
}

void PrintTo(const Picture& picture, std::ostream* stream) {
    *stream << "a picture of " << picture.width << " x " << picture.height;
}

Picture readPicture(const std::string& path) {
    using Surface = std::unique_ptr<SDL_Surface, void (*)(SDL_Surface*)>;
    const Surface loaded(IMG_Load(path.c_str()), SDL_FreeSurface);
    if (!loaded)
        return {};
    const Surface rgb(SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_RGB888, 0), SDL_FreeSurface);
    Picture picture{rgb->w, rgb->h, {}};
    for (int y = 0; y < rgb->h; ++y) {
        const auto* const row =
            reinterpret_cast<const uint32_t*>(static_cast<const char*>(rgb->pixels) + y * rgb->pitch);
        std::transform(row, row + rgb->w, std::back_inserter(picture.pixels),
                       [](uint32_t pixel) { return pixel & 0xFFFFFF; });
    }
    return picture;
}

bool writePicture(const Picture& picture, const std::string& path) {
    std::vector<uint32_t> pixels = picture.pixels;
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormatFrom(
        pixels.data(), picture.width, picture.height, 32, picture.width * 4, SDL_PIXELFORMAT_RGB888);
    SDL_Surface* const packed =
        surface ? SDL_ConvertSurfaceFormat(surface, SDL_PIXELFORMAT_RGB24, 0) : nullptr;
    const bool written = packed && IMG_SavePNG(packed, path.c_str()) == 0;
    SDL_FreeSurface(packed);
    SDL_FreeSurface(surface);
    return written;
}

bool looksLike(uint32_t a, uint32_t b, int tolerance) {
    for (int shift = 0; shift <= 16; shift += 8)
        if (abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)) > tolerance)
            return false;
    return true;
}

bool looksLike(const Picture& a, const Picture& b, int tolerance) {
    return a.width == b.width && a.height == b.height &&
           std::equal(a.pixels.begin(), a.pixels.end(), b.pixels.begin(),
                      [tolerance](uint32_t x, uint32_t y) { return looksLike(x, y, tolerance); });
}
