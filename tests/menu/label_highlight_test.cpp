#include "shell/skin.h"
#include "support/searched_label_test.h"

using testing::ElementsAre;

class LabelHighlightTest : public SearchedLabelTest {
protected:
    /// The whole label in one colour, as DrawString places it.
    static Drawing unmatched(const std::string& text, int align) {
        const int y = align == 1 || align == 3 || align == 4 ? middle(text) : 200;
        const int x = align == 0 || align == 3 ? 100
                      : align == 1             ? 100 + (700 - width(text)) / 2
                                               : 800 - width(text);
        return {plain(text, x, y)};
    }
};

static constexpr int allAlignments[] = {0, 1, 2, 3, 4, 5, 99, -1};

TEST_F(LabelHighlightTest, WithoutKeywordTheLabelHasOneColour) {
    for (const int align : allAlignments) {
        EXPECT_EQ(searched("Hello", "", align), unmatched("Hello", align)) << align;
        EXPECT_EQ(searched("Hello", nullptr, align), unmatched("Hello", align)) << align;
    }
}

TEST_F(LabelHighlightTest, WithoutMatchTheLabelHasOneColour) {
    for (const int align : allAlignments) {
        EXPECT_EQ(searched("Hello", "x", align), unmatched("Hello", align)) << align;
        EXPECT_EQ(searched("Hello", "x", align, false, "World"), unmatched("Hello", align)) << align;
    }
}

TEST_F(LabelHighlightTest, LeftAlignedPiecesFollowOneAnother) {
    for (const int align : {0, 3}) {
        const auto y = [align](const char* piece) { return align == 0 ? 200 : middle(piece); };
        const int afterHe = 100 + width("He");
        EXPECT_THAT(searched("Hello", "he", align),
                    ElementsAre(match("He", 100, y("He")), plain("llo", afterHe, y("llo"))));
        EXPECT_THAT(searched("Hello", "ll", align),
                    ElementsAre(plain("He", 100, y("He")), match("ll", afterHe, y("ll")),
                                plain("o", afterHe + width("ll"), y("o"))));
        EXPECT_THAT(searched("Hello", "llo", align),
                    ElementsAre(plain("He", 100, y("He")), match("llo", afterHe, y("llo"))));
        EXPECT_THAT(searched("Hello", "HELLO", align), ElementsAre(match("Hello", 100, y("Hello"))));
    }
}

TEST_F(LabelHighlightTest, CentredPiecesFollowOneAnotherFromWhereTheLabelBegins) {
    for (const int align : {1, 5, 99, -1}) {
        const int x = 100 + (700 - latinWidth("Hello")) / 2;
        const int afterHe = x + width("He");
        EXPECT_THAT(searched("Hello", "he", align),
                    ElementsAre(match("He", x, middle("He")), plain("llo", afterHe, middle("llo"))));
        EXPECT_THAT(searched("Hello", "ll", align),
                    ElementsAre(plain("He", x, middle("He")), match("ll", afterHe, middle("ll")),
                                plain("o", afterHe + width("ll"), middle("o"))));
        EXPECT_THAT(searched("Hello", "llo", align),
                    ElementsAre(plain("He", x, middle("He")), match("llo", afterHe, middle("llo"))));
        EXPECT_THAT(searched("Hello", "hello", align), ElementsAre(match("Hello", x, middle("Hello"))));
    }
}

TEST_F(LabelHighlightTest, ALabelWiderThanItsRectangleStartsBeforeItWhenCentred) {
    std::string wide(60, 'W');
    bool wasOdd = false; // half of an odd excess is rounded towards the rectangle
    for (int i = 0; i < 8; ++i, wide += 'i') {
        const int excess = latinWidth(wide) - 700;
        ASSERT_GT(excess, 0);
        wasOdd |= excess % 2 != 0;
        EXPECT_EQ(searched(wide.c_str(), "w", 1).front(), match("W", 100 - excess / 2, middle("W")));
    }
    EXPECT_TRUE(wasOdd);
}

TEST_F(LabelHighlightTest, RightAlignedSuffixAndMatchLieOverOneAnother) {
    for (const int align : {2, 4}) {
        const auto y = [align](const char* piece) { return align == 2 ? 200 : middle(piece); };
        const auto atRight = [](const char* piece) { return 800 - width(piece); };
        EXPECT_THAT(searched("Hello", "he", align),
                    ElementsAre(plain("llo", atRight("llo"), y("llo")), match("He", atRight("He"), y("He"))));
        EXPECT_THAT(searched("Hello", "ll", align),
                    ElementsAre(plain("o", atRight("o"), y("o")), match("ll", atRight("ll"), y("ll")),
                                plain("He", atRight("ll") - width("He"), y("He"))));
        EXPECT_THAT(searched("Hello", "llo", align),
                    ElementsAre(match("llo", atRight("llo"), y("llo")),
                                plain("He", atRight("llo") - width("He"), y("He"))));
        EXPECT_THAT(searched("Hello", "hello", align),
                    ElementsAre(match("Hello", atRight("Hello"), y("Hello"))));
    }
}

