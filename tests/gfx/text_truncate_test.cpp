#include "gfx/text.h"

#include "support/real_function.h"
#include "support/reused_memory.h"
#include "support/screen_test.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <random>
#include <string>
#include <vector>

/// A character that SDL_ttf fails to measure, 0 for none.
static Uint16 sUnmeasured = 0;

/// The characters that SDL_ttf was asked for.
static std::u16string sMeasured;

extern "C" int TTF_GlyphMetrics(TTF_Font* font, Uint16 character, int* minX, int* maxX, int* minY, int* maxY,
                                int* advance) {
    static const auto real = REAL_FUNCTION(TTF_GlyphMetrics);
    sMeasured += static_cast<char16_t>(character);
    if (character == sUnmeasured && character)
        return -1;
    return real(font, character, minX, maxX, minY, maxY, advance);
}

/// The first lead byte of each length of sequences, longest first.
static constexpr struct {
    Uint8 first;
    size_t bytes;
} leads[] = {{0xFF, 8}, {0xFE, 7}, {0xFC, 6}, {0xF8, 5}, {0xF0, 4}, {0xE0, 3}, {0xC0, 2}};

/// The code points of a text, decoded step by step.
static std::vector<Uint32> codePoints(const std::string& text) {
    std::vector<Uint32> points;
    for (size_t at = 0; at < text.size();) {
        const Uint8 byte = static_cast<Uint8>(text[at]);
        size_t bytes = 1;
        Uint32 value = byte;
        const auto* const lead = std::find_if(std::begin(leads), std::end(leads),
                                              [=](const auto& any) { return byte >= any.first; });
        if (lead != std::end(leads) && at + lead->bytes <= text.size()) {
            bytes = lead->bytes;
            value = static_cast<Uint32>(byte - lead->first);
        }
        for (size_t i = 1; i < bytes; ++i)
            value = value * 64 + (static_cast<Uint8>(text[at + i]) % 64);
        points.push_back(value);
        at += bytes;
    }
    return points;
}

static int advanceOf(TTF_Font* font, Uint32 codePoint) {
    int advance = 0;
    TTF_GlyphMetrics(font, static_cast<Uint16>(codePoint & 0xFFFF), nullptr, nullptr, nullptr, nullptr,
                     &advance);
    return advance;
}

/// A plain reading of the arithmetic: characters are added until they reach nine tenths of the width
/// without twenty pixels; at the end of the text nothing has to be cut.
static int wantedLength(TTF_Font* font, const std::string& text, long long width) {
    const float limit = static_cast<float>((width - 20) * 9 / 10);
    const std::vector<Uint32> points = codePoints(text);
    float sum = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        if (limit <= sum)
            return static_cast<int>(i);
        double glyph = advanceOf(font, points[i]);
        if (points[i] <= 128)
            glyph += 1.7;
        sum = static_cast<float>(sum + glyph);
    }
    return 0;
}

static const std::string texts[] = {
    "A label that is rather long, as names of games are",
    "Éclair à la crème brûlée, ñandú, œuvre, Straße",
    "中文名字很长的游戏需要截断才能显示",
    "日本語のとても長い名前ゲーム",
    "한국어로 된 아주 긴 이름의 게임",
    "Mix 中文 and Latin 日本語 한국어 é",
    "\xF0\x9F\x98\x80\xF0\x9F\x8E\xAE emoji \xF0\x9F\x98\x80\xF0\xA0\x80\x80 beyond",
    "\xC2\x80\xC2\x81\xC2\x80\xC2\x81 at the border",
    "x",
    "",
};

class TruncateTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        medium = font(24);
    }

    int length(const std::string& text, int width) { return getTruncateLen(medium, text.c_str(), 0, width); }

    TTF_Font* medium = nullptr;
};

TEST_F(TruncateTest, FollowsTheArithmetic) {
    for (TTF_Font* const any : {medium, font(17), font(44)})
        for (const std::string& text : texts)
            for (int width = -50; width < 1400; width += 1 + width / 100)
                ASSERT_EQ(getTruncateLen(any, text.c_str(), 0, width), wantedLength(any, text, width))
                    << text << " in " << width;
}

