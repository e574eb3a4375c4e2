#include "gfx/transform.h"

#include "core/log.h"
#include "gfx/pixel_order.h"
#include "gfx/scale.h"
#include "gfx/screen.h"
#include "gfx/screen_internal.h"
#include "gfx/surface_internal.h"

#include <algorithm>
#include <cmath>
#include <limits>

static unsigned int* pixelsOf(SDL_Surface* surface) {
    return static_cast<unsigned int*>(surface->pixels);
}

/// Fills `target` with the picture of a source that is not 32 bits deep. The passage has the size of the
/// target, not of the source, so that the picture is cropped rather than scaled: kept, as skins are cut for
/// it.
static void scaleThroughPassage(SDL_Surface* source, SDL_Surface* target) {
    SDL_Surface* const passage = create_surface(target->w, target->h);
    if (!passage)
        return;
    SDL_UpperBlit(source, nullptr, passage, nullptr);
    resizeBilinear_cpu(pixelsOf(passage), pixelsOf(target), target->w, target->h, target->w, target->h,
                       kestro::swapsRedAndBlue(passage));
    SDL_FreeSurface(passage);
}

KestroSurface* ScaleSurface(KestroSurface* s, int width, int height) {
    const SDL2KestroSurface* const surface = kestro::textured(s);
    SDL_Surface* const source = surface ? surface->getSurface() : nullptr;
    SDL_Surface* const target = source ? create_surface(width, height) : nullptr;
    if (!target)
        return nullptr;
    if (source->format->BitsPerPixel == 32)
        resizeBilinear_cpu(pixelsOf(source), pixelsOf(target), source->w, source->h, width, height,
                           kestro::swapsRedAndBlue(source));
    else
        scaleThroughPassage(source, target);
    return kestro::surfaceOwning(target);
}

static SDL_Point rotatedSize(int w, int h, int degrees) {
    const double angle = degrees * 3.141592653589793 / 180;
    const double c = cos(angle);
    const double s = sin(angle);
    return {static_cast<int>(fabs(w * c) + fabs(h * s)), static_cast<int>(fabs(w * s) + fabs(h * c))};
}

/// Draws `texture`, w x h pixels, turned into the middle of `target`, and reads the whole back.
static SDL_Surface* drawRotated(SDL_Texture* texture, int w, int h, int degrees, SDL_Texture* target,
                                SDL_Point size) {
    SDL_Texture* const oldTarget = SDL_GetRenderTarget(gRenderer);
    SDL_Rect oldViewport;
    SDL_RenderGetViewport(gRenderer, &oldViewport);
    const SDL_Rect whole{0, 0, size.x, size.y};
    const SDL_Rect src{0, 0, w, h};
    const SDL_Rect dst{(size.x - w) / 2, (size.y - h) / 2, w, h};
    SDL_Surface* const copy = create_surface(size.x, size.y);
    SDL_SetRenderTarget(gRenderer, target);
    SDL_RenderSetViewport(gRenderer, &whole);
    SDL_RenderCopyEx(gRenderer, texture, &src, &dst, degrees, nullptr, SDL_FLIP_NONE);
    if (copy)
        SDL_RenderReadPixels(gRenderer, &whole, SDL_PIXELFORMAT_ARGB8888, copy->pixels, copy->pitch);
    SDL_SetRenderTarget(gRenderer, oldTarget);
    SDL_RenderSetViewport(gRenderer, &oldViewport);
    return copy;
}

KestroSurface* RotateSurface(KestroSurface* s, int degrees) {
    const SDL2KestroSurface* const surface = kestro::textured(s);
    if (!surface || !surface->isLive())
        return nullptr;
    int w = 0;
    int h = 0;
    if (SDL_QueryTexture(surface->getTexture(), nullptr, nullptr, &w, &h) != 0) {
        tprintf("SDL_QueryTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    const SDL_Point size = rotatedSize(w, h, degrees);
    SDL_Texture* const target = kestro::createTargetTexture(size.x, size.y);
    if (!target) {
        tprintf("SDL_CreateTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    SDL_Surface* const copy = drawRotated(surface->getTexture(), w, h, degrees, target, size);
    return kestro::newSurface(target, copy);
}

KestroSurface* CropSurface(KestroSurface* s, SDL_Rect* rect) {
    const SDL2KestroSurface* const surface = kestro::textured(s);
    SDL_Surface* const source = surface ? surface->getSurface() : nullptr;
    if (!rect || !source || !kestro::liveRenderer())
        return nullptr;
    tprintf("crop surface s->mSurface->format is %p\n", static_cast<void*>(source->format));
    tprintf("crop surface s->mSurface->format->format is %x\n", source->format->format);
    SDL_Surface* const part = create_surface(rect->w, rect->h);
    if (!part)
        return nullptr;
    SDL_UpperBlit(source, rect, part, nullptr);
    SDL_Texture* const texture = SDL_CreateTextureFromSurface(kestro::liveRenderer(), part);
    if (!texture)
        tprintf("CropSurface create texture fail : %s\n", SDL_GetError());
    return kestro::newSurface(texture, part);
}

/// `value` without its fraction; the nearest int for what no int can hold.
static int truncated(float value) {
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int lowest = std::numeric_limits<int>::min();
    if (value < static_cast<float>(lowest))
        return lowest;
    return value < static_cast<float>(largest) ? static_cast<int>(value) : largest;
}

int getScaledSizeKeepRatio(int w, int h, int maxW, int maxH, int& outW, int& outH) {
    outW = outH = 0;
    if (maxW == 0 || maxH == 0 || (w == 0 && h == 0))
        return 0;
    const float ratio = std::max(static_cast<float>(w) / static_cast<float>(maxW),
                                 static_cast<float>(h) / static_cast<float>(maxH));
    if (!(ratio > 0))
        return 0;
    outW = truncated(static_cast<float>(w) / ratio);
    outH = truncated(static_cast<float>(h) / ratio);
    return outH;
}
