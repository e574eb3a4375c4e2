#include "gfx/transform.h"

#include "support/picture_test.h"
#include "support/sdl_memory.h"

class CropSurfaceTest : public PictureTest {
protected:
    /// 4 x 3 opaque pixels, each with its column in the red byte and its row in the green one.
    static KestroSurfacePtr numbered() {
        std::vector<Uint32> pixels;
        for (Uint32 y = 0; y < 3; ++y)
            for (Uint32 x = 0; x < 4; ++x)
                pixels.push_back(0xFF000000 | x << 16 | y << 8);
        return pictureOf(4, 3, pixels);
    }

    static KestroSurfacePtr cropped(const KestroSurfacePtr& picture, SDL_Rect rect) {
        return KestroSurfacePtr(CropSurface(picture.get(), &rect));
    }

    /// The two lines that a crop of `picture` logs.
    static std::string linesFor(const KestroSurfacePtr& picture) {
        char lines[200];
        snprintf(lines, sizeof lines,
                 "crop surface s->mSurface->format is %p\n"
                 "crop surface s->mSurface->format->format is %x\n",
                 static_cast<void*>(copyOf(picture)->format), copyOf(picture)->format->format);
        return lines;
    }
};

TEST_F(CropSurfaceTest, PartInsideIsCopied) {
    const KestroSurfacePtr picture = numbered();
    const KestroSurfacePtr part = cropped(picture, {1, 1, 2, 2});
    ASSERT_TRUE(part);
    EXPECT_EQ(takeLog(), linesFor(picture));
    EXPECT_EQ(sizeOf(part), "2x2");
    EXPECT_EQ(copyOf(part)->format->format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(copiedPixel(part, 0, 0), 0xFF010100);
    EXPECT_EQ(copiedPixel(part, 1, 1), 0xFF020200);
    drawOn(0xFF000000, part);
    EXPECT_EQ(pixel(1, 0), 0xFF020100);
    EXPECT_EQ(pixel(2, 0), 0xFF000000);
}

TEST_F(CropSurfaceTest, LogNamesTheFormat) {
    const KestroSurfacePtr picture = numbered();
    cropped(picture, {0, 0, 1, 1});
    EXPECT_THAT(takeLog(), testing::MatchesRegex("crop surface s->mSurface->format is 0x[0-9a-f]+\n"
                                                 "crop surface s->mSurface->format->format is 16362004\n"));
}

TEST_F(CropSurfaceTest, PartOutsideStaysTransparent) {
    const KestroSurfacePtr picture = numbered();
    const KestroSurfacePtr below = cropped(picture, {3, 2, 3, 3});
    EXPECT_EQ(copiedPixel(below, 0, 0), 0xFF030200);
    EXPECT_EQ(copiedPixel(below, 1, 0), 0u);
    EXPECT_EQ(copiedPixel(below, 0, 1), 0u);
    const KestroSurfacePtr above = cropped(picture, {-1, -2, 3, 4});
    EXPECT_EQ(copiedPixel(above, 0, 2), 0u);
    EXPECT_EQ(copiedPixel(above, 1, 1), 0u);
    EXPECT_EQ(copiedPixel(above, 1, 2), 0xFF000000);
    EXPECT_EQ(copiedPixel(above, 2, 3), 0xFF010100);
    const KestroSurfacePtr away = cropped(picture, {100, 100, 2, 2});
    ASSERT_TRUE(away);
    EXPECT_EQ(sizeOf(away), "2x2");
    EXPECT_EQ(copiedPixel(away, 1, 1), 0u);
    takeLog();
}

TEST_F(CropSurfaceTest, RectangleIsLeftAsItWas) {
    const KestroSurfacePtr picture = numbered();
    SDL_Rect rect{-1, -2, 30, 40};
    KestroSurfacePtr(CropSurface(picture.get(), &rect));
    EXPECT_EQ(rect.x, -1);
    EXPECT_EQ(rect.y, -2);
    EXPECT_EQ(rect.w, 30);
    EXPECT_EQ(rect.h, 40);
    takeLog();
}

TEST_F(CropSurfaceTest, TranslucentPixelsAreBlendedOntoTransparentBlack) {
    const KestroSurfacePtr part = cropped(pictureOf(1, 1, {0x80402010}), {0, 0, 1, 1});
#ifdef __x86_64__
    const Uint32 blended = 0x7F201008; // SDL's instructions for this processor round down once more
#else
    const Uint32 blended = 0x80201008;
#endif
    EXPECT_EQ(copiedPixel(part, 0, 0), blended);
    takeLog();
}

TEST_F(CropSurfaceTest, CopyThatDoesNotBlendIsCopiedExactly) {
    const KestroSurfacePtr picture = pictureOf(1, 1, {0x80402010});
    SDL_SetSurfaceBlendMode(copyOf(picture), SDL_BLENDMODE_NONE);
    EXPECT_EQ(copiedPixel(cropped(picture, {0, 0, 1, 1}), 0, 0), 0x80402010u);
    takeLog();
}

TEST_F(CropSurfaceTest, CopyOf24BitsIsConverted) {
    SDL_Surface* const copy = SDL_CreateRGBSurfaceWithFormat(0, 4, 4, 24, SDL_PIXELFORMAT_RGB24);
    SDL_FillRect(copy, nullptr, SDL_MapRGB(copy->format, 0x11, 0x22, 0x33));
    const KestroSurfacePtr picture(new SDL2KestroSurface(nullptr, copy));
    const KestroSurfacePtr part = cropped(picture, {1, 1, 2, 2});
    ASSERT_TRUE(part);
    EXPECT_EQ(copyOf(part)->format->format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(copiedPixel(part, 1, 1), 0xFF112233);
    EXPECT_EQ(takeLog(), linesFor(picture));
}

TEST_F(CropSurfaceTest, NothingToCropIsNullAndQuiet) {
    SDL_Rect rect{0, 0, 1, 1};
    const KestroSurfacePtr picture = numbered();
    const KestroSurfacePtr withoutCopy(CreateSurface(10, 10));
    EXPECT_EQ(CropSurface(picture.get(), nullptr), nullptr);
    EXPECT_EQ(CropSurface(nullptr, &rect), nullptr);
    EXPECT_EQ(CropSurface(nullptr, nullptr), nullptr);
    EXPECT_EQ(CropSurface(withoutCopy.get(), &rect), nullptr);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(CropSurfaceTest, NoMemoryForThePartIsNull) {
    const KestroSurfacePtr picture = numbered();
    SdlMemory memory;
    memory.refuse(200 * 100 * 4);
    EXPECT_FALSE(cropped(picture, {0, 0, 200, 100}));
    EXPECT_EQ(takeLog(), linesFor(picture));
    EXPECT_FALSE(cropped(picture, {0, 0, -1, 5}));
    takeLog();
}

TEST_F(CropSurfaceTest, WithoutATextureTheObjectStillHasItsCopy) {
    const KestroSurfacePtr picture = numbered();
    KestroSurfacePtr part;
    {
        SdlMemory memory;
        memory.refuse(200 * 100 * 4, 1);
        part = cropped(picture, {0, 0, 200, 100});
    }
    ASSERT_TRUE(part);
    EXPECT_EQ(takeLog(), linesFor(picture) + "CropSurface create texture fail : Out of memory\n");
    EXPECT_EQ(textureOf(part), nullptr);
    EXPECT_EQ(sizeOf(part), "0x0");
    EXPECT_EQ(copyOf(part)->w, 200);
    EXPECT_EQ(copiedPixel(part, 3, 2), 0xFF030200);
}

TEST_F(CropSurfaceTest, EmptyRectangleGivesAnObjectWithoutATexture) {
    const KestroSurfacePtr picture = numbered();
    const KestroSurfacePtr part = cropped(picture, {0, 0, 0, 2});
    ASSERT_TRUE(part);
    EXPECT_EQ(textureOf(part), nullptr);
    const std::string log = takeLog();
    EXPECT_THAT(log, testing::StartsWith(linesFor(picture) + "CropSurface create texture fail : "));
    EXPECT_EQ(log.back(), '\n');
}

TEST_F(CropSurfaceTest, NothingIsLostWithTheSurface) {
    const KestroSurfacePtr picture = numbered();
    const auto cropAll = [&] {
        cropped(picture, {1, 1, 2, 2});
        cropped(picture, {0, 0, 0, 2});
        cropped(picture, {0, 0, -1, 2});
        takeLog();
    };
    cropAll();
    const int allocations = SDL_GetNumAllocations();
    cropAll();
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(CropSurfaceTest, WithoutAScreenTheResultIsNullAndQuiet) {
    const KestroSurfacePtr picture = numbered();
    ScreenUninit();
    EXPECT_FALSE(cropped(picture, {0, 0, 2, 2}));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(CropSurfaceTest, AfterSdlQuitTheResultIsNullAndQuiet) {
    const KestroSurfacePtr picture = numbered();
    quitSdl();
    EXPECT_FALSE(cropped(picture, {0, 0, 2, 2}));
    EXPECT_EQ(takeLog(), "");
}