TEST_F(TruncateTest, FollowsTheArithmeticForRandomTexts) {
    std::mt19937 random(20240607);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (size_t i = random() % 60; i > 0; --i)
            text += static_cast<char>(1 + random() % 255);
        const int width = static_cast<int>(random() % 900);
        ASSERT_EQ(length(text, width), wantedLength(medium, text, width)) << testing::PrintToString(text);
    }
}

TEST_F(TruncateTest, SumsAreRoundedToSinglePrecisionAfterEachCharacter) {
    // Ten characters of a fraction of 0.7 make a whole number, or just miss it: there every bit counts.
    std::mt19937 random(20241105);
    const std::string letters[] = {"i", "l", "m", "w", "A", "W", ".", "é", "ß", "中"};
    for (int round = 0; round < 1000; ++round) {
        std::string text;
        for (int i = 0; i < 30; ++i)
            text += letters[random() % std::size(letters)];
        float sum = 0;
        for (const Uint32 point : codePoints(text)) {
            const double glyph = advanceOf(medium, point) + (point <= 128 ? 1.7 : 0);
            sum = static_cast<float>(sum + glyph);
            const float whole = std::round(sum);
            if (std::fabs(sum - whole) > 0.001F)
                continue;
            const int width = 20 + (static_cast<int>(whole) * 10 + 8) / 9;
            ASSERT_EQ(length(text, width), wantedLength(medium, text, width)) << text << " in " << width;
        }
    }
}

TEST_F(TruncateTest, ACharacterThatCannotBeMeasuredHasNoWidth) {
    sUnmeasured = 'f';
    const std::string text = "W" + std::string(100, 'f');
    const int width = 20 + 3 * advanceOf(medium, 'W');
    EXPECT_GT(length(text, width), 5); // of W's own width it would be 3
    EXPECT_EQ(length(text, width), wantedLength(medium, text, width));
    sUnmeasured = 0;
}

TEST_F(TruncateTest, ATextThatFitsIsNotCut) {
    EXPECT_EQ(length("short", 1000), 0);
    EXPECT_EQ(length("", 1000), 0);
}

TEST_F(TruncateTest, AWidthOfTwentyOrLessCutsNothing) {
    for (const int width : {21, 20, 19, 0, -1, -1000, INT_MIN, INT_MIN + 19})
        EXPECT_EQ(length("A label that is rather long", width), 0) << width; // 1 * 9 / 10 is 0 too
    EXPECT_EQ(length("A label that is rather long", 22), 1);
}

