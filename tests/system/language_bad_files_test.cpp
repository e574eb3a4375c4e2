#include "support/language_test.h"
#include "support/opened_paths.h"

#include <filesystem>
#include <sys/stat.h>

namespace fs = std::filesystem;

// What of the folder "./lang" is passed over.

namespace {

class LanguageBadFilesTest : public LanguageTest {
protected:
    /// Reads the languages; the file that this is about must be passed over with these lines.
    void expectPassedOver(const std::string& lines) {
        initLang();
        EXPECT_EQ(takeLog(), readLines("en.lang") + lines);
        EXPECT_THAT(fileNames(), testing::ElementsAre("en.lang"));
    }
};

} // namespace

TEST_F(LanguageBadFilesTest, ShortOnesAreIgnored) {
    for (const char* name : {"ch.short.lang", "ch.short", ".short", "a.shorter.lang"})
        writeLanguage(name, R"({"lang": "Short"})");
    expectPassedOver("");
    writeLanguage("ch.SHORT.lang", R"({"lang": "Not short"})");
    gLangTable.clear();
    initLang();
    EXPECT_THAT(fileNames(), testing::ElementsAre("en.lang", "ch.SHORT.lang"));
    takeLog();
}

TEST_F(LanguageBadFilesTest, FoldersAndOtherEntriesAreIgnored) {
    fs::create_directories("lang/folder.lang");
    writeFile("lang/sub/fr.lang", R"({"lang": "F"})");
    ASSERT_EQ(mkfifo("lang/pipe.lang", 0600), 0);
    fs::create_symlink("nowhere", "lang/dangling.lang");
    fs::create_directory_symlink("sub", "lang/linked.lang");
    expectPassedOver("");
}

TEST_F(LanguageBadFilesTest, FileThatMayNotBeReadIsPassedOver) {
    writeLanguage("fr.lang", R"({"lang": "F"})");
    OpenedPaths paths;
    paths.refuse("./lang/fr.lang");
    expectPassedOver("read lang file ./lang/fr.lang ok=0\n");
}

TEST_F(LanguageBadFilesTest, EmptyFileIsPassedOver) {
    writeLanguage("fr.lang", "");
    expectPassedOver("lang file ./lang/fr.lang\n./lang/fr.lang invalid size 0\n"
                     "read ./lang/fr.lang content fail\nread lang file ./lang/fr.lang ok=0\n");
}

TEST_F(LanguageBadFilesTest, FileOfOverTheLargestSizeIsPassedOver) {
    writeLanguage("fr.lang", R"({"lang": "F"})" + std::string(131072, ' '));
    expectPassedOver("lang file ./lang/fr.lang\n./lang/fr.lang invalid size 131085\n"
                     "read ./lang/fr.lang content fail\nread lang file ./lang/fr.lang ok=0\n");
}

TEST_F(LanguageBadFilesTest, FileThatCannotBeParsedIsPassedOverWithThePlaceOfTheError) {
    writeLanguage("fr.lang", R"({"lang": "F", "1": oops})");
    expectPassedOver("lang file ./lang/fr.lang\nparse ./lang/fr.lang content fail:oops}\n"
                     "read lang file ./lang/fr.lang ok=0\n");
}

TEST_F(LanguageBadFilesTest, FileThatIsNestedTooDeepIsPassedOver) {
    writeLanguage("fr.lang", std::string(10'000, '['));
    initLang();
    const std::string log = takeLog();
    EXPECT_THAT(log, testing::StartsWith(readLines("en.lang") +
                                         "lang file ./lang/fr.lang\nparse ./lang/fr.lang content fail:"));
    EXPECT_THAT(log, testing::EndsWith("\nread lang file ./lang/fr.lang ok=0\n"));
    EXPECT_EQ(gLangTable.size(), 1u);
}

TEST_F(LanguageBadFilesTest, FileWithoutALanguageNameIsPassedOver) {
    const std::string lines = "lang file ./lang/fr.lang\n./lang/fr.lang have no lang string\n"
                              "read lang file ./lang/fr.lang ok=0\n";
    writeLanguage("fr.lang", R"({"1": "D'accord"})");
    expectPassedOver(lines);
    std::vector<std::string> others = {"[]", "5", "null", R"(["lang", "F"])"};
    for (const std::string& value : notStrings)
        others.push_back(R"({"lang": )" + value + "}");
    for (const std::string& json : others) {
        gLangTable.clear();
        writeLanguage("fr.lang", json);
        expectPassedOver(lines);
    }
}

TEST_F(LanguageBadFilesTest, BytesThatAreNoUtf8AreTakenAsTheyAre) {
    writeLanguage("fr.lang", "{\"lang\": \"F\xFF\", \"1\": \"\xC3(\xED\xA0\x80\"}");
    initLang();
    EXPECT_EQ(record("fr.lang").displayName, "F\xFF");
    EXPECT_EQ(record("fr.lang").strings.at(1), "\xC3(\xED\xA0\x80");
    takeLog();
}
