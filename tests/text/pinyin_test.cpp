#include "support/guarded_text.h"
#include "text/pinyin.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <regex>
#include <string>

// The readings, and the initials of a text.

namespace {

const size_t sReadingsAtLoad = gPinyinMap.size();

class PinyinTest : public testing::Test {
protected:
    void SetUp() override { InitPinYinMap(); }
    void TearDown() override { gPinyinMap.clear(); }

    static std::string initials(const std::string& text) {
        char* const made = GetPinyinInitials2(text.c_str());
        const std::string copy = made;
        free(made);
        return copy;
    }

    static long countIn(unsigned first, unsigned last) {
        return std::distance(gPinyinMap.lower_bound(first), gPinyinMap.upper_bound(last));
    }

    static std::string utf8(unsigned codePoint) {
        const auto tail = [&](unsigned shift) {
            return std::string(1, static_cast<char>(0x80 | (codePoint >> shift & 0x3F)));
        };
        if (codePoint < 0x80)
            return std::string(1, static_cast<char>(codePoint));
        if (codePoint < 0x800)
            return static_cast<char>(0xC0 | codePoint >> 6) + tail(0);
        if (codePoint < 0x10000)
            return static_cast<char>(0xE0 | codePoint >> 12) + tail(6) + tail(0);
        return static_cast<char>(0xF0 | codePoint >> 18) + tail(12) + tail(6) + tail(0);
    }
};

} // namespace

TEST(Pinyin, KnowsNoReadingsAtLoad) {
    EXPECT_EQ(sReadingsAtLoad, 0u);
}

TEST_F(PinyinTest, KnowsThisManyCharactersOfEachBlock) {
    EXPECT_EQ(gPinyinMap.size(), 25360u);
    const long extensionA = countIn(0x3400, 0x4DBF);
    const long unified = countIn(0x4E00, 0x9FFF);
    EXPECT_EQ(extensionA, 5058);
    EXPECT_EQ(unified, 20253);
    EXPECT_EQ(countIn(0, 0x1FFFF) - extensionA - unified, 22);
    EXPECT_EQ(countIn(0x20000, 0xFFFFFFFF), 27);
    EXPECT_EQ(gPinyinMap.rbegin()->first, 0x29707u);
}

TEST_F(PinyinTest, KnowsTheseReadings) {
    EXPECT_STREQ(gPinyinMap.at(0x3400), "qiu1");
    EXPECT_STREQ(gPinyinMap.at(0x3401), "tian3");
    EXPECT_STREQ(gPinyinMap.at(0x4E00), "yi1");
    EXPECT_STREQ(gPinyinMap.at(0x4E2D), "zhong1");
    EXPECT_STREQ(gPinyinMap.at(0x6587), "wen2");
    EXPECT_STREQ(gPinyinMap.at(0x7EA7), "ji2");
    EXPECT_STREQ(gPinyinMap.at(0x8D85), "chao1");
    EXPECT_STREQ(gPinyinMap.at(0x29707), "juan3");
    EXPECT_STREQ(gPinyinMap.at(0x55EF), "en1");
}

TEST_F(PinyinTest, WritesEverySyllableInSmallLettersWithAToneDigit) {
    for (const auto& [codePoint, syllable] : gPinyinMap) {
        const size_t letters = strspn(syllable, "abcdefghijklmnopqrstuvwxyz");
        EXPECT_GE(letters, 1u) << std::hex << codePoint;
        EXPECT_LE(letters, 6u) << std::hex << codePoint;
        EXPECT_TRUE(strlen(syllable) == letters + 1 && strchr("12345", syllable[letters]))
            << std::hex << codePoint << " " << syllable;
    }
}

TEST_F(PinyinTest, WritesTheUmlautAsV) {
    EXPECT_STREQ(gPinyinMap.at(0x5973), "nv3"); // woman
    EXPECT_STREQ(gPinyinMap.at(0x7EFF), "lv4"); // green
}

