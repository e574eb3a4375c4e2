#include "gfx/fill.h"
#include "gfx/screen.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <functional>
#include <memory>
#include <vector>

using testing::IsEmpty;

/// How the screen ended.
struct ScreenEnd {
    const char* name;
    void (*run)(void (*quitSdl)());
};

static void closeScreen(void (*)()) {
    ScreenUninit();
}

static void quitUnderTheScreen(void (*quitSdl)()) {
    quitSdl();
}

static void closeAndQuit(void (*)()) {
    ScreenUninit();
    SDL_Quit();
}

static void quitAndClose(void (*quitSdl)()) {
    quitSdl();
    ScreenUninit();
}

static void quitAndRestartSdl(void (*quitSdl)()) {
    quitSdl();
    SDL_Init(SDL_INIT_VIDEO);
}

static const ScreenEnd ends[] = {{"AfterScreenUninit", closeScreen},
                                 {"AfterSdlQuit", quitUnderTheScreen},
                                 {"AfterScreenUninitAndSdlQuit", closeAndQuit},
                                 {"AfterSdlQuitAndScreenUninit", quitAndClose},
                                 {"AfterSdlWasShutDownAndStarted", quitAndRestartSdl}};

/// Surfaces of every kind, from a screen that is no more.
class OutlivedScreenTest : public ScreenTest, public testing::WithParamInterface<ScreenEnd> {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        std::vector<Uint32> pixels(16 * 8, 0xFF123456);
        picture = solidPicture(16, 8, 0xFF000001);
        target = emptyTarget(16, 8);
        withCopy.reset(CreateFromPixels(pixels.data(), 16, 8, 32, 64, 0xFF0000, 0xFF00, 0xFF, 0xFF000000));
        ASSERT_NE(withCopy, nullptr);
        snapshot.reset(ScreenSnapshot());
        SetRenderTarget(target.get());
        small = font(20);
        DrawString(small, {0, 0, 10, 10}, "kept", {1, 2, 3, 255}, 0, true, false);
    }

    void TearDown() override {
        picture.reset();
        target.reset();
        withCopy.reset();
        snapshot.reset();
        ScreenTest::TearDown();
    }

    static void endScreen() { GetParam().run(quitSdl); }

    std::vector<KestroSurface*> all() {
        return {picture.get(), target.get(), withCopy.get(), snapshot.get()};
    }

    KestroSurfacePtr picture;
    KestroSurfacePtr target;
    KestroSurfacePtr withCopy;
    KestroSurfacePtr snapshot;
    TTF_Font* small = nullptr;
};

INSTANTIATE_TEST_SUITE_P(All, OutlivedScreenTest, testing::ValuesIn(ends),
                         [](const auto& tested) { return tested.param.name; });

TEST_P(OutlivedScreenTest, SurfacesAnswerMinusOneOrNullAndDrawNothing) {
    endScreen();
    DrawingLog drawn;
    for (KestroSurface* const surface : all()) {
        SDL_BlendMode mode = SDL_BLENDMODE_MOD;
        unsigned char alpha = 99;
        int size = 8;
        SDL_Rect place{0, 0, 4, 4};
        EXPECT_EQ(surface->setBlendMode(SDL_BLENDMODE_ADD), -1);
        EXPECT_EQ(surface->setAlpha(5), -1);
        EXPECT_EQ(surface->getBlendMode(&mode), -1);
        EXPECT_EQ(surface->getAlpha(&alpha), -1);
        EXPECT_EQ(surface->render(nullptr, &place, true, "dump.bmp"), -1);
        EXPECT_EQ(surface->getPixels(nullptr, nullptr, &size, &size), nullptr);
    }
    EXPECT_THAT(drawn.take(), IsEmpty());
    EXPECT_EQ(loadedBmp("dump.bmp"), nullptr);
}

TEST_P(OutlivedScreenTest, SurfacesKeepTheirSizeAndTheirCopyInMemory) {
    endScreen();
    EXPECT_EQ(picture->getWidth(), 16);
    EXPECT_EQ(picture->getHeight(), 8);
    EXPECT_EQ(snapshot->getWidth(), 640);
    SaveSurface2BMP(withCopy.get(), "copy.bmp");
    const MemorySurface copy = loadedBmp("copy.bmp");
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(pixelOf(copy.get(), 15, 7), 0xFF123456);
}

TEST_P(OutlivedScreenTest, DeletingSurfacesTouchesNoTexture) {
    endScreen();
    CreationLog made;
    picture.reset();
    target.reset();
    withCopy.reset();
    snapshot.reset();
    EXPECT_THAT(made.take(), IsEmpty());
    EXPECT_EQ(GetRenderTarget(), nullptr);
}

TEST_P(OutlivedScreenTest, EveryDrawingCallIsSilentAndDoesNothing) {
    endScreen();
    DrawingLog drawn;
    SDL_Rect rect{0, 0, 5, 5};
    for (KestroSurface* const surface : {static_cast<KestroSurface*>(nullptr), target.get()}) {
        FillRect(surface, &rect, 1, 2, 3, 4);
        ClearRect(surface, nullptr, 1, 2, 3, 4);
        FillRectInternal(surface, &rect, 1, 2, 3, 4, SDL_BLENDMODE_ADD);
        SetRenderTarget(surface);
    }
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
    EXPECT_EQ(ScreenSnapshot(), nullptr);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_P(OutlivedScreenTest, NothingNewCanBeMade) {
    endScreen();
    Uint32 pixels[4] = {};
    const MemorySurface memory(create_surface(2, 2));
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(CreateSurface(memory.get()), nullptr);
    EXPECT_EQ(CreateFromPixels(pixels, 2, 2, 32, 8, 0xFF0000, 0xFF00, 0xFF, 0xFF000000), nullptr);
    EXPECT_EQ(CreateSurface(8, 8), nullptr);
    EXPECT_EQ(takeLog(), "Unable to create texture: " + std::string(SDL_GetError()) + "\n");
}

TEST_P(OutlivedScreenTest, TextIsNotDrawn) {
    endScreen();
    DrawingLog drawn;
    const SDL_Color color{1, 2, 3, 255};
    const SDL_Rect rect{0, 0, 50, 50};
    EXPECT_EQ(DrawString(small, rect, "new", color, 1, true, false), 0);
    DrawString(small, rect, "kept", color, 1, true, false);
    DrawStringLines(small, rect, "a\nb", "\n", color, 1, true);
    DrawStringLinesSpacing(small, rect, "a\nb", "\n", 1, color, 1, true);
    EXPECT_GT(getTruncateLen(small, "a long label that needs a cut", 0, 60), 0);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_P(OutlivedScreenTest, ANewScreenWorksAsEver) {
    endScreen();
    openScreen(64, 48, 1);
    EXPECT_EQ(gTextSurfaceCache.get("kept"), nullptr);
    EXPECT_EQ(picture->render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(solidPicture(4, 4, 0xFF445566)->render(nullptr, nullptr, false, nullptr), 0);
    ScreenUpdateAndFlip();
    EXPECT_EQ(pixel(10, 10), 0xFF445566);
}
