#include "gfx/fill.h"
#include "gfx/screen.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

using testing::ElementsAre;
using testing::IsEmpty;

class RenderTargetTest : public ScreenTest {
protected:
    /// What a fill through the current render target does.
    static std::vector<std::string> fill() {
        DrawingLog drawn;
        FillRect(nullptr, nullptr, 1, 2, 3, 255);
        return drawn.take();
    }
};

TEST_F(RenderTargetTest, IsTheScreenAtFirst) {
    EXPECT_EQ(GetRenderTarget(), nullptr);
    EXPECT_THAT(fill(), ElementsAre("fill all #010203FF blend on W"));
}

TEST_F(RenderTargetTest, IsTheSurfaceThatWasSetLast) {
    const KestroSurfacePtr first = emptyTarget(8, 8);
    const KestroSurfacePtr second = emptyTarget(8, 8);
    SetRenderTarget(first.get());
    EXPECT_EQ(GetRenderTarget(), first.get());
    SetRenderTarget(second.get());
    EXPECT_EQ(GetRenderTarget(), second.get());
    EXPECT_THAT(fill(), ElementsAre("fill all #010203FF blend on T"));
    EXPECT_EQ(pixelOf(first.get(), 0, 0), 0u);
    EXPECT_EQ(pixelOf(second.get(), 0, 0), 0xFF010203);
}

TEST_F(RenderTargetTest, NullSetsItBackToTheWindow) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    SetRenderTarget(target.get());
    SetRenderTarget(nullptr);
    EXPECT_EQ(GetRenderTarget(), nullptr);
    EXPECT_THAT(fill(), ElementsAre("fill all #010203FF blend on W"));
}

TEST_F(RenderTargetTest, SettingItLeavesSdlsTargetAlone) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    SDL_Texture* const own =
        SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET, 4, 4);
    SDL_SetRenderTarget(gRenderer, own);
    SetRenderTarget(target.get());
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), own);
    SetRenderTarget(nullptr);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), own);
    SDL_DestroyTexture(own);
}

TEST_F(RenderTargetTest, DeletingItsSurfaceSetsItBackToTheWindow) {
    KestroSurfacePtr target = emptyTarget(8, 8);
    SetRenderTarget(target.get());
    target.reset();
    EXPECT_EQ(GetRenderTarget(), nullptr);
    EXPECT_THAT(fill(), ElementsAre("fill all #010203FF blend on W"));
    EXPECT_EQ(pixel(639, 479), 0xFF010203);
}

TEST_F(RenderTargetTest, DeletingItsSurfaceOnARotatedScreenSetsItBackToThePage) {
    openScreen(640, 480, 1);
    KestroSurfacePtr target = emptyTarget(8, 8);
    SetRenderTarget(target.get());
    target.reset();
    EXPECT_EQ(GetRenderTarget(), nullptr);
    EXPECT_THAT(fill(), ElementsAre("fill all #010203FF blend on T"));
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(100, 600), 0xFF010203);
}

TEST_F(RenderTargetTest, DeletingAnotherSurfaceLeavesIt) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    KestroSurfacePtr other = emptyTarget(8, 8);
    SetRenderTarget(other.get());
    SetRenderTarget(target.get());
    other.reset();
    EXPECT_EQ(GetRenderTarget(), target.get());
    EXPECT_THAT(fill(), ElementsAre("fill all #010203FF blend on T"));
}

TEST_F(RenderTargetTest, APictureThatCannotBeATargetTakesNoDrawing) {
    const KestroSurfacePtr picture = solidPicture(8, 8, 0xFFFFFFFF);
    SetRenderTarget(picture.get());
    EXPECT_EQ(GetRenderTarget(), picture.get());
    EXPECT_THAT(fill(), IsEmpty());
    SetRenderTarget(nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
    EXPECT_EQ(picture->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_EQ(pixel(0, 0), 0xFFFFFFFF) << "the picture itself has changed";
}

TEST_F(RenderTargetTest, NestsByHand) {
    const KestroSurfacePtr outer = emptyTarget(8, 8);
    const KestroSurfacePtr inner = emptyTarget(8, 8);
    SetRenderTarget(outer.get());
    KestroSurface* const before = GetRenderTarget();
    SetRenderTarget(inner.get());
    FillRect(nullptr, nullptr, 9, 9, 9, 255);
    SetRenderTarget(before);
    inner->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(pixelOf(outer.get(), 4, 4), 0xFF090909);
}
