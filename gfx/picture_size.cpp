#include "gfx/picture_size.h"

#include "gfx/picture_size_formats.h"

#include <SDL_image.h>

namespace {

struct Format {
    int (*recognises)(SDL_RWops* file); // null for the one that only its name tells
    kestro::PictureSize (*readSize)(kestro::ByteReader& file);
    bool sturdy = false; // decoded by SDL or by a library that is well looked after
};

// In SDL_image's order, in which the first that recognises a file decodes it.
constexpr Format formats[] = {
    {nullptr, kestro::tgaSize},           {IMG_isCUR, kestro::iconSize}, {IMG_isICO, kestro::iconSize},
    {IMG_isBMP, kestro::bmpSize, true},   {IMG_isGIF, kestro::gifSize},  {IMG_isJPG, kestro::jpegSize, true},
    {IMG_isLBM, kestro::lbmSize},         {IMG_isPCX, kestro::pcxSize},  {IMG_isPNG, kestro::pngSize, true},
    {IMG_isPNM, kestro::pnmSize},         {IMG_isSVG, kestro::svgSize},  {IMG_isTIF, kestro::tiffSize, true},
    {IMG_isXCF, kestro::xcfSize},         {IMG_isXPM, kestro::xpmSize},  {IMG_isXV, kestro::xvSize},
    {IMG_isWEBP, kestro::webpSize, true}, {IMG_isQOI, kestro::qoiSize},
};

} // namespace

static bool isOf(const Format& format, SDL_RWops* file, const char* type) {
    return format.recognises ? format.recognises(file) != 0 : type && SDL_strcasecmp(type, "TGA") == 0;
}

/// The format that decodes `file`; null if none does.
static const Format* formatOf(SDL_RWops* file, const char* type) {
    for (const Format& format : formats)
        if (isOf(format, file, type))
            return &format;
    return nullptr;
}

namespace kestro {

PictureSize pictureSize(SDL_RWops* file, const char* type) {
    const Sint64 start = SDL_RWtell(file);
    PictureSize size;
    if (const Format* const format = formatOf(file, type)) {
        ByteReader reader(file);
        size = format->readSize(reader);
    }
    SDL_RWseek(file, start, RW_SEEK_SET);
    return size;
}

bool hasFragileDecoder(SDL_RWops* file, const char* type) {
    const Format* const format = formatOf(file, type);
    return format && !format->sturdy;
}

bool isTooLarge(PictureSize size) {
    return size.width > maxPictureSide || size.height > maxPictureSide ||
           uint64_t{size.width} * size.height > maxPicturePixels;
}

} // namespace kestro
