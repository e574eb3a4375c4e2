#include "support/language_test.h"
#include "system/current_language.h"

#include <cJSON.h>

#include <cstdlib>
#include <filesystem>
#include <set>

namespace fs = std::filesystem;

// The language files that come with the library.

namespace {

const std::vector<std::string> shippedFiles = {"en.lang", "ch.lang", "es.lang",
                                               "pt.lang", "jp.lang", "ko.lang"};

/// The texts of a file by key.
using Texts = std::map<std::string, std::string>;

class ShippedLanguagesTest : public LanguageTest {
protected:
    void SetUp() override {
        LanguageTest::SetUp();
        const fs::path shipped = fs::path(TEST_DATA).parent_path().parent_path() / "assets" / "lang";
        fs::copy(shipped, "lang");
    }

    static Texts textsOf(const std::string& file) {
        Texts texts;
        cJSON* const tree = cJSON_Parse(readFile("lang/" + file).c_str());
        EXPECT_NE(tree, nullptr) << file;
        for (const cJSON* item = tree ? tree->child : nullptr; item; item = item->next) {
            EXPECT_TRUE(cJSON_IsString(item)) << file << " " << item->string;
            EXPECT_TRUE(texts.emplace(item->string, cJSON_GetStringValue(item)).second)
                << item->string << " twice";
        }
        cJSON_Delete(tree);
        return texts;
    }

    static std::set<std::string> keys(const Texts& texts) {
        std::set<std::string> names;
        for (const auto& [key, text] : texts)
            names.insert(key);
        return names;
    }

    static std::string placeholders(const std::string& text) {
        std::string found;
        for (size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1))
            found += text.substr(at, 2);
        return found;
    }
};

} // namespace

TEST_F(ShippedLanguagesTest, AreAllReadAsLanguagesOfTheirOwn) {
    initLang();
    EXPECT_THAT(fileNames(), testing::UnorderedElementsAreArray(shippedFiles));
    EXPECT_EQ(fileNames().front(), "en.lang");
    EXPECT_THAT(takeLog(), testing::Not(testing::HasSubstr("ok=0")));
}

TEST_F(ShippedLanguagesTest, HaveTheSameWordsToTranslate) {
    const Texts english = textsOf("en.lang");
    EXPECT_GE(english.size(), 9u);
    for (const std::string& file : shippedFiles)
        EXPECT_EQ(keys(textsOf(file)), keys(english)) << file;
}

TEST_F(ShippedLanguagesTest, KeepThePlaceholdersOfTheEnglishWords) {
    for (const std::string& file : shippedFiles)
        for (const auto& [key, text] : textsOf(file)) {
            EXPECT_EQ(placeholders(text), placeholders(textsOf("en.lang")[key])) << file << " " << key;
            EXPECT_FALSE(text.empty()) << file << " " << key;
        }
}

TEST_F(ShippedLanguagesTest, HaveTheBuiltInWordsInEnglish) {
    const Texts english = textsOf("en.lang");
    for (int index = 0; index < getLangIndexNum(); ++index)
        EXPECT_EQ(english.at(std::to_string(index)), getDefLang(index));
}

TEST_F(ShippedLanguagesTest, AreTranslated) {
    const Texts english = textsOf("en.lang");
    for (const std::string& file : shippedFiles) {
        if (file == "en.lang")
            continue;
        size_t same = 0;
        for (const auto& [key, text] : textsOf(file))
            same += text == english.at(key);
        EXPECT_LE(same * 3, english.size())
            << file << ": some names are the same everywhere, but not most words";
    }
}

TEST_F(ShippedLanguagesTest, AreThoseWhoseLocaleIsKnown) {
    for (const std::string& file : shippedFiles) {
        setenv("LANG", "before", 1);
        setSystemLanguage(file.c_str());
        EXPECT_STRNE(getenv("LANG"), "before") << file;
    }
}
