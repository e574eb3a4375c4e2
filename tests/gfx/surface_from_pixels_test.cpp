#include "gfx/screen.h"
#include "gfx/surface.h"
#include "support/creation_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <vector>

class CreateFromPixelsTest : public ScreenTest {
protected:
    static SDL_Surface* copyOf(const KestroSurfacePtr& surface) {
        return static_cast<SDL2KestroSurface*>(surface.get())->getSurface();
    }

    /// 2 x 2 pixels, ARGB, with four bytes of padding after each row.
    std::vector<Uint32> pixels{0xFF112233, 0xFF445566, 0xDEADBEEF, 0x80778899, 0x00AABBCC, 0xDEADBEEF};

    KestroSurface* create(int depth = 32, Uint32 red = 0x00FF0000) {
        return CreateFromPixels(pixels.data(), 2, 2, depth, 12, red, 0x0000FF00, 0x000000FF, 0xFF000000);
    }
};

TEST_F(CreateFromPixelsTest, CopiesThePixelsWithinTheirPitch) {
    const KestroSurfacePtr surface(create());
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->getWidth(), 2);
    EXPECT_EQ(surface->getHeight(), 2);
    SDL_Surface* const copy = copyOf(surface);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy->pixels, pixels.data());
    EXPECT_EQ(copy->format->format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(pixelOf(copy, 0, 0), 0xFF112233);
    EXPECT_EQ(pixelOf(copy, 1, 0), 0xFF445566);
    EXPECT_EQ(pixelOf(copy, 0, 1), 0x80778899);
    EXPECT_EQ(pixelOf(copy, 1, 1), 0x00AABBCC);
}

TEST_F(CreateFromPixelsTest, NeedsTheCallersPixelsNoMore) {
    const KestroSurfacePtr surface(create());
    ASSERT_NE(surface, nullptr);
    pixels.assign(pixels.size(), 0xFFFFFFFF);
    EXPECT_EQ(pixelOf(copyOf(surface), 0, 0), 0xFF112233);
    EXPECT_EQ(copyOf(surface)->flags & SDL_PREALLOC, 0u);
    SDL_Rect first{0, 0, 1, 1};
    EXPECT_EQ(surface->render(&first, nullptr, false, nullptr), 0);
    EXPECT_EQ(pixel(100, 100), 0xFF112233);
}

TEST_F(CreateFromPixelsTest, KeepsTheFormat) {
    std::vector<Uint8> rgb{1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0};
    const KestroSurfacePtr surface(
        CreateFromPixels(rgb.data(), 2, 2, 24, 8, 0x0000FF, 0x00FF00, 0xFF0000, 0));
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(copyOf(surface)->format->format, SDL_PIXELFORMAT_RGB24);
    EXPECT_EQ(static_cast<Uint8*>(copyOf(surface)->pixels)[copyOf(surface)->pitch + 5], 12);
    SDL_Rect last{1, 1, 1, 1};
    SDL_Rect corner{0, 0, 1, 1}; // stretched, it comes from memory that is not set, says valgrind
    surface->render(&last, &corner, false, nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFF0A0B0C);
}

TEST_F(CreateFromPixelsTest, ExchangesChannelsAsTheMasksSay) {
    const KestroSurfacePtr surface(
        CreateFromPixels(pixels.data(), 2, 2, 32, 12, 0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000));
    ASSERT_NE(surface, nullptr);
    SDL_Rect first{0, 0, 1, 1};
    surface->render(&first, nullptr, false, nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFF332211);
}

TEST_F(CreateFromPixelsTest, TellsStandardErrorOfPixelsThatCannotBeWrapped) {
    testing::internal::CaptureStderr();
    KestroSurface* const surface = create(32, 0x12345678);
    const std::string error = testing::internal::GetCapturedStderr();
    EXPECT_EQ(surface, nullptr);
    ASSERT_STRNE(SDL_GetError(), "");
    EXPECT_EQ(error, "SDL_CreateRGBSurfaceFrom failed: " + std::string(SDL_GetError()) + "\n");
}

TEST_F(CreateFromPixelsTest, NullPixelsCannotBeWrapped) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(CreateFromPixels(nullptr, 2, 2, 32, 8, 0xFF0000, 0xFF00, 0xFF, 0xFF000000), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "SDL_CreateRGBSurfaceFrom failed: Parameter 'pixels' is invalid\n");
}

TEST_F(CreateFromPixelsTest, FreesTheCopyWhenThereIsNoTexture) {
    CreationLog made;
    made.allowTexturesFromSurfaces(0);
    EXPECT_EQ(create(), nullptr);
    const int before = SDL_GetNumAllocations();
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(create(), nullptr);
    EXPECT_EQ(SDL_GetNumAllocations(), before);
}

TEST_F(CreateFromPixelsTest, OwnsTextureAndCopy) {
    const KestroSurfacePtr first(create()); // so that SDL has made what it keeps
    const int before = SDL_GetNumAllocations();
    delete create();
    EXPECT_EQ(SDL_GetNumAllocations(), before);
}

class SaveSurfaceTest : public ScreenTest {};

TEST_F(SaveSurfaceTest, WritesTheCopyInMemory) {
    Uint32 pixels[] = {0xFF112233, 0x40445566};
    const KestroSurfacePtr surface(CreateFromPixels(pixels, 2, 1, 32, 8, 0xFF0000, 0xFF00, 0xFF, 0xFF000000));
    SaveSurface2BMP(surface.get(), "picture.bmp");
    const MemorySurface loaded = loadedBmp("picture.bmp");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->w, 2);
    EXPECT_EQ(loaded->h, 1);
    EXPECT_EQ(pixelOf(loaded.get(), 0, 0), 0xFF112233);
    EXPECT_EQ(pixelOf(loaded.get(), 1, 0), 0x40445566);
    EXPECT_EQ(readFile("picture.bmp").substr(0, 2), "BM");
}

TEST_F(SaveSurfaceTest, WritesNothingBeforeGetPixelsMadeACopy) {
    const KestroSurfacePtr surface = emptyTarget(8, 8);
    SaveSurface2BMP(surface.get(), "picture.bmp");
    EXPECT_EQ(loadedBmp("picture.bmp"), nullptr);
    ASSERT_NE(surface->getPixels(nullptr, nullptr, nullptr, nullptr), nullptr);
    SaveSurface2BMP(surface.get(), "picture.bmp");
    EXPECT_NE(loadedBmp("picture.bmp"), nullptr);
}

TEST_F(SaveSurfaceTest, IsHarmlessForNullAndForAFolderThatIsNotThere) {
    const KestroSurfacePtr surface = emptyTarget(8, 8);
    surface->getPixels(nullptr, nullptr, nullptr, nullptr);
    SaveSurface2BMP(nullptr, "picture.bmp");
    SaveSurface2BMP(surface.get(), nullptr);
    SaveSurface2BMP(surface.get(), "nowhere/picture.bmp");
    EXPECT_EQ(loadedBmp("picture.bmp"), nullptr);
    EXPECT_EQ(loadedBmp("nowhere/picture.bmp"), nullptr);
}