TEST_F(PinyinTest, HasNoSyllableThatBeginsWithWhatNoSyllableBeginsWith) {
    for (const auto& [codePoint, syllable] : gPinyinMap)
        EXPECT_FALSE(strchr("iuv", *syllable)) << std::hex << codePoint << " " << syllable;
}

TEST_F(PinyinTest, KnowsOnlyItsOwnReadingsAfterASecondStart) {
    initials("\u00FC");
    gPinyinMap[0x4E2D] = "wrong";
    gPinyinMap.erase(0x4E00);
    InitPinYinMap();
    EXPECT_EQ(gPinyinMap.size(), 25360u);
    EXPECT_EQ(gPinyinMap.count(0xFC), 0u);
    EXPECT_STREQ(gPinyinMap.at(0x4E2D), "zhong1");
}

TEST_F(PinyinTest, SharesSyllablesInsteadOfCopyingThem) {
    const char* const before = gPinyinMap.at(0x4E2D);
    InitPinYinMap();
    EXPECT_EQ(gPinyinMap.at(0x4E2D), before);
}

TEST_F(PinyinTest, InitialsOfChineseAreTheFirstLettersOfTheReadings) {
    EXPECT_EQ(initials("\u4E2D\u6587"), "zw");
    EXPECT_EQ(initials("\u8D85\u7EA7\u739B\u4E3D"), "cjml");
    EXPECT_EQ(initials("\u4E2D\u6587 ABC"), "zw ABC");
}

TEST_F(PinyinTest, InitialsOfAsciiAreTheCharacters) {
    std::string ascii;
    for (char c = 1; c > 0 && c < 127; ++c)
        ascii += c;
    ascii += '\x7F';
    EXPECT_EQ(initials(ascii), ascii);
    EXPECT_EQ(initials("Abc"), "Abc");
}

TEST_F(PinyinTest, AsciiOfAnyLengthAroundChineseKeepsItsPlace) {
    const std::string ascii = "The Long Winding Road Across";
    for (size_t before = 0; before <= ascii.size(); ++before)
        for (size_t after = 0; after <= ascii.size(); ++after)
            ASSERT_EQ(initials(ascii.substr(0, before) + "\u4E2D" + ascii.substr(0, after)),
                      ascii.substr(0, before) + "z" + ascii.substr(0, after));
}

TEST_F(PinyinTest, InitialsOfNothingAreNothing) {
    EXPECT_EQ(initials(""), "");
    char* const ofNull = GetPinyinInitials2(nullptr);
    EXPECT_STREQ(ofNull, "");
    free(ofNull);
}

TEST_F(PinyinTest, InitialOfEveryKnownCharacterIsItsReadingsFirstLetter) {
    std::string text;
    std::string wanted;
    for (const auto& [codePoint, syllable] : gPinyinMap) {
        text += utf8(codePoint);
        wanted += *syllable;
    }
    EXPECT_EQ(initials(text), wanted);
    EXPECT_EQ(gPinyinMap.size(), 25360u) << "nothing new was looked up";
}

TEST_F(PinyinTest, InitialOfOtherCharactersIsASpace) {
    EXPECT_EQ(initials("\u00FC"), " ");
    EXPECT_EQ(initials("a\u00FCb\u3042c\uD55Cd\U0001F600e"), "a b c d e");
}

TEST_F(PinyinTest, InitialsOfSupplementaryPlanesAreFoundToo) {
    EXPECT_EQ(initials("\U00029707"), "j");
    EXPECT_EQ(initials("\U00029708"), " ");
}

TEST_F(PinyinTest, MapGrowsByEveryUnknownCharacterOnce) {
    EXPECT_EQ(initials("\u00FC\u00E9\u00FC\u00FC\u4E2Dabc"), "    zabc");
    EXPECT_EQ(gPinyinMap.size(), 25362u);
    EXPECT_STREQ(gPinyinMap.at(0xFC), "");
    EXPECT_STREQ(gPinyinMap.at(0xE9), "");
    initials("\u00FC");
    EXPECT_EQ(gPinyinMap.size(), 25362u);
}

