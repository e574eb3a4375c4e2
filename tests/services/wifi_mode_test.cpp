#include "support/opened_paths.h"
#include "support/wifi_test.h"

#include <climits>
#include <filesystem>

using namespace std::string_literals;

namespace {

class WifiModeTest : public WifiTest {};

const std::string station = "/usr/sbin/wpa_supplicant\0-B\0-i\0wlan0\0"s;
const std::string hotspot = "/usr/sbin/hostapd\0/etc/hostapd.conf\0"s;

} // namespace

TEST_F(WifiModeTest, Is1WithNeitherProcess) {
    EXPECT_EQ(getWifiMode(), 1);
    addProcess("1", "/sbin/init");
    EXPECT_EQ(getWifiMode(), 1);
}

TEST_F(WifiModeTest, Is2WithTheStation) {
    addProcess("1", "/sbin/init");
    addProcess("2", station);
    EXPECT_EQ(getWifiMode(), 2);
}

TEST_F(WifiModeTest, Is3WithTheHotspot) {
    addProcess("1", "/sbin/init");
    addProcess("2", hotspot);
    EXPECT_EQ(getWifiMode(), 3);
}

TEST_F(WifiModeTest, StationWinsWhenBothRun) {
    addProcess("1", station);
    addProcess("2", hotspot);
    EXPECT_EQ(getWifiMode(), 2);
    addProcess("1", hotspot);
    addProcess("2", station);
    EXPECT_EQ(getWifiMode(), 2) << "whichever comes first";
}

TEST_F(WifiModeTest, LikeNamesDoNotCount) {
    addProcess("1", "wpa_supplicant2");
    addProcess("2", "hostapd_cli");
    EXPECT_EQ(getWifiMode(), 1);
}

TEST_F(WifiModeTest, FollowsTheProcessesAtOnce) {
    addProcess("1", station);
    EXPECT_EQ(getWifiMode(), 2);
    endProcess("1");
    EXPECT_EQ(getWifiMode(), 1);
    addProcess("2", hotspot);
    EXPECT_EQ(getWifiMode(), 3);
}

TEST_F(WifiModeTest, ListThatCannotBeReadIsLoggedForEachName) {
    std::filesystem::remove_all(onDevice("/proc"));
    EXPECT_EQ(getWifiMode(), 1);
    EXPECT_EQ(takeLog(), "can not open /proc\ncan not open /proc\n");
}

TEST_F(WifiModeTest, LooksAtEachProcessOnce) {
    for (const char* id : {"1", "2", "3"})
        addProcess(id, "/sbin/daemon");
    OpenedPaths paths;
    EXPECT_EQ(getWifiMode(), 1);
    EXPECT_THAT(paths.take(),
                testing::UnorderedElementsAre(onDevice("/proc/1/cmdline"), onDevice("/proc/2/cmdline"),
                                              onDevice("/proc/3/cmdline")));
}

TEST(SignalLevelTest, FollowsTheStrength) {
    EXPECT_EQ(rssi2Level(INT_MIN), 0);
    EXPECT_EQ(rssi2Level(-127), 0);
    EXPECT_EQ(rssi2Level(-126), 1);
    EXPECT_EQ(rssi2Level(-81), 1);
    EXPECT_EQ(rssi2Level(-80), 2);
    EXPECT_EQ(rssi2Level(-71), 2);
    EXPECT_EQ(rssi2Level(-70), 3);
    EXPECT_EQ(rssi2Level(0), 3);
    EXPECT_EQ(rssi2Level(127), 3);
    EXPECT_EQ(rssi2Level(128), 0);
    EXPECT_EQ(rssi2Level(INT_MAX), 0);
}
