#include "gfx/transform.h"

#include "support/drawing_log.h"
#include "support/picture_test.h"
#include "support/sdl_memory.h"

using testing::ElementsAre;

class RotateSurfaceTest : public PictureTest {
protected:
    static constexpr Uint32 red = 0xFFFF0000;
    static constexpr Uint32 green = 0xFF00FF00;
    static constexpr Uint32 blue = 0xFF0000FF;
    static constexpr Uint32 white = 0xFFFFFFFF;

    /// w x h pixels in four quadrants: red and green above, blue and white below.
    static KestroSurfacePtr quadrants(int w, int h) {
        std::vector<Uint32> pixels;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                pixels.push_back(y < h / 2 ? (x < w / 2 ? red : green) : (x < w / 2 ? blue : white));
        return pictureOf(w, h, pixels);
    }

    static KestroSurfacePtr turned(const KestroSurfacePtr& picture, int degrees) {
        return KestroSurfacePtr(RotateSurface(picture.get(), degrees));
    }

    /// The colours just inside the corners: above left and right, below left and right.
    static std::vector<Uint32> corners(const KestroSurfacePtr& picture) {
        const int right = copyOf(picture)->w - 2;
        const int bottom = copyOf(picture)->h - 2;
        return {copiedPixel(picture, 1, 1), copiedPixel(picture, right, 1), copiedPixel(picture, 1, bottom),
                copiedPixel(picture, right, bottom)};
    }
};

TEST_F(RotateSurfaceTest, SizeIsThatOfTheTurnedPictureTruncated) {
    const struct {
        int w, h, degrees;
        const char* size;
    } cases[] = {
        {100, 50, 0, "100x50"},    {100, 50, 90, "50x100"},
        {100, 50, 180, "100x50"},  {100, 50, 270, "50x100"},
        {100, 50, -90, "50x100"},  {100, 50, 360, "100x50"},
        {100, 50, 450, "50x100"},  {100, 50, 45, "106x106"},
        {100, 50, -45, "106x106"}, // 150 x 0.7071 = 106.07
        {100, 50, 30, "111x93"},   // 86.60 + 25 and 50 + 43.30
        {64, 64, 1, "65x65"},      // 63.99 + 1.117
        {1, 1, 45, "1x1"},         // 1.414
    };
    for (const auto& c : cases) {
        const KestroSurfacePtr result = turned(quadrants(c.w, c.h), c.degrees);
        ASSERT_TRUE(result);
        EXPECT_EQ(sizeOf(result), c.size) << c.w << "x" << c.h << " by " << c.degrees;
        EXPECT_EQ(copyOf(result)->w, result->getWidth());
        EXPECT_EQ(copyOf(result)->h, result->getHeight());
        EXPECT_EQ(copyOf(result)->format->format, SDL_PIXELFORMAT_ARGB8888);
    }
}

TEST_F(RotateSurfaceTest, QuarterTurnsAreClockwise) {
    const KestroSurfacePtr picture = quadrants(40, 20);
    EXPECT_THAT(corners(turned(picture, 0)), ElementsAre(red, green, blue, white));
    EXPECT_THAT(corners(turned(picture, 90)), ElementsAre(blue, red, white, green));
    EXPECT_THAT(corners(turned(picture, 180)), ElementsAre(white, blue, green, red));
    EXPECT_THAT(corners(turned(picture, 270)), ElementsAre(green, white, red, blue));
    EXPECT_THAT(corners(turned(picture, -90)), ElementsAre(green, white, red, blue));
    EXPECT_THAT(corners(turned(picture, 450)), ElementsAre(blue, red, white, green));
}

TEST_F(RotateSurfaceTest, UnturnedPictureIsTheSame) {
    const KestroSurfacePtr picture = quadrants(6, 4);
    const KestroSurfacePtr result = turned(picture, 0);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 6; ++x)
            EXPECT_EQ(copiedPixel(result, x, y), copiedPixel(picture, x, y)) << x << "," << y;
}

TEST_F(RotateSurfaceTest, CornersOfASlantedPictureAreTransparent) {
    const KestroSurfacePtr result = turned(quadrants(100, 50), 45);
    EXPECT_THAT(corners(result), ElementsAre(0u, 0u, 0u, 0u));
    // The quadrants, a quarter of the way from the centre, turned by 45 degrees.
    EXPECT_EQ(copiedPixel(result, 53, 30), red);
    EXPECT_EQ(copiedPixel(result, 76, 53), green);
    EXPECT_EQ(copiedPixel(result, 30, 53), blue);
    EXPECT_EQ(copiedPixel(result, 53, 76), white);
}

TEST_F(RotateSurfaceTest, IsDrawnTurnedIntoTheMiddle) {
    const KestroSurfacePtr wide = quadrants(101, 50);
    const KestroSurfacePtr high = quadrants(51, 100);
    DrawingLog drawing;
    turned(wide, 90);
    EXPECT_THAT(drawing.take(),
                testing::ElementsAre("clear #00000000 on T", "turn 90 0,0 101x50 -> -25,25 101x50 on T"));
    turned(high, -90); // all differences are odd and are halved toward zero
    EXPECT_THAT(drawing.take(), testing::Contains("turn -90 0,0 51x100 -> 24,-24 51x100 on T"));
}

TEST_F(RotateSurfaceTest, ResultDrawsLikeItsCopy) {
    const KestroSurfacePtr result = turned(quadrants(40, 20), 90);
    drawOn(0xFF000000, result);
    EXPECT_EQ(pixel(1, 1), blue);
    EXPECT_EQ(pixel(18, 1), red);
    EXPECT_EQ(pixel(1, 38), white);
    EXPECT_EQ(pixel(18, 38), green);
    EXPECT_EQ(pixel(20, 20), 0xFF000000);
}

