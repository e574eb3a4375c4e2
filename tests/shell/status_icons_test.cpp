#include "shell/status_icons.h"

#include "shell/skin.h"
#include "support/bars_test.h"
#include "support/opened_paths.h"

#include <algorithm>
#include <cstdio>
#include <sys/stat.h>
#include <type_traits>
#include <unistd.h>

using testing::ElementsAre;
using testing::IsEmpty;

// Hosts are compiled against these.
using IconDrawer = int (*)(bool, int, int);
static_assert(std::is_same_v<decltype(&draw_battery_icon), IconDrawer>);
static_assert(std::is_same_v<decltype(&draw_sound_icon), IconDrawer>);
static_assert(std::is_same_v<decltype(&draw_hotplug), IconDrawer>);
static_assert(std::is_same_v<decltype(&draw_wifi_icon), IconDrawer>);
static_assert(std::is_same_v<decltype(&draw_bluetooth_icon), IconDrawer>);

class StatusIconsTest : public BarsTest {
protected:
    std::vector<std::string> drawnBy(IconDrawer drawer, int used = 0, int offset = 0) {
        return drawn([=] { return drawer(true, used, offset); });
    }

    /// The result for a user who has no rights of their own, as the superuser has.
    int usedForAnyone(IconDrawer drawer) const {
        EXPECT_EQ(chmod(folder().c_str(), 0755), 0);
        const uid_t user = getuid();
        if (user == 0) { // who may read everything
            EXPECT_EQ(setreuid(65534, static_cast<uid_t>(-1)), 0);
        }
        const int used = drawer(true, 0, 0);
        EXPECT_EQ(setreuid(user, static_cast<uid_t>(-1)), 0);
        return used;
    }
};

TEST_F(StatusIconsTest, AVolumeOfOneOrMoreShowsSound) {
    for (const int volume : {1, 50, 100, 1000000}) {
        gTestHost.table[0] = volume;
        EXPECT_THAT(drawnBy(draw_sound_icon), ElementsAre(restored(1223), icon("ic-sound-n", 1223)));
        EXPECT_EQ(result, 42);
    }
}

TEST_F(StatusIconsTest, AVolumeBelowOneShowsSilence) {
    for (const int volume : {0, -1, -1000000}) {
        gTestHost.table[0] = volume;
        EXPECT_THAT(drawnBy(draw_sound_icon), ElementsAre(restored(1223), icon("ic-sound-mute", 1223)));
        EXPECT_EQ(result, 42);
    }
}

TEST_F(StatusIconsTest, TheMuteFlagIsNotLookedAt) {
    gTestHost.table[0] = 7;
    gTestHost.table[3] = 1;
    EXPECT_THAT(drawnBy(draw_sound_icon), ElementsAre(restored(1223), icon("ic-sound-n", 1223)));
    EXPECT_THAT(gTestHost.reads, ElementsAre(0));
}

TEST_F(StatusIconsTest, AHeadphoneThatIsPluggedInShows) {
    setMarker("/dev/dsp1");
    EXPECT_THAT(drawnBy(draw_hotplug), ElementsAre(restored(1223), icon(headphone, 1223)));
    EXPECT_EQ(result, 42);
}

TEST_F(StatusIconsTest, WithoutAHeadphoneTheCellIsLeftAlone) {
    EXPECT_THAT(drawnBy(draw_hotplug), IsEmpty());
    EXPECT_EQ(result, 0);
}

TEST_F(StatusIconsTest, AHeadphoneDeviceThatCannotBeReadDoesNotCount) {
    setMarker("/dev/dsp1");
    for (const auto& [mode, used] : {std::pair{0444, 42}, {0222, 0}}) {
        ASSERT_EQ(chmod(onDevice("/dev/dsp1").c_str(), static_cast<mode_t>(mode)), 0);
        EXPECT_EQ(usedForAnyone(draw_hotplug), used);
    }
    takeLog();
}

