#include "support/language_test.h"
#include "support/opened_paths.h"
#include "system/current_language.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

// Reading the folder "./lang".

namespace {

const char builtInFile[] = "{\n\t\"lang\":\t\"English\",\n\t\"0\":\t\"Cancel\",\n\t\"1\":\t\"OK\",\n"
                           "\t\"2\":\t\"LOADING...\",\n\t\"3\":\t\"LOADING...\",\n\t\"4\":\t\"OPEN\",\n"
                           "\t\"5\":\t\"BACK\",\n\t\"6\":\t\"NAV\",\n\t\"7\":\t\"MENU\"\n}";

const std::map<int, std::string> builtInWords = {{0, "Cancel"},     {1, "OK"},   {2, "LOADING..."},
                                                 {3, "LOADING..."}, {4, "OPEN"}, {5, "BACK"},
                                                 {6, "NAV"},        {7, "MENU"}};

class LanguageFilesTest : public LanguageTest {
protected:
    void expectBuiltInEnglish() {
        ASSERT_THAT(fileNames(), testing::ElementsAre("en.lang"));
        EXPECT_EQ(gLangTable[0].displayName, "English");
        EXPECT_EQ(gLangTable[0].iconPath, "");
        EXPECT_EQ(gLangTable[0].strings, builtInWords);
    }
};

} // namespace

TEST_F(LanguageFilesTest, WithoutTheFolderEnglishIsWrittenAndRead) {
    initLang();
    EXPECT_EQ(readFile("lang/en.lang"), builtInFile);
    EXPECT_EQ(takeLog(), readLines("en.lang"));
    expectBuiltInEnglish();
}

TEST_F(LanguageFilesTest, WithAnEmptyFolderEnglishIsWrittenAndRead) {
    fs::create_directory("lang");
    initLang();
    EXPECT_EQ(readFile("lang/en.lang"), builtInFile);
    EXPECT_EQ(takeLog(), readLines("en.lang"));
    expectBuiltInEnglish();
}

TEST_F(LanguageFilesTest, NewFolderIsOpenToAll) {
    const mode_t mask = umask(0);
    initLang();
    umask(mask);
    EXPECT_EQ(fs::status("lang").permissions(), fs::perms::all);
    takeLog();
}

TEST_F(LanguageFilesTest, FolderThatIsThereKeepsItsRights) {
    fs::create_directory("lang");
    fs::permissions("lang", fs::perms::owner_all);
    initLang();
    EXPECT_EQ(fs::status("lang").permissions(), fs::perms::owner_all);
    takeLog();
}

TEST_F(LanguageFilesTest, EnglishFileThatIsThereIsNotWritten) {
    writeLanguage("en.lang", R"({"lang": "English", "1": "Okay"})");
    initLang();
    EXPECT_EQ(readFile("lang/en.lang"), R"({"lang": "English", "1": "Okay"})");
    takeLog();
}

TEST_F(LanguageFilesTest, WithoutAWritableFolderEnglishIsBuiltIn) {
    writeFile("lang", "a file in the folder's place");
    initLang();
    EXPECT_EQ(takeLog(), "read lang file ./lang/en.lang ok=0\n");
    expectBuiltInEnglish();
    EXPECT_EQ(readFile("lang"), "a file in the folder's place");
}

TEST_F(LanguageFilesTest, WithAFolderThatCannotBeMadeEnglishIsBuiltIn) {
    fs::create_symlink("nowhere/else", "lang");
    initLang();
    EXPECT_EQ(takeLog(), "read lang file ./lang/en.lang ok=0\n");
    expectBuiltInEnglish();
}

TEST_F(LanguageFilesTest, EnglishFileThatMayNotBeReadIsBuiltIn) {
    writeLanguage("en.lang", R"({"lang": "English", "1": "Okay"})");
    OpenedPaths paths;
    paths.refuse("./lang/en.lang");
    initLang();
    EXPECT_EQ(takeLog(), "read lang file ./lang/en.lang ok=0\n");
    expectBuiltInEnglish();
}

TEST_F(LanguageFilesTest, EnglishFileThatIsBrokenIsBuiltInAndStays) {
    writeLanguage("en.lang", "hello");
    initLang();
    EXPECT_EQ(takeLog(), "lang file ./lang/en.lang\nparse ./lang/en.lang content fail:hello\n"
                         "read lang file ./lang/en.lang ok=0\n");
    expectBuiltInEnglish();
    EXPECT_EQ(readFile("lang/en.lang"), "hello");
}

TEST_F(LanguageFilesTest, EnglishFileWithoutALanguageNameIsBuiltIn) {
    writeLanguage("en.lang", R"({"1": "Okay"})");
    initLang();
    EXPECT_EQ(takeLog(), "lang file ./lang/en.lang\n./lang/en.lang have no lang string\n"
                         "read lang file ./lang/en.lang ok=0\n");
    expectBuiltInEnglish();
}

TEST_F(LanguageFilesTest, EnglishFileMayHoldOnlySomeWords) {
    writeLanguage("en.lang", R"({"lang": "British", "icon": "gb.png", "1": "Righto"})");
    initLang();
    takeLog();
    std::map<int, std::string> words = builtInWords;
    words[1] = "Righto";
    ASSERT_EQ(gLangTable.size(), 1u);
    EXPECT_EQ(gLangTable[0].fileName, "en.lang");
    EXPECT_EQ(gLangTable[0].displayName, "British");
    EXPECT_EQ(gLangTable[0].iconPath, "skin/gb.png");
    EXPECT_EQ(gLangTable[0].strings, words);
}

