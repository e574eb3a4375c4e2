#include "text/pinyin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>

namespace {

/// The place of a match in a text, in bytes.
struct Match {
    long start;
    int length;
    bool operator==(const Match& other) const { return start == other.start && length == other.length; }
};

void PrintTo(const Match& match, std::ostream* out) {
    *out << match.length << " bytes at " << match.start;
}

class PinyinSearchTest : public testing::Test {
protected:
    void SetUp() override { InitPinYinMap(); }
    void TearDown() override { gPinyinMap.clear(); }

    /// The match of `key` in a text with the given initials; none must leave the outputs alone.
    static std::optional<Match> search(const std::string& text, const std::string& initials,
                                       const std::string& key) {
        const char untouched[] = "untouched";
        const char* start = untouched;
        int length = -77;
        const int result = PinyinStrstr(text.c_str(), initials.c_str(), key.c_str(), &start, &length);
        if (result == 0)
            return Match{start - text.c_str(), length};
        EXPECT_EQ(result, -1);
        EXPECT_EQ(start, untouched);
        EXPECT_EQ(length, -77);
        return std::nullopt;
    }

    static std::optional<Match> search(const std::string& text, const std::string& key) {
        char* const initials = GetPinyinInitials2(text.c_str());
        const std::optional<Match> match = search(text, std::string(initials), key);
        free(initials);
        return match;
    }
};

const char superMario[] = "\u8D85\u7EA7\u739B\u4E3D"; // initials cjml

constexpr std::nullopt_t none = std::nullopt;

} // namespace

TEST_F(PinyinSearchTest, MapsAMatchBackToTheBytesOfTheText) {
    EXPECT_EQ(search(superMario, "jm"), (Match{3, 6}));
    EXPECT_EQ(search(superMario, "cjml"), (Match{0, 12}));
    EXPECT_EQ(search("a\u4E2D"
                     "b\u6587"
                     "c",
                     "zb"),
              (Match{1, 4}));
    EXPECT_EQ(search("\u00FC"
                     "ab",
                     "ab"),
              (Match{2, 2}));
    EXPECT_EQ(search("\U00029707xy", "x"), (Match{4, 1}));
}

TEST_F(PinyinSearchTest, TakesTheStartOfTheTextForAMatchAtZero) {
    EXPECT_EQ(search(superMario, "c"), (Match{0, 3}));
}

TEST_F(PinyinSearchTest, IgnoresCase) {
    EXPECT_EQ(search("Abc", "AB"), (Match{0, 2}));
    EXPECT_EQ(search("ABC", "bc"), (Match{1, 2}));
    EXPECT_EQ(search(superMario, "JM"), (Match{3, 6}));
}

TEST_F(PinyinSearchTest, FindsNothingThatIsNotThere) {
    EXPECT_EQ(search(superMario, "mj"), none);
    EXPECT_EQ(search(superMario, "cjmlx"), none);
    EXPECT_EQ(search("", "a"), none);
    EXPECT_EQ(search("abc", "\u4E2D"), none);
}

TEST_F(PinyinSearchTest, ReportsTheFirstMatchOnly) {
    EXPECT_EQ(search("xabab", "ab"), (Match{1, 2}));
    EXPECT_EQ(search("\u4E2D\u4E2D\u4E2D", "z"), (Match{0, 3}));
}

TEST_F(PinyinSearchTest, FindsSpacesOfUnknownCharacters) {
    EXPECT_EQ(search("a\u3042"
                     "b",
                     " b"),
              (Match{1, 4}));
}

TEST_F(PinyinSearchTest, MatchesAnEmptyKeyAtTheStartWithLengthZero) {
    EXPECT_EQ(search(superMario, ""), (Match{0, 0}));
    EXPECT_EQ(search("a", ""), (Match{0, 0}));
}

TEST_F(PinyinSearchTest, FindsNotEvenAnEmptyKeyInAnEmptyText) {
    EXPECT_EQ(search("", ""), none);
}

TEST_F(PinyinSearchTest, FindsNothingBeyondTheTextsCharacters) {
    EXPECT_EQ(search("ab", "abcd", "cd"), none);
    EXPECT_EQ(search("ab", "abcd", "c"), none);
    EXPECT_EQ(search("\u4E2D", "zabc", "a"), none);
    EXPECT_EQ(search("", "abc", "a"), none);
    EXPECT_EQ(search("ab", "abcd", "b"), (Match{1, 1})) << "the last character still counts";
}

TEST_F(PinyinSearchTest, MatchesToTheEndWhenTheKeyHasMoreBytesThanTheRest) {
    EXPECT_EQ(search("ab", "abcd", "bcd"), (Match{1, 1}));
    EXPECT_EQ(search("\u4E2D", "zabcd", "zabcd"), (Match{0, 3}));
}

TEST_F(PinyinSearchTest, MatchesKeysWithAsManyBytesAsTheRestByWalking) {
    EXPECT_EQ(search("ab", "ab", "ab"), (Match{0, 2}));
    EXPECT_EQ(search("\u4E2D", "zab", "zab"), (Match{0, 3})) << "there is no more to walk";
}

TEST_F(PinyinSearchTest, WalksCharactersNotBytes) {
    // The key is two bytes long; the match takes six.
    EXPECT_EQ(search("x\u4E2D\u6587y", "zw"), (Match{1, 6}));
}

TEST_F(PinyinSearchTest, TakesWhatIsLeftOfASequenceThatIsCutOff) {
    EXPECT_EQ(search("a\xE4\xB8", "a  ", "a "), (Match{0, 3})) << "one step over both bytes";
    EXPECT_EQ(search("a\xE4\xB8", "a  ", " "), (Match{1, 2}));
    EXPECT_EQ(search("a\xE4\xB8", "a x", "x"), (Match{2, 1}));
}

TEST_F(PinyinSearchTest, WalksLoneContinuationBytesOneByOne) {
    EXPECT_EQ(search("\x80\xBF"
                     "a",
                     " "),
              (Match{0, 1}));
    EXPECT_EQ(search("\x80\xBF"
                     "a",
                     " a"),
              (Match{1, 2}));
}

TEST_F(PinyinSearchTest, WalksLongLeadBytesByTheirOnes) {
    EXPECT_EQ(search("\xF8\x80\x84\xB8\xAD"
                     "a",
                     "z"),
              (Match{0, 5}));
    EXPECT_EQ(search("\xFF\x80\x80\x80\x80\x84\xB8\xAD"
                     "a",
                     "z"),
              (Match{0, 8}));
    EXPECT_EQ(search("\xFF\x80\x80\x80\x80\x84\xB8\xAD"
                     "a",
                     "a"),
              (Match{8, 1}));
}

TEST_F(PinyinSearchTest, FindsNothingInOrByNull) {
    const char* start = "untouched";
    const char* const before = start;
    int length = -77;
    EXPECT_EQ(PinyinStrstr(nullptr, "a", "a", &start, &length), -1);
    EXPECT_EQ(PinyinStrstr("a", nullptr, "a", &start, &length), -1);
    EXPECT_EQ(PinyinStrstr("a", "a", nullptr, &start, &length), -1);
    EXPECT_EQ(PinyinStrstr("a", "a", "a", nullptr, &length), -1);
    EXPECT_EQ(PinyinStrstr("a", "a", "a", &start, nullptr), -1);
    EXPECT_EQ(start, before);
    EXPECT_EQ(length, -77);
}
