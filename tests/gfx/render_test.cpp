#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/surface.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/sdl_memory.h"
#include "support/surfaces.h"

#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

class RenderTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        picture = solidPicture(64, 32, 0xFF102030);
        target = emptyTarget(100, 80);
        drawn.take();
    }

    void TearDown() override {
        picture.reset();
        target.reset();
        ScreenTest::TearDown();
    }

    SDL_Texture* targetTexture() const { return static_cast<SDL2KestroSurface*>(target.get())->getTexture(); }

    DrawingLog drawn;
    KestroSurfacePtr picture;
    KestroSurfacePtr target;
};

TEST_F(RenderTest, WithoutRectanglesDrawsAllOverTheWindow) {
    EXPECT_EQ(picture->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> all on W"));
    EXPECT_EQ(pixel(639, 479), 0xFF102030);
}

TEST_F(RenderTest, NaturalSizeWithoutAPlaceIsAllOverTheWindowToo) {
    EXPECT_EQ(picture->render(nullptr, nullptr, true, nullptr), 0);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> all on W"));
}

TEST_F(RenderTest, NaturalSizeTakesOnlyThePositionOfThePlace) {
    SDL_Rect place{10, 20, 10, 10};
    EXPECT_EQ(picture->render(nullptr, &place, true, nullptr), 0);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 10,20 64x32 on W"));
    EXPECT_EQ(pixel(9, 20), 0xFF000000);
    EXPECT_EQ(pixel(10, 20), 0xFF102030);
    EXPECT_EQ(pixel(73, 51), 0xFF102030);
    EXPECT_EQ(pixel(74, 51), 0xFF000000);
    EXPECT_EQ(pixel(73, 52), 0xFF000000);
}

TEST_F(RenderTest, NaturalSizeIsThatOfTheSurfaceEvenForAPartOfIt) {
    SDL_Rect part{0, 0, 8, 8};
    SDL_Rect place{10, 20, 10, 10};
    picture->render(&part, &place, true, nullptr);
    EXPECT_THAT(drawn.take(), ElementsAre("copy 0,0 8x8 -> 10,20 64x32 on W"));
}

TEST_F(RenderTest, OtherwiseScalesIntoThePlace) {
    SDL_Rect place{10, 20, 10, 12};
    picture->render(nullptr, &place, false, nullptr);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 10,20 10x12 on W"));
    EXPECT_EQ(pixel(19, 31), 0xFF102030);
    EXPECT_EQ(pixel(20, 31), 0xFF000000);
    EXPECT_EQ(pixel(19, 32), 0xFF000000);
}

TEST_F(RenderTest, LeavesTheCallersRectanglesAlone) {
    SDL_Rect part{1, 2, 8, 8};
    SDL_Rect place{10, 20, 10, 10};
    picture->render(&part, &place, true, nullptr);
    EXPECT_EQ(part.w, 8);
    EXPECT_EQ(place.x, 10);
    EXPECT_EQ(place.w, 10);
    EXPECT_EQ(place.h, 10);
}

TEST_F(RenderTest, DrawsThePartThatTheSourceNames) {
    const KestroSurfacePtr pattern = patternPicture();
    SDL_Rect place{0, 0, 8, 8};
    pattern->render(nullptr, &place, false, nullptr);
    SDL_Rect part{3, 5, 2, 1};
    SDL_Rect there{100, 100, 2, 1};
    pattern->render(&part, &there, false, nullptr);
    EXPECT_EQ(pixel(100, 100), pixel(3, 5));
    EXPECT_EQ(pixel(101, 100), pixel(4, 5));
    EXPECT_NE(pixel(3, 5), pixel(4, 5));
}

TEST_F(RenderTest, DrawsToTheRenderTargetAndGoesBackToTheWindow) {
    SetRenderTarget(target.get());
    SDL_Rect place{50, 50, 1, 1};
    EXPECT_EQ(picture->render(nullptr, &place, true, nullptr), 0);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> 50,50 64x32 on T"));
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
    EXPECT_EQ(pixelOf(target.get(), 99, 79), 0xFF102030);
    EXPECT_EQ(pixelOf(target.get(), 49, 50), 0u);
    EXPECT_EQ(pixel(50, 50), 0xFF000000);
}

TEST_F(RenderTest, GoesBackToTheWindowEvenFromAnotherTarget) {
    const KestroSurfacePtr other = emptyTarget(8, 8);
    SetRenderTarget(other.get());
    SDL_SetRenderTarget(gRenderer, targetTexture());
    picture->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
    EXPECT_EQ(pixelOf(other.get(), 0, 0), 0xFF102030);
    EXPECT_EQ(pixelOf(target.get(), 0, 0), 0u);
}

TEST_F(RenderTest, WithoutARenderTargetDrawsWhereSdlDraws) {
    SDL_SetRenderTarget(gRenderer, targetTexture());
    picture->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), targetTexture());
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_THAT(drawn.take(), ElementsAre("copy all -> all on T"));
    EXPECT_EQ(pixelOf(target.get(), 99, 79), 0xFF102030);
}

