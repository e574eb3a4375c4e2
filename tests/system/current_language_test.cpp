#include "support/settings_test.h"
#include "system/current_language.h"

#include <cstdlib>

namespace {

const std::string sLanguageAtLoad = getSystemLanguage();

class CurrentLanguageTest : public SettingsTest {
protected:
    /// LANG after the file became the current language, when it was "before".
    static std::string localeOf(const char* file) {
        setenv("LANG", "before", 1);
        setSystemLanguage(file);
        return getenv("LANG");
    }
};

} // namespace

TEST(CurrentLanguage, IsEnglishAtLoad) {
    EXPECT_EQ(sLanguageAtLoad, "en.lang");
}

TEST_F(CurrentLanguageTest, SetsTheLocaleOfKnownFiles) {
    EXPECT_EQ(localeOf("en.lang"), "en_US.UTF8");
    EXPECT_EQ(localeOf("ch.lang"), "zh_CN.UTF8");
    EXPECT_EQ(localeOf("es.lang"), "es_ES.UTF8");
    EXPECT_EQ(localeOf("pt.lang"), "pt_BR.UTF8");
    EXPECT_EQ(localeOf("jp.lang"), "ja_JP.UTF8");
    EXPECT_EQ(localeOf("ko.lang"), "ko_KR.UTF8");
}

TEST_F(CurrentLanguageTest, SetsTheLocaleWhateverTheCaseOfTheFile) {
    EXPECT_EQ(localeOf("ES.LANG"), "es_ES.UTF8");
    EXPECT_STREQ(getSystemLanguage(), "ES.LANG");
    EXPECT_EQ(localeOf("Jp.Lang"), "ja_JP.UTF8");
}

TEST_F(CurrentLanguageTest, LeavesTheLocaleForOtherFiles) {
    for (const char* file : {"fr.lang", "es", "es.lang2", "xes.lang", ""}) {
        EXPECT_EQ(localeOf(file), "before") << file;
        EXPECT_STREQ(getSystemLanguage(), *file ? file : "en.lang");
    }
}

TEST_F(CurrentLanguageTest, SetsTheLocaleAgainAfterAChange) {
    EXPECT_EQ(localeOf("es.lang"), "es_ES.UTF8");
    EXPECT_EQ(localeOf("ko.lang"), "ko_KR.UTF8");
    EXPECT_EQ(localeOf("es.lang"), "es_ES.UTF8");
}

TEST_F(CurrentLanguageTest, IsEnglishWhenTheNameIsEmpty) {
    setSystemLanguage("es.lang");
    setSystemLanguage("");
    EXPECT_STREQ(getSystemLanguage(), "en.lang");
}

TEST_F(CurrentLanguageTest, NameIsCutTo64Bytes) {
    for (const size_t length : {63u, 64u, 65u, 5000u}) {
        setSystemLanguage(std::string(length, 'x').c_str());
        EXPECT_EQ(getSystemLanguage(), std::string(std::min<size_t>(length, 64), 'x'));
    }
    setSystemLanguage("y");
    EXPECT_STREQ(getSystemLanguage(), "y");
}

TEST_F(CurrentLanguageTest, MayBeSetToItself) {
    setSystemLanguage("es.lang");
    EXPECT_EQ(localeOf(getSystemLanguage()), "es_ES.UTF8");
    EXPECT_STREQ(getSystemLanguage(), "es.lang");
    setSystemLanguage(getSystemLanguage() + 1);
    EXPECT_STREQ(getSystemLanguage(), "s.lang");
}

TEST_F(CurrentLanguageTest, NullChangesNothing) {
    setSystemLanguage("es.lang");
    EXPECT_EQ(localeOf(nullptr), "before");
    EXPECT_STREQ(getSystemLanguage(), "es.lang");
}
