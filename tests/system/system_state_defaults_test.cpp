#include "support/settings_test.h"
#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/display_color.h"
#include "system/system_state.h"

#include <filesystem>
#include <ostream>

// What a settings file that cannot be used leaves behind, and what can be used.

namespace {

using Stores = std::vector<std::pair<int, int>>;

const Stores defaults = {{0, 14}, {2, 0},  {3, 0},  {5, 10},   {1, 6},  {6, 0},  {7, 0},  {8, 1},  {10, 4},
                         {9, 1},  {11, 0}, {12, 4}, {13, 300}, {14, 0}, {15, 0}, {16, 0}, {19, 0}, {18, 0}};

/// What is stored when the file is read but holds none of the keys.
const Stores absentKeys = {{0, 14}, {2, 0}, {3, 0},  {5, 10}, {1, 6},    {6, 0},  {7, 0}, {8, 1},
                           {10, 4}, {9, 1}, {11, 0}, {12, 4}, {13, 300}, {19, 0}, {18, 0}};

class SystemStateDefaultsTest : public SettingsTest {
protected:
    std::string driverFile(const std::string& name) const {
        return onDevice("/sys/devices/virtual/disp/disp/attr/") + name;
    }
};

} // namespace

TEST_F(SystemStateDefaultsTest, TableGetsItsDefaultsInOrder) {
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.stores, defaults);
}

TEST_F(SystemStateDefaultsTest, PlacesOfTheTableThatHaveNoKeyStay) {
    gTestHost.table[4] = 44;
    gTestHost.table[17] = 45;
    gTestHost.table[20] = 46;
    loadSystemState(&gTestHost, nullptr);
    load("{}");
    EXPECT_EQ(gTestHost.table[4], 44);
    EXPECT_EQ(gTestHost.table[17], 45);
    EXPECT_EQ(gTestHost.table[20], 46);
}

TEST_F(SystemStateDefaultsTest, ClockBecomesNetworkTimeIn24HoursWithoutAZone) {
    setTimeZone("Asia/Tokyo");
    setSyncTimeFromNetworkFlag(0);
    set24HourClockFlag(0);
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(getTimeZone(), nullptr);
    EXPECT_EQ(getSyncTimeFromNetworkFlag(), 1);
    EXPECT_EQ(get24HourClockFlag(), 1);
}

TEST_F(SystemStateDefaultsTest, ColorsBecomeTheirDefaultsAndAreWrittenToTheDriver) {
    setColorBrightness(1);
    setContrast(1);
    setColorTemperature(1);
    setSaturation(1);
    std::filesystem::create_directories(driverFile(""));
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(getColorBrightness(), 5);
    EXPECT_EQ(getContrast(), 5);
    EXPECT_EQ(getColorTemperature(), 10);
    EXPECT_EQ(getSaturation(), 5);
    EXPECT_EQ(readFile(driverFile("enhance_bright")), "50");
    EXPECT_EQ(readFile(driverFile("enhance_contrast")), "50");
    EXPECT_EQ(readFile(driverFile("color_temperature")), "0");
    EXPECT_EQ(readFile(driverFile("enhance_saturation")), "50");
}

TEST_F(SystemStateDefaultsTest, FlagsBecomeOneAndRemoteShellZero) {
    int* const flags[] = {&gEnableHomeWindow, &gAllowFocusOnTab,    &gEnableFavoriteTab,
                          &gEnableBestsTab,   &gEnableRetroGameTab, &gEnableRecentPlayedTab,
                          &gEnablePortsTab,   &gEnableAppsTab,      &gEnableNetPlayTab,
                          &gUseJoystick,      &gEnableKeyTone};
    for (int* const flag : flags)
        *flag = 7;
    gEnableSSH = 7;
    loadSystemState(&gTestHost, nullptr);
    for (int* const flag : flags)
        EXPECT_EQ(*flag, 1);
    EXPECT_EQ(gEnableSSH, 0);
}

TEST_F(SystemStateDefaultsTest, StoreUrlIsFreed) {
    loadKey("storeurl", R"("http://store/")");
    std::filesystem::remove(statePath());
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gStoreUrl, nullptr);
}

