#pragma once

#include "gfx/surface.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <string>
#include <vector>

/// A test of pictures, with an open screen.
class PictureTest : public ScreenTest {
protected:
    /// Writes a picture of one colour (0xAARRGGBB) that decodes to 32, 24 or 8 bits; of the 8-bit one, which
    /// is gray, the blue byte counts.
    static void write32BitPicture(const std::string& path, int w, int h, Uint32 color);
    static void write24BitPicture(const std::string& path, int w, int h, Uint32 color);
    static void write8BitPicture(const std::string& path, int w, int h, Uint32 color);

    /// The surface's copy in memory; null if it has none.
    static SDL_Surface* copyOf(const KestroSurfacePtr& picture);
    static SDL_Texture* textureOf(const KestroSurfacePtr& picture);

    /// The colour 0xAARRGGBB of a pixel of the copy in memory, whatever its format.
    static Uint32 copiedPixel(const KestroSurfacePtr& picture, int x, int y);

    /// Clears the window to `background` and draws the picture at its top left.
    static void drawOn(Uint32 background, const KestroSurfacePtr& picture);

    /// "WxH" of the texture.
    static std::string sizeOf(const KestroSurfacePtr& picture);
};

/// A surface with a texture and a copy in memory of these pixels, which are 0xAARRGGBB.
KestroSurfacePtr pictureOf(int w, int h, const std::vector<Uint32>& pixels);