TEST_F(RotateSurfaceTest, TextureIsARenderTargetThatDoesNotBlend) {
    const KestroSurfacePtr result = turned(quadrants(40, 20), 45);
    Uint32 format = 0;
    int access = -1;
    ASSERT_EQ(SDL_QueryTexture(textureOf(result), &format, &access, nullptr, nullptr), 0);
    EXPECT_EQ(format, SDL_PIXELFORMAT_ARGB8888);
    EXPECT_EQ(access, SDL_TEXTUREACCESS_TARGET);
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    EXPECT_EQ(result->getBlendMode(&mode), 0);
    EXPECT_EQ(mode, SDL_BLENDMODE_NONE);
}

TEST_F(RotateSurfaceTest, TargetAndViewportStayAsTheyWere) {
    const KestroSurfacePtr picture = quadrants(40, 20);
    const KestroSurfacePtr offScreen(CreateSurface(200, 100));
    for (SDL_Texture* const target : {static_cast<SDL_Texture*>(nullptr), textureOf(offScreen)}) {
        SDL_SetRenderTarget(gRenderer, target);
        const SDL_Rect viewport{10, 20, 30, 40};
        SDL_RenderSetViewport(gRenderer, &viewport);
        turned(picture, 90);
        EXPECT_EQ(SDL_GetRenderTarget(gRenderer), target);
        SDL_Rect now;
        SDL_RenderGetViewport(gRenderer, &now);
        EXPECT_TRUE(SDL_RectEquals(&now, &viewport))
            << (target ? "texture: " : "window: ") << now.x << "," << now.y << " " << now.w << "x" << now.h;
        SDL_RenderSetViewport(gRenderer, nullptr);
    }
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(RotateSurfaceTest, DrawColourStaysAsItWas) {
    SDL_SetRenderDrawColor(gRenderer, 1, 2, 3, 4);
    turned(quadrants(40, 20), 90);
    SDL_Color color{};
    SDL_GetRenderDrawColor(gRenderer, &color.r, &color.g, &color.b, &color.a);
    EXPECT_EQ(color.r, 1);
    EXPECT_EQ(color.g, 2);
    EXPECT_EQ(color.b, 3);
    EXPECT_EQ(color.a, 4);
}

TEST_F(RotateSurfaceTest, SurfaceWithoutACopyCanBeTurned) {
    const KestroSurfacePtr picture(CreateSurface(30, 10));
    SDL_Rect left{0, 0, 15, 10};
    SDL_SetRenderTarget(gRenderer, textureOf(picture));
    SDL_SetRenderDrawColor(gRenderer, 255, 0, 0, 255);
    SDL_RenderFillRect(gRenderer, &left);
    SDL_SetRenderTarget(gRenderer, nullptr);
    const KestroSurfacePtr result = turned(picture, 90);
    ASSERT_TRUE(result);
    EXPECT_THAT(corners(result), ElementsAre(red, red, 0u, 0u));
}

TEST_F(RotateSurfaceTest, NullIsNullAndQuiet) {
    EXPECT_EQ(RotateSurface(nullptr, 90), nullptr);
    EXPECT_EQ(takeLog(), "");
}

TEST_F(RotateSurfaceTest, SurfaceWithoutATextureIsNullAndLogged) {
    const KestroSurfacePtr picture(new SDL2KestroSurface(nullptr, filledSurface(4, 4, red)));
    EXPECT_FALSE(turned(picture, 90));
    EXPECT_NE(SDL_QueryTexture(nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(takeLog(), "SDL_QueryTexture fail : " + std::string(SDL_GetError()) + "\n");
}

TEST_F(RotateSurfaceTest, NoMemoryForTheTextureIsNullAndLogged) {
    const KestroSurfacePtr picture = quadrants(200, 100);
    const int allocations = SDL_GetNumAllocations();
    {
        SdlMemory memory;
        memory.refuse(200 * 100 * 4);
        EXPECT_FALSE(turned(picture, 90));
    }
    EXPECT_EQ(takeLog(), "SDL_CreateTexture fail : Out of memory\n");
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(RotateSurfaceTest, NothingIsLostWithTheSurface) {
    const KestroSurfacePtr picture = quadrants(20, 10);
    const auto turnAll = [&] {
        for (const int degrees : {0, 45, 90, 180})
            turned(picture, degrees);
    };
    turnAll();
    const int allocations = SDL_GetNumAllocations();
    turnAll();
    EXPECT_EQ(SDL_GetNumAllocations(), allocations);
}

TEST_F(RotateSurfaceTest, WithoutAScreenTheResultIsNullAndQuiet) {
    const KestroSurfacePtr picture = quadrants(20, 10);
    ScreenUninit();
    EXPECT_FALSE(turned(picture, 90));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(RotateSurfaceTest, SurfaceOfAnEarlierScreenIsNullAndQuiet) {
    const KestroSurfacePtr picture = quadrants(20, 10);
    ScreenUninit();
    openScreen(640, 480, 0);
    EXPECT_FALSE(turned(picture, 90));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(RotateSurfaceTest, AfterSdlQuitTheResultIsNullAndQuiet) {
    const KestroSurfacePtr picture = quadrants(20, 10);
    quitSdl();
    EXPECT_FALSE(turned(picture, 90));
    EXPECT_EQ(takeLog(), "");
}
