#include "gfx/surface.h"

#include "core/log.h"
#include "gfx/opacity.h"
#include "gfx/screen.h"
#include "gfx/screen_internal.h"
#include "gfx/surface_internal.h"
#include "gfx/transform.h"

#include <cstdio>
#include <new>

KestroSurface::~KestroSurface() = default;

SDL2KestroSurface::SDL2KestroSurface(SDL_Texture* texture, SDL_Surface* surface)
    : mTexture(texture), mSurface(surface), mWidth(0), mHeight(0), mFittedWidth(0), mFittedHeight(0),
      mScreenGeneration(kestro::screenGeneration()), mOpaque(false) {
    if (texture)
        SDL_QueryTexture(texture, nullptr, nullptr, &mWidth, &mHeight);
}

SDL2KestroSurface::~SDL2KestroSurface() {
    if (GetRenderTarget() == this)
        SetRenderTarget(nullptr);
    if (mTexture && isLive())
        SDL_DestroyTexture(mTexture);
    SDL_FreeSurface(mSurface);
}

bool SDL2KestroSurface::isLive() const {
    return mScreenGeneration == kestro::screenGeneration() && kestro::liveRenderer();
}

SDL_Texture* SDL2KestroSurface::liveTexture() const {
    return isLive() ? mTexture : nullptr;
}

SDL_Texture* SDL2KestroSurface::getTexture() const {
    mOpaque = false;
    return liveTexture();
}

SDL_Surface* SDL2KestroSurface::getSurface() const {
    return mSurface;
}

int SDL2KestroSurface::setBlendMode(SDL_BlendMode mode) {
    return SDL_SetTextureBlendMode(liveTexture(), mode);
}

int SDL2KestroSurface::setAlpha(unsigned char alpha) {
    return SDL_SetTextureAlphaMod(liveTexture(), alpha);
}

int SDL2KestroSurface::getBlendMode(SDL_BlendMode* mode) {
    return SDL_GetTextureBlendMode(liveTexture(), mode);
}

int SDL2KestroSurface::getAlpha(unsigned char* alpha) {
    return SDL_GetTextureAlphaMod(liveTexture(), alpha);
}

int SDL2KestroSurface::getWidth() {
    return mWidth;
}

int SDL2KestroSurface::getHeight() {
    return mHeight;
}

static void dumpTarget(const char* path) {
    const SDL_Point size = kestro::windowSize();
    SDL_Surface* const picture = create_surface(size.x, size.y);
    if (!picture)
        return;
    const SDL_Rect whole{0, 0, picture->w, picture->h};
    SDL_RenderReadPixels(gRenderer, &whole, SDL_PIXELFORMAT_ARGB8888, picture->pixels, picture->pitch);
    SDL_SaveBMP_RW(picture, SDL_RWFromFile(path, "wb"), 1);
    SDL_FreeSurface(picture);
}

int SDL2KestroSurface::copy(const SDL_Rect* src, const SDL_Rect* dst) {
    return mOpaque ? kestro::copyOpaque(gRenderer, mTexture, src, dst)
                   : SDL_RenderCopy(gRenderer, mTexture, src, dst);
}

int SDL2KestroSurface::render(SDL_Rect* src, SDL_Rect* dst, bool naturalSize, const char* dumpPath) {
    if (!isLive())
        return -1;
    SDL_Rect place{};
    if (dst) {
        place = *dst;
        if (naturalSize) {
            place.w = mWidth;
            place.h = mHeight;
        }
    }
    const SDL_Rect* const where = dst ? &place : nullptr;
    SDL_Texture* const target = kestro::targetTexture();
    if (!target)
        return copy(src, where);
    // A texture that cannot be a target leaves SDL drawing into the window: then nothing is drawn.
    if (const int status = SDL_SetRenderTarget(gRenderer, target))
        return status;
    const int status = copy(src, where);
    if (dumpPath)
        dumpTarget(dumpPath);
    if (status != 0)
        tprintf("SDL_RenderCopy fail : %s\n", SDL_GetError());
    SDL_SetRenderTarget(gRenderer, nullptr);
    return status;
}

