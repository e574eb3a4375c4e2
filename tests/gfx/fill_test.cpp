#include "gfx/fill.h"

#include "gfx/screen.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

using testing::ElementsAre;
using testing::IsEmpty;

class FillTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        target = emptyTarget(20, 10);
        drawn.take();
    }

    void TearDown() override {
        target.reset();
        ScreenTest::TearDown();
    }

    static SDL_Texture* textureOf(const KestroSurfacePtr& surface) {
        return static_cast<SDL2KestroSurface*>(surface.get())->getTexture();
    }

    DrawingLog drawn;
    KestroSurfacePtr target;
    SDL_Rect corner{2, 3, 4, 5};
};

TEST_F(FillTest, FillRectBlendsOntoTheWindow) {
    FillRect(nullptr, &corner, 0x11, 0x22, 0x33, 0x44);
    EXPECT_THAT(drawn.take(), ElementsAre("fill 2,3 4x5 #11223344 blend on W"));
}

TEST_F(FillTest, ClearRectReplacesOnTheWindow) {
    ClearRect(nullptr, &corner, 0x11, 0x22, 0x33, 0x44);
    EXPECT_THAT(drawn.take(), ElementsAre("fill 2,3 4x5 #11223344 replace on W"));
}

TEST_F(FillTest, FillRectInternalTakesAnyMode) {
    FillRectInternal(nullptr, &corner, 1, 2, 3, 4, SDL_BLENDMODE_ADD);
    FillRectInternal(nullptr, nullptr, 1, 2, 3, 4, SDL_BLENDMODE_MOD);
    EXPECT_THAT(drawn.take(), ElementsAre("fill 2,3 4x5 #01020304 add on W", "fill all #01020304 mod on W"));
}

TEST_F(FillTest, ColoursJustTheRectangle) {
    FillRect(nullptr, &corner, 10, 20, 30, 255);
    EXPECT_EQ(pixel(2, 3), 0xFF0A141E);
    EXPECT_EQ(pixel(5, 7), 0xFF0A141E);
    EXPECT_EQ(pixel(1, 3), 0xFF000000);
    EXPECT_EQ(pixel(2, 2), 0xFF000000);
    EXPECT_EQ(pixel(6, 7), 0xFF000000);
    EXPECT_EQ(pixel(5, 8), 0xFF000000);
}

TEST_F(FillTest, NullRectangleIsTheWholeTarget) {
    FillRect(target.get(), nullptr, 10, 20, 30, 255);
    EXPECT_EQ(pixelOf(target.get(), 0, 0), 0xFF0A141E);
    EXPECT_EQ(pixelOf(target.get(), 19, 9), 0xFF0A141E);
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
}

TEST_F(FillTest, ASurfaceIsFilledItselfWhateverTheRenderTarget) {
    const KestroSurfacePtr other = emptyTarget(8, 8);
    SetRenderTarget(other.get());
    FillRect(target.get(), &corner, 10, 20, 30, 255);
    EXPECT_THAT(drawn.take(), testing::Contains("fill 2,3 4x5 #0A141EFF blend on T"));
    EXPECT_EQ(pixelOf(target.get(), 2, 3), 0xFF0A141E);
    EXPECT_EQ(pixelOf(other.get(), 2, 3), 0u);
}

TEST_F(FillTest, NullSurfaceIsTheRenderTarget) {
    SetRenderTarget(target.get());
    FillRect(nullptr, &corner, 10, 20, 30, 255);
    EXPECT_THAT(drawn.take(), ElementsAre("fill 2,3 4x5 #0A141EFF blend on T"));
    EXPECT_EQ(pixelOf(target.get(), 2, 3), 0xFF0A141E);
    EXPECT_EQ(pixel(2, 3), 0xFF000000);
}

TEST_F(FillTest, NullSurfaceWithoutARenderTargetIsWhatSdlDrawsTo) {
    SDL_SetRenderTarget(gRenderer, textureOf(target));
    FillRect(nullptr, &corner, 10, 20, 30, 255);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), textureOf(target));
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_EQ(pixelOf(target.get(), 2, 3), 0xFF0A141E);
    EXPECT_EQ(pixel(2, 3), 0xFF000000);
}

TEST_F(FillTest, GoesBackToTheTargetThatSdlHadBefore) {
    FillRect(target.get(), nullptr, 1, 2, 3, 4);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
    const KestroSurfacePtr other = emptyTarget(8, 8);
    SDL_SetRenderTarget(gRenderer, textureOf(other));
    FillRect(target.get(), nullptr, 1, 2, 3, 4);
    ClearRect(target.get(), nullptr, 1, 2, 3, 4);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), textureOf(other));
    SetRenderTarget(target.get());
    FillRect(nullptr, nullptr, 1, 2, 3, 4);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), textureOf(other));
}

