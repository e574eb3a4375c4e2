#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/text.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

using testing::ElementsAre;
using testing::IsEmpty;

/// The screen of 640 x 480 logical pixels is mounted on its side.
class RotatedScreenTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        openScreen(640, 480, 1);
    }

    /// The drawing calls of one flip.
    static std::vector<std::string> flip() {
        DrawingLog drawn;
        EXPECT_EQ(ScreenUpdateAndFlip(), 0);
        return drawn.take();
    }
};

TEST_F(RotatedScreenTest, ExchangesTheSidesOfTheWindowAndDrawsOffScreen) {
    ScreenUninit();
    CreationLog made;
    EXPECT_TRUE(ScreenInit(640, 480, 32, 1));
    EXPECT_THAT(made.take(), ElementsAre("window Main 480x640 anywhere shown",
                                         "renderer -1 accelerated vsync", "texture 640x480 target ARGB8888"));
    takeLog();
}

TEST_F(RotatedScreenTest, FlipTurnsTheFrameOntoTheWindowOnePixelToTheLeft) {
    EXPECT_THAT(flip(), ElementsAre("turn 270 all -> -81,80 640x480 on W", "present"));
}

TEST_F(RotatedScreenTest, AnyRotationButZeroTurnsTheSameWay) {
    openScreen(640, 480, -2);
    EXPECT_THAT(flip(), ElementsAre("turn 270 all -> -81,80 640x480 on W", "present"));
}

TEST_F(RotatedScreenTest, FlipPlacesAFullScreenOfTheConsole) {
    openScreen(1280, 720, 1);
    EXPECT_THAT(flip(), ElementsAre("turn 270 all -> -281,280 1280x720 on W", "present"));
}

TEST_F(RotatedScreenTest, FlipHalvesTowardZero) {
    openScreen(641, 480, 1); // -161 / 2 and 161 / 2
    EXPECT_THAT(flip(), ElementsAre("turn 270 all -> -81,80 641x480 on W", "present"));
    openScreen(480, 641, 1);
    EXPECT_THAT(flip(), ElementsAre("turn 270 all -> 79,-80 480x641 on W", "present"));
}

TEST_F(RotatedScreenTest, DrawingStaysOffTheWindowUntilTheFlip) {
    DrawingLog drawn;
    FillRect(nullptr, nullptr, 1, 2, 3, 255);
    solidPicture(8, 8, 0xFFFFFFFF)->render(nullptr, nullptr, false, nullptr);
    EXPECT_THAT(drawn.take(), ElementsAre("fill all #010203FF blend on T", "copy all -> all on T"));
    EXPECT_EQ(pixel(100, 100), 0xFF000000);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(100, 100), 0xFFFFFFFF);
}

TEST_F(RotatedScreenTest, NullTargetMeansTheLogicalPageNotTheWindow) {
    const KestroSurfacePtr target = emptyTarget(8, 8);
    SetRenderTarget(target.get());
    SetRenderTarget(nullptr);
    EXPECT_EQ(GetRenderTarget(), nullptr);
    FillRect(nullptr, nullptr, 10, 20, 30, 255);
    EXPECT_EQ(pixel(100, 100), 0xFF000000);
    EXPECT_EQ(pixelOf(target.get(), 4, 4), 0u);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(100, 100), 0xFF0A141E);
}

TEST_F(RotatedScreenTest, ASurfaceAsTargetIsNotTurned) {
    const KestroSurfacePtr target = emptyTarget(64, 64);
    SetRenderTarget(target.get());
    SDL_Rect corner{0, 0, 8, 8};
    FillRect(nullptr, &corner, 10, 20, 30, 255);
    SetRenderTarget(nullptr);
    EXPECT_EQ(pixelOf(target.get(), 7, 7), 0xFF0A141E);
    EXPECT_EQ(pixelOf(target.get(), 7, 63), 0u);
}

TEST_F(RotatedScreenTest, ThePageStartsTransparent) {
    DrawingLog drawn;
    openScreen(640, 480, 1);
    EXPECT_THAT(drawn.take(), testing::Contains("clear #00000000 on T"));
    // The dump of a drawing beyond the edge shows what the page held.
    SDL_Rect outside{-8, -8, 4, 4};
    solidPicture(4, 4, 0xFFFFFFFF)->render(nullptr, &outside, true, "page.bmp");
    const MemorySurface page = loadedBmp("page.bmp");
    ASSERT_NE(page, nullptr);
    for (const SDL_Point at : {SDL_Point{0, 0}, SDL_Point{479, 479}, SDL_Point{240, 100}})
        EXPECT_EQ(pixelOf(page.get(), at.x, at.y), 0u);
}

/// Fills, pictures and text all over the page, nothing of it symmetrical.
static void drawPage(TTF_Font* font) {
    for (int i = 0; i < 24; ++i) {
        SDL_Rect band{i * 27 - 3, i * 20 + i % 3, 61 + i, 23};
        const auto shade = static_cast<unsigned char>(10 * i);
        FillRect(nullptr, &band, shade, static_cast<unsigned char>(255 - shade), 77, 200);
    }
    SDL_Rect place{13, 301, 200, 100};
    patternPicture()->render(nullptr, &place, false, nullptr);
    DrawString(font, {0, 0, 640, 480}, "Turn me 转过来", {255, 250, 100, 255}, 2, true, false);
    DrawString(font, {0, 0, 640, 480}, "left edge", {90, 250, 255, 180}, 3, false, false);
}

TEST_F(RotatedScreenTest, ShowsEveryPixelOfThePageAtItsTurnedPlace) {
    openScreen(640, 480, 0);
    drawPage(font(30));
    const MemorySurface plain(frame());
    openScreen(640, 480, 1);
    SDL_Rect all{0, 0, 640, 480};
    ClearRect(nullptr, &all, 0, 0, 0, 255); // the plain screen began black
    drawPage(font(30));
    ScreenUpdateAndFlip();
    const MemorySurface turned(frame());
    ASSERT_EQ(turned->w, 480);
    ASSERT_EQ(turned->h, 640);
    // The page's right edge is at the top. Its first row falls off the window by the shift to the left,
    // which leaves the window's last column as it was.
    int wrong = 0;
    for (int y = 1; y < 480; ++y)
        for (int x = 0; x < 640; ++x)
            wrong += pixelOf(turned.get(), y - 1, 639 - x) != pixelOf(plain.get(), x, y);
    EXPECT_EQ(wrong, 0);
    for (int y = 0; y < 640; ++y)
        ASSERT_EQ(pixelOf(turned.get(), 479, y), 0xFF000000) << "in row " << y;
}
