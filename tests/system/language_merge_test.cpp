#include "support/language_test.h"
#include "system/current_language.h"

// Languages of the same display name become one, and a file may inherit from the file before.

namespace {

class LanguageMergeTest : public LanguageTest {
protected:
    /// Reads a file of the language "Same" with the word 1 "new" into a table that holds that language
    /// already, from the file `existing`, with the word 1 "old" and the word 2 empty.
    void readBeside(const std::string& existing, const std::string& file) {
        gLangTable = {{existing, "Same", "skin/old.png", {{1, "old"}, {2, ""}}}};
        writeLanguage(file, R"({"lang": "Same", "icon": "new.png", "1": "new", "2": "new", "4": "new"})");
        initLang();
        takeLog();
    }
};

} // namespace

TEST_F(LanguageMergeTest, TextsAndIconThatAreThereStayAndOthersAreAdded) {
    readBeside("fr.lang", "french.lang");
    const LangRecord& french = record("fr.lang");
    EXPECT_EQ(french.iconPath, "skin/old.png");
    EXPECT_THAT(french.strings, testing::ElementsAre(testing::Pair(0, "Cancel"), testing::Pair(1, "old"),
                                                     testing::Pair(2, ""), testing::Pair(3, "LOADING..."),
                                                     testing::Pair(4, "new"), testing::Pair(5, "BACK"),
                                                     testing::Pair(6, "NAV"), testing::Pair(7, "MENU")));
}

TEST_F(LanguageMergeTest, AShorterFileNameReplacesALongerOne) {
    readBeside("french.lang", "fr.lang");
    EXPECT_THAT(fileNames(), testing::ElementsAre("fr.lang", "en.lang"));
    EXPECT_EQ(record("fr.lang").displayName, "Same");
    EXPECT_EQ(record("fr.lang").strings.at(1), "old");
}

TEST_F(LanguageMergeTest, ALongerFileNameDoesNotReplaceAShorterOne) {
    readBeside("fr.lang", "french.lang");
    EXPECT_THAT(fileNames(), testing::ElementsAre("fr.lang", "en.lang"));
}

TEST_F(LanguageMergeTest, AFileNameOfTheSameLengthDoesNotReplaceAnother) {
    readBeside("zz.lang", "aa.lang");
    EXPECT_THAT(fileNames(), testing::ElementsAre("zz.lang", "en.lang"));
}

TEST_F(LanguageMergeTest, TwoFilesOfOneLanguageGiveOneRecordWithTheTextsOfTheFirst) {
    const std::vector<std::string> order = placed({"fr.lang", "french.lang"});
    writeLanguage(order[0], R"({"lang": "Same", "1": "first"})");
    writeLanguage(order[1], R"({"lang": "Same", "1": "second"})");
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("en.lang", "fr.lang"));
    EXPECT_EQ(record("fr.lang").strings.at(1), "first");
    takeLog();
}

TEST_F(LanguageMergeTest, OnlyTheFirstRecordOfThatNameIsMergedWith) {
    gLangTable = {{"one.lang", "Same", "", {}}, {"two.lang", "Same", "", {}}};
    writeLanguage("x.lang", R"({"lang": "Same", "1": "new"})");
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("x.lang", "two.lang", "en.lang"));
    EXPECT_TRUE(record("two.lang").strings.empty());
    takeLog();
}

TEST_F(LanguageMergeTest, DisplayNamesAreComparedExactly) {
    placed({"a.lang", "b.lang"});
    writeLanguage("a.lang", R"({"lang": "Same"})");
    writeLanguage("b.lang", R"({"lang": "same"})");
    initLang();
    EXPECT_EQ(gLangTable.size(), 3u);
    takeLog();
}

TEST_F(LanguageMergeTest, EmptyDisplayNamesAreNotMerged) {
    writeLanguage("a.lang", R"({"lang": ""})");
    writeLanguage("b.lang", R"({"lang": ""})");
    initLang();
    EXPECT_EQ(gLangTable.size(), 3u);
    takeLog();
}