TEST_F(TruncateTest, TheWidestWidthFitsAll) {
    EXPECT_EQ(length("A label that is rather long", INT_MAX), 0);
    EXPECT_EQ(length(std::string(3000, 'W'), 1'000'000'000), 0);
}

TEST_F(TruncateTest, TheLastCharacterMayReachTheLimit) {
    const int advance = advanceOf(medium, 0x4E2D);
    ASSERT_EQ(advance, advanceOf(medium, 0x6587));
    // Two and a half characters make the limit.
    const int width = 20 + (advance * 5 / 2) * 10 / 9 + 1;
    EXPECT_EQ(length("中文中", width), 0);
    EXPECT_EQ(length("中文中文", width), 3);
    EXPECT_EQ(length("中文中文中文中文", width), 3);
}

TEST_F(TruncateTest, ALimitReachedExactlyIsReached) {
    const int advance = advanceOf(medium, 0x4E2D);
    const int two = 20 + (2 * advance * 10 + 8) / 9; // the least width whose limit is two characters
    ASSERT_EQ((two - 20) * 9 / 10, 2 * advance);
    EXPECT_EQ(length("中文中文", two), 2);
    EXPECT_EQ(length("中文中文", two + 2), 3);
}

TEST_F(TruncateTest, CharactersUpTo128CountWiderThanTheyAre) {
    // U+0080 and U+0081 are both missing and have the same advance.
    const int advance = advanceOf(medium, 0x80);
    ASSERT_EQ(advance, advanceOf(medium, 0x81));
    const int width = 20 + (10 * advance + 10) * 10 / 9;
    const auto times = [](const char* text) {
        std::string all;
        for (int i = 0; i < 30; ++i)
            all += text;
        return all;
    };
    EXPECT_EQ(length(times("\xC2\x81"), width), 11);
    EXPECT_EQ(length(times("\xC2\x80"), width), 10);
}

TEST_F(TruncateTest, CountsCharactersNotBytes) {
    EXPECT_EQ(length("ééééééééééééééééééééé", 100), wantedLength(medium, "ééééééééééééééééééééé", 100));
    EXPECT_LT(length("中文中文中文中文", 100), 8);
    EXPECT_GT(length("中文中文中文中文", 100), 0);
}

TEST_F(TruncateTest, PaysNoHeedToItsThirdArgument) {
    const char* const text = "A label that is rather long";
    const int wanted = getTruncateLen(medium, text, 0, 100);
    EXPECT_GT(wanted, 0);
    for (const int ignored : {1, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(getTruncateLen(medium, text, ignored, 100), wanted);
}

TEST_F(TruncateTest, NothingToMeasureGivesZero) {
    EXPECT_EQ(getTruncateLen(nullptr, "A label that is rather long", 0, 50), 0);
    EXPECT_EQ(getTruncateLen(medium, nullptr, 0, 50), 0);
    EXPECT_EQ(getTruncateLen(nullptr, nullptr, 0, 50), 0);
}

TEST_F(TruncateTest, TheSameLabelIsMeasuredOnce) {
    for (const std::string& text : texts)
        length(text, 200);
    sMeasured.clear();
    for (const std::string& text : texts)
        EXPECT_EQ(length(text, 200), wantedLength(medium, text, 200));
    sMeasured.clear();
    for (const std::string& text : texts)
        length(text, 200);
    EXPECT_EQ(sMeasured.find_first_not_of(u'M'),
              std::u16string::npos); // that one tells whether the font is the same
}

TEST_F(TruncateTest, RepeatedLabelsFollowTheArithmeticToo) {
    std::mt19937 random(20260104);
    std::vector<std::string> labels;
    for (int i = 0; i < 600; ++i) {
        const std::string& text = texts[random() % std::size(texts)];
        labels.push_back(text.substr(std::min<size_t>(random() % 20, text.size())) + std::to_string(i % 300));
    }
    TTF_Font* const fonts[] = {medium, font(17), font(44)};
    for (int round = 0; round < 5000; ++round) {
        const std::string& label = labels[random() % (round % 2 ? 20 : labels.size())];
        TTF_Font* const any = fonts[random() % std::size(fonts)];
        const int width = 100 * static_cast<int>(1 + random() % 3);
        ASSERT_EQ(getTruncateLen(any, label.c_str(), 0, width), wantedLength(any, label, width)) << label;
    }
}

TEST_F(TruncateTest, AFontAtTheAddressOfAClosedOneIsMeasuredItself) {
    const ReusedMemory memory;
    const std::string& label = texts[2];
    int met = 0;
    for (int points = 12; points < 60; ++points) {
        TTF_Font* const closed = TTF_OpenFont(TEST_FONT, points);
        ASSERT_EQ(getTruncateLen(closed, label.c_str(), 0, 300), wantedLength(closed, label, 300));
        TTF_CloseFont(closed);
        TTF_Font* const opened = TTF_OpenFont(TEST_FONT, points + 7);
        met += opened == closed;
        EXPECT_EQ(getTruncateLen(opened, label.c_str(), 0, 300), wantedLength(opened, label, 300)) << points;
        TTF_CloseFont(opened);
    }
    EXPECT_GT(met, 0);
}

TEST_F(TruncateTest, AFontThatIsChangedIsMeasuredAnew) {
    const std::string& label = texts[0];
    const auto expectMeasured = [&] { EXPECT_EQ(length(label, 250), wantedLength(medium, label, 250)); };
    expectMeasured();
    TTF_SetFontSize(medium, 31);
    expectMeasured();
    TTF_SetFontStyle(medium, TTF_STYLE_BOLD);
    expectMeasured();
    TTF_SetFontOutline(medium, 6);
    expectMeasured();
    TTF_SetFontSizeDPI(medium, 24, 200, 72);
    expectMeasured();
}

TEST_F(TruncateTest, LabelsOfAnyLengthAreMeasured) {
    for (const size_t bytes : {1023U, 1024U, 1025U, 50'000U}) {
        const std::string label(bytes, 'i');
        for (int again = 0; again < 2; ++again)
            EXPECT_EQ(length(label, 700), wantedLength(medium, label, 700)) << bytes;
    }
}
