#include "services/wifi_monitor.h"
#include "shell/skin.h"
#include "support/theme_picture_test.h"

#include <filesystem>
#include <initializer_list>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

/// The two bars of a page, with the theme that ships.
class BarsPictureTest : public ThemePictureTest {};

INSTANTIATE_TEST_SUITE_P(Languages, BarsPictureTest, testing::Values("en", "ch"),
                         [](const auto& given) { return given.param; });

TEST_P(BarsPictureTest, OfAPage) {
    gamesPage()->draw();
    expectPage("page");
}

TEST_P(BarsPictureTest, WithAAndBExchanged) {
    gTestHost.table[19] = 1;
    setBattery(100, true);
    gamesPage()->draw();
    expectPage("page-swapped");
}

TEST_P(BarsPictureTest, OnARotatedScreen) {
    openThemed(1);
    setBattery(9, true);
    gamesPage()->draw();
    ScreenUpdateAndFlip();
    expectPage("page-rotated");
}

/// The icons in each of their states, a bar a state, under each other.
class StatusIconsPictureTest : public ThemePictureTest {
protected:
    int mTop = 6;

    void SetUp() override {
        ThemePictureTest::SetUp();
        fs::remove_all(onDevice("/proc/101"));
        fs::remove(onDevice("/tmp/btdev_addr"));
        gBackground->render(nullptr, nullptr, true, nullptr);
    }

    void rotate() {
        openThemed(1);
        gBackground->render(nullptr, nullptr, true, nullptr);
    }

    void setMarker(const std::string& path, bool set) {
        fs::remove(onDevice(path));
        if (set)
            writeFile(onDevice(path), "");
    }

    void setProcess(const char* name) { writeFile(onDevice("/proc/101/cmdline"), name); }

    void drawBar(const std::string& what) {
        ListedPage(what, {}).drawNavBar(mTop);
        mTop += 64;
    }

    void drawBattery();
    void drawOthers();
};

INSTANTIATE_TEST_SUITE_P(English, StatusIconsPictureTest, testing::Values("en"));

void StatusIconsPictureTest::drawBattery() {
    for (const bool usb : {false, true})
        for (const int level : {4, 5, 25, 50, 100}) {
            setBattery(level, usb);
            drawBar(std::to_string(level) + (usb ? " %, on USB power" : " %"));
        }
}

void StatusIconsPictureTest::drawOthers() {
    gTestHost.table[0] = 0;
    drawBar("silent");
    gTestHost.table[0] = 1;
    drawBar("sound");
    setMarker("/dev/dsp1", true);
    drawBar("headphone");
    setMarker("/dev/dsp1", false);
    setProcess("hostapd");
    drawBar("hotspot");
    setProcess("wpa_supplicant");
    for (const int rssi : {-90, -75, -50}) {
        g_wpa_msg.rssi = rssi;
        drawBar("Wi-Fi, " + std::to_string(rssi) + " dBm");
    }
    g_wpa_msg.state = 2;
    drawBar("Wi-Fi, scanning");
    setMarker("/tmp/btdev_addr", true);
    drawBar("Bluetooth, no Wi-Fi");
    g_wpa_msg.state = 4;
    setMarker("/dev/dsp1", true);
    drawBar("all of them");
}

TEST_P(StatusIconsPictureTest, TheBatteryInEachState) {
    drawBattery();
    expectPicture("status-battery");
}

TEST_P(StatusIconsPictureTest, TheOthersInEachState) {
    drawOthers();
    expectPicture("status-others");
}

TEST_P(StatusIconsPictureTest, TheBatteryInEachStateOnARotatedScreen) {
    rotate();
    drawBattery();
    ScreenUpdateAndFlip();
    expectPicture("status-battery-rotated");
}

TEST_P(StatusIconsPictureTest, TheOthersInEachStateOnARotatedScreen) {
    rotate();
    drawOthers();
    ScreenUpdateAndFlip();
    expectPicture("status-others-rotated");
}

/// The bar at the bottom in each of its states, under each other.
class HintsPictureTest : public ThemePictureTest {
protected:
    /// Draws the bar as if these pictures were missing.
    void drawBar(std::initializer_list<KestroSurface**> missing = {}) {
        std::vector<KestroSurface*> pictures;
        for (KestroSurface** const picture : missing)
            pictures.push_back(std::exchange(*picture, nullptr));
        ListedPage("", {}).drawStatBar(mTop - 650);
        mTop += 80;
        size_t next = 0;
        for (KestroSurface** const picture : missing)
            *picture = pictures[next++];
    }

    int mTop = 5;
};

INSTANTIATE_TEST_SUITE_P(Languages, HintsPictureTest, testing::Values("en", "ch"),
                         [](const auto& given) { return given.param; });

TEST_P(HintsPictureTest, InEachState) {
    gBackground->render(nullptr, nullptr, true, nullptr);
    for (const int swapped : {0, 1}) {
        gTestHost.table[19] = swapped;
        drawBar();
        drawBar({&gIconA});
        drawBar({&gIconB});
        drawBar({&gIconMenu});
    }
    expectPage("hints");
}
