#include "hostkit/unattended.h"

#include "gfx/screen.h"
#include "gfx/transform.h"

#include <SDL_image.h>

#include <memory>

namespace hostkit {

static void pushKey(SDL_Scancode code, Uint32 type) {
    SDL_Event event{};
    event.type = type;
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.scancode = code;
    event.key.keysym.sym = SDL_GetKeyFromScancode(code);
    SDL_PushEvent(&event);
}

void pressKey(SDL_Scancode key) {
    pushKey(key, SDL_KEYDOWN);
    pushKey(key, SDL_KEYUP);
}

static bool endsIn(const std::string& path, const char* ending) {
    const size_t length = SDL_strlen(ending);
    return path.size() >= length && SDL_strcasecmp(path.c_str() + path.size() - length, ending) == 0;
}

bool saveScreenPicture(const std::string& path) {
    std::unique_ptr<KestroSurface> picture(ScreenSnapshot());
    if (picture && picture->getHeight() > picture->getWidth()) // on a display that is mounted on its side
        picture.reset(RotateSurface(picture.get(), 90));
    const auto* const copy = dynamic_cast<SDL2KestroSurface*>(picture.get());
    SDL_Surface* const opaque =
        copy ? SDL_ConvertSurfaceFormat(copy->getSurface(), SDL_PIXELFORMAT_RGB24, 0) : nullptr;
    const auto save = [&] {
        return endsIn(path, ".bmp") ? SDL_SaveBMP(opaque, path.c_str()) : IMG_SavePNG(opaque, path.c_str());
    };
    const bool saved = opaque && save() == 0;
    SDL_FreeSurface(opaque);
    return saved;
}

} // namespace hostkit
