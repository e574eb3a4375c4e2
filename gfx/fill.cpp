#include "gfx/fill.h"

#include "gfx/screen_internal.h"
#include "gfx/surface_internal.h"

static void fillCurrentTarget(SDL_Renderer* renderer, const SDL_Rect* rect, SDL_Color color,
                              SDL_BlendMode mode) {
    SDL_BlendMode oldMode = SDL_BLENDMODE_NONE;
    SDL_Color old{};
    SDL_GetRenderDrawBlendMode(renderer, &oldMode);
    SDL_GetRenderDrawColor(renderer, &old.r, &old.g, &old.b, &old.a);
    SDL_SetRenderDrawColor(renderer, color.r, color.g, color.b, color.a);
    SDL_SetRenderDrawBlendMode(renderer, mode);
    SDL_RenderFillRect(renderer, rect);
    SDL_SetRenderDrawColor(renderer, old.r, old.g, old.b, old.a);
    SDL_SetRenderDrawBlendMode(renderer, oldMode);
}

void FillRectInternal(KestroSurface* s, SDL_Rect* rect, unsigned char r, unsigned char g, unsigned char b,
                      unsigned char a, SDL_BlendMode mode) {
    SDL_Renderer* const renderer = kestro::liveRenderer();
    const SDL2KestroSurface* const surface = kestro::textured(s);
    const bool usable = surface ? surface->isLive() : !s;
    if (!renderer || !usable)
        return;
    // A surface without texture fills what SDL draws to just now, like a null one without render target.
    SDL_Texture* const texture = surface ? surface->getTexture() : kestro::targetTexture();
    SDL_Texture* const previous = SDL_GetRenderTarget(renderer);
    // A texture that cannot be a target leaves SDL drawing into the window: then nothing is drawn.
    if (texture && SDL_SetRenderTarget(renderer, texture) != 0)
        return;
    fillCurrentTarget(renderer, rect, {r, g, b, a}, mode);
    if (texture)
        SDL_SetRenderTarget(renderer, previous);
}

void FillRect(KestroSurface* s, SDL_Rect* rect, unsigned char r, unsigned char g, unsigned char b,
              unsigned char a) {
    FillRectInternal(s, rect, r, g, b, a, SDL_BLENDMODE_BLEND);
}

void ClearRect(KestroSurface* s, SDL_Rect* rect, unsigned char r, unsigned char g, unsigned char b,
               unsigned char a) {
    FillRectInternal(s, rect, r, g, b, a, SDL_BLENDMODE_NONE);
}
