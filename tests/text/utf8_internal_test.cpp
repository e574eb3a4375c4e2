#include "text/utf8.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

using kestro::countUtf8;
using kestro::decodeUtf8;
using kestro::utf8Offset;

/// The text in a block of memory of exactly its size, so that a checker sees any read beyond it.
class ExactText {
public:
    explicit ExactText(const std::string& text) : mBytes(new char[text.size()]), mSize(text.size()) {
        memcpy(mBytes.get(), text.data(), text.size());
    }
    const char* data() const { return mBytes.get(); }
    size_t size() const { return mSize; }

private:
    std::unique_ptr<char[]> mBytes;
    size_t mSize;
};

using CodePoints = std::vector<uint32_t>;

static CodePoints decoded(const std::string& text) {
    const ExactText exact(text);
    CodePoints codePoints;
    for (size_t at = 0; at < exact.size();) {
        const kestro::Utf8Step step = decodeUtf8(exact.data() + at, exact.size() - at);
        EXPECT_GE(step.length, 1u);
        EXPECT_LE(at + step.length, exact.size());
        codePoints.push_back(step.codePoint);
        at += step.length;
    }
    EXPECT_EQ(countUtf8(exact.data(), exact.size()), codePoints.size());
    return codePoints;
}

TEST(Utf8, AsciiIsOneByteACodePoint) {
    for (unsigned byte = 0; byte < 0x80; ++byte)
        EXPECT_EQ(decoded(std::string(1, static_cast<char>(byte))), CodePoints{byte});
}

TEST(Utf8, SequencesOfTwoToFourBytes) {
    EXPECT_EQ(decoded("\u00fc"), CodePoints{0xFC});
    EXPECT_EQ(decoded("\u07ff"), CodePoints{0x7FF});
    EXPECT_EQ(decoded("\u4e2d"), CodePoints{0x4E2D});
    EXPECT_EQ(decoded("\uffff"), CodePoints{0xFFFF});
    EXPECT_EQ(decoded("\U00029707"), CodePoints{0x29707});
    EXPECT_EQ(decoded("\U0010ffff"), CodePoints{0x10FFFF});
}

TEST(Utf8, MixedText) {
    EXPECT_EQ(decoded("中文 ABC"), (CodePoints{0x4E2D, 0x6587, ' ', 'A', 'B', 'C'}));
    EXPECT_EQ(decoded("aé日😀z"), (CodePoints{'a', 0xE9, 0x65E5, 0x1F600, 'z'}));
}

TEST(Utf8, LoneContinuationByteIsItself) {
    EXPECT_EQ(decoded("\x80"), CodePoints{0x80});
    EXPECT_EQ(decoded("\xbf\x80z"), (CodePoints{0xBF, 0x80, 'z'}));
    EXPECT_EQ(decoded("\u00fc\x80"), (CodePoints{0xFC, 0x80}));
}

TEST(Utf8, SequenceCutOffByTheEndIsItsBytes) {
    EXPECT_EQ(decoded("\xc3"), CodePoints{0xC3});
    EXPECT_EQ(decoded("a\xe4"), (CodePoints{'a', 0xE4}));
    EXPECT_EQ(decoded("\xe4\xb8"), (CodePoints{0xE4, 0xB8}));
    EXPECT_EQ(decoded("\xf0\x9f\x98"), (CodePoints{0xF0, 0x9F, 0x98}));
    EXPECT_EQ(decoded("\xf0\xc3\xbc"), (CodePoints{0xF0, 0xFC})) << "what is left may be a sequence again";
}

TEST(Utf8, ContinuationBytesAreNotChecked) {
    EXPECT_EQ(decoded("\xc3z"), CodePoints{0x3u << 6 | ('z' & 0x3F)});
    EXPECT_EQ(decoded("\xe4zz!"), (CodePoints{0x4u << 12 | 0x3Au << 6 | 0x3A, '!'}));
    EXPECT_EQ(decoded("\xc3\xff"), CodePoints{0x3u << 6 | 0x3F});
}

TEST(Utf8, SurrogatesAndOverlongFormsAreTakenAsTheyAre) {
    EXPECT_EQ(decoded("\xed\xa0\x80"), CodePoints{0xD800});
    EXPECT_EQ(decoded("\xc0\x80"), CodePoints{0});
    EXPECT_EQ(decoded("\xe0\x80\xaf"), CodePoints{0x2F});
    EXPECT_EQ(decoded("\xf7\xbf\xbf\xbf"), CodePoints{0x1FFFFF});
}

TEST(Utf8, LongerSequencesHaveAsManyBytesAsTheLeadSays) {
    EXPECT_EQ(decoded("\xf8\x88\x80\x80\x81z"), (CodePoints{0x200001, 'z'}));
    EXPECT_EQ(decoded("\xfc\x84\x80\x80\x80\x82z"), (CodePoints{0x4000002, 'z'}));
    EXPECT_EQ(decoded("\xfe\x80\x80\x80\x80\x80\x83z"), (CodePoints{3, 'z'}));
    EXPECT_EQ(decoded("\xff\x80\x80\x80\x80\x80\x80\x84z"), (CodePoints{4, 'z'}));
    EXPECT_EQ(decoded("\xf8\x80\x80\x80"), (CodePoints{0xF8, 0x80, 0x80, 0x80}));
    EXPECT_EQ(decoded("\xff"), CodePoints{0xFF});
}

TEST(Utf8, ZeroInsideTheLengthIsACodePoint) {
    EXPECT_EQ(decoded(std::string("a\0b", 3)), (CodePoints{'a', 0, 'b'}));
}

TEST(Utf8, EmptyTextHasNoCodePoints) {
    EXPECT_EQ(countUtf8("", 0), 0u);
    EXPECT_EQ(utf8Offset("", 0, 0), 0u);
    EXPECT_EQ(utf8Offset("", 0, 5), 0u);
}

TEST(Utf8, OffsetsOfCodePoints) {
    const ExactText text("aé日😀z");
    const size_t offsets[] = {0, 1, 3, 6, 10, 11, 11, 11};
    for (size_t i = 0; i < 8; ++i)
        EXPECT_EQ(utf8Offset(text.data(), text.size(), i), offsets[i]) << i;
    EXPECT_EQ(utf8Offset(text.data(), text.size(), SIZE_MAX), 11u);
}

TEST(Utf8, OffsetsInBadText) {
    const ExactText text("\x80\xe4\xb8");
    for (size_t i = 0; i < 5; ++i)
        EXPECT_EQ(utf8Offset(text.data(), text.size(), i), i < 3 ? i : 3);
}

TEST(Utf8, AnyBytesAreWalkedToTheirEnd) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string text(random() % 24, ' ');
        for (char& byte : text)
            byte = static_cast<char>(random());
        const size_t count = decoded(text).size();
        const ExactText exact(text);
        EXPECT_EQ(utf8Offset(exact.data(), exact.size(), count), text.size());
    }
}
