#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

using testing::IsEmpty;

/// What the graphics processor may do otherwise than the software renderer.
class AcceleratedTest : public AcceleratedScreenTest {};

TEST_F(AcceleratedTest, NewTargetsAreTransparentWhateverWasInTheirMemory) {
    for (int round = 0; round < 3; ++round) {
        const KestroSurfacePtr target = emptyTarget(64, 32);
        EXPECT_EQ(pixelOf(target.get(), 0, 0), 0u);
        EXPECT_EQ(pixelOf(target.get(), 63, 31), 0u);
        ClearRect(target.get(), nullptr, 255, 255, 255, 255);
        EXPECT_EQ(pixelOf(target.get(), 63, 31), 0xFFFFFFFF);
    }
}

TEST_F(AcceleratedTest, ClearAndFillTakeAlphaAsOnTheSoftwareRenderer) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    ClearRect(target.get(), nullptr, 9, 8, 7, 200);
    FillRect(target.get(), nullptr, 255, 255, 255, 0);
    EXPECT_EQ(pixelOf(target.get(), 5, 5), 0xC8090807);
    ClearRect(target.get(), nullptr, 9, 8, 7, 0);
    EXPECT_EQ(pixelOf(target.get(), 5, 5) >> 24, 0u);
}

TEST_F(AcceleratedTest, PicturesThatCannotBeATargetTakeNothing) {
    const KestroSurfacePtr loaded = solidPicture(8, 8, 0xFFFFFFFF);
    const KestroSurfacePtr other = solidPicture(8, 8, 0xFF123456);
    DrawingLog drawn;
    FillRect(loaded.get(), nullptr, 1, 2, 3, 255);
    SetRenderTarget(loaded.get());
    EXPECT_EQ(other->render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_THAT(drawn.take(), IsEmpty());
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
}

TEST_F(AcceleratedTest, PixelsAreReadBackFromTheTopLeftOfTheWindow) {
    const KestroSurfacePtr pattern = patternPicture();
    SDL_Rect place{100, 100, 0, 0};
    pattern->render(nullptr, &place, true, nullptr);
    int pitch = 0;
    const void* const pixels = pattern->getPixels(&pitch, nullptr, nullptr, nullptr);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pitch, 32);
    for (int i = 0; i < 64; ++i) {
        ASSERT_EQ(static_cast<const Uint32*>(pixels)[i], pixel(100 + i % 8, 100 + i / 8)) << i;
        ASSERT_EQ(pixel(i % 8, i / 8), pixel(100 + i % 8, 100 + i / 8)) << i;
    }
}

TEST_F(AcceleratedTest, ASnapshotHoldsTheFrame) {
    SDL_Rect corner{630, 470, 10, 10};
    FillRect(nullptr, &corner, 200, 100, 50, 255);
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    ASSERT_NE(snapshot, nullptr);
    FillRect(nullptr, nullptr, 1, 1, 1, 255);
    EXPECT_EQ(snapshot->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_EQ(pixel(639, 479), 0xFFC86432);
    EXPECT_EQ(pixel(629, 479), 0xFF000000);
}

TEST_F(AcceleratedTest, ADumpHoldsTheTarget) {
    const KestroSurfacePtr target = emptyTarget(20, 10);
    SetRenderTarget(target.get());
    SDL_Rect place{2, 3, 4, 4};
    EXPECT_EQ(solidPicture(4, 4, 0xFF102030)->render(nullptr, &place, true, "dump.bmp"), 0);
    const MemorySurface dump = loadedBmp("dump.bmp");
    ASSERT_NE(dump, nullptr);
    EXPECT_EQ(pixelOf(dump.get(), 5, 6), 0xFF102030);
    EXPECT_EQ(pixelOf(dump.get(), 6, 6), 0u);
    EXPECT_EQ(pixelOf(dump.get(), 5, 7), 0u);
}

TEST_F(AcceleratedTest, ARotatedScreenShowsThePageTurned) {
    openScreen(640, 480, 1);
    SDL_Rect topRight{600, 0, 40, 41};
    FillRect(nullptr, nullptr, 10, 20, 30, 255);
    FillRect(nullptr, &topRight, 200, 100, 50, 255);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(0, 0), 0xFFC86432);
    EXPECT_EQ(pixel(39, 39), 0xFFC86432);
    EXPECT_EQ(pixel(40, 39), 0xFF0A141E);
    EXPECT_EQ(pixel(39, 40), 0xFF0A141E);
    EXPECT_EQ(pixel(478, 639), 0xFF0A141E);
}

/// Ends the screen with surfaces, caches and a target still there.
class AcceleratedEndTest : public AcceleratedScreenTest {
protected:
    void SetUp() override {
        AcceleratedScreenTest::SetUp();
        openScreen(640, 480, 1);
        picture = solidPicture(16, 8, 0xFF000001);
        target = emptyTarget(16, 8);
        SetRenderTarget(target.get());
        EXPECT_GT(DrawString(font(20), {0, 0, 10, 10}, "kept", {1, 2, 3, 255}, 0, true, false), 0);
        EXPECT_NE(picture->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
    }

    void TearDown() override {
        picture.reset();
        target.reset();
        AcceleratedScreenTest::TearDown();
    }

    void expectNoDrawing() const {
        DrawingLog drawn;
        FillRect(nullptr, nullptr, 1, 2, 3, 255);
        ClearRect(target.get(), nullptr, 1, 2, 3, 255);
        EXPECT_EQ(picture->render(nullptr, nullptr, false, nullptr), -1);
        EXPECT_EQ(picture->setAlpha(3), -1);
        EXPECT_EQ(target->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
        EXPECT_EQ(ScreenSnapshot(), nullptr);
        EXPECT_EQ(ScreenUpdateAndFlip(), 0);
        EXPECT_THAT(drawn.take(), IsEmpty());
    }

    KestroSurfacePtr picture;
    KestroSurfacePtr target;
};

TEST_F(AcceleratedEndTest, NothingIsDrawnAfterTheScreenClosed) {
    ScreenUninit();
    expectNoDrawing();
}

TEST_F(AcceleratedEndTest, NothingIsDrawnAfterSdlWasShutDown) {
    quitSdl();
    expectNoDrawing();
}

TEST_F(AcceleratedEndTest, ANewScreenWorks) {
    openScreen(64, 48, 0);
    EXPECT_EQ(picture->render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(solidPicture(4, 4, 0xFF445566)->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_EQ(pixel(10, 10), 0xFF445566);
}

TEST_F(AcceleratedEndTest, ANewScreenWorksAfterSdlWasShutDown) {
    quitSdl();
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    openScreen(64, 48, 1);
    EXPECT_EQ(picture->render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(solidPicture(4, 4, 0xFF445566)->render(nullptr, nullptr, false, nullptr), 0);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(10, 10), 0xFF445566);
}
