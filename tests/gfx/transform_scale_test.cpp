#include "gfx/transform.h"

#include "gfx/scale.h"
#include "support/picture_test.h"
#include "support/sdl_memory.h"

#include <vector>

class ScaleSurfaceTest : public PictureTest {
protected:
    static constexpr Uint32 red = 0xFFFF0000;
    static constexpr Uint32 green = 0xFF00FF00;

    static KestroSurfacePtr scaled(const KestroSurfacePtr& picture, int w, int h) {
        return KestroSurfacePtr(ScaleSurface(picture.get(), w, h));
    }

    /// A surface whose copy in memory has this format; w x h pixels of red, but the last one green.
    static KestroSurfacePtr pictureIn(Uint32 format, int w, int h) {
        SDL_Surface* const pixels = filledSurface(w, h, red);
        static_cast<Uint32*>(pixels->pixels)[w * h - 1] = green;
        SDL_Surface* const copy = SDL_ConvertSurfaceFormat(pixels, format, 0);
        SDL_FreeSurface(pixels);
        return KestroSurfacePtr(new SDL2KestroSurface(SDL_CreateTextureFromSurface(gRenderer, copy), copy));
    }

    /// What becomes of one pixel of these bits in a copy of this format.
    static Uint32 scaledPixel(Uint32 format, Uint32 bits) {
        SDL_Surface* const copy = SDL_CreateRGBSurfaceWithFormat(0, 1, 1, 32, format);
        *static_cast<Uint32*>(copy->pixels) = bits;
        const KestroSurfacePtr result = scaled(KestroSurfacePtr(new SDL2KestroSurface(nullptr, copy)), 1, 1);
        return *static_cast<Uint32*>(copyOf(result)->pixels);
    }
};

