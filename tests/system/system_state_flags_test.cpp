#include "support/settings_test.h"
#include "system/clock_settings.h"
#include "system/display_color.h"
#include "system/system_state.h"

#include <climits>
#include <ostream>

// What the keys of the settings file put into the library's own flags and levels.

namespace {

/// The flags as they stand when the library has been loaded and nothing was read yet.
struct FlagsAtLoad {
    int home = gEnableHomeWindow, focus = gAllowFocusOnTab, favorite = gEnableFavoriteTab,
        recent = gEnableRecentPlayedTab, bests = gEnableBestsTab, retro = gEnableRetroGameTab,
        ports = gEnablePortsTab, apps = gEnableAppsTab, netPlay = gEnableNetPlayTab, joystick = gUseJoystick,
        keyTone = gEnableKeyTone, ssh = gEnableSSH;
    const char* storeUrl = gStoreUrl;
};
const FlagsAtLoad sFlagsAtLoad;

/// A key and how its value is read and preset.
struct FlagKey {
    const char* key;
    int (*get)();
    void (*set)(int);
};

void PrintTo(const FlagKey& key, std::ostream* out) {
    *out << key.key;
}

std::string nameOf(const testing::TestParamInfo<FlagKey>& info) {
    return info.param.key;
}

template <int* FLAG>
constexpr FlagKey flag(const char* key) {
    return {key, [] { return *FLAG; }, [](int value) { *FLAG = value; }};
}

class FlagKeyTest : public SettingsTest, public testing::WithParamInterface<FlagKey> {
protected:
    /// What the flag is after a file with this value for the key, when it was `before`.
    int stored(const std::string& value, int before) const {
        return storedBy("{\"" + std::string(GetParam().key) + "\": " + value + "}", before);
    }
    int storedBy(const std::string& json, int before) const {
        GetParam().set(before);
        load(json);
        return GetParam().get();
    }
};

class RawFlagKeyTest : public FlagKeyTest {};
class SwitchFlagKeyTest : public FlagKeyTest {};
class ColorKeyTest : public FlagKeyTest {};

} // namespace

TEST(SystemStateFlags, AreOnAtLoadButForRemoteShellAndStore) {
    for (const int value : {sFlagsAtLoad.home, sFlagsAtLoad.focus, sFlagsAtLoad.favorite, sFlagsAtLoad.recent,
                            sFlagsAtLoad.bests, sFlagsAtLoad.retro, sFlagsAtLoad.ports, sFlagsAtLoad.apps,
                            sFlagsAtLoad.netPlay, sFlagsAtLoad.joystick, sFlagsAtLoad.keyTone})
        EXPECT_EQ(value, 1);
    EXPECT_EQ(sFlagsAtLoad.ssh, 0);
    EXPECT_EQ(sFlagsAtLoad.storeUrl, nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, RawFlagKeyTest,
    testing::Values(flag<&gEnableHomeWindow>("enablehome"), flag<&gAllowFocusOnTab>("focusontab"),
                    flag<&gEnableFavoriteTab>("favoritetab"),
                    flag<&gEnableRecentPlayedTab>("recentplayedtab"), flag<&gEnableBestsTab>("beststab"),
                    flag<&gEnableRetroGameTab>("retrogametab"), flag<&gEnablePortsTab>("portstab"),
                    flag<&gEnableAppsTab>("appstab"), flag<&gEnableNetPlayTab>("netplaytab")),
    nameOf);

TEST_P(RawFlagKeyTest, IsStoredAsItIs) {
    EXPECT_EQ(stored("0", 9), 0);
    EXPECT_EQ(stored("1", 9), 1);
    EXPECT_EQ(stored("2", 9), 2);
    EXPECT_EQ(stored("-5", 9), -5);
    EXPECT_EQ(stored("3.9", 9), 3);
    EXPECT_EQ(stored("1e999", 9), INT_MAX);
    EXPECT_EQ(stored("-1e999", 9), INT_MIN);
}

TEST_P(RawFlagKeyTest, IsOneWhenItIsNoNumber) {
    for (const std::string& value : notNumbers)
        EXPECT_EQ(stored(value, 9), 1) << value;
    EXPECT_EQ(storedBy("{}", 9), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Settings, SwitchFlagKeyTest,
    testing::Values(flag<&gEnableKeyTone>("enablekeytone"), flag<&gEnableSSH>("enablessh"),
                    FlagKey{"usenetworktime", getSyncTimeFromNetworkFlag, setSyncTimeFromNetworkFlag},
                    FlagKey{"24hourclock", get24HourClockFlag, set24HourClockFlag}),
    nameOf);

TEST_P(SwitchFlagKeyTest, IsOnForEveryNumberButZero) {
    for (const char* value : {"1", "2", "-1", "1.5", "1e999", "-1e999"})
        EXPECT_EQ(stored(value, 9), 1) << value;
}

TEST_P(SwitchFlagKeyTest, IsOffForNumbersWhoseWholePartIsZero) {
    for (const char* value : {"0", "0.9", "-0.9"})
        EXPECT_EQ(stored(value, 9), 0) << value;
}

TEST_P(SwitchFlagKeyTest, StaysWhenItIsNoNumber) {
    for (const std::string& value : notNumbers)
        EXPECT_EQ(stored(value, 9), 9) << value;
    EXPECT_EQ(storedBy("{}", 9), 9);
}

INSTANTIATE_TEST_SUITE_P(Settings, ColorKeyTest,
                         testing::Values(FlagKey{"colortemperature", getColorTemperature,
                                                 setColorTemperature},
                                         FlagKey{"colorbrightness", getColorBrightness, setColorBrightness},
                                         FlagKey{"colorcontrast", getContrast, setContrast},
                                         FlagKey{"colorsaturation", getSaturation, setSaturation}),
                         nameOf);

TEST_P(ColorKeyTest, GoesThroughItsSetter) {
    EXPECT_EQ(stored("3", 9), 3);
    EXPECT_EQ(stored("4.9", 9), 4);
    for (const int level : {-2147483647 - 1, -1, 0, 1, 10, 11, 20, 21, 2147483647}) {
        const int loaded = stored(std::to_string(level), 9);
        GetParam().set(level); // clamps
        EXPECT_EQ(loaded, GetParam().get()) << level;
    }
}

TEST_P(ColorKeyTest, StaysWhenItIsNoNumber) {
    for (const std::string& value : notNumbers)
        EXPECT_EQ(stored(value, 9), 9) << value;
    EXPECT_EQ(storedBy("{}", 9), 9);
}

namespace {
class JoystickUseTest : public SettingsTest {
protected:
    int stored(const std::string& value) const {
        gUseJoystick = 9;
        loadKey("usejoystick", value);
        return gUseJoystick;
    }
};
} // namespace

TEST_F(JoystickUseTest, TakesZeroToThree) {
    for (int value = 0; value <= 3; ++value)
        EXPECT_EQ(stored(std::to_string(value)), value);
    EXPECT_EQ(stored("3.9"), 3);
}

TEST_F(JoystickUseTest, IsOneForEverythingElse) {
    for (const char* value : {"-1", "4", "2147483647", "-2147483648", "1e999", "-1e999"})
        EXPECT_EQ(stored(value), 1) << value;
    for (const std::string& value : notNumbers)
        EXPECT_EQ(stored(value), 1) << value;
    gUseJoystick = 9;
    load("{}");
    EXPECT_EQ(gUseJoystick, 1);
}