TEST_F(PinyinTest, WithoutReadingsOnlyAsciiHasInitials) {
    gPinyinMap.clear();
    EXPECT_EQ(initials("a\u4E2D\u6587b"), "a  b");
    EXPECT_EQ(gPinyinMap.size(), 2u);
    EXPECT_EQ(gPinyinMap.count('a'), 0u);
}

TEST_F(PinyinTest, ReadingsThatTheHostAddsCount) {
    gPinyinMap[0xFC] = "yu4";
    gPinyinMap[0xE9] = nullptr;
    EXPECT_EQ(initials("\u00FC\u00E9"), "y ");
}

TEST_F(PinyinTest, SequenceCutOffByTheEndIsOneInitialAByte) {
    EXPECT_EQ(initials("a\xE4\xB8"), "a  ");
    EXPECT_EQ(initials("a\xF0\xA9\x9C"), "a   ");
    EXPECT_EQ(initials("\xC3"), " ");
    EXPECT_EQ(gPinyinMap.count(0xC3), 1u) << "its value is the byte itself";
    EXPECT_EQ(gPinyinMap.count(0xB8), 1u);
}

TEST_F(PinyinTest, LoneContinuationByteIsOneInitial) {
    EXPECT_EQ(initials("\x80"
                       "a\xBF"
                       "b"),
              " a b");
    EXPECT_EQ(gPinyinMap.count(0x80), 1u);
    EXPECT_EQ(gPinyinMap.count(0xBF), 1u);
}

TEST_F(PinyinTest, WhatFollowsALeadByteIsTakenUnseen) {
    EXPECT_EQ(initials("\xC3"
                       "ab"),
              " b")
        << "the a belongs to the sequence";
    EXPECT_EQ(gPinyinMap.count(0x3u << 6 | ('a' & 0x3F)), 1u);
    EXPECT_EQ(initials("\xE4"
                       "xyz"),
              "dz")
        << "the low bits of x and y make U+4E39, dan1";
}

TEST_F(PinyinTest, OverlongSequenceIsWhatItsBitsSay) {
    EXPECT_EQ(initials("\xC1\x81"), "A");
    EXPECT_EQ(initials("\xF0\x84\xB8\xAD"), "z") << "U+4E2D in four bytes";
}

TEST_F(PinyinTest, LeadBytesOfFiveToEightOnesTakeSoManyBytes) {
    EXPECT_EQ(initials("\xF8\x80\x84\xB8\xAD"
                       "a"),
              "za");
    EXPECT_EQ(initials("\xFC\x80\x80\x84\xB8\xAD"
                       "a"),
              "za");
    EXPECT_EQ(initials("\xFE\x80\x80\x80\x84\xB8\xAD"
                       "a"),
              "za");
    EXPECT_EQ(initials("\xFF\x80\x80\x80\x80\x84\xB8\xAD"
                       "a"),
              "za");
    EXPECT_EQ(initials("\xFF\x80\x80\x80\x80\x84\xB8"), "       ");
}

TEST_F(PinyinTest, LongTextIsNoTrouble) {
    std::string text;
    for (int i = 0; i < 50'000; ++i)
        text += "\u4E2Da";
    const std::string made = initials(text);
    EXPECT_EQ(made.size(), 100'000u);
    EXPECT_EQ(made.substr(99'998), "za");
}

TEST_F(PinyinTest, NothingIsReadBeyondTheEnd) {
    for (const char* text :
         {"", "a", "\xFF", "\xE4\xB8", "ab\xC3", "\xF0\xA9\x9C", "\xFE\x80\x80\x80\x80\x80"}) {
        const GuardedText guarded(text);
        char* const made = GetPinyinInitials2(guarded.text());
        EXPECT_EQ(made, initials(text));
        free(made);
    }
}
