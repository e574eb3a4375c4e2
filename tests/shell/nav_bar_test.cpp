#include "shell/bars.h"

#include "core/window.h"
#include "shell/skin.h"
#include "support/bars_test.h"
#include "support/opened_paths.h"
#include "support/plain_window.h"
#include "support/recorded_window.h"

#include <algorithm>
#include <cstdlib>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

// Hosts are compiled against these.
static_assert(std::is_same_v<decltype(&KestroWindow::drawNavBar), int (KestroWindow::*)(int)>);

/// A window whose title the test sets.
class TitledWindow : public PlainWindow {
public:
    TitledWindow() : PlainWindow(-1, 0) {}

    const char* title = "Games";

    const char* getTitle() override { return title; }
};

class NavBarTest : public BarsTest {
protected:
    TitledWindow window;

    std::vector<std::string> drawnBar(int offset = 0) {
        return drawn([=] { return window.drawNavBar(offset); });
    }

    static std::string title(const std::string& shown, int y) {
        return text(gNavFont, shown, titleColor, 110, y);
    }
    static std::string arrow(int y) { return picture("icon-back", 20, y, 56, 56); }
};

TEST_F(NavBarTest, DrawsTitleArrowAndIconsFromRightToLeft) {
    setBattery("7");
    setMarker("/dev/dsp1");
    setMarker("/tmp/btdev_addr");
    setMarker("/tmp/bluetooth_ready");
    connectWifi(-75);
    gTestHost.table[0] = 30;
    EXPECT_THAT(drawnBar(), ElementsAre(title("Games", 22), arrow(12),                                  //
                                        restored(1256), icon("ic-batery-25%", 1223), level("7%", 1181), //
                                        restored(1139), icon("ic-sound-n", 1139),                       //
                                        restored(1097), icon(headphone, 1097),                          //
                                        restored(1055), icon("ic-wifi-02", 1055),                       //
                                        restored(1013), icon(headphone, 1013)));
    EXPECT_EQ(result, 84 + 4 * 42);
}

TEST_F(NavBarTest, OnABareDeviceThereAreBatteryAndSound) {
    EXPECT_THAT(drawnBar(), ElementsAre(title("Games", 22), arrow(12),                                 //
                                        restored(1256), icon("ic-batery-0%", 1223), level("0%", 1181), //
                                        restored(1139), icon("ic-sound-mute", 1139),                   //
                                        restored(1097)));
    EXPECT_EQ(result, 84 + 42);
}

TEST_F(NavBarTest, TheOffsetIsAddedToEveryY) {
    setBattery("100");
    setUsb("1");
    EXPECT_THAT(drawnBar(100), ElementsAre(title("Games", 122), arrow(112), restored(1256, 119),
                                           icon("ic-charging", 1240, 119), icon("ic-batery-100%", 1205, 119),
                                           level("100%", 1133, 119), restored(1091, 119),
                                           icon("ic-sound-mute", 1091, 119), restored(1049, 119)));
    EXPECT_EQ(result, 132 + 42);
}

TEST_F(NavBarTest, WithoutAConnectionTheBluetoothIconMovesRight) {
    setMarker("/tmp/btdev_addr");
    setMarker("/tmp/bluetooth_ready");
    connectWifi(-50);
    EXPECT_EQ(drawnBar().back(), icon(headphone, 1055));
    EXPECT_EQ(result, 84 + 3 * 42);
    g_wpa_msg.state = 2;
    EXPECT_EQ(drawnBar().back(), icon(headphone, 1055 + 42));
    EXPECT_EQ(result, 84 + 2 * 42);
}

TEST_F(NavBarTest, AWindowWithoutATitleHasTheRest) {
    window.title = nullptr;
    EXPECT_EQ(drawnBar().front(), arrow(12));
    window.title = "";
    EXPECT_EQ(drawnBar().front(), arrow(12));
}

TEST_F(NavBarTest, TheTitleIsTheLanguagesByDefault) {
    useLanguage({{6, "Spiele"}});
    WindowLog calls;
    RecordedWindow page(calls, "page");
    page.titleId = 6;
    EXPECT_EQ(drawn([&] { return page.drawNavBar(0); }).front(), title("Spiele", 22));
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NavBarTest, ALongTitleIsNotCut) {
    const std::string shown(200, 'W');
    window.title = shown.c_str();
    EXPECT_EQ(drawnBar().front(), title(shown, 22));
}

TEST_F(NavBarTest, MissingPicturesAndFontsLeaveNothingToDraw) {
    removePictures({"icon-back", "bg"});
    removePictures(iconNames);
    reloadSkin();
    EXPECT_THAT(drawnBar(), ElementsAre(title("Games", 22), level("0%", 1181)));
    EXPECT_EQ(result, 84 + 42);
    uninit_shared_skin();
    EXPECT_THAT(drawnBar(), IsEmpty());
    EXPECT_EQ(result, 84 + 42);
}

TEST_F(NavBarTest, WithoutAScreenItDrawsNothing) {
    ScreenUninit();
    EXPECT_EQ(window.drawNavBar(0), 84 + 42);
    takeLog();
}

TEST_F(NavBarTest, LooksThroughTheProcessesOnceADrawing) {
    runProcess("init");
    OpenedPaths opened;
    for (int frame = 1; frame <= 3; ++frame) {
        window.drawNavBar(0);
        const auto paths = opened.take();
        EXPECT_EQ(std::count(paths.begin(), paths.end(), onDevice("/proc/101/cmdline")), 1);
    }
    takeLog();
}

TEST_F(NavBarTest, WithoutARootItLooksAtTheDevicesOwnFiles) {
    setMarker("/tmp/btdev_addr");
    window.drawNavBar(0);
    takeLog();
    unsetenv("KESTRO_DEVICE_ROOT");
    OpenedPaths opened;
    for (const char* const path :
         {"/sys/class/power_supply/axp2202-battery/capacity",
          "/sys/class/power_supply/axp2202-battery/status", "/sys/class/power_supply/axp2202-usb/online"})
        opened.refuse(path);
    window.drawNavBar(0);
    std::vector<std::string> paths = opened.take();
    setenv("KESTRO_DEVICE_ROOT", (folder() + "/device").c_str(), 1);
    const auto isProcess = [](const std::string& path) { return path.rfind("/proc/", 0) == 0; };
    EXPECT_TRUE(std::any_of(paths.begin(), paths.end(), isProcess));
    paths.erase(std::remove_if(paths.begin(), paths.end(), isProcess), paths.end());
    EXPECT_THAT(paths, testing::IsSupersetOf({"/sys/class/power_supply/axp2202-battery/capacity",
                                              "/sys/class/power_supply/axp2202-battery/status",
                                              "/sys/class/power_supply/axp2202-usb/online", "/dev/dsp1",
                                              "/tmp/btdev_addr"}));
    for (const std::string& path : paths)
        EXPECT_TRUE(path.rfind("/sys/class/power_supply/axp2202-", 0) == 0 || path == "/dev/dsp1" ||
                    path == "/tmp/btdev_addr" || path == "/tmp/bluetooth_ready")
            << path;
    takeLog();
}
