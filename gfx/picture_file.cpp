#include "gfx/picture_file.h"

#include <SDL_image.h>

namespace kestro {

SDL_Surface* decodePicture(const char* path) {
    return path ? IMG_Load(path) : nullptr;
}

} // namespace kestro
