#include "shell/skin.h"
#include "support/searched_label_test.h"

using testing::ElementsAre;

/// drawListText with arguments that are missing, and the search as the rows use it.
class LabelHighlightNullTest : public SearchedLabelTest {
protected:
    static constexpr SDL_Color white{255, 255, 255, 255};

    Drawing with(const char* text, const char* keyword, const char* initials, const char* extraInitials,
                 const char* extraText, TTF_Font* font = gListFontTxt) {
        const TextureNames names;
        DrawingLog log;
        EXPECT_EQ(menu->drawListText(font, {100, 200, 700, 50}, text, white, 0, false, keyword, initials,
                                     extraInitials, extraText),
                  0);
        return log.take();
    }
};

TEST_F(LabelHighlightNullTest, NullTextsCountAsEmpty) {
    EXPECT_TRUE(with(nullptr, nullptr, nullptr, nullptr, nullptr).empty());
    EXPECT_TRUE(with(nullptr, "a", "a", "a", nullptr).empty());
    EXPECT_THAT(with(nullptr, "b", nullptr, "b", "b"),
                ElementsAre(plain("(", 100, 200), match("b", 100 + width("("), 200),
                            plain(")", 100 + width("(") + width("b"), 200)));
}

TEST_F(LabelHighlightNullTest, ANullKeywordSearchesNothing) {
    EXPECT_THAT(with("Hello", nullptr, "Hello", "x", "x"), ElementsAre(plain("Hello", 100, 200)));
}

TEST_F(LabelHighlightNullTest, NullInitialsMatchNothing) {
    EXPECT_THAT(with("Hello", "he", nullptr, nullptr, nullptr), ElementsAre(plain("Hello", 100, 200)));
    EXPECT_THAT(with("Hello", "w", "Hello", nullptr, "World"), ElementsAre(plain("Hello", 100, 200)));
}

TEST_F(LabelHighlightNullTest, InitialsOfAnotherTextDoNoHarm) {
    EXPECT_THAT(with("ab", "z", "abcdefghiz", "", nullptr), ElementsAre(plain("ab", 100, 200)));
    EXPECT_THAT(with("ab", "yz", "xyz", "", nullptr),
                ElementsAre(plain("a", 100, 200), match("b", 100 + width("a"), 200)));
}

TEST_F(LabelHighlightNullTest, ANullFontDrawsNothing) {
    for (const char* const keyword : {"", "he", "x"})
        EXPECT_TRUE(with("Hello", keyword, "Hello", "", "", nullptr).empty());
}

TEST_F(LabelHighlightNullTest, ThePieceThatWasDrawnLastStaysInTheListsScratchText) {
    with("Hello", "ll", "Hello", "", "");
    EXPECT_EQ(menu->mPiece, "o");
    with("Hello", "llo", "Hello", "", "");
    EXPECT_EQ(menu->mPiece, "llo");
}

TEST_F(LabelHighlightNullTest, BrokenTextDrawsSomethingAndReadsNoFurther) {
    const std::string broken = std::string("a\xE4\xB8") + "\xFF\x80";
    const std::unique_ptr<char[]> exact(new char[broken.size() + 1]); // a checker sees a step beyond it
    memcpy(exact.get(), broken.c_str(), broken.size() + 1);
    for (const char* const keyword : {"a", " ", "a ", "zzzzzzzzzz", "\xE4", "\xFF"})
        for (const int align : {0, 1, 2})
            searched(exact.get(), keyword, align, false, exact.get());
    EXPECT_THAT(searched(exact.get(), "a", 0).front(), match("a", 100, 200));
}

TEST_F(LabelHighlightNullTest, RowsHighlightTheListsKeyword) {
    menu->add("Hello")->setExtraText("World");
    menu->add("你好");
    menu->setShowNumber(false);
    const int y = 80 + labelOffset(96);
    menu->setKeyword("ell");
    const Drawing inLabel = drawn(*menu);
    ASSERT_EQ(inLabel.size(), 6u);
    EXPECT_EQ(inLabel[1], plain("H", 30, y));
    EXPECT_EQ(inLabel[2], match("ell", 30 + width("H"), y));
    EXPECT_EQ(inLabel[3], plain("o", 30 + width("H") + width("ell"), y));
    menu->setKeyword("wor");
    const Drawing inExtra = drawn(*menu);
    EXPECT_EQ(inExtra[1], plain("Hello(", 30, y));
    EXPECT_EQ(inExtra[2], match("Wor", 30 + width("Hello("), y));
    menu->setKeyword("nh");
    EXPECT_EQ(drawn(*menu).back(), match("你好", 30, y + 96));
    menu->setKeyword("");
    EXPECT_EQ(drawn(*menu).size(), 4u);
}

TEST_F(LabelHighlightNullTest, TheLabelIsSearchedAsItIsShown) {
    menu->add((std::string(80, 'W') + "end").c_str());
    menu->setShowNumber(false);
    menu->setKeyword("end");
    const Drawing cutAway = drawn(*menu);
    ASSERT_EQ(cutAway.size(), 2u);
    EXPECT_THAT(cutAway[1], testing::HasSubstr("WWW...\" #FFFFFFFF"));
    menu->setKeyword("w...");
    EXPECT_THAT(drawn(*menu).back(), testing::HasSubstr("\"W...\" #36FFA000"));
}

TEST_F(LabelHighlightNullTest, TheFirstOfTwoLinesIsSearchedToo) {
    TextMenuItem* const row = menu->add("Hello");
    row->setSubLabelPresent(true);
    row->setSubLabel("hello");
    menu->setKeyword("he");
    const Drawing calls = drawn(*menu);
    const int y = 140 - lineHeight(gListFontTxt);
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[2], match("He", 95, y));
    EXPECT_EQ(calls[3], plain("llo", 95 + width("He"), y));
    EXPECT_THAT(calls[4], testing::StartsWith("\"hello\" #141414FF"));
}

TEST_F(LabelHighlightNullTest, TheMatchHasTheHighlightColourInTheListsAlignment) {
    menu->add("Hello");
    menu->setShowNumber(false);
    menu->setKeyword("ll");
    menu->setLabelAlign(4);
    const Drawing calls = drawn(*menu);
    ASSERT_EQ(calls.size(), 4u);
    EXPECT_THAT(calls[1], testing::StartsWith("\"o\" #FFFFFFFF all -> " + std::to_string(1250 - width("o"))));
    EXPECT_THAT(calls[2],
                testing::StartsWith("\"ll\" #36FFA000 all -> " + std::to_string(1250 - width("ll"))));
    EXPECT_THAT(calls[3], testing::StartsWith("\"He\" #FFFFFFFF all -> " +
                                              std::to_string(1250 - width("ll") - width("He"))));
}