TEST_F(LanguageFilesTest, EnglishFileMayHoldVariantsForTheCurrentLanguage) {
    writeLanguage("en.lang",
                  R"({"lang": "English", "1": "OK", "lang.en.lang": "Variant", "1.en.lang": "Yes"})");
    initLang();
    EXPECT_EQ(record("en.lang").displayName, "Variant");
    EXPECT_EQ(record("en.lang").strings.at(1), "Yes");
    gLangTable.clear();
    setSystemLanguage("ch.lang");
    initLang();
    EXPECT_EQ(record("en.lang").displayName, "English");
    EXPECT_EQ(record("en.lang").strings.at(1), "OK");
    takeLog();
}

TEST_F(LanguageFilesTest, MissingWordsOfAnyLanguageAreTheBuiltInEnglishOnes) {
    writeLanguage("en.lang", R"({"lang": "English", "0": "Never mind"})");
    writeLanguage("fr.lang", R"({"lang": "Fran\u00e7ais", "1": "D'accord"})");
    initLang();
    EXPECT_EQ(takeLog(), readLines("en.lang") + readLines("fr.lang"));
    std::map<int, std::string> words = builtInWords;
    words[1] = "D'accord";
    EXPECT_EQ(record("fr.lang").displayName, "Fran\u00E7ais");
    EXPECT_EQ(record("fr.lang").iconPath, "");
    EXPECT_EQ(record("fr.lang").strings, words);
}

TEST_F(LanguageFilesTest, WordsThatAreNoTextsAreMissing) {
    for (const std::string& value : notStrings) {
        gLangTable.clear();
        writeLanguage("fr.lang", R"({"lang": "F", "icon": )" + value + R"(, "1": )" + value + "}");
        initLang();
        EXPECT_EQ(record("fr.lang").strings, builtInWords) << value;
        EXPECT_EQ(record("fr.lang").iconPath, "") << value;
    }
    takeLog();
}

TEST_F(LanguageFilesTest, WordsHaveTheirIndexWithoutLeadingZeros) {
    writeLanguage("fr.lang", R"({"lang": "F", "01": "x", "+1": "x", "1 ": "x", "8": "x", "-1": "x"})");
    initLang();
    EXPECT_EQ(record("fr.lang").strings, builtInWords);
    takeLog();
}

TEST_F(LanguageFilesTest, EnglishIsFirstAndTheOthersFollowInTheOrderOfTheFolder) {
    const std::vector<std::string> order =
        placed({"zz.lang", "aa.lang", "mm.lang", "no-extension", "x.json"});
    std::string lines = readLines("en.lang");
    std::vector<std::string> names = {"en.lang"};
    for (const std::string& name : order) {
        writeLanguage(name, R"({"lang": ")" + name + R"("})");
        lines += readLines(name);
        names.push_back(name);
    }
    initLang();
    EXPECT_EQ(takeLog(), lines);
    EXPECT_EQ(fileNames(), names);
}

TEST_F(LanguageFilesTest, EnglishFileIsLeftOutOnlyByItsExactName) {
    writeLanguage("EN.lang", R"({"lang": "Loud English"})");
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("en.lang", "EN.lang"));
    takeLog();
}

TEST_F(LanguageFilesTest, LinksToFilesAreRead) {
    writeFile("elsewhere", R"({"lang": "F"})");
    fs::create_directory("lang");
    fs::create_symlink("../elsewhere", "lang/fr.lang");
    initLang();
    EXPECT_EQ(record("fr.lang").displayName, "F");
    takeLog();
}

TEST_F(LanguageFilesTest, WordsOfTheHostAreWrittenAndReadToo) {
    gDefaultStringList.push_back("Games");
    gDefaultStringList.push_back("Say \"hello\"\n");
    writeLanguage("fr.lang", R"({"lang": "F", "8": "Jeux"})");
    initLang();
    std::string file = builtInFile;
    file.replace(file.size() - 2, 2, ",\n\t\"8\":\t\"Games\",\n\t\"9\":\t\"Say \\\"hello\\\"\\n\"\n}");
    EXPECT_EQ(readFile("lang/en.lang"), file);
    EXPECT_EQ(record("en.lang").strings.at(9), "Say \"hello\"\n");
    EXPECT_EQ(record("fr.lang").strings.at(8), "Jeux");
    EXPECT_EQ(record("fr.lang").strings.at(9), "Say \"hello\"\n");
    EXPECT_EQ(record("fr.lang").strings.size(), 10u);
    takeLog();
}

TEST_F(LanguageFilesTest, OfThousandsOfWordsAllAreRead) {
    gDefaultStringList.resize(2000, "built in");
    writeLanguage("fr.lang", R"({"lang": "F", "1999": "dernier"})");
    initLang();
    EXPECT_EQ(record("fr.lang").strings.size(), 2000u);
    EXPECT_EQ(record("fr.lang").strings.at(1999), "dernier");
    EXPECT_EQ(record("fr.lang").strings.at(1998), "built in");
    takeLog();
}
