#include "support/saved_settings_test.h"

#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/display_color.h"
#include "system/system_state.h"

#include <cstring>

static void setFlags() {
    gEnableHomeWindow = 31;
    gAllowFocusOnTab = 32;
    gEnableFavoriteTab = 33;
    gEnableRecentPlayedTab = 34;
    gEnableBestsTab = 35;
    gEnableRetroGameTab = 36;
    gEnablePortsTab = 37;
    gEnableAppsTab = 38;
    gEnableNetPlayTab = 39;
    gUseJoystick = 40;
    gEnableKeyTone = 41;
    gEnableSSH = 42;
}

void SavedSettingsTest::SetUp() {
    SettingsTest::SetUp();
    for (int index = 0; index < 20; ++index)
        gTestHost.table[index] = 100 + index;
    setSystemLanguage("es.lang");
    gStoreUrl = strdup("http://store/");
    setTimeZone("Asia/Tokyo");
    setSyncTimeFromNetworkFlag(21);
    set24HourClockFlag(22);
    setColorBrightness(3);
    setContrast(4);
    setColorTemperature(6);
    setSaturation(7);
    setFlags();
}

void SavedSettingsTest::TearDown() {
    SettingsTest::TearDown();
    gTestHost = {};
}

std::string SavedSettingsTest::saved(const char* theme) const {
    saveSystemState(&gTestHost, theme);
    return readState();
}

SettingPairs SavedSettingsTest::everything() {
    return {{"vol", "100"},
            {"keymap", "102"},
            {"mute", "1"},
            {"bgmvol", "105"},
            {"brightness", "101"},
            {"language", R"("es.lang")"},
            {"theme", R"("/themes/dark/")"},
            {"hostap", "115"},
            {"netplay", "106"},
            {"wifi", "114"},
            {"cpufreq", "107"},
            {"ledswitch", "108"},
            {"ledvalue", "110"},
            {"menustylel1", "109"},
            {"menustylel2", "111"},
            {"storeurl", R"("http://store/")"},
            {"bluetooth", "116"},
            {"usenetworktime", "21"},
            {"24hourclock", "22"},
            {"timezone", R"("Asia/Tokyo")"},
            {"rumblelevel", "112"},
            {"dimtime", "113"},
            {"colorbrightness", "3"},
            {"colorcontrast", "4"},
            {"colortemperature", "6"},
            {"colorsaturation", "7"},
            {"enablehome", "31"},
            {"focusontab", "32"},
            {"bconfirm", "119"},
            {"osdshortcut", "118"},
            {"favoritetab", "33"},
            {"recentplayedtab", "34"},
            {"beststab", "35"},
            {"retrogametab", "36"},
            {"portstab", "37"},
            {"appstab", "38"},
            {"netplaytab", "39"},
            {"usejoystick", "40"},
            {"enablekeytone", "41"},
            {"enablessh", "42"}};
}

SettingPairs SavedSettingsTest::without(const SettingPairs& pairs, const std::string& key) {
    SettingPairs kept;
    for (const auto& pair : pairs)
        if (pair.first != key)
            kept.push_back(pair);
    return kept;
}

std::string SavedSettingsTest::formatted(const SettingPairs& pairs) {
    std::string text = "{";
    for (const auto& [key, value] : pairs)
        text += (text == "{" ? "\n\t\"" : ",\n\t\"") + key + "\":\t" + value;
    return text + "\n}";
}
