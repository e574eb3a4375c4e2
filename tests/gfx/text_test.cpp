#include "gfx/text.h"

#include "gfx/screen.h"
#include "gfx/surface_cache.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <cstring>

using testing::ElementsAre;
using testing::IsEmpty;

/// A line as the drawing log shows it.
static std::string copyAt(int x, int y, SDL_Point size) {
    char line[64];
    snprintf(line, sizeof line, "copy all -> %d,%d %dx%d on W", x, y, size.x, size.y);
    return line;
}

class TextTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        large = font(30);
        size = sizeOf("Text");
        ASSERT_GT(size.x, 40);
        ASSERT_GT(size.y, 20);
        drawn.take();
    }

    SDL_Point sizeOf(const char* text) {
        const MemorySurface picture(TTF_RenderUTF8_Blended(large, text, white));
        return {picture->w, picture->h};
    }

    int draw(const SDL_Rect& rect, int align, bool shadow = false, bool measureOnly = false) {
        return DrawString(large, rect, "Text", white, align, shadow, measureOnly);
    }

    DrawingLog drawn;
    TTF_Font* large = nullptr;
    SDL_Point size{};
};

/// Where a text lies in a rectangle at (100, 200) that has `excess` pixels more than the text both ways.
struct Alignment {
    int align;
    int excess;
    SDL_Point place;
};

class TextAlignmentTest : public TextTest, public testing::WithParamInterface<Alignment> {};

TEST_P(TextAlignmentTest, PlacesTheText) {
    const auto [align, excess, place] = GetParam();
    EXPECT_EQ(draw({100, 200, size.x + excess, size.y + excess}, align), size.x);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(place.x, place.y, size)));
}

/// 21 pixels leave 10 before the centre; -21 take 10 before the rectangle, since halves go toward zero.
static const Alignment alignments[] = {
    {0, 21, {100, 200}}, {0, -21, {100, 200}}, {0, 0, {100, 200}},    {1, 21, {110, 210}},
    {1, -21, {90, 190}}, {1, 0, {100, 200}},   {1, 1, {100, 200}},    {1, -1, {100, 200}},
    {1, 20, {110, 210}}, {1, -20, {90, 190}},  {2, 21, {121, 200}},   {2, -21, {79, 200}},
    {3, 21, {100, 210}}, {3, -21, {100, 190}}, {4, 21, {121, 210}},   {4, -21, {79, 190}},
    {7, 21, {121, 200}}, {7, -21, {79, 200}},  {-1, 21, {121, 200}},  {-1, -21, {79, 200}},
    {5, 21, {121, 200}}, {6, -21, {79, 200}},  {257, 21, {121, 200}},
};

INSTANTIATE_TEST_SUITE_P(All, TextAlignmentTest, testing::ValuesIn(alignments), [](const auto& tested) {
    const auto word = [](int number) {
        return (number < 0 ? "Minus" : "") + std::to_string(number < 0 ? -number : number);
    };
    return "Align" + word(tested.param.align) + "Excess" + word(tested.param.excess);
});

TEST_F(TextTest, WiderButLowerThanItsRectangleIsMovedOneWayOnly) {
    draw({100, 200, size.x - 21, size.y + 21}, 1);
    draw({100, 200, size.x + 21, size.y - 21}, 1);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(90, 210, size), copyAt(110, 190, size)));
}

TEST_F(TextTest, AlignsInAnEmptyRectangle) {
    draw({100, 200, 0, 0}, 1);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(100 - size.x / 2, 200 - size.y / 2, size)));
}

TEST_F(TextTest, ShadowIsDrawnFirstOnePixelRightAndTwoDown) {
    EXPECT_EQ(draw({100, 200, 1, 1}, 0, true), size.x);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(101, 202, size), copyAt(100, 200, size)));
}

TEST_F(TextTest, ShadowHasTheColourOfTheText) {
    const SDL_Color color{200, 100, 50, 255};
    DrawString(large, {0, 0, 10, 10}, "I", color, 0, true, true);
    const MemorySurface shadow(frame());
    SDL_RenderClear(gRenderer);
    DrawString(large, {1, 2, 10, 10}, "I", color, 0, false, false);
    const MemorySurface text(frame());
    EXPECT_EQ(memcmp(shadow->pixels, text->pixels, static_cast<size_t>(text->pitch * text->h)), 0);
    int full = 0;
    for (int i = 0; i < 40 * 40; ++i)
        full += pixelOf(shadow.get(), i % 40, i / 40) == 0xFFC86432;
    EXPECT_GT(full, 5);
}

