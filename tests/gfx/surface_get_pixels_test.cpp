#include "gfx/screen.h"
#include "gfx/surface.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// What one call of getPixels gave.
struct Reading {
    void* pixels;
    int pitch;
    int bytesPerPixel;
    int width;
    int height;
};

class GetPixelsTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        surface = solidPicture(64, 32, 0xFF102030);
    }

    void TearDown() override {
        surface.reset();
        ScreenTest::TearDown();
    }

    Reading read(int maxWidth, int maxHeight) {
        Reading reading{nullptr, -1, -1, maxWidth, maxHeight};
        reading.pixels =
            surface->getPixels(&reading.pitch, &reading.bytesPerPixel, &reading.width, &reading.height);
        return reading;
    }

    SDL_Surface* copy() const { return static_cast<SDL2KestroSurface*>(surface.get())->getSurface(); }

    KestroSurfacePtr surface;
};

TEST_F(GetPixelsTest, AskedForNoSizeCopiesAtFullSizeQuietly) {
    const Reading reading = read(0, 0);
    ASSERT_NE(reading.pixels, nullptr);
    EXPECT_EQ(reading.width, 64);
    EXPECT_EQ(reading.height, 32);
    EXPECT_EQ(reading.pitch, 256);
    EXPECT_EQ(reading.bytesPerPixel, 4);
    EXPECT_EQ(reading.pixels, copy()->pixels);
    EXPECT_EQ(copy()->format->format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(pixelOf(copy(), 0, 0), 0xFF102030);
    EXPECT_EQ(pixelOf(copy(), 63, 31), 0xFF102030);
}

TEST_F(GetPixelsTest, BearsNullForEveryPointer) {
    EXPECT_NE(surface->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
    EXPECT_EQ(copy()->w, 64);
    EXPECT_EQ(copy()->h, 32);
}

TEST_F(GetPixelsTest, OneSideAloneIsNoRequest) {
    int side = 16;
    EXPECT_NE(surface->getPixels(nullptr, nullptr, &side, nullptr), nullptr);
    EXPECT_EQ(side, 64);
    side = 16;
    EXPECT_NE(surface->getPixels(nullptr, nullptr, nullptr, &side), nullptr);
    EXPECT_EQ(side, 32);
    EXPECT_EQ(read(16, 0).width, 64);
    EXPECT_EQ(read(0, 16).width, 64);
    EXPECT_EQ(read(-16, 16).height, 32);
    EXPECT_EQ(read(16, -16).height, 32);
}

TEST_F(GetPixelsTest, FitsIntoTheMaximumKeepingTheRatio) {
    const Reading reading = read(32, 32);
    ASSERT_NE(reading.pixels, nullptr);
    EXPECT_EQ(takeLog(), "getPixels 64x32 -> 32x16 max(32x32)\n");
    EXPECT_EQ(reading.width, 32);
    EXPECT_EQ(reading.height, 16);
    EXPECT_EQ(reading.pitch, 128);
    EXPECT_EQ(copy()->w, 32);
    EXPECT_EQ(copy()->h, 16);
    EXPECT_EQ(pixelOf(copy(), 31, 15), 0xFF102030);
}

TEST_F(GetPixelsTest, GrowsASmallPictureToTheMaximum) {
    EXPECT_EQ(read(200, 128).height, 100);
    EXPECT_EQ(takeLog(), "getPixels 64x32 -> 200x100 max(200x128)\n");
    EXPECT_EQ(pixelOf(copy(), 199, 99), 0xFF102030);
}

TEST_F(GetPixelsTest, TheSizeOfTheCopyBecomesTheSizeOfTheSurface) {
    read(32, 32);
    EXPECT_EQ(surface->getWidth(), 32);
    EXPECT_EQ(surface->getHeight(), 16);
    DrawingLog drawn;
    SDL_Rect place{100, 100, 5, 5};
    surface->render(nullptr, &place, true, nullptr);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 100,100 32x16 on W"));
    read(0, 0);
    EXPECT_EQ(surface->getWidth(), 64);
    EXPECT_EQ(surface->getHeight(), 32);
    takeLog();
}

TEST_F(GetPixelsTest, TheSameMaximumAgainGivesTheSameBufferWithoutReading) {
    const Reading first = read(32, 32);
    takeLog();
    static_cast<Uint32*>(first.pixels)[0] = 0x12345678; // would not survive another reading
    DrawingLog drawn;
    CreationLog made;
    const Reading second = read(32, 32);
    EXPECT_EQ(second.pixels, first.pixels);
    EXPECT_EQ(pixelOf(copy(), 0, 0), 0x12345678u);
    EXPECT_EQ(second.width, 32);
    EXPECT_EQ(second.height, 16);
    EXPECT_EQ(second.pitch, 128);
    EXPECT_EQ(second.bytesPerPixel, 4);
    EXPECT_THAT(drawn.take(), IsEmpty());
    EXPECT_THAT(made.take(), IsEmpty());
    EXPECT_EQ(takeLog(), "");
}

TEST_F(GetPixelsTest, TheSizeOfThePresentCopyGivesItWithoutReading) {
    const Reading first = read(32, 32);
    takeLog();
    DrawingLog drawn;
    EXPECT_EQ(read(32, 16).pixels, first.pixels);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_F(GetPixelsTest, ACopyGivenAtCreationServesItsOwnSize) {
    Uint32 pixels[] = {0x80112233, 0xFF445566};
    surface.reset(CreateFromPixels(pixels, 2, 1, 32, 8, 0xFF0000, 0xFF00, 0xFF, 0xFF000000));
    ASSERT_NE(surface, nullptr);
    DrawingLog drawn;
    const Reading reading = read(2, 1);
    EXPECT_EQ(reading.pixels, copy()->pixels);
    EXPECT_EQ(reading.pitch, copy()->pitch);
    EXPECT_EQ(reading.bytesPerPixel, 4);
    EXPECT_EQ(pixelOf(copy(), 0, 0), 0x80112233);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_F(GetPixelsTest, AnotherMaximumReadsAgainFromTheWholeTexture) {
    read(32, 32);
    read(16, 4);
    EXPECT_EQ(takeLog(), "getPixels 64x32 -> 32x16 max(32x32)\n"
                         "getPixels 64x32 -> 8x4 max(16x4)\n");
    EXPECT_EQ(copy()->w, 8);
    EXPECT_EQ(copy()->h, 4);
}

TEST_F(GetPixelsTest, AFullSizeCopyForgetsTheMaximumBefore) {
    read(32, 32);
    read(0, 0);
    takeLog();
    EXPECT_EQ(read(32, 32).width, 32);
    EXPECT_EQ(takeLog(), "getPixels 64x32 -> 32x16 max(32x32)\n");
}

TEST_F(GetPixelsTest, FullSizeIsReadAnewEachTime) {
    read(0, 0);
    DrawingLog drawn;
    read(0, 0);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 0,0 64x32 on W"));
}

TEST_F(GetPixelsTest, DrawsThroughAStreamingTextureThatItDestroys) {
    CreationLog made;
    DrawingLog drawn;
    read(32, 32);
    EXPECT_THAT(made.take(), ElementsAre("texture 32x16 streaming ARGB8888", "texture destroyed"));
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 0,0 32x16 on W"));
    takeLog();
}

TEST_F(GetPixelsTest, TheStreamingTextureHasTheFormatOfTheTexture) {
    SDL_Texture* const other =
        SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STATIC, 4, 4);
    surface = std::make_unique<SDL2KestroSurface>(other, nullptr);
    CreationLog made;
    EXPECT_NE(read(0, 0).pixels, nullptr);
    EXPECT_THAT(made.take(), Contains("texture 4x4 streaming RGB888"));
}

TEST_F(GetPixelsTest, FreesTheCopyBefore) {
    read(0, 0);
    read(32, 32);
    const int before = SDL_GetNumAllocations();
    for (int i = 0; i < 10; ++i) {
        read(0, 0);
        read(32, 32);
    }
    EXPECT_EQ(SDL_GetNumAllocations(), before);
    takeLog();
}

TEST_F(GetPixelsTest, FailsWithALineWhenTheTextureIsGone) {
    surface = std::make_unique<SDL2KestroSurface>(nullptr, nullptr);
    EXPECT_EQ(read(4, 4).pixels, nullptr);
    ASSERT_STRNE(SDL_GetError(), "");
    EXPECT_EQ(takeLog(), "SDL_QueryTexture fail : " + std::string(SDL_GetError()) + "\n");
}

TEST_F(GetPixelsTest, FailsWithALineWhenTheFittedSizeVanishes) {
    read(0, 0);
    surface = solidPicture(200, 1, 0xFF102030);
    read(0, 0);
    SDL_Surface* const before = copy();
    EXPECT_EQ(read(10, 10).pixels, nullptr);
    ASSERT_STRNE(SDL_GetError(), "");
    EXPECT_EQ(takeLog(), "getPixels 200x1 -> 10x0 max(10x10)\n"
                         "SDL_CreateTexture fail : " +
                             std::string(SDL_GetError()) + "\n");
    EXPECT_EQ(copy(), before) << "the old copy must stay";
    EXPECT_EQ(surface->getWidth(), 10);
    EXPECT_EQ(surface->getHeight(), 0);
}