/// Draws the texture through a temporary one into memory. The temporary texture is a streaming one, which
/// cannot be a target: SDL goes on drawing to the window, and the read-back takes what stands there. That
/// is kept, as hosts rely on what it gives.
SDL_Surface* SDL2KestroSurface::readBack(Uint32 format, int width, int height) {
    SDL_Texture* const passage =
        SDL_CreateTexture(gRenderer, format, SDL_TEXTUREACCESS_STREAMING, width, height);
    if (!passage) {
        tprintf("SDL_CreateTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    SDL_Texture* const target = SDL_GetRenderTarget(gRenderer);
    SDL_Rect viewport;
    SDL_RenderGetViewport(gRenderer, &viewport);
    const SDL_Rect whole{0, 0, width, height};
    SDL_Surface* const copy = create_surface(width, height);
    SDL_SetRenderTarget(gRenderer, passage);
    SDL_RenderSetViewport(gRenderer, &whole);
    SDL_RenderCopy(gRenderer, mTexture, nullptr, &whole);
    if (copy)
        SDL_RenderReadPixels(gRenderer, &whole, SDL_PIXELFORMAT_ARGB8888, copy->pixels, copy->pitch);
    SDL_SetRenderTarget(gRenderer, target);
    SDL_RenderSetViewport(gRenderer, &viewport);
    SDL_DestroyTexture(passage);
    return copy;
}

static void report(const SDL_Surface* copy, int* pitch, int* bytesPerPixel, int* width, int* height) {
    if (pitch)
        *pitch = copy->pitch;
    if (bytesPerPixel)
        *bytesPerPixel = copy->format->BytesPerPixel;
    if (width)
        *width = copy->w;
    if (height)
        *height = copy->h;
}

void* SDL2KestroSurface::getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) {
    if (!isLive())
        return nullptr;
    Uint32 format = 0;
    int w = 0;
    int h = 0;
    if (SDL_QueryTexture(mTexture, &format, nullptr, &w, &h) != 0) {
        tprintf("SDL_QueryTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    const bool fitted = width && height && *width > 0 && *height > 0;
    const int maxW = fitted ? *width : 0;
    const int maxH = fitted ? *height : 0;
    if (fitted) {
        const bool hasSize = mSurface && mSurface->w == maxW && mSurface->h == maxH;
        const bool sameRequest = mSurface && mFittedWidth == maxW && mFittedHeight == maxH;
        if (hasSize || sameRequest) {
            report(mSurface, pitch, bytesPerPixel, width, height);
            return mSurface->pixels;
        }
        int fittedW = 0;
        int fittedH = 0;
        getScaledSizeKeepRatio(w, h, maxW, maxH, fittedW, fittedH);
        tprintf("getPixels %dx%d -> %dx%d max(%dx%d)\n", w, h, fittedW, fittedH, maxW, maxH);
        w = fittedW;
        h = fittedH;
    }
    mWidth = w;
    mHeight = h;
    SDL_Surface* const copy = readBack(format, w, h);
    if (!copy)
        return nullptr;
    SDL_FreeSurface(mSurface);
    mSurface = copy;
    mFittedWidth = maxW;
    mFittedHeight = maxH;
    report(copy, pitch, bytesPerPixel, width, height);
    return copy->pixels;
}

static constexpr Uint32 redMask = 0x00FF0000;
static constexpr Uint32 greenMask = 0x0000FF00;
static constexpr Uint32 blueMask = 0x000000FF;
static constexpr Uint32 alphaMask = 0xFF000000;

SDL_Surface* create_surface(int w, int h) {
    return SDL_CreateRGBSurface(0, w, h, 32, redMask, greenMask, blueMask, alphaMask);
}

KestroSurface* CreateSurface(SDL_Surface* s) {
    return kestro::surfaceOf(s, nullptr);
}

KestroSurface* CreateSurface(int w, int h) {
    SDL_Texture* const texture = kestro::createTargetTexture(w, h);
    if (!texture) {
        tprintf("Unable to create texture: %s\n", SDL_GetError());
        return nullptr;
    }
    return kestro::newSurface(texture, nullptr);
}

KestroSurface* CreateFromPixels(void* pixels, int w, int h, int depth, int pitch, unsigned int Rmask,
                                unsigned int Gmask, unsigned int Bmask, unsigned int Amask) {
    if (!pixels)
        SDL_InvalidParamError("pixels"); // SDL itself wraps null, and cannot copy it
    SDL_Surface* const wrapper =
        pixels ? SDL_CreateRGBSurfaceFrom(pixels, w, h, depth, pitch, Rmask, Gmask, Bmask, Amask) : nullptr;
    if (!wrapper) {
        fprintf(stderr, "SDL_CreateRGBSurfaceFrom failed: %s\n", SDL_GetError());
        return nullptr;
    }
    SDL_Surface* const copy = SDL_ConvertSurface(wrapper, wrapper->format, 0);
    SDL_FreeSurface(wrapper);
    return kestro::surfaceOwning(copy);
}

void SaveSurface2BMP(KestroSurface* s, const char* path) {
    const SDL2KestroSurface* const surface = kestro::textured(s);
    if (surface && surface->getSurface() && path)
        SDL_SaveBMP_RW(surface->getSurface(), SDL_RWFromFile(path, "wb"), 1);
}

namespace kestro {

SDL2KestroSurface* textured(KestroSurface* s) {
    return dynamic_cast<SDL2KestroSurface*>(s);
}

/// Null, and without the texture, when there is no memory for the object.
static SDL2KestroSurface* withTexture(SDL_Texture* texture, SDL_Surface* kept) {
    auto* const surface = new (std::nothrow) SDL2KestroSurface(texture, kept);
    if (!surface && texture)
        SDL_DestroyTexture(texture);
    return surface;
}

SDL2KestroSurface* newSurface(SDL_Texture* texture, SDL_Surface* copy) {
    SDL2KestroSurface* const surface = withTexture(texture, copy);
    if (!surface)
        SDL_FreeSurface(copy);
    return surface;
}

SDL2KestroSurface* surfaceOf(SDL_Surface* pixels, SDL_Surface* kept) {
    SDL_Texture* const texture = SDL_CreateTextureFromSurface(liveRenderer(), pixels);
    SDL2KestroSurface* const surface = texture ? withTexture(texture, kept) : nullptr;
    if (surface)
        surface->mOpaque = isOpaque(pixels);
    return surface;
}

SDL2KestroSurface* surfaceOwning(SDL_Surface* copy) {
    if (!copy)
        return nullptr;
    SDL2KestroSurface* const surface = surfaceOf(copy, copy);
    if (!surface)
        SDL_FreeSurface(copy);
    return surface;
}

/// Graphics memory starts with whatever was there before.
static void clearTarget(SDL_Renderer* renderer, SDL_Texture* texture) {
    SDL_Texture* const target = SDL_GetRenderTarget(renderer);
    SDL_Rect viewport;
    SDL_RenderGetViewport(renderer, &viewport);
    Uint8 r = 0;
    Uint8 g = 0;
    Uint8 b = 0;
    Uint8 a = 0;
    SDL_GetRenderDrawColor(renderer, &r, &g, &b, &a);
    if (SDL_SetRenderTarget(renderer, texture) == 0) {
        SDL_SetRenderDrawColor(renderer, 0, 0, 0, 0);
        SDL_RenderClear(renderer);
        SDL_SetRenderDrawColor(renderer, r, g, b, a);
        SDL_SetRenderTarget(renderer, target);
        SDL_RenderSetViewport(renderer, &viewport); // coming back to a texture, SDL forgets it
    }
}

SDL_Texture* createTargetTexture(int w, int h) {
    SDL_Renderer* const renderer = liveRenderer();
    SDL_Texture* const texture =
        SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET, w, h);
    if (texture)
        clearTarget(renderer, texture);
    return texture;
}

} // namespace kestro