TEST_F(LanguageMergeTest, AShorterFileOfEnglishTakesItsName) {
    writeLanguage("en.lang", R"({"lang": "English", "1": "Okay"})");
    writeLanguage("e.lang", R"({"lang": "English", "1": "Yes"})");
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("e.lang"));
    setSystemLanguage("e.lang");
    EXPECT_STREQ(getLangStr(1), "Okay");
    setSystemLanguage("en.lang");
    EXPECT_STREQ(getLangStr(1), "OK") << "built in";
    takeLog();
}

TEST_F(LanguageMergeTest, ALongerFileOfEnglishIsDropped) {
    writeLanguage("english.lang", R"({"lang": "English", "1": "Yes"})");
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("en.lang"));
    EXPECT_EQ(record("en.lang").strings.at(1), "OK");
    takeLog();
}

TEST_F(LanguageMergeTest, WordsThatTheExistingRecordLacksAreAdded) {
    writeLanguage("fr.lang", R"({"lang": "F", "1": "D'accord", "8": "Jeux"})");
    initLang();
    gDefaultStringList.push_back("Games");
    writeLanguage("fr.lang", R"({"lang": "F", "1": "Oui", "8": "Jeux"})");
    initLang(); // reads it again, now with one word more
    EXPECT_EQ(record("fr.lang").strings.at(1), "D'accord");
    EXPECT_EQ(record("fr.lang").strings.at(8), "Jeux");
    takeLog();
}

TEST_F(LanguageMergeTest, ASecondReadingAppendsEnglishAgain) {
    writeLanguage("fr.lang", R"({"lang": "F"})");
    initLang();
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("en.lang", "fr.lang", "en.lang"));
    EXPECT_EQ(takeLog(),
              readLines("en.lang") + readLines("fr.lang") + readLines("en.lang") + readLines("fr.lang"));
}

TEST_F(LanguageMergeTest, WordsHandedOutStayValidInASecondReading) {
    writeLanguage("fr.lang", R"({"lang": "F", "1": "A word that is too long to lie within its string"})");
    initLang();
    setSystemLanguage("fr.lang");
    const char* const word = getLangStr(1);
    for (int i = 0; i < 20; ++i)
        initLang();
    EXPECT_STREQ(word, "A word that is too long to lie within its string");
    takeLog();
}

TEST_F(LanguageMergeTest, AFileWithoutAnIconInheritsThatOfTheFileBefore) {
    const std::vector<std::string> order = placed({"a.lang", "b.lang", "c.lang"});
    writeLanguage(order[0], R"({"lang": "First"})");
    writeLanguage(order[1], R"({"lang": "Second", "icon": "second.png"})");
    writeLanguage(order[2], R"({"lang": "Third"})");
    initLang();
    EXPECT_EQ(record(order[0]).iconPath, "");
    EXPECT_EQ(record(order[1]).iconPath, "skin/second.png");
    EXPECT_EQ(record(order[2]).iconPath, "skin/second.png");
    takeLog();
}

TEST_F(LanguageMergeTest, AFileDoesNotInheritTheIconOfEnglish) {
    writeLanguage("en.lang", R"({"lang": "English", "icon": "en.png"})");
    writeLanguage("fr.lang", R"({"lang": "F"})");
    initLang();
    EXPECT_EQ(record("en.lang").iconPath, "skin/en.png");
    EXPECT_EQ(record("fr.lang").iconPath, "");
    takeLog();
}

TEST_F(LanguageMergeTest, AFileDoesNotInheritWords) {
    const std::vector<std::string> order = placed({"a.lang", "b.lang"});
    writeLanguage(order[0], R"({"lang": "First", "1": "one"})");
    writeLanguage(order[1], R"({"lang": "Second"})");
    initLang();
    EXPECT_EQ(record(order[1]).strings.at(1), "OK");
    takeLog();
}

TEST_F(LanguageMergeTest, ABrokenFileInBetweenDoesNotEndTheInheritance) {
    const std::vector<std::string> order = placed({"a.lang", "b.lang", "c.lang"});
    writeLanguage(order[0], R"({"lang": "First", "icon": "first.png"})");
    writeLanguage(order[1], "broken");
    writeLanguage(order[2], R"({"lang": "Third"})");
    initLang();
    EXPECT_EQ(record(order[2]).iconPath, "skin/first.png");
    EXPECT_EQ(gLangTable.size(), 3u);
    takeLog();
}
