#include "support/opened_paths.h"
#include "support/settings_test.h"
#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/system_state.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace {

class SystemStateTextsTest : public SettingsTest {
protected:
    /// What the caller's pointer becomes, "(kept)" or "(null)", after a file with this value for "theme".
    std::string loadedTheme(const std::string& value) const {
        return loadedThemeBy(R"({"theme": )" + value + "}");
    }
    std::string loadedThemeBy(const std::string& json) const {
        char kept[] = "(kept)";
        char* theme = kept;
        writeState(json);
        loadSystemState(&gTestHost, &theme);
        const std::string result = theme ? theme : "(null)";
        if (theme != kept)
            free(theme);
        return result;
    }
};

} // namespace

TEST_F(SystemStateTextsTest, ThemeThatExistsIsHandedOutAsACopy) {
    std::filesystem::create_directory(folder() + "/dark");
    EXPECT_EQ(loadedTheme("\"" + folder() + "/dark/\""), folder() + "/dark/");
    EXPECT_EQ(loadedTheme("\"dark\""), "dark") << "relative to the working folder";
    writeFile("file", "");
    EXPECT_EQ(loadedTheme("\"./file\""), "./file") << "any existing path";
}

TEST_F(SystemStateTextsTest, ThemePathIsTakenAsItStands) {
    std::filesystem::create_directories(onDevice("/mnt/theme"));
    EXPECT_EQ(loadedTheme("\"/mnt/theme/that/is/not/there\""), "(null)");
    OpenedPaths paths;
    EXPECT_EQ(loadedTheme("\"/dev/null\""), "/dev/null") << "not looked for in the device root";
    EXPECT_THAT(paths.take(), testing::Contains("/dev/null"));
}

TEST_F(SystemStateTextsTest, ThemeThatIsGoneOrNoTextIsNull) {
    EXPECT_EQ(loadedTheme("\"" + folder() + "/gone/\""), "(null)");
    EXPECT_EQ(loadedTheme("\"\""), "(null)");
    for (const std::string& value : notStrings)
        EXPECT_EQ(loadedTheme(value), "(null)") << value;
    EXPECT_EQ(loadedThemeBy("{}"), "(null)");
    EXPECT_EQ(loadedThemeBy("[]"), "(null)");
}

TEST_F(SystemStateTextsTest, ThemeIsUntouchedWithoutAUsableFile) {
    EXPECT_EQ(loadedThemeBy("{"), "(kept)");
    std::filesystem::remove(statePath());
    char kept[] = "kept";
    char* theme = kept;
    loadSystemState(&gTestHost, &theme);
    EXPECT_EQ(theme, kept);
}

TEST_F(SystemStateTextsTest, ThemeIsNotLookedForWhenNobodyAsks) {
    writeState(R"({"theme": "/theme/that/nobody/asks/for", "vol": 3})");
    OpenedPaths paths;
    loadSystemState(&gTestHost, nullptr);
    EXPECT_THAT(paths.take(), testing::Not(testing::Contains("/theme/that/nobody/asks/for")));
    EXPECT_EQ(gTestHost.table[0], 3);
}

TEST_F(SystemStateTextsTest, LanguageIsSetWithItsLocale) {
    loadKey("language", R"("es.lang")");
    EXPECT_STREQ(getSystemLanguage(), "es.lang");
    EXPECT_STREQ(getenv("LANG"), "es_ES.UTF8");
}

TEST_F(SystemStateTextsTest, LanguageStaysWhenItIsNoText) {
    setSystemLanguage("ko.lang");
    for (const std::string& value : notStrings) {
        loadKey("language", value);
        EXPECT_STREQ(getSystemLanguage(), "ko.lang") << value;
    }
    load("{}");
    EXPECT_STREQ(getSystemLanguage(), "ko.lang");
}

TEST_F(SystemStateTextsTest, LanguageNamesAreCutTo64Bytes) {
    loadKey("language", '"' + std::string(70, 'x') + '"');
    EXPECT_EQ(getSystemLanguage(), std::string(64, 'x'));
}

TEST_F(SystemStateTextsTest, StoreUrlIsCopied) {
    loadKey("storeurl", R"("http://store/")");
    EXPECT_STREQ(gStoreUrl, "http://store/");
    loadKey("storeurl", R"("")");
    EXPECT_STREQ(gStoreUrl, "");
}

TEST_F(SystemStateTextsTest, StoreUrlKeepsBytesThatAreNoUtf8) {
    loadKey("storeurl", "\"a\xFF\xC3(\xED\xA0\x80z\"");
    EXPECT_STREQ(gStoreUrl, "a\xFF\xC3(\xED\xA0\x80z");
}

TEST_F(SystemStateTextsTest, StoreUrlIsNullWhenItIsNoText) {
    for (const std::string& value : notStrings) {
        loadKey("storeurl", R"("http://store/")");
        loadKey("storeurl", value);
        EXPECT_EQ(gStoreUrl, nullptr) << value;
    }
    loadKey("storeurl", R"("http://store/")");
    load("{}");
    EXPECT_EQ(gStoreUrl, nullptr);
}

TEST_F(SystemStateTextsTest, ReplacedStoreUrlStaysReadableForItsHolder) {
    loadKey("storeurl", R"("http://first/")");
    const char* const first = gStoreUrl;
    loadKey("storeurl", R"("http://second/")");
    const char* const second = gStoreUrl;
    load("{}");
    EXPECT_STREQ(first, "http://first/");
    EXPECT_STREQ(second, "http://second/");
}

TEST_F(SystemStateTextsTest, TimeZoneIsCopiedWithoutCuttingAnyFolderOff) {
    loadKey("timezone", R"("Asia/Tokyo")");
    EXPECT_STREQ(getTimeZone(), "Asia/Tokyo");
    loadKey("timezone", R"("/usr/share/zoneinfo/Europe/Paris")");
    EXPECT_STREQ(getTimeZone(), "/usr/share/zoneinfo/Europe/Paris");
}

TEST_F(SystemStateTextsTest, EmptyTimeZoneIsNone) {
    setTimeZone("Asia/Tokyo");
    loadKey("timezone", R"("")");
    EXPECT_EQ(getTimeZone(), nullptr);
}

TEST_F(SystemStateTextsTest, TimeZoneStaysWhenItIsNoText) {
    setTimeZone("Asia/Tokyo");
    for (const std::string& value : notStrings) {
        loadKey("timezone", value);
        EXPECT_STREQ(getTimeZone(), "Asia/Tokyo") << value;
    }
    load("{}");
    EXPECT_STREQ(getTimeZone(), "Asia/Tokyo");
}

TEST_F(SystemStateTextsTest, TimeZoneIsCutTo256Bytes) {
    for (const size_t length : {255u, 256u, 257u, 5000u}) {
        loadKey("timezone", '"' + std::string(length, 'z') + '"');
        EXPECT_EQ(getTimeZone(), std::string(std::min<size_t>(length, 256), 'z'));
    }
}
