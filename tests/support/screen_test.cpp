#include "support/screen_test.h"

#include <SDL_image.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

using SurfacePtr = std::unique_ptr<SDL_Surface, void (*)(SDL_Surface*)>;

void ScreenTest::SetUp() {
    KestroTest::SetUp();
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    ASSERT_EQ(TTF_Init(), 0);
    openScreen(640, 480, 0);
}

void ScreenTest::TearDown() {
    for (TTF_Font* open : mFonts)
        TTF_CloseFont(open);
    mFonts.clear();
    ScreenUninit();
    TTF_Quit();
    SDL_Quit();
    KestroTest::TearDown();
}

void ScreenTest::openScreen(int width, int height, int rotate) {
    ASSERT_TRUE(ScreenInit(width, height, 32, rotate)) << SDL_GetError();
    SDL_SetRenderDrawColor(gRenderer, 0, 0, 0, 255);
    SDL_RenderClear(gRenderer);
    takeLog();
}

void ScreenTest::quitSdl() {
    static auto& left = *new std::vector<SDL_Renderer*>; // never freed, for checks at the process's end
    left.push_back(gRenderer);
    SDL_Quit();
}

static bool sLeavesDriversOpen = false;

void skipLeakCheck() {
    sLeavesDriversOpen = true;
}

// The address sanitizer asks this at the end of the process.
extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off() {
    return sLeavesDriversOpen;
}

void AcceleratedScreenTest::SetUp() {
    skipLeakCheck();
    setenv("SDL_VIDEODRIVER", "offscreen", 1);
    unsetenv("SDL_RENDER_DRIVER");
    ScreenTest::SetUp();
    SDL_RendererInfo info{};
    ASSERT_EQ(SDL_GetRendererInfo(gRenderer, &info), 0);
    ASSERT_TRUE(info.flags & SDL_RENDERER_ACCELERATED) << info.name;
}

void AcceleratedScreenTest::TearDown() {
    ScreenTest::TearDown();
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
}

SDL_Surface* filledSurface(int w, int h, Uint32 color) {
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormat(0, w, h, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(surface, nullptr, color);
    return surface;
}

Uint32 ScreenTest::pixel(int x, int y) {
    Uint32 color = 0;
    const SDL_Rect one{x, y, 1, 1};
    EXPECT_EQ(SDL_RenderReadPixels(gRenderer, &one, SDL_PIXELFORMAT_ARGB8888, &color, 4), 0)
        << SDL_GetError();
    return color;
}

SDL_Surface* ScreenTest::frame() {
    int w = 0;
    int h = 0;
    SDL_GetRendererOutputSize(gRenderer, &w, &h);
    SDL_Surface* const surface = filledSurface(w, h, 0);
    EXPECT_EQ(
        SDL_RenderReadPixels(gRenderer, nullptr, SDL_PIXELFORMAT_ARGB8888, surface->pixels, surface->pitch),
        0);
    return surface;
}

TTF_Font* ScreenTest::font(int points) {
    TTF_Font* const opened = TTF_OpenFont(TEST_FONT, points);
    EXPECT_NE(opened, nullptr) << TTF_GetError();
    mFonts.push_back(opened);
    return opened;
}

static SurfacePtr loadGolden(const std::string& path) {
    SurfacePtr loaded(IMG_Load(path.c_str()), SDL_FreeSurface);
    if (!loaded)
        return loaded;
    return {SDL_ConvertSurfaceFormat(loaded.get(), SDL_PIXELFORMAT_ARGB8888, 0), SDL_FreeSurface};
}

static Uint32* rowOf(SDL_Surface* surface, int y) {
    return reinterpret_cast<Uint32*>(static_cast<char*>(surface->pixels) + y * surface->pitch);
}

static bool isNear(Uint32 wanted, Uint32 got, int tolerance) {
    for (int shift = 0; shift < 32; shift += 8) {
        const int off = static_cast<int>(wanted >> shift & 0xFF) - static_cast<int>(got >> shift & 0xFF);
        if (off > tolerance || off < -tolerance)
            return false;
    }
    return true;
}

/// A picture that is white where the two differ. `count` receives the number of such pixels.
static SurfacePtr difference(SDL_Surface* wanted, SDL_Surface* got, int tolerance, int& count) {
    SurfacePtr picture(filledSurface(got->w, got->h, 0xFF000000), SDL_FreeSurface);
    count = 0;
    for (int y = 0; y < got->h; ++y)
        for (int x = 0; x < got->w; ++x)
            if (!isNear(rowOf(wanted, y)[x], rowOf(got, y)[x], tolerance)) {
                rowOf(picture.get(), y)[x] = 0xFFFFFFFF;
                ++count;
            }
    return picture;
}

// The pictures were made where SDL blends with x86-64's own instructions. Elsewhere it rounds otherwise: by
// at most 2, but for pages of many layers, which have a picture NAME-plain.png besides.
#ifdef __x86_64__
static constexpr int sBlendingTolerance = 0;
static const char* const sPlainSuffix = "";
#else
static constexpr int sBlendingTolerance = 2;
static const char* const sPlainSuffix = "-plain";
#endif

static std::string goldenPath(const std::string& name) {
    const std::string plain = TEST_GOLDEN "/" + name + sPlainSuffix + ".png";
    return std::filesystem::exists(plain) ? plain : TEST_GOLDEN "/" + name + ".png";
}

void ScreenTest::expectPicture(const std::string& name, int allowed) {
    const int tolerance = std::max(allowed, sBlendingTolerance);
    const SurfacePtr got(frame(), SDL_FreeSurface);
    const std::string golden = goldenPath(name);
    if (getenv("KESTRO_UPDATE_GOLDEN") && tolerance == 0) {
        std::filesystem::create_directories(TEST_GOLDEN);
        IMG_SavePNG(got.get(), golden.c_str());
        FAIL() << "wrote " << golden << "; look at it, and run again without KESTRO_UPDATE_GOLDEN";
    }
    const SurfacePtr wanted = loadGolden(golden);
    const std::string failed = TEST_FAILED_PICTURES "/" + name;
    std::filesystem::create_directories(TEST_FAILED_PICTURES);
    if (!wanted || wanted->w != got->w || wanted->h != got->h) {
        IMG_SavePNG(got.get(), (failed + "-got.png").c_str());
        FAIL() << golden << (wanted ? " has another size" : " is missing") << "; got " << failed
               << "-got.png";
    }
    int count = 0;
    const SurfacePtr differing = difference(wanted.get(), got.get(), tolerance, count);
    if (count == 0)
        return;
    IMG_SavePNG(wanted.get(), (failed + "-wanted.png").c_str());
    IMG_SavePNG(got.get(), (failed + "-got.png").c_str());
    IMG_SavePNG(differing.get(), (failed + "-difference.png").c_str());
    FAIL() << count << " pixels differ; see " << failed << "-{wanted,got,difference}.png";
}
