#include "support/settings_test.h"
#include "system/current_language.h"
#include "system/system_state.h"

// The keys of the settings file are looked up one after the other, and "language" is one of them.

namespace {

using Stores = std::vector<std::pair<int, int>>;

class SystemStateOrderTest : public SettingsTest {};

} // namespace

TEST_F(SystemStateOrderTest, TableIsFilledKeyByKey) {
    load(R"({"enablessh": 1, "bconfirm": 1, "dimtime": 12, "rumblelevel": 2, "menustylel2": 11,
             "menustylel1": 10, "ledvalue": 9, "ledswitch": 8, "cpufreq": 7, "bluetooth": 6, "hostap": 5,
             "wifi": 4, "netplay": 0, "brightness": 3, "bgmvol": 2, "mute": 1, "keymap": 1, "vol": 13,
             "osdshortcut": 14})");
    const Stores inOrder = {{0, 13}, {2, 1},   {3, 1},  {5, 2},   {1, 3},  {6, 0},
                            {14, 1}, {15, 1},  {16, 1}, {7, 7},   {8, 1},  {10, 9},
                            {9, 10}, {11, 11}, {12, 2}, {13, 12}, {19, 1}, {18, 14}};
    EXPECT_EQ(gTestHost.stores, inOrder);
}

TEST_F(SystemStateOrderTest, TableIsTheOneThatTheCallerNames) {
    TestHost other;
    writeState(R"({"vol": 5})");
    loadSystemState(&other, nullptr);
    EXPECT_EQ(other.table[0], 5);
    EXPECT_TRUE(gTestHost.stores.empty());
}

TEST_F(SystemStateOrderTest, VariantOfTheCurrentLanguageWins) {
    for (const char* json :
         {R"({"dimtime": 1, "dimtime.en.lang": 2})", R"({"dimtime.en.lang": 2, "dimtime": 1})"}) {
        setSystemLanguage("en.lang");
        load(json);
        EXPECT_EQ(gTestHost.table[13], 2) << json;
        setSystemLanguage("ch.lang");
        load(json);
        EXPECT_EQ(gTestHost.table[13], 1) << json;
    }
}

TEST_F(SystemStateOrderTest, WithoutALanguageTheVariantIsTheEnglishOne) {
    load(R"({"dimtime": 1, "dimtime.en.lang": 2})");
    EXPECT_EQ(gTestHost.table[13], 2);
}

TEST_F(SystemStateOrderTest, VariantCountsEvenWhenItIsOfTheWrongType) {
    load(R"({"dimtime": 1, "dimtime.en.lang": "2"})");
    EXPECT_EQ(gTestHost.table[13], 300);
}

TEST_F(SystemStateOrderTest, KeysBeforeLanguageAreLookedUpInTheOldOne) {
    load(R"({"vol": 1, "vol.es.lang": 2, "keymap": 0, "keymap.es.lang": 1, "brightness": 3,
             "brightness.es.lang": 4, "bgmvol": 5, "bgmvol.es.lang": 6, "language": "es.lang"})");
    EXPECT_EQ(gTestHost.table[0], 1);
    EXPECT_EQ(gTestHost.table[2], 0);
    EXPECT_EQ(gTestHost.table[1], 3);
    EXPECT_EQ(gTestHost.table[5], 5);
}

TEST_F(SystemStateOrderTest, KeysAfterLanguageAreLookedUpInTheNewOne) {
    load(R"({"netplay": 0, "netplay.es.lang": 1, "dimtime": 5, "dimtime.es.lang": 6, "enablehome": 7,
             "enablehome.es.lang": 8, "storeurl": "plain", "storeurl.es.lang": "spanish", "theme": "/gone",
             "language": "es.lang"})");
    EXPECT_EQ(gTestHost.table[6], 1);
    EXPECT_EQ(gTestHost.table[13], 6);
    EXPECT_EQ(gEnableHomeWindow, 8);
    EXPECT_STREQ(gStoreUrl, "spanish");
}

TEST_F(SystemStateOrderTest, LanguageItselfIsLookedUpInTheOldOne) {
    load(R"({"language": "es.lang", "language.en.lang": "ko.lang", "language.es.lang": "jp.lang"})");
    EXPECT_STREQ(getSystemLanguage(), "ko.lang");
}

TEST_F(SystemStateOrderTest, NamesAreComparedWithoutRegardToCaseAndTheFirstWins) {
    load(R"({"VOL": 3, "vol": 4, "DimTime": 60, "KEYMAP.EN.LANG": 1, "keymap": 0})");
    EXPECT_EQ(gTestHost.table[0], 3);
    EXPECT_EQ(gTestHost.table[13], 60);
    EXPECT_EQ(gTestHost.table[2], 1);
}

TEST_F(SystemStateOrderTest, FirstOfEqualNamesCountsEvenWhenItIsOfTheWrongType) {
    load(R"({"dimtime": "x", "dimtime": 60})");
    EXPECT_EQ(gTestHost.table[13], 300);
}
