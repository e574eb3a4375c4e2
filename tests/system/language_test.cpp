#include "support/language_test.h"
#include "system/current_language.h"
#include "system/language.h"

#include <climits>
#include <cstdlib>

// Words by index, from a table that the tests fill.

namespace {

const std::vector<std::string> sWordsAtLoad = gDefaultStringList;
const size_t sLanguagesAtLoad = gLangTable.size();

class LanguageWordsTest : public LanguageTest {};

} // namespace

TEST(Language, HasEightBuiltInWordsAndNoLanguagesAtLoad) {
    EXPECT_THAT(sWordsAtLoad, testing::ElementsAre("Cancel", "OK", "LOADING...", "LOADING...", "OPEN", "BACK",
                                                   "NAV", "MENU"));
    EXPECT_EQ(sLanguagesAtLoad, 0u);
}

TEST_F(LanguageWordsTest, AreTheBuiltInOnesWithoutLanguages) {
    ASSERT_EQ(getLangIndexNum(), 8);
    for (int index = 0; index < 8; ++index) {
        EXPECT_STREQ(getLangStr(index), sWordsAtLoad[static_cast<size_t>(index)].c_str());
        EXPECT_STREQ(getDefLang(index), sWordsAtLoad[static_cast<size_t>(index)].c_str());
    }
}

TEST_F(LanguageWordsTest, OfNegativeIndexesAreEmpty) {
    for (const int index : {-1, -8, INT_MIN}) {
        EXPECT_STREQ(getLangStr(index), "");
        EXPECT_EQ(getDefLang(index), nullptr);
    }
}

TEST_F(LanguageWordsTest, BeyondTheLastCannotBeOverlooked) {
    for (const int index : {8, 9, INT_MAX}) {
        EXPECT_STREQ(getLangStr(index), "wrongbeef");
        EXPECT_EQ(getDefLang(index), nullptr);
    }
}

TEST_F(LanguageWordsTest, BeyondTheLastAreNotLookedUp) {
    gLangTable = {{"en.lang", "English", "", {{-1, "minus"}, {8, "eight"}}}};
    EXPECT_STREQ(getLangStr(-1), "");
    EXPECT_STREQ(getLangStr(8), "wrongbeef");
}

TEST_F(LanguageWordsTest, AreThoseOfTheCurrentLanguageFromTheNextCallOn) {
    gLangTable = {{"en.lang", "English", "", {{1, "Okay"}}}, {"es.lang", "Espa\u00F1ol", "", {{1, "Vale"}}}};
    EXPECT_STREQ(getLangStr(1), "Okay");
    setSystemLanguage("es.lang");
    EXPECT_STREQ(getLangStr(1), "Vale");
}

TEST_F(LanguageWordsTest, MissingInTheLanguageAreTheBuiltInOnesNotTheEnglishFiles) {
    gLangTable = {{"en.lang", "English", "", {{0, "Never mind"}}},
                  {"es.lang", "Espa\u00F1ol", "", {{1, "Vale"}}}};
    setSystemLanguage("es.lang");
    EXPECT_STREQ(getLangStr(0), "Cancel");
}

TEST_F(LanguageWordsTest, MayComeFromALaterRecordOfTheSameFile) {
    gLangTable = {{"es.lang", "first", "", {{1, "uno"}}},
                  {"ch.lang", "other", "", {{2, "other"}}},
                  {"es.lang", "second", "", {{1, "one"}, {2, "dos"}}}};
    setSystemLanguage("es.lang");
    EXPECT_STREQ(getLangStr(1), "uno");
    EXPECT_STREQ(getLangStr(2), "dos");
    EXPECT_STREQ(getLangStr(3), "LOADING...");
}

TEST_F(LanguageWordsTest, NeedTheExactNameOfTheFile) {
    gLangTable = {{"es.lang", "Espa\u00F1ol", "", {{1, "Vale"}}}};
    setSystemLanguage("ES.LANG");
    EXPECT_STREQ(getenv("LANG"), "es_ES.UTF8");
    EXPECT_STREQ(getLangStr(1), "OK");
}

