#include "bench/support/bare_page.h"

#include "gfx/screen.h"

#include <dlfcn.h>

namespace bench {

std::vector<BarePage::Copy>* BarePage::sNoted = nullptr;

static const auto sRealCopy = reinterpret_cast<decltype(&SDL_RenderCopy)>(dlsym(RTLD_NEXT, "SDL_RenderCopy"));

int noteCopy(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* source, const SDL_Rect* place) {
    if (BarePage::sNoted)
        BarePage::sNoted->push_back({texture, source != nullptr, place != nullptr,
                                     source ? *source : SDL_Rect{}, place ? *place : SDL_Rect{}});
    return sRealCopy(renderer, texture, source, place);
}

BarePage::BarePage(const std::function<void()>& draw) {
    sNoted = &mCopies;
    draw();
    sNoted = nullptr;
}

void BarePage::draw() const {
    for (const Copy& copy : mCopies)
        sRealCopy(gRenderer, copy.texture, copy.hasSource ? &copy.source : nullptr,
                  copy.hasPlace ? &copy.place : nullptr);
}

std::vector<Uint32> pixelsOf(const std::function<void()>& draw) {
    int w = 0;
    int h = 0;
    SDL_GetRendererOutputSize(gRenderer, &w, &h);
    SDL_SetRenderDrawColor(gRenderer, 0, 0, 0, 255);
    SDL_RenderClear(gRenderer);
    draw();
    std::vector<Uint32> pixels(static_cast<size_t>(w) * static_cast<size_t>(h));
    SDL_RenderReadPixels(gRenderer, nullptr, SDL_PIXELFORMAT_ARGB8888, pixels.data(), w * 4);
    return pixels;
}

} // namespace bench

/// In the place of SDL's own, as this program comes before it.
extern "C" int SDL_RenderCopy(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* source,
                              const SDL_Rect* place) {
    return bench::noteCopy(renderer, texture, source, place);
}
