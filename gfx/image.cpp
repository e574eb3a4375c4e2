#include "gfx/image.h"

#include "core/host.h"
#include "core/log.h"
#include "core/out_of_memory.h"
#include "gfx/picture_file.h"
#include "gfx/pixel_order.h"
#include "gfx/scale.h"
#include "gfx/screen_internal.h"
#include "gfx/surface_internal.h"

#include <cstdint>
#include <memory>
#include <string>

namespace {

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, FreeSurface>;

} // namespace

static std::string joined(const char* folder, const char* name) {
    return std::string(folder ? folder : "") + name;
}

static void logFallback(const char* folder, const char* name, const char* usedFolder) {
    const auto shown = [](const char* text) { return text ? text : "(null)"; };
    tprintf("%s/%s open fail, use %s/%s\n", shown(folder), name, shown(usedFolder), name);
}

/// A 32-bit picture as it is, any other copied into one; null if there is no memory for the copy.
static SurfacePtr in32Bits(SurfacePtr picture) {
    if (picture->format->BytesPerPixel == 4)
        return picture;
    SurfacePtr copy(create_surface(picture->w, picture->h));
    if (!copy)
        return nullptr;
    tprintf("copy %dx%d %d:%d->%dx%d %d:%d\n", picture->w, picture->h, picture->pitch,
            picture->format->BytesPerPixel, copy->w, copy->h, copy->pitch, copy->format->BytesPerPixel);
    SDL_UpperBlit(picture.get(), nullptr, copy.get(), nullptr);
    return copy;
}

static KestroSurface* loadIn32Bits(const std::string& path) {
    SurfacePtr picture(decodePictureFile(path.c_str()));
    if (picture)
        picture = in32Bits(std::move(picture));
    return picture ? kestro::surfaceOwning(picture.release()) : nullptr;
}

static KestroSurface* loadFromEither(const char* themeDir, const char* defaultDir, const char* name) {
    if (*name == '/')
        return loadIn32Bits(name);
    if (themeDir)
        if (KestroSurface* const surface = loadIn32Bits(joined(themeDir, name)))
            return surface;
    KestroSurface* const surface = loadIn32Bits(joined(defaultDir, name));
    if (surface)
        logFallback(themeDir, name, defaultDir);
    return surface;
}

KestroSurface* LoadKestroSurface(const char* themeDir, const char* defaultDir, const char* name) {
    if (!name || !kestro::liveRenderer())
        return nullptr;
    return kestro::unlessOutOfMemory<KestroSurface*>(
        __func__, nullptr, [&] { return loadFromEither(themeDir, defaultDir, name); });
}

static SurfacePtr decodeFromTheme(const char* name) {
    SurfacePtr picture;
    if (*name == '/')
        picture.reset(decodePictureFile(name));
    if (!picture)
        picture.reset(decodePictureFile(joined(gThemePath, name).c_str()));
    if (!picture) {
        picture.reset(decodePictureFile(joined("./", name).c_str()));
        if (picture)
            logFallback(gThemePath, name, "./");
    }
    return picture;
}

/// Narrows the wanted size to the ratio of a picture of sw x sh pixels.
static void keepRatioOf(int sw, int sh, int& width, int& height) {
    const int64_t fittedWidth = sh == 0 ? 0 : static_cast<int64_t>(sw) * height / sh;
    if (width >= fittedWidth)
        width = static_cast<int>(fittedWidth);
    else
        height = sw == 0 ? 0 : static_cast<int>(static_cast<int64_t>(sh) * width / sw);
}

static SurfacePtr scaled(SurfacePtr picture, int width, int height) {
    SurfacePtr target(create_surface(width, height));
    if (!target)
        return nullptr;
    tprintf("thumb3bytes pixel %d\n", picture->format->BytesPerPixel);
    picture = in32Bits(std::move(picture));
    if (!picture)
        __builtin_trap(); // no memory for one picture: stop here, where the reason can be seen
    resizeBilinear_cpu(static_cast<unsigned int*>(picture->pixels),
                       static_cast<unsigned int*>(target->pixels), picture->w, picture->h, width, height,
                       kestro::swapsRedAndBlue(picture.get()));
    return target;
}

KestroSurface* LoadKestroSurfaceSpecSized(const char* path, int width, int height, const char* name,
                                          bool useTheme, bool keepRatio) {
    if (!kestro::liveRenderer())
        return nullptr;
    SurfacePtr picture(decodePictureFile(path ? path : ""));
    if (!picture && useTheme)
        picture = kestro::unlessOutOfMemory<SurfacePtr>(__func__, nullptr,
                                                        [&] { return decodeFromTheme(name ? name : ""); });
    if (!picture)
        return nullptr;
    if (picture->w == width && picture->h == height)
        return kestro::surfaceOwning(picture.release());
    if (keepRatio)
        keepRatioOf(picture->w, picture->h, width, height);
    SurfacePtr target = scaled(std::move(picture), width, height);
    if (!target)
        return nullptr;
    // A side that was scaled away to nothing leaves a surface that draws nothing.
    KestroSurface* const surface = kestro::surfaceOf(target.get(), target.get());
    SDL_Surface* const pixels = target.release();
    return surface ? surface : kestro::newSurface(nullptr, pixels);
}
