#include "gfx/opacity.h"

/// Whether all pixels of a row have all bits of `alpha`.
static bool isRowOpaque(const Uint32* row, int width, Uint32 alpha) {
    Uint32 common = alpha;
    for (int x = 0; x < width; ++x)
        common &= row[x];
    return common == alpha;
}

/// Whether SDL draws the texture just as it is: blended, untinted, unfaded and in its own size.
static bool isPlainBlendedCopy(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* src,
                               const SDL_Rect* dst) {
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    SDL_Color mod{};
    SDL_Rect part{};
    SDL_Rect place{};
    float scaleX = 0;
    float scaleY = 0;
    if (SDL_GetTextureBlendMode(texture, &mode) != 0 || mode != SDL_BLENDMODE_BLEND ||
        SDL_GetTextureColorMod(texture, &mod.r, &mod.g, &mod.b) != 0 ||
        SDL_GetTextureAlphaMod(texture, &mod.a) != 0 || (mod.r & mod.g & mod.b & mod.a) != 255 ||
        SDL_QueryTexture(texture, nullptr, nullptr, &part.w, &part.h) != 0)
        return false;
    SDL_RenderGetScale(renderer, &scaleX, &scaleY);
    SDL_RenderGetViewport(renderer, &place);
    if (dst)
        place = *dst;
    const bool reaches = !src || SDL_IntersectRect(src, &part, &part); // SDL cuts what lies outside
    return reaches && part.w == place.w && part.h == place.h && scaleX == 1 && scaleY == 1;
}

namespace kestro {

bool isOpaque(const SDL_Surface* surface) {
    if (!surface || !surface->pixels || surface->format->BytesPerPixel != 4 || !surface->format->Amask ||
        SDL_MUSTLOCK(surface) || SDL_HasColorKey(const_cast<SDL_Surface*>(surface)))
        return false;
    const auto* row = static_cast<const char*>(surface->pixels);
    for (int y = 0; y < surface->h; ++y, row += surface->pitch)
        if (!isRowOpaque(reinterpret_cast<const Uint32*>(row), surface->w, surface->format->Amask))
            return false;
    return true;
}

int copyOpaque(SDL_Renderer* renderer, SDL_Texture* texture, const SDL_Rect* src, const SDL_Rect* dst) {
    if (!isPlainBlendedCopy(renderer, texture, src, dst))
        return SDL_RenderCopy(renderer, texture, src, dst);
    SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_NONE);
    const int status = SDL_RenderCopy(renderer, texture, src, dst);
    SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
    return status;
}

} // namespace kestro
