#include "gfx/screen.h"

#include "gfx/fill.h"
#include "gfx/surface_cache.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

using testing::ElementsAre;

class ScreenCloseTest : public ScreenTest {};

TEST_F(ScreenCloseTest, DestroysRendererAndWindow) {
    CreationLog made;
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_THAT(made.take(), ElementsAre("renderer destroyed", "window destroyed"));
    EXPECT_EQ(gRenderer, nullptr);
}

TEST_F(ScreenCloseTest, DestroysTheTextureOfARotatedScreenFirst) {
    openScreen(640, 480, 1);
    CreationLog made;
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_THAT(made.take(), ElementsAre("texture destroyed", "renderer destroyed", "window destroyed"));
}

TEST_F(ScreenCloseTest, IsHarmlessASecondTime) {
    ScreenUninit();
    CreationLog made;
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_THAT(made.take(), testing::IsEmpty());
}

TEST_F(ScreenCloseTest, ForgetsTheRenderTarget) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    SetRenderTarget(target.get());
    ScreenUninit();
    EXPECT_EQ(GetRenderTarget(), nullptr);
}

/// A surface that a test can see go.
class SurfaceInCache : public SDL2KestroSurface {
public:
    SurfaceInCache(bool& deleted, SDL_Texture* texture)
        : SDL2KestroSurface(texture, nullptr), mDeleted(deleted) {}
    ~SurfaceInCache() override { mDeleted = true; }

private:
    bool& mDeleted;
};

static SDL_Texture* newTexture() {
    return SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC, 4, 4);
}

TEST_F(ScreenCloseTest, EmptiesBothCachesWhileTheirTexturesLive) {
    bool iconDeleted = false;
    bool textDeleted = false;
    gIconCache.put("icon", static_cast<KestroSurface*>(new SurfaceInCache(iconDeleted, newTexture())));
    gTextSurfaceCache.put("text", static_cast<KestroSurface*>(new SurfaceInCache(textDeleted, newTexture())));
    CreationLog made;
    ScreenUninit();
    EXPECT_TRUE(iconDeleted);
    EXPECT_TRUE(textDeleted);
    EXPECT_EQ(gIconCache.get("icon"), nullptr);
    EXPECT_EQ(gTextSurfaceCache.get("text"), nullptr);
    EXPECT_THAT(made.take(), ElementsAre("texture destroyed", "texture destroyed", "renderer destroyed",
                                         "window destroyed"));
}

class ScreenReopenTest : public ScreenTest {};

TEST_F(ScreenReopenTest, WorksAfterAClose) {
    ScreenUninit();
    openScreen(320, 240, 0);
    FillRect(nullptr, nullptr, 1, 2, 3, 255);
    solidPicture(8, 8, 0xFF405060)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(pixel(319, 239), 0xFF405060);
}

TEST_F(ScreenReopenTest, ClosesTheOldScreenFirst) {
    CreationLog made;
    openScreen(320, 240, 1);
    EXPECT_THAT(made.take(),
                ElementsAre("renderer destroyed", "window destroyed", "window Main 240x320 anywhere shown",
                            "renderer -1 accelerated vsync", "texture 320x240 target ARGB8888"));
}

TEST_F(ScreenReopenTest, EmptiesTheCachesOfTheOldScreen) {
    bool deleted = false;
    gTextSurfaceCache.put("text", static_cast<KestroSurface*>(new SurfaceInCache(deleted, newTexture())));
    openScreen(640, 480, 0);
    EXPECT_TRUE(deleted);
    EXPECT_EQ(gTextSurfaceCache.get("text"), nullptr);
}

TEST_F(ScreenReopenTest, ForgetsTheOldTargetAndTheOldRotation) {
    openScreen(640, 480, 1);
    const KestroSurfacePtr target = emptyTarget(8, 8);
    SetRenderTarget(target.get());
    openScreen(640, 480, 0);
    EXPECT_EQ(GetRenderTarget(), nullptr);
    DrawingLog drawn;
    FillRect(nullptr, nullptr, 1, 2, 3, 255);
    ScreenUpdateAndFlip();
    EXPECT_THAT(drawn.take(), ElementsAre("fill all #010203FF blend on W", "present"));
}

TEST_F(ScreenReopenTest, SurfacesOfTheOldScreenDrawNothingOnTheNewOne) {
    const KestroSurfacePtr old = solidPicture(8, 8, 0xFFFFFFFF);
    const KestroSurfacePtr oldTarget = emptyTarget(8, 8);
    openScreen(640, 480, 0);
    const KestroSurfacePtr fresh = solidPicture(8, 8, 0xFF112233); // perhaps where the old texture was
    DrawingLog drawn;
    EXPECT_EQ(old->render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(old->setAlpha(7), -1);
    EXPECT_EQ(old->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
    FillRect(oldTarget.get(), nullptr, 9, 9, 9, 255);
    EXPECT_THAT(drawn.take(), testing::IsEmpty());
    EXPECT_EQ(old->getWidth(), 8);
    EXPECT_EQ(fresh->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_EQ(pixel(0, 0), 0xFF112233);
}

TEST_F(ScreenReopenTest, ManyTimesInARow) {
    for (int i = 0; i < 5; ++i) {
        openScreen(100 + i, 80, i % 2);
        FillRect(nullptr, nullptr, 5, 6, 7, 255);
        ScreenUpdateAndFlip();
        EXPECT_EQ(pixel(40, 40), 0xFF050607);
    }
}

TEST_F(ScreenReopenTest, WorksAfterTheHostShutSdlDown) {
    quitSdl();
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0);
    openScreen(640, 480, 1);
    FillRect(nullptr, nullptr, 5, 6, 7, 255);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(100, 100), 0xFF050607);
}