TEST_F(RenderTest, ReportsAFailedCopyToTheWindowWithoutALine) {
    SDL2KestroSurface broken(nullptr, nullptr);
    EXPECT_EQ(broken.render(nullptr, nullptr, false, "dump.bmp"), -1);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(RenderTest, LogsAFailedCopyToATarget) {
    SDL2KestroSurface broken(nullptr, nullptr);
    SetRenderTarget(target.get());
    EXPECT_EQ(broken.render(nullptr, nullptr, false, nullptr), -1);
    ASSERT_STRNE(SDL_GetError(), "");
    EXPECT_EQ(takeLog(), "SDL_RenderCopy fail : " + std::string(SDL_GetError()) + "\n");
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
}

TEST_F(RenderTest, DrawsNothingWhenTheTargetCannotBeOne) {
    SDL_Texture* const streaming =
        SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING, 8, 8);
    SDL2KestroSurface streamed(streaming, nullptr);
    const KestroSurfacePtr loaded = solidPicture(8, 8, 0xFFFFFFFF);
    for (KestroSurface* const no : {static_cast<KestroSurface*>(&streamed), loaded.get()}) {
        SetRenderTarget(no);
        EXPECT_EQ(picture->render(nullptr, nullptr, false, "dump.bmp"), -1);
        EXPECT_THAT(drawn.take(), IsEmpty());
    }
    SetRenderTarget(nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFF000000);
    EXPECT_EQ(loadedBmp("dump.bmp"), nullptr);
}

class RenderDumpTest : public RenderTest {};

TEST_F(RenderDumpTest, OfATargetHasTheSizeOfTheWindow) {
    SetRenderTarget(target.get());
    ClearRect(nullptr, nullptr, 50, 60, 70, 80);
    SDL_Rect place{10, 10, 4, 4};
    EXPECT_EQ(picture->render(nullptr, &place, false, "dump.bmp"), 0);
    const MemorySurface dump = loadedBmp("dump.bmp");
    ASSERT_NE(dump, nullptr);
    EXPECT_EQ(dump->w, 640);
    EXPECT_EQ(dump->h, 480);
    EXPECT_EQ(pixelOf(dump.get(), 13, 13), 0xFF102030);
    EXPECT_EQ(pixelOf(dump.get(), 14, 13), 0x50323C46u);
    EXPECT_EQ(pixelOf(dump.get(), 99, 79), 0x50323C46u);
    EXPECT_EQ(pixelOf(dump.get(), 100, 79), 0u);
    EXPECT_EQ(pixelOf(dump.get(), 99, 80), 0u);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
}

TEST_F(RenderDumpTest, WithoutMemoryThereIsNoneAndThePictureIsDrawn) {
    SetRenderTarget(target.get());
    SdlMemory memory;
    memory.refuse(640 * 480 * 4);
    EXPECT_EQ(picture->render(nullptr, nullptr, false, "dump.bmp"), 0);
    EXPECT_THAT(drawn.take(), testing::Contains(testing::StartsWith("copy all -> all")));
    EXPECT_FALSE(std::filesystem::exists("dump.bmp"));
}

TEST_F(RenderDumpTest, OfATargetLargerThanTheWindowIsItsTopLeft) {
    openScreen(40, 30, 0);
    const KestroSurfacePtr large = emptyTarget(900, 700);
    const KestroSurfacePtr solid = solidPicture(4, 4, 0xFF102030);
    SetRenderTarget(large.get());
    EXPECT_EQ(solid->render(nullptr, nullptr, false, "dump.bmp"), 0);
    const MemorySurface dump = loadedBmp("dump.bmp");
    ASSERT_NE(dump, nullptr);
    EXPECT_EQ(dump->w, 40);
    EXPECT_EQ(dump->h, 30);
    EXPECT_EQ(pixelOf(dump.get(), 39, 29), 0xFF102030);
}

TEST_F(RenderDumpTest, OfThePageOfARotatedScreenIsNotTurned) {
    openScreen(640, 480, 1);
    const KestroSurfacePtr solid = solidPicture(4, 4, 0xFF102030);
    SDL_Rect place{470, 0, 10, 10};
    EXPECT_EQ(solid->render(nullptr, &place, false, "dump.bmp"), 0);
    const MemorySurface dump = loadedBmp("dump.bmp");
    ASSERT_NE(dump, nullptr);
    EXPECT_EQ(dump->w, 480);
    EXPECT_EQ(dump->h, 640);
    EXPECT_EQ(pixelOf(dump.get(), 479, 9), 0xFF102030);
    EXPECT_EQ(pixelOf(dump.get(), 479, 10), 0u);
}

TEST_F(RenderDumpTest, IsNotMadeOfTheWindow) {
    EXPECT_EQ(picture->render(nullptr, nullptr, false, "dump.bmp"), 0);
    EXPECT_EQ(loadedBmp("dump.bmp"), nullptr);
}

TEST_F(RenderDumpTest, IsMadeEvenWhenTheCopyFails) {
    SDL2KestroSurface broken(nullptr, nullptr);
    SetRenderTarget(target.get());
    FillRect(nullptr, nullptr, 50, 60, 70, 255);
    EXPECT_EQ(broken.render(nullptr, nullptr, false, "dump.bmp"), -1);
    EXPECT_THAT(takeLog(), testing::StartsWith("SDL_RenderCopy fail : "));
    const MemorySurface dump = loadedBmp("dump.bmp");
    ASSERT_NE(dump, nullptr);
    EXPECT_EQ(pixelOf(dump.get(), 0, 0), 0xFF323C46);
}

TEST_F(RenderDumpTest, ToAFolderThatIsNotThereStillDraws) {
    SetRenderTarget(target.get());
    EXPECT_EQ(picture->render(nullptr, nullptr, false, "nowhere/dump.bmp"), 0);
    EXPECT_EQ(pixelOf(target.get(), 0, 0), 0xFF102030);
}
