#include "gfx/screen.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <cstdio>

using testing::ElementsAre;
using testing::IsEmpty;

/// The whole key of a rendered text, before it is cut.
static std::string fullKey(TTF_Font* font, const std::string& text, SDL_Color color, int shadow) {
    char tail[128];
    snprintf(tail, sizeof tail, "_%p_%02X_%02X_%02X_%02X_shadow%d", static_cast<void*>(font), color.r,
             color.g, color.b, color.a, shadow);
    return text + tail;
}

class TextCacheTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        small = font(12);
        made.take();
    }

    int draw(const std::string& text, SDL_Color color = white, bool shadow = false) {
        return DrawString(small, {0, 0, 640, 480}, text.c_str(), color, 0, shadow, false);
    }

    KestroSurface* cached(const std::string& text, SDL_Color color = white, int shadow = 0) {
        return static_cast<KestroSurface*>(gTextSurfaceCache.get(fullKey(small, text, color, shadow)));
    }

    /// How many texts were rendered since the last call.
    size_t rendered() {
        size_t count = 0;
        for (const std::string& call : made.take())
            count += call == "texture from surface";
        return count;
    }

    CreationLog made;
    TTF_Font* small = nullptr;
};

TEST_F(TextCacheTest, KeepsTextureAndSurfaceUnderTextFontAndColour) {
    const int width = draw("kept", {0x0A, 0xB0, 0xCD, 0xEF});
    auto* const entry = dynamic_cast<SDL2KestroSurface*>(cached("kept", {0x0A, 0xB0, 0xCD, 0xEF}));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->getWidth(), width);
    EXPECT_NE(entry->getTexture(), nullptr);
    ASSERT_NE(entry->getSurface(), nullptr);
    EXPECT_EQ(entry->getSurface()->w, width);
}

TEST_F(TextCacheTest, WritesTheColourInUpperCaseHexadecimal) {
    draw("kept", {0x0A, 0xB0, 0xCD, 0xEF}, true);
    char font[32];
    snprintf(font, sizeof font, "%p", static_cast<void*>(small));
    EXPECT_NE(gTextSurfaceCache.get(std::string("kept_") + font + "_0A_B0_CD_EF_shadow0"), nullptr);
    EXPECT_NE(gTextSurfaceCache.get(std::string("kept_") + font + "_0A_B0_CD_EF_shadow1"), nullptr);
}

TEST_F(TextCacheTest, DrawsTheSameTextAgainWithoutRendering) {
    draw("kept");
    EXPECT_EQ(rendered(), 1u);
    KestroSurface* const entry = cached("kept");
    draw("kept");
    EXPECT_EQ(rendered(), 0u);
    EXPECT_EQ(cached("kept"), entry);
}

TEST_F(TextCacheTest, PositionAlignmentAndMeasuringShareOneEntry) {
    DrawString(small, {0, 0, 10, 10}, "kept", white, 0, false, true);
    DrawString(small, {50, 60, 200, 10}, "kept", white, 4, false, false);
    DrawString(small, {1, 2, 3, 4}, "kept", white, 1, false, false);
    EXPECT_EQ(rendered(), 1u);
}

TEST_F(TextCacheTest, EachColourHasItsOwnEntry) {
    draw("kept", {255, 0, 0, 255});
    draw("kept", {0, 255, 0, 255});
    draw("kept", {0, 255, 0, 254});
    EXPECT_EQ(rendered(), 3u);
    EXPECT_NE(cached("kept", {255, 0, 0, 255}), cached("kept", {0, 255, 0, 255}));
    EXPECT_NE(cached("kept", {0, 255, 0, 254}), nullptr);
}

TEST_F(TextCacheTest, EachFontHasItsOwnEntry) {
    TTF_Font* const large = font(30);
    const int width = draw("kept");
    EXPECT_GT(DrawString(large, {0, 0, 1, 1}, "kept", white, 0, false, false), width);
    EXPECT_EQ(rendered(), 2u);
    EXPECT_NE(gTextSurfaceCache.get(fullKey(large, "kept", white, 0)), nullptr);
    EXPECT_NE(cached("kept"), nullptr);
}

TEST_F(TextCacheTest, TheShadowHasItsOwnEntry) {
    draw("kept", white, true);
    EXPECT_EQ(rendered(), 2u);
    ASSERT_NE(cached("kept", white, 1), nullptr);
    EXPECT_NE(cached("kept", white, 1), cached("kept", white, 0));
    draw("kept", white, true);
    draw("kept");
    EXPECT_EQ(rendered(), 0u);
}

TEST_F(TextCacheTest, RendersTheColourUnchangedWithItsAlpha) {
    draw("█", {10, 20, 30, 128});
    const SDL_Surface* const half =
        static_cast<SDL2KestroSurface*>(cached("█", {10, 20, 30, 128}))->getSurface();
    EXPECT_EQ(pixelOf(half, half->w / 2, half->h / 2), 0x800A141E);
    draw("█", {10, 20, 30, 0}); // which the font library takes as opaque
    const SDL_Surface* const none =
        static_cast<SDL2KestroSurface*>(cached("█", {10, 20, 30, 0}))->getSurface();
    EXPECT_EQ(pixelOf(none, none->w / 2, none->h / 2), 0xFF0A141E);
}