TEST_F(StatusIconsTest, ABluetoothMarkerNeedNotBeReadable) {
    for (const char* const marker : {"/tmp/btdev_addr", "/tmp/bluetooth_ready"}) {
        setMarker(marker);
        ASSERT_EQ(chmod(onDevice(marker).c_str(), 0222), 0);
    }
    EXPECT_EQ(usedForAnyone(draw_bluetooth_icon), 42);
    takeLog();
}

TEST_F(StatusIconsTest, ABluetoothDeviceNeedsBothMarkers) {
    EXPECT_THAT(drawnBy(draw_bluetooth_icon), ElementsAre(restored(1223)));
    EXPECT_EQ(result, 0);
    setMarker("/tmp/btdev_addr");
    EXPECT_THAT(drawnBy(draw_bluetooth_icon), ElementsAre(restored(1223)));
    EXPECT_EQ(result, 0);
    setMarker("/tmp/bluetooth_ready");
    EXPECT_THAT(drawnBy(draw_bluetooth_icon), ElementsAre(restored(1223), icon(headphone, 1223)));
    EXPECT_EQ(result, 42);
    ASSERT_EQ(remove(onDevice("/tmp/btdev_addr").c_str()), 0);
    EXPECT_THAT(drawnBy(draw_bluetooth_icon), ElementsAre(restored(1223)));
    EXPECT_EQ(result, 0);
}

TEST_F(StatusIconsTest, WhatIsUsedMovesThemLeftAndTheOffsetDown) {
    setMarker("/dev/dsp1");
    setMarker("/tmp/btdev_addr");
    setMarker("/tmp/bluetooth_ready");
    connectWifi(-50);
    EXPECT_THAT(drawnBy(draw_sound_icon, 84, 5),
                ElementsAre(restored(1139, 24), icon("ic-sound-mute", 1139, 24)));
    EXPECT_THAT(drawnBy(draw_hotplug, 84, 5), ElementsAre(restored(1139, 24), icon(headphone, 1139, 24)));
    EXPECT_THAT(drawnBy(draw_wifi_icon, 84, 5),
                ElementsAre(restored(1139, 24), icon("ic-wifi-03", 1139, 24)));
    EXPECT_THAT(drawnBy(draw_bluetooth_icon, 84, 5),
                ElementsAre(restored(1139, 24), icon(headphone, 1139, 24)));
}

TEST_F(StatusIconsTest, MissingPicturesTakeTheirPlaceAllTheSame) {
    removePictures(iconNames);
    reloadSkin();
    setMarker("/dev/dsp1");
    setMarker("/tmp/btdev_addr");
    setMarker("/tmp/bluetooth_ready");
    connectWifi(-50);
    for (const IconDrawer drawer : {draw_sound_icon, draw_hotplug, draw_wifi_icon, draw_bluetooth_icon}) {
        EXPECT_THAT(drawnBy(drawer), ElementsAre(restored(1223)));
        EXPECT_EQ(result, 42);
    }
}

TEST_F(StatusIconsTest, WithoutABackgroundNothingIsPaintedOver) {
    removePictures({"bg"});
    reloadSkin();
    EXPECT_THAT(drawnBy(draw_sound_icon), ElementsAre(icon("ic-sound-mute", 1223)));
    EXPECT_THAT(drawnBy(draw_bluetooth_icon), IsEmpty());
}

TEST_F(StatusIconsTest, AnIconReplacesTheOneBefore) {
    writePicture("skin/ic-sound-n.png", 33, 32, 0xFFFF0000);
    writePicture("skin/ic-sound-mute.png", 5, 4, 0xFF00FF00);
    reloadSkin();
    gTestHost.table[0] = 1;
    draw_sound_icon(true, 0, 0);
    EXPECT_EQ(pixel(1223, 19), 0xFFFF0000);
    gTestHost.table[0] = 0;
    draw_sound_icon(true, 0, 0);
    EXPECT_EQ(pixel(1223, 19), 0xFF101418);
    EXPECT_EQ(pixel(1223 + 14, 19 + 14), 0xFF00FF00);
    EXPECT_EQ(pixel(1222, 19), 0xFF000000);
    EXPECT_EQ(pixel(1256, 50), 0xFF000000);
    takeLog();
}