TEST_F(LabelHighlightTest, EveryPieceHasTheShadow) {
    const int afterHe = 100 + width("He");
    const int afterLl = afterHe + width("ll");
    EXPECT_THAT(searched("Hello", "ll", 0, true),
                ElementsAre(plain("He", 101, 202), plain("He", 100, 200), match("ll", afterHe + 1, 202),
                            match("ll", afterHe, 200), plain("o", afterLl + 1, 202),
                            plain("o", afterLl, 200)));
    EXPECT_EQ(searched("Hello", "ll", 4, true).size(), 6u);
    EXPECT_EQ(searched("Hello", "ll", 1, true).size(), 6u);
    EXPECT_EQ(searched("Hello", "", 0, true).size(), 2u);
    EXPECT_EQ(searched("Hello", "x", 0, true).size(), 2u);
}

TEST_F(LabelHighlightTest, OnlyTheFirstMatchIsHighlighted) {
    const int afterB = 100 + width("b");
    EXPECT_THAT(searched("banana", "an", 0), ElementsAre(plain("b", 100, 200), match("an", afterB, 200),
                                                         plain("ana", afterB + width("an"), 200)));
}

TEST_F(LabelHighlightTest, ChineseMatchesByItsInitials) {
    const int afterFirst = 100 + width("中");
    EXPECT_THAT(searched("中国人", "gr", 0),
                ElementsAre(plain("中", 100, 200), match("国人", afterFirst, 200)));
    EXPECT_THAT(searched("中国人", "ZG", 0),
                ElementsAre(match("中国", 100, 200), plain("人", 100 + width("中国"), 200)));
    EXPECT_THAT(searched("A中B", "z", 0),
                ElementsAre(plain("A", 100, 200), match("中", 100 + width("A"), 200),
                            plain("B", 100 + width("A") + width("中"), 200)));
}

TEST_F(LabelHighlightTest, CentredChineseBeginsByTheWidthOfItsBytes) {
    ASSERT_NE(latinWidth("中国人"), width("中国人"));
    const int x = 100 + (700 - latinWidth("中国人")) / 2;
    EXPECT_THAT(searched("中国人", "g", 1),
                ElementsAre(plain("中", x, middle("中")), match("国", x + width("中"), middle("国")),
                            plain("人", x + width("中") + width("国"), middle("人"))));
}

TEST_F(LabelHighlightTest, AMatchInTheExtraTextShowsItInBrackets) {
    const int afterPrefix = 100 + width("Hello(Wo");
    EXPECT_THAT(searched("Hello", "rl", 0, false, "World"),
                ElementsAre(plain("Hello(Wo", 100, 200), match("rl", afterPrefix, 200),
                            plain("d)", afterPrefix + width("rl"), 200)));
    EXPECT_THAT(searched("Hello", "gr", 0, false, "中国人"),
                ElementsAre(plain("Hello(中", 100, 200), match("国人", 100 + width("Hello(中"), 200),
                            plain(")", 100 + width("Hello(中") + width("国人"), 200)));
}

TEST_F(LabelHighlightTest, AMatchMayReachIntoTheBrackets) {
    EXPECT_THAT(searched("ab", "b(c", 0, false, "cd"),
                ElementsAre(plain("a", 100, 200), match("b(c", 100 + width("a"), 200),
                            plain("d)", 100 + width("a") + width("b(c"), 200)));
}

TEST_F(LabelHighlightTest, AMatchInTheLabelHidesTheExtraText) {
    EXPECT_THAT(searched("Hello", "he", 0, false, "he"),
                ElementsAre(match("He", 100, 200), plain("llo", 100 + width("He"), 200)));
}

TEST_F(LabelHighlightTest, CentredExtraTextIsPlacedByTheLabelAlone) {
    const int x = 100 + (700 - latinWidth("Hello")) / 2;
    EXPECT_THAT(searched("Hello", "rl", 1, false, "World"),
                ElementsAre(plain("Hello(Wo", x, middle("Hello(Wo")),
                            match("rl", x + width("Hello(Wo"), middle("rl")),
                            plain("d)", x + width("Hello(Wo") + width("rl"), middle("d)"))));
}

TEST_F(LabelHighlightTest, RightAlignedExtraTextIsPlacedLikeAnyMatch) {
    EXPECT_THAT(searched("Hello", "rl", 2, false, "World"),
                ElementsAre(plain("d)", 800 - width("d)"), 200), match("rl", 800 - width("rl"), 200),
                            plain("Hello(Wo", 800 - width("rl") - width("Hello(Wo"), 200)));
}

TEST_F(LabelHighlightTest, AnEmptyExtraTextStillHasBrackets) {
    EXPECT_THAT(searched("Hello", "(", 0, false, ""),
                ElementsAre(plain("Hello", 100, 200), match("(", 100 + width("Hello"), 200),
                            plain(")", 100 + width("Hello") + width("("), 200)));
    EXPECT_THAT(searched("Hello", "()", 0, false, ""),
                ElementsAre(plain("Hello", 100, 200), match("()", 100 + width("Hello"), 200)));
}

TEST_F(LabelHighlightTest, ANullExtraTextHasNoBrackets) {
    EXPECT_EQ(searched("Hello", "(", 0, false, nullptr), unmatched("Hello", 0));
}