TEST_F(TextCacheTest, KeepsNothingOfWhatCannotBeRendered) {
    draw("", white, true);
    DrawString(small, {0, 0, 9, 9}, nullptr, white, 0, false, false);
    EXPECT_EQ(rendered(), 0u);
    EXPECT_EQ(cached(""), nullptr);
    for (int i = 0; i < 100; ++i)
        draw("text " + std::to_string(i));
    draw("", white, true); // were it kept, the next text would push the first one out
    draw("text 100");
    EXPECT_NE(cached("text 0"), nullptr);
}

TEST_F(TextCacheTest, Holds101TextsAndForgetsTheOldest) {
    for (int i = 0; i < 101; ++i)
        draw("text " + std::to_string(i));
    rendered();
    draw("text 0"); // now used more lately than text 1
    EXPECT_EQ(rendered(), 0u);
    draw("text 101");
    EXPECT_EQ(cached("text 1"), nullptr);
    EXPECT_NE(cached("text 0"), nullptr);
    for (int i = 2; i <= 101; ++i)
        EXPECT_NE(cached("text " + std::to_string(i)), nullptr) << i;
}

TEST_F(TextCacheTest, DestroysTheTextureOfAForgottenText) {
    for (int i = 0; i < 101; ++i)
        draw("text " + std::to_string(i));
    made.take();
    draw("text 101");
    EXPECT_THAT(made.take(), ElementsAre("texture from surface", "texture destroyed"));
}

TEST_F(TextCacheTest, AFailedTextureLeavesAnEmptyEntry) {
    for (int i = 0; i < 100; ++i)
        draw("text " + std::to_string(i));
    made.allowTexturesFromSurfaces(0);
    EXPECT_EQ(draw("failed"), 0); // entry 101
    made.allowTexturesFromSurfaces(1000);
    EXPECT_EQ(cached("failed"), nullptr);
    draw("text 100");
    EXPECT_EQ(cached("text 0"), nullptr);
    EXPECT_NE(cached("text 1"), nullptr);
}

TEST_F(TextCacheTest, AnEmptyEntryIsFilledByTheNextDrawing) {
    made.allowTexturesFromSurfaces(0);
    draw("failed", white, true);
    made.allowTexturesFromSurfaces(1000);
    EXPECT_GT(draw("failed"), 0);
    EXPECT_NE(cached("failed"), nullptr);
}

TEST_F(TextCacheTest, IsEmptyAfterTheScreenClosed) {
    draw("kept", white, true);
    ScreenUninit();
    EXPECT_EQ(cached("kept"), nullptr);
    EXPECT_EQ(cached("kept", white, 1), nullptr);
}

/// Keys are cut after 2047 bytes.
class LongTextTest : public TextCacheTest {
protected:
    const std::string begin = std::string(2046, 'i');

    KestroSurface* cachedUnder(const std::string& key) {
        return static_cast<KestroSurface*>(gTextSurfaceCache.get(key));
    }
};

TEST_F(LongTextTest, TextsThatAgreeIn2047BytesShareAnEntry) {
    const int width = draw(begin + "ab");
    EXPECT_EQ(rendered(), 1u);
    EXPECT_EQ(draw(begin + "aWWWWWWWWWWWW"), width);
    EXPECT_EQ(draw(begin + "a"), width);
    EXPECT_EQ(rendered(), 0u);
    EXPECT_NE(cachedUnder(begin + "a"), nullptr);
}

TEST_F(LongTextTest, TextsThatDifferInByte2047DoNot) {
    draw(begin + "a");
    draw(begin + "b");
    EXPECT_EQ(rendered(), 2u);
    EXPECT_NE(cachedUnder(begin + "b"), cachedUnder(begin + "a"));
}

TEST_F(LongTextTest, FontAndColourNoLongerMatter) {
    const int width = draw(begin + "a", {255, 0, 0, 255});
    EXPECT_EQ(draw(begin + "a", {0, 255, 0, 255}), width);
    EXPECT_EQ(DrawString(font(40), {0, 0, 1, 1}, (begin + "a").c_str(), white, 0, false, true), width);
    EXPECT_EQ(rendered(), 1u);
}

TEST_F(LongTextTest, TheShadowIsTheTextItself) {
    DrawingLog drawn;
    draw(begin + "a", white, true);
    EXPECT_EQ(rendered(), 1u);
    EXPECT_EQ(drawn.take().size(), 2u);
}

TEST_F(LongTextTest, ACutInTheMiddleOfTheTailKeepsWhatFits) {
    const std::string text(2040, 'i');
    draw(text);
    EXPECT_NE(cachedUnder(fullKey(small, text, white, 0).substr(0, 2047)), nullptr);
    EXPECT_EQ(cachedUnder(fullKey(small, text, white, 0).substr(0, 2048)), nullptr);
}

TEST_F(LongTextTest, TheWholeTextIsRendered) {
    const int width = draw(begin + "ab");
    int wanted = 0;
    TTF_SizeUTF8(small, (begin + "ab").c_str(), &wanted, nullptr);
    EXPECT_EQ(width, wanted);
}