class WifiIconTest : public StatusIconsTest {};

TEST_F(WifiIconTest, HotspotShowsItsPicture) {
    runProcess("/usr/sbin/hostapd");
    EXPECT_THAT(drawnBy(draw_wifi_icon), ElementsAre(restored(1223), icon("icon-hotspot", 1223)));
    EXPECT_EQ(result, 42);
}

TEST_F(WifiIconTest, HotspotDoesNotLookAtTheConnection) {
    runProcess("hostapd");
    g_wpa_msg.state = 4;
    g_wpa_msg.rssi = -50;
    EXPECT_THAT(drawnBy(draw_wifi_icon), ElementsAre(restored(1223), icon("icon-hotspot", 1223)));
}

TEST_F(WifiIconTest, WithBothRunningItIsAStation) {
    runProcess("hostapd");
    connectWifi(-50);
    EXPECT_THAT(drawnBy(draw_wifi_icon), ElementsAre(restored(1223), icon("ic-wifi-03", 1223)));
}

TEST_F(WifiIconTest, WithNeitherRunningTheCellIsLeftAlone) {
    g_wpa_msg.state = 4;
    runProcess("wpa_supplicant2");
    EXPECT_THAT(drawnBy(draw_wifi_icon), IsEmpty());
    EXPECT_EQ(result, 0);
}

TEST_F(WifiIconTest, AStationThatIsNotConnectedLeavesTheCellAlone) {
    connectWifi(-50);
    for (const int state : {0, 1, 2, 3, 5, 6, -1, 1000}) {
        g_wpa_msg.state = state;
        EXPECT_THAT(drawnBy(draw_wifi_icon), IsEmpty());
        EXPECT_EQ(result, 0);
    }
}

TEST_F(WifiIconTest, ThePictureFollowsTheSignal) {
    connectWifi(0);
    const std::pair<int, const char*> pictures[] = {
        {-127, "ic-wifi-01"}, {-126, "ic-wifi-01"}, {-81, "ic-wifi-01"}, {-80, "ic-wifi-02"},
        {-71, "ic-wifi-02"},  {-70, "ic-wifi-03"},  {-30, "ic-wifi-03"}, {0, "ic-wifi-03"},
        {127, "ic-wifi-03"},  {128, "ic-wifi-01"}};
    for (const auto& [rssi, name] : pictures) {
        g_wpa_msg.rssi = rssi;
        EXPECT_THAT(drawnBy(draw_wifi_icon), ElementsAre(restored(1223), icon(name, 1223))) << rssi;
        EXPECT_EQ(result, 42);
    }
}

TEST_F(WifiIconTest, WithoutAProcessListThereIsNoWifi) {
    ASSERT_EQ(rmdir(onDevice("/proc").c_str()), 0);
    EXPECT_EQ(draw_wifi_icon(true, 0, 0), 0);
    EXPECT_EQ(takeLog(), "can not open /proc\ncan not open /proc\n"); // one for each of the two names
}

TEST_F(WifiIconTest, LooksThroughTheProcessesOnceADrawing) {
    runProcess("init");
    runProcess("getty");
    const auto count = [this](const std::vector<std::string>& paths) {
        return std::count(paths.begin(), paths.end(), onDevice("/proc/101/cmdline"));
    };
    for (const char* const last : {"shell", "hostapd", "wpa_supplicant"}) {
        runProcess(last);
        OpenedPaths opened;
        draw_wifi_icon(true, 0, 0);
        EXPECT_LE(count(opened.take()), 1) << last;
    }
    takeLog();
}