TEST_F(TextTest, MeasuringDrawsNothingAndGivesTheSameWidth) {
    EXPECT_EQ(draw({100, 200, 1, 1}, 0, false, true), size.x);
    EXPECT_THAT(drawn.take(), IsEmpty());
    EXPECT_EQ(draw({100, 200, 1, 1}, 0), size.x);
}

TEST_F(TextTest, MeasuringWithAShadowDrawsTheShadowOnly) {
    EXPECT_EQ(draw({100, 200, size.x + 21, size.y + 21}, 4, true, true), size.x);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(122, 212, size)));
}

TEST_F(TextTest, GoesToTheRenderTarget) {
    const KestroSurfacePtr target = emptyTarget(200, 100);
    drawn.take();
    SetRenderTarget(target.get());
    draw({10, 10, 1, 1}, 0);
    EXPECT_THAT(drawn.take(), ElementsAre(testing::EndsWith(" on T")));
}

TEST_F(TextTest, ColoursItsPixels) {
    DrawString(large, {0, 0, 1, 1}, "█", {255, 128, 0, 255}, 0, false, false);
    const MemorySurface picture(frame());
    int full = 0;
    for (int i = 0; i < 30 * 30; ++i)
        full += pixelOf(picture.get(), i % 30, i / 30) == 0xFFFF8000;
    EXPECT_GT(full, 100);
}

TEST_F(TextTest, NothingToDrawGivesZero) {
    const SDL_Rect rect{0, 0, 100, 100};
    EXPECT_EQ(DrawString(nullptr, rect, "Text", white, 0, true, false), 0);
    EXPECT_EQ(DrawString(large, rect, nullptr, white, 0, true, false), 0);
    EXPECT_EQ(DrawString(large, rect, "", white, 0, true, false), 0);
    EXPECT_EQ(DrawString(nullptr, rect, nullptr, white, 0, true, true), 0);
    EXPECT_THAT(drawn.take(), IsEmpty());
}

TEST_F(TextTest, AMissingGlyphDrawsSomething) {
    const char* const privateUse = "\xEE\x84\xA3";
    ASSERT_EQ(TTF_GlyphIsProvided(large, 0xE123), 0);
    EXPECT_EQ(DrawString(large, {0, 0, 1, 1}, privateUse, white, 0, false, false), sizeOf(privateUse).x);
    EXPECT_EQ(drawn.take().size(), 1u);
}

TEST_F(TextTest, FailedShadowTextureLeavesOutTheShadowOnly) {
    draw({100, 200, 1, 1}, 0);
    CreationLog made;
    made.allowTexturesFromSurfaces(0);
    drawn.take();
    EXPECT_EQ(draw({100, 200, 1, 1}, 0, true), size.x);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(100, 200, size)));
    made.allowTexturesFromSurfaces(1);
    EXPECT_EQ(draw({100, 200, 1, 1}, 0, true), size.x);
    EXPECT_THAT(drawn.take(), ElementsAre(copyAt(101, 202, size), copyAt(100, 200, size)));
}

TEST_F(TextTest, FailedTextureDrawsNothingAndIsTriedAgain) {
    CreationLog made;
    made.allowTexturesFromSurfaces(0);
    EXPECT_EQ(draw({100, 200, 1, 1}, 0, true), 0);
    EXPECT_THAT(made.take(), ElementsAre("texture from surface")); // not for the shadow as well
    EXPECT_EQ(draw({100, 200, 1, 1}, 0), 0);
    EXPECT_THAT(made.take(), ElementsAre("texture from surface"));
    EXPECT_THAT(drawn.take(), IsEmpty());
    made.allowTexturesFromSurfaces(1);
    EXPECT_EQ(draw({100, 200, 1, 1}, 0), size.x);
}

TEST_F(TextTest, WithoutARendererGivesZero) {
    SDL_Renderer* const renderer = gRenderer;
    gRenderer = nullptr;
    EXPECT_EQ(draw({100, 200, 1, 1}, 0), 0);
    gRenderer = renderer;
    EXPECT_THAT(drawn.take(), IsEmpty());
    EXPECT_EQ(draw({100, 200, 1, 1}, 0), size.x);
}

TEST_F(TextTest, FailedTexturesTakeNoMemory) {
    CreationLog made;
    made.allowTexturesFromSurfaces(0);
    draw({0, 0, 1, 1}, 0);
    const int before = SDL_GetNumAllocations();
    for (int i = 0; i < 20; ++i)
        draw({0, 0, 1, 1}, 0);
    EXPECT_EQ(SDL_GetNumAllocations(), before);
}