TEST_F(FillTest, LeavesDrawColourAndBlendModeAsTheyWere) {
    SDL_SetRenderDrawColor(gRenderer, 11, 22, 33, 44);
    SDL_SetRenderDrawBlendMode(gRenderer, SDL_BLENDMODE_MOD);
    FillRect(nullptr, nullptr, 1, 2, 3, 4);
    ClearRect(target.get(), &corner, 1, 2, 3, 4);
    Uint8 color[4] = {};
    SDL_GetRenderDrawColor(gRenderer, &color[0], &color[1], &color[2], &color[3]);
    EXPECT_THAT(color, ElementsAre(11, 22, 33, 44));
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    SDL_GetRenderDrawBlendMode(gRenderer, &mode);
    EXPECT_EQ(mode, SDL_BLENDMODE_MOD);
}

TEST_F(FillTest, FillRectMixesByItsAlpha) {
    ClearRect(nullptr, nullptr, 0, 0, 255, 255);
    FillRect(nullptr, nullptr, 255, 0, 0, 51);
    EXPECT_EQ(pixel(0, 0), 0xFF3300CC);
}

TEST_F(FillTest, FillRectWithAlphaZeroLeavesAllUnchanged) {
    ClearRect(target.get(), nullptr, 9, 8, 7, 200);
    FillRect(target.get(), nullptr, 255, 255, 255, 0);
    EXPECT_EQ(pixelOf(target.get(), 5, 5), 0xC8090807);
}

TEST_F(FillTest, ClearRectWithAlphaZeroMakesTheRectangleTransparent) {
    ClearRect(target.get(), nullptr, 9, 8, 7, 255);
    ClearRect(target.get(), &corner, 9, 8, 7, 0);
    EXPECT_EQ(pixelOf(target.get(), 2, 3), 0x00090807u);
    EXPECT_EQ(pixelOf(target.get(), 6, 7), 0xFF090807);
}

TEST_F(FillTest, ClearRectWritesAlphaAsGiven) {
    FillRect(target.get(), nullptr, 255, 255, 255, 255);
    ClearRect(target.get(), nullptr, 1, 2, 3, 128);
    EXPECT_EQ(pixelOf(target.get(), 19, 9), 0x80010203);
}

TEST_F(FillTest, RectanglesMayReachOverTheEdge) {
    SDL_Rect over{-5, -5, 10, 10};
    SDL_Rect outside{100, 100, 10, 10};
    FillRect(target.get(), &over, 10, 20, 30, 255);
    FillRect(target.get(), &outside, 10, 20, 30, 255);
    EXPECT_EQ(pixelOf(target.get(), 4, 4), 0xFF0A141E);
    for (int i = 0; i < 200; ++i) {
        if (i % 20 >= 5 || i / 20 >= 5) {
            ASSERT_EQ(pixelOf(target.get(), i % 20, i / 20), 0u) << i;
        }
    }
}

TEST_F(FillTest, PicturesThatCannotBeATargetTakeNothing) {
    SDL_Texture* const streaming =
        SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING, 8, 8);
    SDL2KestroSurface streamed(streaming, nullptr);
    const KestroSurfacePtr loaded = solidPicture(8, 8, 0xFFFFFFFF);
    SDL_SetRenderDrawColor(gRenderer, 11, 22, 33, 44);
    for (KestroSurface* const no : {static_cast<KestroSurface*>(&streamed), loaded.get()}) {
        FillRect(no, nullptr, 1, 2, 3, 255);
        SetRenderTarget(no);
        ClearRect(nullptr, nullptr, 1, 2, 3, 255);
    }
    SetRenderTarget(nullptr);
    EXPECT_THAT(drawn.take(), IsEmpty());
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
    Uint8 red = 0;
    SDL_GetRenderDrawColor(gRenderer, &red, &red, &red, &red);
    EXPECT_EQ(red, 44);
    loaded->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFFFFFFFF);
}

TEST_F(FillTest, ASurfaceWithoutATextureFillsTheWindow) {
    SDL2KestroSurface bare(nullptr, nullptr);
    SetRenderTarget(target.get());
    FillRect(&bare, &corner, 10, 20, 30, 255);
    EXPECT_THAT(drawn.take(), ElementsAre("fill 2,3 4x5 #0A141EFF blend on W"));
}

TEST_F(FillTest, WithoutAScreenDoesNothing) {
    ScreenUninit();
    FillRect(nullptr, &corner, 1, 2, 3, 255);
    ClearRect(target.get(), nullptr, 1, 2, 3, 255);
    FillRectInternal(nullptr, nullptr, 1, 2, 3, 255, SDL_BLENDMODE_ADD);
    EXPECT_THAT(drawn.take(), IsEmpty());
}
