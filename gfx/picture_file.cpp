#include "gfx/picture_file.h"

#include "core/log.h"
#include "gfx/picture_bomb.h"
#include "gfx/picture_child.h"
#include "gfx/picture_size.h"

#include <SDL_image.h>

#include <cstring>
#include <mutex>
#include <sys/stat.h>

using kestro::PictureSize;

/// Whether something is there that is no file: opening it may wait for ever.
static bool isNoFile(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && !S_ISREG(status.st_mode);
}

static SDL_RWops* openFile(const char* path) {
    if (!path || isNoFile(path)) {
        SDL_SetError("Couldn't open %s", path ? path : "(null)");
        return nullptr;
    }
    return SDL_RWFromFile(path, "rb");
}

static const char* extension(const char* path) {
    const char* const dot = strrchr(path, '.');
    return dot ? dot + 1 : nullptr;
}

static bool refuses(const char* path, PictureSize size) {
    if (!kestro::isTooLarge(size))
        return false;
    tprintf("picture %s refused: %ux%u is too large\n", path, size.width, size.height);
    return true;
}

static bool refusesBomb(const char* path, SDL_RWops* file, PictureSize size) {
    if (kestro::isTooLargeFor(file, size)) {
        tprintf("picture %s refused: %ux%u from %lld bytes\n", path, size.width, size.height,
                static_cast<long long>(SDL_RWsize(file)));
        return true;
    }
    const int passes = kestro::passes(file);
    if (passes > kestro::mostPasses)
        tprintf("picture %s refused: %d passes\n", path, passes);
    return passes > kestro::mostPasses;
}

static SDL_Surface* decode(SDL_RWops* file, const char* type, const char* path) {
    if (!kestro::hasFragileDecoder(file, type))
        return IMG_LoadTyped_RW(file, 0, type);
    SDL_Surface* const picture =
        kestro::decodeInChild(file, type, [path](PictureSize size) { return refuses(path, size); });
    if (!picture)
        SDL_SetError("Couldn't decode %s", path);
    return picture;
}

static PictureSize sizeOf(const SDL_Surface* picture) {
    return {static_cast<uint32_t>(picture->w), static_cast<uint32_t>(picture->h)};
}

/// SDL_image does this when it meets a format for the first time, but not safely from several threads.
static void prepareDecoders() {
    static std::mutex lock;
    const std::lock_guard guard(lock);
    IMG_Init(IMG_INIT_JPG | IMG_INIT_PNG | IMG_INIT_TIF | IMG_INIT_WEBP);
}

SDL_Surface* decodePictureFile(const char* path) {
    SDL_RWops* const file = openFile(path);
    if (!file)
        return nullptr;
    const char* const type = extension(path);
    const PictureSize claimed = kestro::pictureSize(file, type);
    if (refuses(path, claimed) || refusesBomb(path, file, claimed)) {
        SDL_RWclose(file);
        return nullptr;
    }
    prepareDecoders();
    SDL_RWops* const shorter = kestro::withoutTexts(file);
    SDL_Surface* const picture = decode(shorter ? shorter : file, type, path);
    if (shorter)
        SDL_RWclose(shorter);
    SDL_RWclose(file);
    // A header that says nothing, such as a drawing's without a size, is known only now.
    if (picture && refuses(path, sizeOf(picture))) {
        SDL_FreeSurface(picture);
        return nullptr;
    }
    return picture;
}