TEST_F(LanguageWordsTest, MayBeEmpty) {
    gLangTable = {{"en.lang", "English", "", {{1, ""}}}};
    EXPECT_STREQ(getLangStr(1), "");
}

TEST_F(LanguageWordsTest, GrowWithTheHostsOwn) {
    gDefaultStringList.push_back("Games");
    EXPECT_EQ(getLangIndexNum(), 9);
    EXPECT_STREQ(getLangStr(8), "Games");
    EXPECT_STREQ(getDefLang(8), "Games");
    EXPECT_STREQ(getLangStr(9), "wrongbeef");
    gLangTable = {{"en.lang", "English", "", {{8, "My games"}}}};
    EXPECT_STREQ(getLangStr(8), "My games");
}

TEST_F(LanguageWordsTest, IndexIsTheSmallestWithThatText) {
    gLangTable = {{"en.lang", "English", "", {{0, "x"}, {2, "LOADING..."}, {3, "LOADING..."}, {7, ""}}}};
    EXPECT_EQ(getLangIndex("en.lang", "LOADING..."), 2);
    EXPECT_EQ(getLangIndex("en.lang", "x"), 0);
    EXPECT_EQ(getLangIndex("en.lang", ""), 7);
}

TEST_F(LanguageWordsTest, IndexIsLookedForInTheNamedLanguage) {
    gLangTable = {{"en.lang", "English", "", {{1, "OK"}}}, {"es.lang", "Espa\u00F1ol", "", {{1, "Vale"}}}};
    EXPECT_EQ(getLangIndex("es.lang", "Vale"), 1);
    EXPECT_EQ(getLangIndex("es.lang", "OK"), -1);
    EXPECT_EQ(getLangIndex("en.lang", "OK"), 1);
    EXPECT_EQ(getLangIndex("ko.lang", "OK"), -1);
    EXPECT_EQ(getLangIndex("ES.LANG", "Vale"), -1);
    EXPECT_EQ(getLangIndex("es.lang", "vale"), -1);
}

TEST_F(LanguageWordsTest, IndexIsLookedForInTheFirstRecordOfAFile) {
    gLangTable = {{"es.lang", "first", "", {{1, "uno"}}}, {"es.lang", "second", "", {{2, "dos"}}}};
    EXPECT_EQ(getLangIndex("es.lang", "uno"), 1);
    EXPECT_EQ(getLangIndex("es.lang", "dos"), -1);
}

TEST_F(LanguageWordsTest, IndexOfNothingIsMinusOne) {
    EXPECT_EQ(getLangIndex("en.lang", "OK"), -1) << "empty table";
    gLangTable = {{"en.lang", "English", "", {{1, "OK"}}}};
    EXPECT_EQ(getLangIndex(nullptr, "OK"), -1);
    EXPECT_EQ(getLangIndex("en.lang", nullptr), -1);
    EXPECT_EQ(getLangIndex(nullptr, nullptr), -1);
}

TEST_F(LanguageWordsTest, ListHasOneEntryALanguageInTheOrderOfTheTable) {
    gLangTable = {
        {"en.lang", "English", "", {{1, "OK"}}}, {"a.lang", "A", "skin/a.png", {}}, {"", "", "", {}}};
    const std::vector<LangInfo>& list = *getLangList();
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0].fileName, "en.lang");
    EXPECT_EQ(list[0].displayName, "English");
    EXPECT_EQ(list[0].iconPath, "");
    EXPECT_EQ(list[1].fileName, "a.lang");
    EXPECT_EQ(list[1].displayName, "A");
    EXPECT_EQ(list[1].iconPath, "skin/a.png");
    EXPECT_EQ(list[2].fileName, "");
}

TEST_F(LanguageWordsTest, ListIsOneThatEveryCallFillsAnew) {
    EXPECT_TRUE(getLangList()->empty());
    gLangTable = {{"en.lang", "English", "", {}}, {"a.lang", "A", "", {}}};
    std::vector<LangInfo>* const first = getLangList();
    EXPECT_EQ(first->size(), 2u);
    gLangTable.pop_back();
    EXPECT_EQ(getLangList(), first);
    EXPECT_EQ(first->size(), 1u);
}
