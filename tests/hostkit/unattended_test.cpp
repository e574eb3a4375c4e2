#include "hostkit/unattended.h"

#include "gfx/fill.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <SDL_image.h>

#include <fstream>
#include <vector>

class UnattendedTest : public ScreenTest {
protected:
    /// Two colours, one in each half from left to right of what the owner sees.
    static void drawHalves() {
        SDL_Rect left{0, 0, 320, 480};
        SDL_Rect right{320, 0, 320, 480};
        FillRect(nullptr, &left, 255, 0, 0, 255);
        FillRect(nullptr, &right, 0, 0, 255, 255);
    }

    static Uint32 colorAt(SDL_Surface* picture, int x, int y) {
        const MemorySurface plain(SDL_ConvertSurfaceFormat(picture, SDL_PIXELFORMAT_ARGB8888, 0));
        return reinterpret_cast<Uint32*>(static_cast<char*>(plain->pixels) + y * plain->pitch)[x];
    }

    static void expectHalves(const char* path) {
        const MemorySurface saved(IMG_Load(path));
        ASSERT_NE(saved, nullptr) << SDL_GetError();
        EXPECT_EQ(saved->w, 640);
        EXPECT_EQ(saved->h, 480);
        EXPECT_EQ(saved->format->BytesPerPixel, 3) << "opaque";
        EXPECT_EQ(colorAt(saved.get(), 10, 10), 0xFFFF0000);
        EXPECT_EQ(colorAt(saved.get(), 630, 470), 0xFF0000FF);
    }
};

TEST_F(UnattendedTest, PictureIsWhatTheScreenShows) {
    drawHalves();
    ASSERT_TRUE(hostkit::saveScreenPicture("page.png"));
    expectHalves("page.png");
}

TEST_F(UnattendedTest, PictureIsABmpWhereItsNameEndsSo) {
    drawHalves();
    for (const char* const name : {"page.bmp", "page.BMP"}) {
        ASSERT_TRUE(hostkit::saveScreenPicture(name));
        std::string magic(2, ' ');
        std::ifstream(name).read(&magic[0], 2);
        EXPECT_EQ(magic, "BM");
        expectHalves(name);
    }
    ASSERT_TRUE(hostkit::saveScreenPicture("bmp"));
    std::string magic(4, ' ');
    std::ifstream("bmp").read(&magic[0], 4);
    EXPECT_EQ(magic, "\x89PNG");
}

TEST_F(UnattendedTest, PictureOfADisplayOnItsSideIsUpright) {
    openScreen(640, 480, 1);
    drawHalves();
    ScreenUpdateAndFlip();
    ASSERT_TRUE(hostkit::saveScreenPicture("page.png"));
    takeLog();
    expectHalves("page.png");
}

TEST_F(UnattendedTest, PictureInAFolderThatIsNotThereFails) {
    EXPECT_FALSE(hostkit::saveScreenPicture("nowhere/page.png"));
    EXPECT_STRNE(SDL_GetError(), "");
}

TEST_F(UnattendedTest, WithoutAScreenThereIsNoPicture) {
    ScreenUninit();
    EXPECT_FALSE(hostkit::saveScreenPicture("page.png"));
    EXPECT_FALSE(std::ifstream("page.png").good());
    openScreen(640, 480, 0);
}

TEST_F(UnattendedTest, AKeyIsPressedAndLetGo) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    hostkit::pressKey(SDL_SCANCODE_SPACE);
    std::vector<Uint32> types;
    for (SDL_Event event; SDL_PollEvent(&event) == 1;) {
        types.push_back(event.type);
        EXPECT_EQ(event.key.keysym.sym, SDLK_SPACE);
    }
    EXPECT_EQ(types, (std::vector<Uint32>{SDL_KEYDOWN, SDL_KEYUP}));
}
