#include "services/power_status.h"
#include "services/process_list.h"
#include "support/wifi_test.h"
#include "system/features.h"
#include "system/system_state.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

/// Whether the library sees the device that tools/device makes.
class DeviceToolTest : public WifiTest {
protected:
    void SetUp() override {
        WifiTest::SetUp();
        std::filesystem::remove_all(onDevice(""));
        device("init");
    }

    void device(const std::string& command) const {
        EXPECT_EQ(system((TEST_DATA "/../../tools/device --root " + onDevice("") + " " + command).c_str()), 0)
            << command;
    }

    bool has(const char* path) const { return access(onDevice(path).c_str(), R_OK) == 0; }
};

TEST_F(DeviceToolTest, BatteryAndCharger) {
    EXPECT_EQ(readBatteryADC(), 80);
    device("battery 7");
    EXPECT_EQ(readBatteryADC(), 7);
    EXPECT_FALSE(ischarging());
    EXPECT_FALSE(isUsbOnline());
    device("charger on");
    EXPECT_TRUE(ischarging());
    EXPECT_TRUE(isUsbOnline());
    device("charger off");
    EXPECT_FALSE(ischarging());
    EXPECT_FALSE(isUsbOnline());
}

TEST_F(DeviceToolTest, WifiStates) {
    EXPECT_EQ(getWifiMode(), 2);
    EXPECT_EQ(check_process_exist("wpa_supplicant", false), 301);
    EXPECT_EQ(rx_get_wpa_msg().state, 4);
    device("wifi connecting");
    EXPECT_EQ(getWifiMode(), 2);
    EXPECT_EQ(rx_get_wpa_msg().state, 6);
    device("wifi scanning");
    EXPECT_EQ(rx_get_wpa_msg().state, 2);
    device("wifi hotspot");
    EXPECT_EQ(getWifiMode(), 3);
    device("wifi off");
    EXPECT_EQ(getWifiMode(), 1);
    EXPECT_EQ(rx_get_wpa_msg().state, 0);
}

TEST_F(DeviceToolTest, WifiStrengthAndName) {
    device("wifi connected -77 'Caf\xC3\xA9'");
    const WpaMsg message = rx_get_wpa_msg();
    EXPECT_EQ(message.state, 4);
    EXPECT_EQ(message.rssi, -77);
    EXPECT_STREQ(message.ssid, "Caf\xC3\xA9");
    EXPECT_STREQ(message.ip_address, "192.168.1.23");
    EXPECT_EQ(message.id, 0);
    for (int bars = 1; bars <= 3; ++bars) {
        device("wifi connected " + std::to_string(bars));
        EXPECT_EQ(rssi2Level(rx_get_wpa_msg().rssi), bars);
    }
}

TEST_F(DeviceToolTest, Settings) {
    char* theme = nullptr;
    loadSystemState(&gTestHost, &theme);
    EXPECT_EQ(theme, nullptr);
    EXPECT_EQ(gTestHost.table[0], 14);
    EXPECT_EQ(gTestHost.table[19], 0);
    device("swap-ab on");
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[19], 1);
    saveSystemState(&gTestHost, nullptr);
    device("swap-ab off");
    loadSystemState(&gTestHost, nullptr);
    EXPECT_EQ(gTestHost.table[19], 0) << "also in a file that the library has written";
    EXPECT_EQ(gTestHost.table[0], 14);
}

TEST_F(DeviceToolTest, Markers) {
    device("bluetooth on");
    device("headphones on");
    EXPECT_TRUE(has("/tmp/btdev_addr") && has("/tmp/bluetooth_ready") && has("/dev/dsp1"));
    device("bluetooth off");
    device("headphones off");
    EXPECT_FALSE(has("/tmp/btdev_addr") || has("/tmp/bluetooth_ready") || has("/dev/dsp1"));
}

TEST_F(DeviceToolTest, Features) {
    loadSystemFunction();
    EXPECT_TRUE(isBluetoothEanbled());
    EXPECT_TRUE(isSuspendEnabled());
    EXPECT_FALSE(has("/tmp/stay_awake"));
}