TEST_F(ScaleSurfaceTest, CopyOf32BitsIsScaledBilinearly) {
    std::vector<Uint32> pixels(7 * 5);
    for (size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<Uint32>(i * 0x01234567);
    const KestroSurfacePtr picture = pictureOf(7, 5, pixels);
    for (const auto& [w, h] : {std::pair{3, 2}, {20, 30}, {7, 5}, {1, 1}}) {
        const KestroSurfacePtr result = scaled(picture, w, h);
        ASSERT_TRUE(result);
        EXPECT_EQ(sizeOf(result), std::to_string(w) + "x" + std::to_string(h));
        std::vector<Uint32> wanted(static_cast<size_t>(w * h));
        resizeBilinear_cpu(pixels.data(), wanted.data(), 7, 5, w, h, 0);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                EXPECT_EQ(copiedPixel(result, x, y), wanted[static_cast<size_t>(y * w + x)]) << x << "," << y;
    }
}

TEST_F(ScaleSurfaceTest, ResultHasATextureOfItsOwn) {
    KestroSurfacePtr picture = pictureOf(2, 2, {red, red, red, red});
    const KestroSurfacePtr result = scaled(picture, 20, 10);
    picture.reset();
    drawOn(0xFF000000, result);
    EXPECT_EQ(pixel(10, 5), red);
    EXPECT_EQ(pixel(20, 5), 0xFF000000);
}

TEST_F(ScaleSurfaceTest, RedStaysRedInBothByteOrders) {
    for (const Uint32 format : {SDL_PIXELFORMAT_ARGB8888, SDL_PIXELFORMAT_ABGR8888}) {
        const KestroSurfacePtr result = scaled(pictureIn(format, 4, 4), 9, 9);
        ASSERT_TRUE(result);
        EXPECT_EQ(copyOf(result)->format->format, SDL_PIXELFORMAT_ARGB8888);
        EXPECT_EQ(copiedPixel(result, 0, 0), red);
    }
}

TEST_F(ScaleSurfaceTest, RedAndBlueChangePlacesWhereBlueComesFirst) {
    constexpr Uint32 kept[] = {SDL_PIXELFORMAT_XRGB8888, SDL_PIXELFORMAT_RGBX8888, SDL_PIXELFORMAT_ARGB8888,
                               SDL_PIXELFORMAT_RGBA8888};
    constexpr Uint32 exchanged[] = {SDL_PIXELFORMAT_XBGR8888, SDL_PIXELFORMAT_BGRX8888,
                                    SDL_PIXELFORMAT_ABGR8888, SDL_PIXELFORMAT_BGRA8888};
    for (const Uint32 format : kept)
        EXPECT_EQ(scaledPixel(format, 0x11223344), 0x11223344u) << SDL_GetPixelFormatName(format);
    for (const Uint32 format : exchanged)
        EXPECT_EQ(scaledPixel(format, 0x11223344), 0x11443322u) << SDL_GetPixelFormatName(format);
}

TEST_F(ScaleSurfaceTest, CopyThatIsNot32BitsDeepIsCroppedNotScaled) {
    for (const Uint32 format : {SDL_PIXELFORMAT_RGB24, SDL_PIXELFORMAT_BGR24, SDL_PIXELFORMAT_RGB565}) {
        SCOPED_TRACE(SDL_GetPixelFormatName(format));
        const KestroSurfacePtr picture = pictureIn(format, 8, 8);
        const KestroSurfacePtr smaller = scaled(picture, 4, 4);
        ASSERT_TRUE(smaller);
        EXPECT_EQ(sizeOf(smaller), "4x4");
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(copiedPixel(smaller, i, i), red);
        const KestroSurfacePtr larger = scaled(picture, 16, 12);
        ASSERT_TRUE(larger);
        EXPECT_EQ(sizeOf(larger), "16x12");
        EXPECT_EQ(copiedPixel(larger, 0, 0), red) << "still at its own size";
        EXPECT_EQ(copiedPixel(larger, 12, 10), 0u) << "nothing beyond the source";
    }
}

TEST_F(ScaleSurfaceTest, CroppedCopyStillGoesThroughTheScaler) {
    // From n pixels to n the scaler steps by (n - 1) / n: it is no plain copy.
    std::vector<Uint32> passage(4 * 4, red);
    std::vector<Uint32> wanted(4 * 4);
    passage.back() = green;
    resizeBilinear_cpu(passage.data(), wanted.data(), 4, 4, 4, 4, 0);
    const KestroSurfacePtr result = scaled(pictureIn(SDL_PIXELFORMAT_RGB24, 4, 4), 4, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(copiedPixel(result, x, y), wanted[static_cast<size_t>(y * 4 + x)]) << x << "," << y;
    EXPECT_NE(copiedPixel(result, 3, 3), green);
}

TEST_F(ScaleSurfaceTest, CopyWithAlphaThatIsNot32BitsDeepIsBlended) {
    SDL_Surface* const copy = SDL_CreateRGBSurfaceWithFormat(0, 4, 4, 16, SDL_PIXELFORMAT_ARGB4444);
    SDL_FillRect(copy, nullptr, SDL_MapRGBA(copy->format, 0xFF, 0, 0, 0x88));
    const KestroSurfacePtr picture(
        new SDL2KestroSurface(SDL_CreateTextureFromSurface(gRenderer, copy), copy));
    const KestroSurfacePtr result = scaled(picture, 4, 4);
    ASSERT_TRUE(result);
    const Uint32 color = copiedPixel(result, 0, 0);
    EXPECT_NEAR(color >> 24, 0x88, 2);
    EXPECT_NEAR(color >> 16 & 0xFF, 0x88, 2) << "red was multiplied with its alpha";
}

TEST_F(ScaleSurfaceTest, NothingToScaleIsNull) {
    EXPECT_EQ(ScaleSurface(nullptr, 10, 10), nullptr);
    const KestroSurfacePtr withoutCopy(CreateSurface(10, 10));
    ASSERT_TRUE(withoutCopy);
    EXPECT_EQ(copyOf(withoutCopy), nullptr);
    EXPECT_FALSE(scaled(withoutCopy, 10, 10));
}

TEST_F(ScaleSurfaceTest, UnusableSizeIsNull) {
    const KestroSurfacePtr picture = pictureOf(1, 1, {red});
    for (const auto& [w, h] : {std::pair{0, 10}, {10, 0}, {0, 0}, {-1, 10}, {10, -1}})
        EXPECT_FALSE(scaled(picture, w, h)) << w << "x" << h;
}

TEST_F(ScaleSurfaceTest, NoMemoryForTargetOrTextureIsNullAndLosesNothing) {
    const KestroSurfacePtr picture = pictureOf(1, 1, {red});
    const KestroSurfacePtr shallow = pictureIn(SDL_PIXELFORMAT_RGB24, 1, 1);
    const int allocations = SDL_GetNumAllocations();
    for (const KestroSurfacePtr* const source : {&picture, &shallow})
        for (const int granted : {0, 1}) {
            SdlMemory memory;
            memory.refuse(100 * 100 * 4, granted);
            EXPECT_FALSE(scaled(*source, 100, 100)) << granted;
        }
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(ScaleSurfaceTest, NothingIsLostWithTheSurface) {
    const KestroSurfacePtr deep = pictureIn(SDL_PIXELFORMAT_ARGB8888, 8, 8);
    const KestroSurfacePtr shallow = pictureIn(SDL_PIXELFORMAT_RGB24, 8, 8);
    const auto scaleAll = [&] {
        for (const int side : {0, 5, 20}) {
            scaled(deep, side, 5);
            scaled(shallow, side, 5);
        }
    };
    scaleAll();
    const int allocations = SDL_GetNumAllocations();
    scaleAll();
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(ScaleSurfaceTest, WithoutAScreenTheResultIsNullAndQuiet) {
    const KestroSurfacePtr picture = pictureOf(1, 1, {red});
    ScreenUninit();
    EXPECT_FALSE(scaled(picture, 10, 10));
}

TEST_F(ScaleSurfaceTest, AfterSdlQuitTheResultIsNullAndQuiet) {
    const KestroSurfacePtr picture = pictureOf(1, 1, {red});
    quitSdl();
    EXPECT_FALSE(scaled(picture, 10, 10));
}
