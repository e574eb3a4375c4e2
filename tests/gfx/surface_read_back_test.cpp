#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/surface.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/sdl_memory.h"
#include "support/surfaces.h"

using testing::ElementsAre;

/// getPixels cannot draw into its own temporary texture, so it draws onto the window and reads there.
class ReadBackTest : public ScreenTest {
protected:
    /// The full copy that getPixels made of the surface, which keeps it.
    static const SDL_Surface* read(const KestroSurfacePtr& surface) {
        EXPECT_NE(surface->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
        return static_cast<SDL2KestroSurface*>(surface.get())->getSurface();
    }
    static const SDL_Surface* read(KestroSurfacePtr&&) = delete;

    static SDL_Texture* textureOf(const KestroSurfacePtr& surface) {
        return static_cast<SDL2KestroSurface*>(surface.get())->getTexture();
    }
};

TEST_F(ReadBackTest, LeavesThePictureAtTheTopLeftOfTheWindow) {
    const KestroSurfacePtr picture = solidPicture(64, 32, 0xFF102030);
    read(picture);
    EXPECT_EQ(pixel(0, 0), 0xFF102030);
    EXPECT_EQ(pixel(63, 31), 0xFF102030);
    EXPECT_EQ(pixel(64, 31), 0xFF000000);
    EXPECT_EQ(pixel(63, 32), 0xFF000000);
}

TEST_F(ReadBackTest, KeepsEveryPixelOfAnOpaquePicture) {
    const KestroSurfacePtr pattern = patternPicture();
    pattern->render(nullptr, nullptr, true, nullptr);
    SDL_Rect place{100, 100, 0, 0};
    pattern->render(nullptr, &place, true, nullptr);
    const SDL_Surface* const copy = read(pattern);
    for (int i = 0; i < 64; ++i)
        ASSERT_EQ(pixelOf(copy, i % 8, i / 8), pixel(100 + i % 8, 100 + i / 8)) << i;
}

TEST_F(ReadBackTest, MixesATranslucentPictureWithTheWindow) {
    FillRect(nullptr, nullptr, 0, 0, 255, 255);
    SDL_Rect place{300, 300, 0, 0};
    const KestroSurfacePtr picture = solidPicture(8, 8, 0x80FF0000);
    picture->render(nullptr, &place, true, nullptr);
    const Uint32 mixed = pixel(300, 300);
    ASSERT_NE(mixed, 0xFF0000FF);
    EXPECT_EQ(pixelOf(read(picture), 7, 7), mixed);
    EXPECT_EQ(mixed >> 24, 0xFFu);
}

TEST_F(ReadBackTest, ReadsATransparentTargetAsOpaque) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    ClearRect(target.get(), nullptr, 10, 20, 30, 0);
    EXPECT_EQ(pixelOf(read(target), 3, 3), 0xFF0A141E);
}

TEST_F(ReadBackTest, GivesZerosForACopyLargerThanTheWindow) {
    const KestroSurfacePtr picture = solidPicture(700, 500, 0xFF102030);
    const SDL_Surface* const both = read(picture);
    EXPECT_EQ(both->w, 700);
    EXPECT_EQ(pixelOf(both, 0, 0), 0u);
    EXPECT_EQ(pixelOf(both, 699, 499), 0u);
}

TEST_F(ReadBackTest, GivesZerosForACopyWiderOrHigherThanTheWindow) {
    const KestroSurfacePtr wide = solidPicture(641, 4, 0xFF102030);
    const KestroSurfacePtr high = solidPicture(4, 481, 0xFF102030);
    EXPECT_EQ(pixelOf(read(wide), 2, 2), 0u);
    EXPECT_EQ(pixelOf(read(high), 2, 2), 0u);
}

TEST_F(ReadBackTest, ReadsACopyAsLargeAsTheWindow) {
    const KestroSurfacePtr picture = solidPicture(640, 480, 0xFF102030);
    const SDL_Surface* const whole = read(picture);
    EXPECT_EQ(pixelOf(whole, 0, 0), 0xFF102030);
    EXPECT_EQ(pixelOf(whole, 639, 479), 0xFF102030);
}

TEST_F(ReadBackTest, RestoresTargetAndViewport) {
    const KestroSurfacePtr target = emptyTarget(100, 100);
    SDL_SetRenderTarget(gRenderer, textureOf(target));
    const SDL_Rect wanted{5, 6, 20, 10};
    SDL_RenderSetViewport(gRenderer, &wanted);
    const KestroSurfacePtr picture = solidPicture(16, 8, 0xFF102030);
    read(picture);
    SDL_Rect viewport{};
    SDL_RenderGetViewport(gRenderer, &viewport);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), textureOf(target));
    EXPECT_TRUE(SDL_RectEquals(&viewport, &wanted));
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(ReadBackTest, RestoresTheViewportOfTheWindow) {
    const KestroSurfacePtr picture = solidPicture(16, 8, 0xFF102030);
    read(picture);
    SDL_Rect viewport{};
    SDL_RenderGetViewport(gRenderer, &viewport);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
    EXPECT_EQ(viewport.w, 640);
    EXPECT_EQ(viewport.h, 480);
}

TEST_F(ReadBackTest, TakesPlaceOnTheTargetThatSdlDrawsTo) {
    const KestroSurfacePtr target = emptyTarget(100, 100);
    SDL_SetRenderTarget(gRenderer, textureOf(target));
    DrawingLog drawn;
    const KestroSurfacePtr picture = solidPicture(16, 8, 0xFF102030);
    EXPECT_EQ(pixelOf(read(picture), 15, 7), 0xFF102030);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 0,0 16x8 on T"));
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_EQ(pixelOf(target.get(), 15, 7), 0xFF102030);
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
}

TEST_F(ReadBackTest, PaysNoHeedToTheCurrentRenderTarget) {
    const KestroSurfacePtr target = emptyTarget(100, 100);
    SetRenderTarget(target.get());
    const KestroSurfacePtr picture = solidPicture(16, 8, 0xFF102030);
    read(picture);
    EXPECT_EQ(GetRenderTarget(), target.get());
    EXPECT_EQ(pixelOf(target.get(), 0, 0), 0u);
    EXPECT_EQ(pixel(0, 0), 0xFF102030);
}

TEST_F(ReadBackTest, OnARotatedScreenTakesPlaceOnTheWindowToo) {
    openScreen(640, 480, 1);
    DrawingLog drawn;
    const KestroSurfacePtr picture = solidPicture(16, 8, 0xFF102030);
    EXPECT_EQ(pixelOf(read(picture), 15, 7), 0xFF102030);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 0,0 16x8 on W"));
    const KestroSurfacePtr wide = solidPicture(481, 10, 0xFF102030);
    EXPECT_EQ(pixelOf(read(wide), 0, 0), 0u);
}

TEST_F(ReadBackTest, IsNullWithoutMemoryForTheCopy) {
    const KestroSurfacePtr picture = solidPicture(100, 100, 0xFF102030);
    SdlMemory memory;
    memory.refuse(100 * 100 * 4, 1); // the temporary texture's pixels are granted
    EXPECT_EQ(picture->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
}
