#include "gfx/fill.h"
#include "gfx/screen.h"
#include "support/screen_test.h"
#include "support/sdl_memory.h"
#include "support/surfaces.h"

class SnapshotTest : public ScreenTest {
protected:
    static MemorySurface copyOf(KestroSurface* snapshot) {
        SaveSurface2BMP(snapshot, "snapshot.bmp");
        return loadedBmp("snapshot.bmp");
    }
};

TEST_F(SnapshotTest, HoldsTheFrameInTextureAndMemory) {
    SDL_Rect corner{630, 470, 10, 10};
    FillRect(nullptr, &corner, 200, 100, 50, 255);
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    ASSERT_NE(snapshot, nullptr);
    EXPECT_EQ(snapshot->getWidth(), 640);
    EXPECT_EQ(snapshot->getHeight(), 480);

    const MemorySurface copy = copyOf(snapshot.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->w, 640);
    EXPECT_EQ(copy->h, 480);
    EXPECT_EQ(pixelOf(copy.get(), 639, 479), 0xFFC86432);
    EXPECT_EQ(pixelOf(copy.get(), 629, 479), 0xFF000000);

    FillRect(nullptr, nullptr, 1, 1, 1, 255);
    EXPECT_EQ(snapshot->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_EQ(pixel(639, 479), 0xFFC86432);
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
}

TEST_F(SnapshotTest, KeepsItsPictureWhenTheScreenChanges) {
    FillRect(nullptr, nullptr, 7, 8, 9, 255);
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    FillRect(nullptr, nullptr, 200, 200, 200, 255);
    EXPECT_EQ(pixelOf(copyOf(snapshot.get()).get(), 5, 5), 0xFF070809);
}

TEST_F(SnapshotTest, OfARotatedScreenLiesOnItsSide) {
    openScreen(640, 480, 1);
    SDL_Rect topRight{600, 0, 40, 41};
    FillRect(nullptr, &topRight, 200, 100, 50, 255);
    ScreenUpdateAndFlip();
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    ASSERT_NE(snapshot, nullptr);
    EXPECT_EQ(snapshot->getWidth(), 480);
    EXPECT_EQ(snapshot->getHeight(), 640);
    const MemorySurface copy = copyOf(snapshot.get());
    EXPECT_EQ(pixelOf(copy.get(), 0, 0), 0xFFC86432); // the page's top right
    EXPECT_EQ(pixelOf(copy.get(), 39, 39), 0xFFC86432);
    EXPECT_EQ(pixelOf(copy.get(), 40, 39), 0xFF000000);
    EXPECT_EQ(pixelOf(copy.get(), 39, 40), 0xFF000000);
}

TEST_F(SnapshotTest, TakesWhatSdlDrawsTo) {
    const KestroSurfacePtr target = emptyTarget(640, 480);
    FillRect(target.get(), nullptr, 30, 20, 10, 255);
    SDL_SetRenderTarget(gRenderer, static_cast<SDL2KestroSurface*>(target.get())->getTexture());
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_EQ(pixelOf(copyOf(snapshot.get()).get(), 320, 240), 0xFF1E140A);
}

TEST_F(SnapshotTest, OfATargetLargerThanTheWindowIsItsTopLeft) {
    openScreen(64, 48, 0);
    const KestroSurfacePtr target = emptyTarget(1000, 900);
    FillRect(target.get(), nullptr, 30, 20, 10, 255);
    SDL_SetRenderTarget(gRenderer, static_cast<SDL2KestroSurface*>(target.get())->getTexture());
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    SDL_SetRenderTarget(gRenderer, nullptr);
    ASSERT_NE(snapshot, nullptr);
    EXPECT_EQ(snapshot->getWidth(), 64);
    EXPECT_EQ(pixelOf(copyOf(snapshot.get()).get(), 63, 47), 0xFF1E140A);
}

TEST_F(SnapshotTest, OfATargetSmallerThanTheWindowIsPaddedWithNothing) {
    const KestroSurfacePtr target = emptyTarget(10, 10);
    FillRect(target.get(), nullptr, 30, 20, 10, 255);
    SDL_SetRenderTarget(gRenderer, static_cast<SDL2KestroSurface*>(target.get())->getTexture());
    const KestroSurfacePtr snapshot(ScreenSnapshot());
    SDL_SetRenderTarget(gRenderer, nullptr);
    const MemorySurface copy = copyOf(snapshot.get());
    EXPECT_EQ(pixelOf(copy.get(), 9, 9), 0xFF1E140A);
    EXPECT_EQ(pixelOf(copy.get(), 10, 9), 0u);
    EXPECT_EQ(pixelOf(copy.get(), 9, 10), 0u);
}

TEST_F(SnapshotTest, IsNullWithoutMemory) {
    SdlMemory memory;
    memory.refuse(640 * 480 * 4);
    EXPECT_EQ(ScreenSnapshot(), nullptr);
}

TEST_F(SnapshotTest, IsNullWithoutAScreen) {
    ScreenUninit();
    EXPECT_EQ(ScreenSnapshot(), nullptr);
}
