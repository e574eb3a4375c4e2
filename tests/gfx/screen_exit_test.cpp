#include "gfx/screen.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "support/kestro_test.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <SDL_ttf.h>

#include <cstdlib>
#include <string>

/// A process that ends with the screen open and the caches full.
class ScreenExitDeathTest : public KestroTest {
protected:
    void TearDown() override {
        takeLog(); // the child's lines
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        setenv("SDL_RENDER_DRIVER", "software", 1);
        KestroTest::TearDown();
    }

    static void useOpenGl() {
        skipLeakCheck();
        setenv("SDL_VIDEODRIVER", "offscreen", 1);
        setenv("SDL_RENDER_DRIVER", "opengl", 1);
    }

    /// Ends with 7 or 8 if the screen or the font does not open.
    static void fillCaches(int rotate) {
        if (SDL_Init(SDL_INIT_VIDEO) != 0 || !ScreenInit(320, 240, 32, rotate))
            exit(7);
        TTF_Init();
        static TTF_Font* const font = TTF_OpenFont(TEST_FONT, 20); // open to the end, as a host's may be
        for (int i = 0; i < 120; ++i) {
            const std::string name = "entry " + std::to_string(i);
            if (DrawString(font, {0, 0, 320, 240}, name.c_str(), {9, 9, 9, 255}, 1, true, false) == 0)
                exit(8);
            gIconCache.put(name, emptyTarget(8, 8).release());
        }
        SetRenderTarget(static_cast<KestroSurface*>(gIconCache.get("entry 119")));
        ScreenUpdateAndFlip();
    }

    static void endWithFullCaches(int rotate) {
        fillCaches(rotate);
        exit(0);
    }

    static void endAfterSdlQuit() {
        fillCaches(1);
        SDL_Quit();
        exit(0);
    }

    static void endAfterClosing() {
        fillCaches(1);
        ScreenUninit();
        SDL_Quit();
        exit(0);
    }
};

TEST_F(ScreenExitDeathTest, EndsCleanlyWithTheScreenOpen) {
    EXPECT_EXIT(endWithFullCaches(0), testing::ExitedWithCode(0), "^$");
}

TEST_F(ScreenExitDeathTest, EndsCleanlyWithARotatedScreenOpen) {
    EXPECT_EXIT(endWithFullCaches(1), testing::ExitedWithCode(0), "^$");
}

TEST_F(ScreenExitDeathTest, EndsCleanlyWithoutSdlUnderTheScreen) {
    EXPECT_EXIT(endAfterSdlQuit(), testing::ExitedWithCode(0), "^$");
}

TEST_F(ScreenExitDeathTest, EndsCleanlyWithAnAcceleratedScreenOpen) {
    useOpenGl();
    EXPECT_EXIT(endWithFullCaches(0), testing::ExitedWithCode(0), "");
}

TEST_F(ScreenExitDeathTest, EndsCleanlyWithoutSdlUnderAnAcceleratedScreen) {
    useOpenGl();
    EXPECT_EXIT(endAfterSdlQuit(), testing::ExitedWithCode(0), "");
}

TEST_F(ScreenExitDeathTest, EndsCleanlyAfterClosingAnAcceleratedScreen) {
    useOpenGl();
    EXPECT_EXIT(endAfterClosing(), testing::ExitedWithCode(0), "");
}
