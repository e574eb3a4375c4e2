#include "gfx/screen.h"

#include "gfx/fill.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <cstdlib>

using testing::ElementsAre;
using testing::IsEmpty;

/// SDL runs, but no screen is open.
class ScreenOpenTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        ScreenUninit();
    }
};

static std::string pointersLine(const void* window, const void* renderer) {
    char line[128];
    snprintf(line, sizeof line, "window=%p, renderer=%p\n", window, renderer);
    return line;
}

static std::string openLines(const std::string& firstLine) {
    return firstLine + pointersLine(SDL_RenderGetWindow(gRenderer), gRenderer);
}

TEST_F(ScreenOpenTest, LogsItsArgumentsAndWhatItMade) {
    EXPECT_TRUE(ScreenInit(640, 480, 32, 0));
    EXPECT_EQ(takeLog(), openLines("ScreenInit 640x480 32, rotate=0\n"));
}

TEST_F(ScreenOpenTest, LogsTheLogicalSizeAndTheRotationAsGiven) {
    EXPECT_TRUE(ScreenInit(300, 200, 16, 3));
    EXPECT_EQ(takeLog(), openLines("ScreenInit 300x200 16, rotate=3\n"));
}

TEST_F(ScreenOpenTest, OnlyLogsTheDepth) {
    EXPECT_TRUE(ScreenInit(64, 48, -7, 0));
    EXPECT_EQ(takeLog(), openLines("ScreenInit 64x48 -7, rotate=0\n"));
}

TEST_F(ScreenOpenTest, MakesAWindowAndAnAcceleratedRendererThatWaitsForTheDisplay) {
    CreationLog made;
    EXPECT_TRUE(ScreenInit(640, 480, 32, 0));
    EXPECT_THAT(made.take(),
                ElementsAre("window Main 640x480 anywhere shown", "renderer -1 accelerated vsync"));
    takeLog();
}

TEST_F(ScreenOpenTest, TheWindowHasTheSizeOfTheScreen) {
    openScreen(320, 200, 0);
    int w = 0;
    int h = 0;
    SDL_GetWindowSize(SDL_RenderGetWindow(gRenderer), &w, &h);
    EXPECT_EQ(w, 320);
    EXPECT_EQ(h, 200);
    EXPECT_STREQ(SDL_GetWindowTitle(SDL_RenderGetWindow(gRenderer)), "Main");
}

TEST_F(ScreenOpenTest, AsksForSmoothScaling) {
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "0");
    openScreen(640, 480, 0);
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_RENDER_SCALE_QUALITY), "1");
}

TEST_F(ScreenOpenTest, WarnsOnTheSameLineWhenScalingCannotBeSmooth) {
    setenv("SDL_RENDER_SCALE_QUALITY", "0", 1); // what the user sets stands above a hint
    EXPECT_TRUE(ScreenInit(640, 480, 32, 0));
    unsetenv("SDL_RENDER_SCALE_QUALITY");
    EXPECT_EQ(takeLog(), openLines("ScreenInit 640x480 32, rotate=0\n"
                                   "[Warning]: Linear texture filtering not enabled!"));
}

TEST_F(ScreenOpenTest, FailsWithoutARenderer) {
    unsetenv("SDL_RENDER_DRIVER"); // the dummy display has no accelerated one
    EXPECT_FALSE(ScreenInit(640, 480, 32, 0));
    setenv("SDL_RENDER_DRIVER", "software", 1);
    EXPECT_EQ(gRenderer, nullptr);
    SDL_Window* const window = SDL_GetWindowFromID(2); // ScreenTest opened the first one
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(takeLog(), "ScreenInit 640x480 32, rotate=0\n" + pointersLine(window, nullptr));
}

TEST_F(ScreenOpenTest, ClosesTheWindowThatGotNoRenderer) {
    unsetenv("SDL_RENDER_DRIVER");
    ScreenInit(640, 480, 32, 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    takeLog();
    CreationLog made;
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_THAT(made.take(), ElementsAre("window destroyed"));
}

TEST_F(ScreenOpenTest, OpeningAgainClosesTheWindowThatGotNoRenderer) {
    unsetenv("SDL_RENDER_DRIVER");
    ScreenInit(640, 480, 32, 0);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    CreationLog made;
    EXPECT_TRUE(ScreenInit(640, 480, 32, 0));
    takeLog();
    EXPECT_THAT(made.take(), ElementsAre("window destroyed", "window Main 640x480 anywhere shown",
                                         "renderer -1 accelerated vsync"));
}

TEST_F(ScreenOpenTest, FailsWithoutAWindow) {
    SDL_Quit();
    setenv("SDL_VIDEODRIVER", "nosuchdisplay", 1);
    EXPECT_FALSE(ScreenInit(640, 480, 32, 1));
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    EXPECT_EQ(takeLog(), "ScreenInit 640x480 32, rotate=1\n" + pointersLine(nullptr, nullptr));
    DrawingLog drawn;
    FillRect(nullptr, nullptr, 1, 2, 3, 255);
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
    EXPECT_EQ(CreateSurface(8, 8), nullptr);
    EXPECT_EQ(takeLog(), "Unable to create texture: " + std::string(SDL_GetError()) + "\n");
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

class ScreenFlipTest : public ScreenTest {};

TEST_F(ScreenFlipTest, OnlyPresentsAPlainScreen) {
    DrawingLog drawn;
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
    EXPECT_THAT(drawn.take(), ElementsAre("present"));
}

TEST_F(ScreenFlipTest, ClearsNothing) {
    FillRect(nullptr, nullptr, 10, 20, 30, 255);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(0, 0), 0xFF0A141E);
    EXPECT_EQ(pixel(639, 479), 0xFF0A141E);
}

class FrameBufferTest : public ScreenTest {};

TEST_F(FrameBufferTest, FlippingItFailsWithALineAndDrawsNothing) {
    DrawingLog drawn;
    lcd_fb_flip();
    EXPECT_EQ(takeLog(), "FBIOPAN_DISPLAY fail\n");
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_F(FrameBufferTest, WaitingForItDoesNothing) {
    DrawingLog drawn;
    lcd_fb_wait_for_vsync();
    EXPECT_EQ(takeLog(), "");
    EXPECT_THAT(drawn.take(), IsEmpty());
}
