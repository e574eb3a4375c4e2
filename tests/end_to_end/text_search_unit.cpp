#include "navora/text_search.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

using navora::TextSearch;
using Numbers = std::vector<size_t>;

static TextSearch searchIn(const std::vector<std::string>& texts) {
    TextSearch search;
    for (const std::string& text : texts)
        search.add(text);
    return search;
}

TEST(TextSearchTest, FindsEachTextOnceInTheirOrderWhateverTheCase) {
    const TextSearch search = searchIn({"Abcabc", "x", "ab", "zAB", "ba"});
    EXPECT_EQ(search.find("AB"), (Numbers{0, 2, 3}));
    EXPECT_EQ(search.find("abca"), (Numbers{0}));
    EXPECT_EQ(search.find("abx"), Numbers{});
}

TEST(TextSearchTest, TheEmptyKeyFindsAllAndNothingIsFoundInNothing) {
    EXPECT_EQ(searchIn({"a", "", "b"}).find(""), (Numbers{0, 1, 2}));
    EXPECT_EQ(TextSearch().find(""), Numbers{});
    EXPECT_EQ(searchIn({"", ""}).find("a"), Numbers{});
}

TEST(TextSearchTest, IsEmptyAfterItIsCleared) {
    TextSearch search = searchIn({"a", "b"});
    search.clear();
    EXPECT_EQ(search.find(""), Numbers{});
    search.add("b");
    EXPECT_EQ(search.find("b"), (Numbers{0}));
}

TEST(TextSearchTest, WhatFollowsAZeroDoesNotCount) {
    EXPECT_EQ(searchIn({std::string("a\0b", 3), "b"}).find("b"), (Numbers{1}));
}

TEST(TextSearchTest, FindsIn1000RandomListsWhatLookingIntoEachTextFinds) {
    std::mt19937 random(3);
    const auto text = [&random](size_t longest) {
        std::string made;
        for (size_t length = random() % (longest + 1); length > 0; --length)
            made += "aAbB zZ@[`{\xC3\xE3"[random() % 13];
        return made;
    };
    for (int round = 0; round < 1000; ++round) {
        std::vector<std::string> texts(random() % 40);
        for (std::string& each : texts)
            each = text(12);
        const std::string key = text(3);
        Numbers wanted;
        for (size_t i = 0; i < texts.size(); ++i)
            if (strcasestr(texts[i].c_str(), key.c_str()))
                wanted.push_back(i);
        ASSERT_EQ(searchIn(texts).find(key), wanted) << key;
    }
}
