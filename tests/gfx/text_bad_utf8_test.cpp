#include "gfx/text.h"

#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <cstring>
#include <random>
#include <sys/mman.h>
#include <unistd.h>

/// A text whose ending zero is the last byte that may be read: the page after it is locked.
class GuardedText {
public:
    GuardedText() {
        mStart = static_cast<char*>(
            mmap(nullptr, 2 * mPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(mStart + mPage, mPage, PROT_NONE);
    }
    ~GuardedText() { munmap(mStart, 2 * mPage); }
    GuardedText(const GuardedText&) = delete;
    GuardedText& operator=(const GuardedText&) = delete;

    const char* set(const std::string& text) {
        char* const place = mStart + mPage - text.size() - 1;
        memcpy(place, text.c_str(), text.size() + 1);
        return place;
    }

private:
    const size_t mPage = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    char* mStart;
};

class BadUtf8Test : public ScreenTest, public testing::WithParamInterface<std::string> {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        medium = font(24);
    }

    GuardedText guarded;
    TTF_Font* medium = nullptr;
};

static const std::string badTexts[] = {
    "\xE4",     // a lead byte alone
    "\xE4\xB8", // cut before its last byte
    "\xC3",
    "\xF0\x9F\x98",
    "name \xE4\xB8",
    "\x80", // a continuation byte alone
    "name \xBF\xBF\xBF",
    "\xED\xA0\x80", // surrogates
    "\xED\xA0\xBD\xED\xB8\x80",
    "\xC0\xAF", // overlong
    "\xC0\x80",
    "\xE0\x80\xAF",
    "\xF0\x80\x80\xAF",
    "\xF4\x90\x80\x80",     // beyond the last code point
    "\xF8\x88\x80\x80\x80", // longer than sequences are
    "\xFC\x84\x80\x80\x80\x80",
    "\xF8\x88",
    "\xFE",
    "\xFF\xFF",
    "\xE4"
    "A"
    "\xB8", // with a letter inside
};

INSTANTIATE_TEST_SUITE_P(All, BadUtf8Test, testing::ValuesIn(badTexts), [](const auto& tested) {
    std::string name = "Bytes";
    for (const char byte : tested.param) {
        char digits[4];
        snprintf(digits, sizeof digits, "_%02X", static_cast<Uint8>(byte));
        name += digits;
    }
    return name;
});

TEST_P(BadUtf8Test, DrawsWithoutReadingBeyondItsEnd) {
    const char* const text = guarded.set(GetParam());
    DrawingLog drawn;
    const int width = DrawString(medium, {10, 20, 300, 40}, text, white, 0, true, false);
    EXPECT_GT(width, 0);
    EXPECT_EQ(drawn.take().size(), 2u);
    EXPECT_EQ(DrawString(medium, {10, 20, 300, 40}, text, white, 1, false, true), width);
}

TEST_P(BadUtf8Test, DrawsLinesWithoutReadingBeyondTheirEnd) {
    const char* const text = guarded.set("first\n" + GetParam());
    DrawingLog drawn;
    GuardedText separators;
    EXPECT_EQ(DrawStringLines(medium, {0, 0, 300, 100}, text, separators.set("\n\xE4"), white, 0, false), 0);
    EXPECT_EQ(
        DrawStringLinesSpacing(medium, {0, 0, 300, 100}, text, separators.set("\n"), 2, white, 0, false), 0);
    EXPECT_GE(drawn.take().size(), 3u); // both firsts, and the rest at least once
}

TEST_P(BadUtf8Test, MeasuresWithoutReadingBeyondItsEnd) {
    const std::string many = GetParam() + GetParam() + GetParam() + GetParam();
    for (const int width : {22, 60, 100, 400}) {
        const int length = getTruncateLen(medium, guarded.set(many), 0, width);
        EXPECT_GE(length, 0);
        EXPECT_LT(static_cast<size_t>(length), many.size());
    }
}

class RandomTextTest : public ScreenTest {};

TEST_F(RandomTextTest, IsDrawnAndMeasuredWithoutReadingBeyondItsEnd) {
    TTF_Font* const small = font(12);
    GuardedText guarded;
    std::mt19937 random(4711);
    for (int round = 0; round < 200; ++round) {
        std::string bytes;
        for (size_t i = 1 + random() % 20; i > 0; --i)
            bytes += static_cast<char>(1 + random() % 255);
        const char* const text = guarded.set(bytes);
        const int width = DrawString(small, {0, 0, 10, 10}, text, white, 0, false, false);
        ASSERT_EQ(DrawString(small, {0, 0, 10, 10}, text, white, 0, false, true), width);
        ASSERT_LT(static_cast<size_t>(getTruncateLen(small, text, 0, 60)), bytes.size());
    }
}