TEST_F(SystemStateDefaultsTest, LanguageAndThemeStay) {
    setSystemLanguage("ko.lang");
    char kept[] = "kept";
    char* theme = kept;
    loadSystemState(&gTestHost, &theme);
    EXPECT_STREQ(getSystemLanguage(), "ko.lang");
    EXPECT_EQ(theme, kept);
}

TEST_F(SystemStateDefaultsTest, FileWithoutWifiLeavesItsPlaceButNoFileClearsIt) {
    gTestHost.table[14] = 7;
    load(R"({"vol": 3})");
    EXPECT_EQ(gTestHost.table[14], 7);
    std::filesystem::remove(statePath());
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[14], 0);
}

TEST_F(SystemStateDefaultsTest, EmptyFileIsUnusable) {
    load("");
    EXPECT_EQ(gTestHost.stores, defaults);
    EXPECT_EQ(takeLog(), "system.json invalid size 0\n");
}

TEST_F(SystemStateDefaultsTest, FileOfOverTheLargestSizeIsUnusable) {
    const std::string json = R"({"vol": 3})";
    load(json + std::string(131072 - json.size(), ' '));
    EXPECT_EQ(gTestHost.stores, defaults);
    EXPECT_EQ(takeLog(), "system.json invalid size 131072\n");
}

TEST_F(SystemStateDefaultsTest, FileOfTheLargestSizeIsUsable) {
    const std::string json = R"({"vol": 3})";
    load(json + std::string(131071 - json.size(), ' '));
    EXPECT_EQ(gTestHost.table[0], 3);
    EXPECT_EQ(gTestHost.stores.size(), absentKeys.size());
}

TEST_F(SystemStateDefaultsTest, FolderInTheFilesPlaceIsUnusable) {
    std::filesystem::create_directory(statePath());
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.stores, defaults);
    EXPECT_EQ(takeLog(), "system.json invalid size -1\n");
}

TEST_F(SystemStateDefaultsTest, WhatCannotBeParsedIsUnusable) {
    const std::string deep(10'000, '[');
    for (const std::string& text :
         {std::string("hello"), std::string("{"), std::string(R"({"vol": 3)"), std::string(R"({"vol": 3,})"),
          std::string(R"({vol: 3})"), std::string("\x00\x01", 2), std::string(R"({"vol": nan})"),
          std::string(R"({"vol": 3, "storeurl": "\ud800"})"), deep, deep + std::string(10'000, ']'),
          R"({"vol": 3, "x": )" + deep + std::string(10'000, ']') + "}"}) {
        gTestHost = {};
        load(text);
        EXPECT_EQ(gTestHost.stores, defaults) << text.substr(0, 40);
    }
    EXPECT_EQ(takeLog(), "") << "nothing is said about it";
}

TEST_F(SystemStateDefaultsTest, JsonOfAnotherShapeIsReadAndHoldsNoKeys) {
    gTestHost.table[14] = 7;
    for (const char* text : {"{}", "[]", "[1, \"vol\", {\"vol\": 3}]", "5", "\"vol\"", "null", "true"}) {
        gTestHost.stores.clear();
        setTimeZone("Asia/Tokyo");
        gEnableSSH = 7;
        load(text);
        EXPECT_EQ(gTestHost.stores, absentKeys) << text;
        EXPECT_STREQ(getTimeZone(), "Asia/Tokyo") << text;
        EXPECT_EQ(gEnableSSH, 7) << text;
        EXPECT_EQ(gTestHost.table[14], 7) << text;
    }
}

TEST_F(SystemStateDefaultsTest, NestingThatCjsonBearsIsUsable) {
    load(R"({"x": )" + std::string(900, '[') + std::string(900, ']') + R"(, "vol": 3})");
    EXPECT_EQ(gTestHost.table[0], 3);
}

TEST_F(SystemStateDefaultsTest, BadUtf8InOtherKeysChangesNothing) {
    load("{\"\xFF\xFE\": 1, \"\xC3\": \"\xED\xA0\x80\", \"vol\": 3}");
    EXPECT_EQ(gTestHost.table[0], 3);
}
