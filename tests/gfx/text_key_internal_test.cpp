#include "gfx/text_key.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

using kestro::textKey;

/// The key as it is printed.
static std::string printed(const TTF_Font* font, const char* text, SDL_Color color, int shadow) {
    char key[2048];
    snprintf(key, sizeof key, "%s_%p_%02X_%02X_%02X_%02X_shadow%d", text, static_cast<const void*>(font),
             color.r, color.g, color.b, color.a, shadow);
    return key;
}

static const TTF_Font* fontAt(uintptr_t address) {
    return reinterpret_cast<const TTF_Font*>(address);
}

static std::string randomText(std::mt19937_64& random, size_t length) {
    std::string text;
    for (size_t i = 0; i < length; ++i)
        text += static_cast<char>(1 + random() % 255);
    return text;
}

TEST(TextKey, IsAsItWouldBePrinted) {
    std::mt19937_64 random(20260101);
    for (int round = 0; round < 1000; ++round) {
        const std::string text = randomText(random, random() % 100);
        const TTF_Font* const font = fontAt(random() >> random() % 64);
        const auto byte = [&] { return static_cast<Uint8>(random()); };
        const SDL_Color color{byte(), byte(), byte(), byte()};
        const int shadow = static_cast<int>(random() % 2);
        ASSERT_EQ(textKey(font, text.c_str(), color, shadow), printed(font, text.c_str(), color, shadow));
    }
}

TEST(TextKey, OfLongTextsIsCutWhereThePrintedOneIs) {
    std::mt19937_64 random(20260102);
    for (size_t length = 1980; length < 2060; ++length) {
        const std::string text = randomText(random, length);
        const TTF_Font* const font = fontAt(random());
        ASSERT_EQ(textKey(font, text.c_str(), {1, 2, 3, 4}, 1), printed(font, text.c_str(), {1, 2, 3, 4}, 1));
    }
    const std::string endless(100'000, 'x');
    EXPECT_EQ(textKey(nullptr, endless.c_str(), {}, 0), printed(nullptr, endless.c_str(), {}, 0));
}

TEST(TextKey, KnowsTheAddressesAtTheEnds) {
    for (const uintptr_t address : {uintptr_t{0}, uintptr_t{1}, uintptr_t{15}, uintptr_t{16}, UINTPTR_MAX})
        EXPECT_EQ(textKey(fontAt(address), "", {}, 0), printed(fontAt(address), "", {}, 0));
}
