#pragma once

#include "core/export.h"

#include <SDL.h>

/// Something that can be drawn. All calls on the main thread.
class KESTRO_API KestroSurface {
public:
    KestroSurface() = default;
    virtual ~KestroSurface();
    KestroSurface(const KestroSurface&) = delete;
    KestroSurface& operator=(const KestroSurface&) = delete;

    /// Sets how the surface is blended when it is drawn. These four return SDL's status: 0, or negative on
    /// error.
    virtual int setBlendMode(SDL_BlendMode mode) = 0;
    /// Sets the alpha, 0 to 255, that every pixel's own is multiplied with.
    virtual int setAlpha(unsigned char alpha) = 0;
    /// Stores how the surface is blended in `*mode`.
    virtual int getBlendMode(SDL_BlendMode* mode) = 0;
    /// Stores the alpha that setAlpha has set in `*alpha`.
    virtual int getAlpha(unsigned char* alpha) = 0;

    /// Draws onto the current render target (see SetRenderTarget).
    ///
    /// `src` is the part to draw, null for all of it; `dst` the place, null for the whole target. With
    /// `naturalSize`, only the position of `dst` counts and the size is the surface's own. With a render
    /// target set, a `dumpPath` that is not null names a BMP file that gets a picture of the target.
    /// Returns SDL's status.
    virtual int render(SDL_Rect* src, SDL_Rect* dst, bool naturalSize, const char* dumpPath) = 0;

    virtual int getWidth() = 0;  ///< pixels; 0 for a surface without picture
    virtual int getHeight() = 0; ///< pixels; 0 for a surface without picture

    /// A copy of the pixels in memory, 32-bit ARGB8888, owned by the surface and valid until the next call
    /// or until the surface is deleted; null on failure.
    ///
    /// If `width` and `height` both point at positive values, the copy is fitted into that size, keeping
    /// the ratio; asking again for the same size gives the same copy. Otherwise it has full size. The
    /// pointers that are not null receive the bytes of a row, of a pixel, and the size of the copy in
    /// pixels, which also becomes the size that getWidth and getHeight report.
    ///
    /// The copy is read back from what the renderer really drew to, which is the window: alpha reads as
    /// opaque, translucent pixels mix with what the window's top left showed, and a copy larger than the
    /// window reads as zeros.
    virtual void* getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) = 0;
};

class SDL2KestroSurface;

namespace kestro {

SDL2KestroSurface* surfaceOf(SDL_Surface* pixels, SDL_Surface* kept);

} // namespace kestro

/// A surface that is a texture of the screen's renderer, with an optional copy of its pixels in memory.
///
/// A texture dies with its screen. A surface that outlives it keeps its size and its copy, but every call
/// that needs the texture does nothing and returns -1 or null.
class KESTRO_API SDL2KestroSurface : public KestroSurface {
public:
    /// Takes over both; either may be null. The size is the texture's, 0 x 0 without one.
    SDL2KestroSurface(SDL_Texture* texture, SDL_Surface* surface);
    ~SDL2KestroSurface() override;

    int setBlendMode(SDL_BlendMode mode) override;
    int setAlpha(unsigned char alpha) override;
    int getBlendMode(SDL_BlendMode* mode) override;
    int getAlpha(unsigned char* alpha) override;
    int render(SDL_Rect* src, SDL_Rect* dst, bool naturalSize, const char* dumpPath) override;
    int getWidth() override;
    int getHeight() override;
    void* getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) override;

    /// Whether the screen that the surface was made for still exists.
    bool isLive() const;

    /// The texture, owned by the surface; null if there is none or its screen is gone. Whoever has it may
    /// change its pixels.
    SDL_Texture* getTexture() const;

    /// The copy in memory, owned by the surface, or null.
    SDL_Surface* getSurface() const;

private:
    SDL_Texture* mTexture;
    SDL_Surface* mSurface;
    int mWidth;
    int mHeight;
    int mFittedWidth; // the request that mSurface was fitted to by getPixels; 0 for none
    int mFittedHeight;
    unsigned mScreenGeneration; // of the screen that mTexture belongs to
    mutable bool mOpaque;       // mTexture is known to be, as nobody else has had it

    KESTRO_HIDDEN SDL_Texture* liveTexture() const;
    KESTRO_HIDDEN int copy(const SDL_Rect* src, const SDL_Rect* dst);
    KESTRO_HIDDEN SDL_Surface* readBack(Uint32 format, int width, int height);
    friend SDL2KestroSurface* kestro::surfaceOf(SDL_Surface* pixels, SDL_Surface* kept);
};

/// A new surface in memory, 32 bits deep, ARGB8888, all zero; owned by the caller, freed with
/// SDL_FreeSurface. Null on failure. Any thread.
KESTRO_API SDL_Surface* create_surface(int w, int h);

/// A new surface with a texture made from `s`, which stays the caller's; the new surface has no copy in
/// memory. Owned by the caller. Null if the texture cannot be made.
KESTRO_API KestroSurface* CreateSurface(SDL_Surface* s);

/// A new, transparent surface of w x h pixels that can be a render target. Owned by the caller. On failure
/// logs SDL's error and returns null.
KESTRO_API KestroSurface* CreateSurface(int w, int h);

/// A new surface with a copy of the caller's pixels: w x h pixels of `depth` bits, `pitch` bytes a row,
/// with the given channel masks. Owned by the caller; the pixels may go. Null on failure, which is told on
/// standard error if SDL cannot take the pixels as they are, and for null pixels.
KESTRO_API KestroSurface* CreateFromPixels(void* pixels, int w, int h, int depth, int pitch,
                                           unsigned int Rmask, unsigned int Gmask, unsigned int Bmask,
                                           unsigned int Amask);

/// Saves the surface's copy in memory as a BMP file. Does nothing for null, and for a surface without such
/// a copy.
KESTRO_API void SaveSurface2BMP(KestroSurface* s, const char* path);
