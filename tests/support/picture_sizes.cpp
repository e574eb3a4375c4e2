#include "support/picture_sizes.h"

#include "support/surfaces.h"

#include <SDL_image.h>

#include <gtest/gtest.h>

static SDL_RWops* inMemory(const std::string& bytes) {
    return SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
}

kestro::PictureSize claimOf(const std::string& bytes, const char* type) {
    SDL_RWops* const file = inMemory(bytes);
    const kestro::PictureSize size = kestro::pictureSize(file, type);
    EXPECT_EQ(SDL_RWtell(file), 0) << "the file stands elsewhere than before";
    SDL_RWclose(file);
    return size;
}

std::string claimedSize(const std::string& bytes, const char* type) {
    const kestro::PictureSize size = claimOf(bytes, type);
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

std::string decodedSize(const std::string& bytes, const char* type) {
    const MemorySurface picture(IMG_LoadTyped_RW(inMemory(bytes), 1, type));
    return picture ? std::to_string(picture->w) + "x" + std::to_string(picture->h) : IMG_GetError();
}
