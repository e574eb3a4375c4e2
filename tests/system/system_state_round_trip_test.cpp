#include "support/settings_test.h"
#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/display_color.h"
#include "system/system_state.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>

// What one process saves, the next one loads.

namespace {

/// All settings that the file holds.
struct Settings {
    std::vector<int> numbers;
    std::vector<std::string> texts;

    bool operator==(const Settings& other) const { return numbers == other.numbers && texts == other.texts; }
};

const int indexes[] = {0, 1, 2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 19};

int* const flags[] = {&gEnableHomeWindow, &gAllowFocusOnTab,    &gEnableFavoriteTab, &gEnableRecentPlayedTab,
                      &gEnableBestsTab,   &gEnableRetroGameTab, &gEnablePortsTab,    &gEnableAppsTab,
                      &gEnableNetPlayTab, &gUseJoystick,        &gEnableKeyTone,     &gEnableSSH};

class RoundTripTest : public SettingsTest {
protected:
    std::mt19937 random{7};

    int upTo(int largest) { return std::uniform_int_distribution<int>(0, largest)(random); }

    void setRandomTable() {
        for (const int index : indexes)
            gTestHost.table[index] = upTo(1);
        gTestHost.table[0] = upTo(20);
        gTestHost.table[1] = upTo(10);
        gTestHost.table[3] = gTestHost.table[0] != 0; // the only value that "mute" comes back with
        gTestHost.table[5] = upTo(1000) - 500;
        gTestHost.table[7] = upTo(2'000'000);
        for (const int index : {9, 10, 11, 13, 18})
            gTestHost.table[index] = upTo(10'000) - 5'000;
        gTestHost.table[12] = upTo(5);
    }

    void setRandomRest() {
        for (int* const flag : flags)
            *flag = upTo(100) - 50;
        gUseJoystick = upTo(3);
        gEnableKeyTone = upTo(1);
        gEnableSSH = upTo(1);
        setSyncTimeFromNetworkFlag(upTo(1));
        set24HourClockFlag(upTo(1));
        setColorBrightness(1 + upTo(9));
        setContrast(1 + upTo(9));
        setColorTemperature(upTo(20));
        setSaturation(upTo(10));
        setTimeZone(randomText(100).c_str());
        setSystemLanguage(randomText(20).c_str());
        free(gStoreUrl);
        gStoreUrl = upTo(3) ? strdup(randomText(300).c_str()) : nullptr;
    }

    /// A text of 1 to `longest` bytes of any value, so also what JSON escapes and what is no UTF-8.
    std::string randomText(int longest) {
        std::string text(static_cast<size_t>(1 + upTo(longest - 1)), ' ');
        for (char& byte : text)
            byte = static_cast<char>(1 + upTo(254));
        return text;
    }

    static Settings current() {
        Settings all;
        for (const int index : indexes)
            all.numbers.push_back(gTestHost.table[index]);
        for (const int* const flag : flags)
            all.numbers.push_back(*flag);
        for (const int value : {getSyncTimeFromNetworkFlag(), get24HourClockFlag(), getColorBrightness(),
                                getContrast(), getColorTemperature(), getSaturation()})
            all.numbers.push_back(value);
        for (const char* text : {getTimeZone(), getSystemLanguage(), static_cast<const char*>(gStoreUrl)})
            all.texts.push_back(text ? text : "(null)");
        return all;
    }

    /// Makes everything different, as at the start of another process.
    void forget() {
        const std::string file = readState();
        std::filesystem::remove(statePath());
        loadSystemState(&gTestHost, nullptr);
        gTestHost = {};
        setSystemLanguage("");
        writeState(file);
    }
};

} // namespace

TEST_F(RoundTripTest, EverythingComesBack) {
    for (int round = 0; round < 20; ++round) {
        setRandomTable();
        setRandomRest();
        const Settings before = current();
        saveSystemState(&gTestHost, nullptr);
        forget();
        ASSERT_FALSE(current() == before);
        loadSystemState(&gTestHost, nullptr);
        EXPECT_EQ(current().numbers, before.numbers);
        EXPECT_EQ(current().texts, before.texts);
    }
}

TEST_F(RoundTripTest, FileOfASecondSaveIsTheSame) {
    setRandomTable();
    setRandomRest();
    saveSystemState(&gTestHost, "/themes/dark/");
    const std::string first = readState();
    forget();
    loadSystemState(&gTestHost, nullptr);
    saveSystemState(&gTestHost, "/themes/dark/");
    EXPECT_EQ(readState(), first);
}

TEST_F(RoundTripTest, ThemeComesBackAsLongAsItExists) {
    std::filesystem::create_directory("theme");
    saveSystemState(&gTestHost, "theme");
    char* theme = nullptr;
    loadSystemState(&gTestHost, &theme);
    EXPECT_STREQ(theme, "theme");
    free(theme);
    std::filesystem::remove("theme");
    loadSystemState(&gTestHost, &theme);
    EXPECT_EQ(theme, nullptr);
}

TEST_F(RoundTripTest, MuteComesBackAsWhetherThereIsAVolume) {
    gTestHost.table[0] = 5;
    gTestHost.table[3] = 0;
    saveSystemState(&gTestHost, nullptr);
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[3], 1);
}

TEST_F(RoundTripTest, MusicVolumeIsLostBesideAVolumeOutOfRange) {
    gTestHost.table[0] = 21;
    gTestHost.table[5] = 3;
    saveSystemState(&gTestHost, nullptr);
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[0], 14);
    EXPECT_EQ(gTestHost.table[5], 10);
}
