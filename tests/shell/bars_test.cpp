#include "shell/bars.h"

#include "core/window.h"
#include "shell/bar_layout.h"
#include "shell/skin.h"
#include "support/bars_test.h"
#include "support/opened_paths.h"
#include "support/recorded_window.h"
#include "support/surfaces.h"

#include <algorithm>
#include <cstdlib>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

// Hosts are compiled against these.
static_assert(std::is_same_v<decltype(&KestroWindow::drawNavBar), int (KestroWindow::*)(int)>);
static_assert(std::is_same_v<decltype(&KestroWindow::drawStatBar), int (KestroWindow::*)(int)>);
static_assert(
    std::is_same_v<decltype(&draw_stat_icon_item_left), int (*)(KestroSurface*, int, int, const char*)>);
static_assert(std::is_same_v<decltype(gListNumOfStatBarOffsetY), int>);

/// A window whose title the test sets.
class TitledWindow : public KestroWindow {
public:
    TitledWindow() : KestroWindow(-1, 0) {}

    const char* title = "Games";

    int eventHandling() override { return 0; }
    int draw() override { return 0; }
    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override {}
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

class StatBarTest : public BarsTest {
protected:
    TitledWindow window;

    std::vector<std::string> drawnBar(int offset = 0) {
        return drawn([=] { return window.drawStatBar(offset); });
    }

    /// The lines for a hint whose icon is `w` x 44 pixels, on a bar that begins at `y`.
    static std::vector<std::string> hint(const std::string& name, int w, const std::string& label, int x,
                                         int y = 650) {
        return {picture(name, x, y + (70 - 44) / 2 + 2, w, 44),
                text(gStatFont, label, hintColor, x + w + 10, y + (70 - lineHeight(gStatFont)) / 2 + 2)};
    }

    static int widthOf(int iconWidth, const std::string& label) {
        return iconWidth + 10 + textWidth(gStatFont, label);
    }

    static std::vector<std::string> joined(std::initializer_list<std::vector<std::string>> parts) {
        std::vector<std::string> all;
        for (const auto& part : parts)
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }
};

TEST_F(StatBarTest, SaysWhatABAndMenuDo) {
    const int second = 30 + widthOf(44, "OPEN") + 24;
    const int third = second + widthOf(44, "BACK") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-A", 44, "OPEN", 30), hint("tips-B", 44, "BACK", second),
                                  hint("tips-MENU2", 64, "MENU", third)}));
    EXPECT_EQ(result, third + widthOf(64, "MENU") + 24);
}

TEST_F(StatBarTest, WithAAndBExchangedBOpens) {
    const int second = 30 + widthOf(44, "OPEN") + 24;
    const int third = second + widthOf(44, "BACK") + 24;
    for (const int set : {1, -1, 77}) {
        gTestHost.table[19] = set;
        EXPECT_EQ(drawnBar(), joined({hint("tips-B", 44, "OPEN", 30), hint("tips-A", 44, "BACK", second),
                                      hint("tips-MENU2", 64, "MENU", third)}));
    }
}

TEST_F(StatBarTest, TheExchangeIsLookedUpOnceADrawing) {
    drawnBar();
    EXPECT_THAT(gTestHost.reads, ElementsAre(19));
}

TEST_F(StatBarTest, AMissingIconLeavesNoGap) {
    removePictures({"tips-A"});
    reloadSkin();
    const int second = 30 + widthOf(44, "BACK") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-B", 44, "BACK", 30), hint("tips-MENU2", 64, "MENU", second)}));
    EXPECT_EQ(result, second + widthOf(64, "MENU") + 24);
    gTestHost.table[19] = 1;
    const int after = 30 + widthOf(44, "OPEN") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-B", 44, "OPEN", 30), hint("tips-MENU2", 64, "MENU", after)}));
}

TEST_F(StatBarTest, WithoutTheMenuIconItEndsAfterTheSecondHint) {
    removePictures({"tips-MENU2"});
    reloadSkin();
    const int second = 30 + widthOf(44, "OPEN") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-A", 44, "OPEN", 30), hint("tips-B", 44, "BACK", second)}));
    EXPECT_EQ(result, second + widthOf(44, "BACK") + 24);
}

TEST_F(StatBarTest, WithoutAnyIconItIsEmpty) {
    uninit_shared_skin();
    EXPECT_THAT(drawnBar(), IsEmpty());
    EXPECT_EQ(result, 30);
}

TEST_F(StatBarTest, TheOffsetMovesItDown) {
    const int second = 30 + widthOf(44, "OPEN") + 24;
    const int third = second + widthOf(44, "BACK") + 24;
    EXPECT_EQ(drawnBar(-600),
              joined({hint("tips-A", 44, "OPEN", 30, 50), hint("tips-B", 44, "BACK", second, 50),
                      hint("tips-MENU2", 64, "MENU", third, 50)}));
}

TEST_F(StatBarTest, ItsWordsAreTheLanguages) {
    useLanguage({{4, "打开"}, {5, "返回"}, {6, "no"}, {7, "菜单"}});
    const int second = 30 + widthOf(44, "打开") + 24;
    const int third = second + widthOf(44, "返回") + 24;
    EXPECT_EQ(drawnBar(), joined({hint("tips-A", 44, "打开", 30), hint("tips-B", 44, "返回", second),
                                  hint("tips-MENU2", 64, "菜单", third)}));
}

class HintTest : public BarsTest {};

TEST_F(HintTest, WithoutAnIconNothingIsDrawn) {
    EXPECT_THAT(drawn([] { return draw_stat_icon_item_left(nullptr, 10, 20, "word"); }), IsEmpty());
    EXPECT_EQ(result, 0);
}

TEST_F(HintTest, StandsInTheMiddleOfTheBarAndALittleLower) {
    const int labelTop = 100 + (70 - lineHeight(gStatFont)) / 2 + 2;
    for (const auto& [height, top] :
         {std::pair{20, 127}, {21, 126}, {70, 102}, {71, 102}, {73, 101}, {80, 97}}) {
        const KestroSurfacePtr icon = solidPicture(31, height, 0xFFFFFFFF);
        EXPECT_THAT(
            drawn([&] { return draw_stat_icon_item_left(icon.get(), 5, 100, "word"); }),
            ElementsAre("copy all -> 5," + std::to_string(top) + " 31x" + std::to_string(height) + " on W",
                        text(gStatFont, "word", hintColor, 46, labelTop)));
        EXPECT_EQ(result, 31 + 10 + textWidth(gStatFont, "word"));
    }
}

TEST_F(HintTest, WithoutAWordTheIconAndTheGapCount) {
    const KestroSurfacePtr icon = solidPicture(31, 20, 0xFFFFFFFF);
    for (const char* const none : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(drawn([&] { return draw_stat_icon_item_left(icon.get(), 5, 100, none); }).size(), 1u);
        EXPECT_EQ(result, 41);
    }
}

TEST_F(HintTest, WithoutAFontOnlyTheIconIsDrawn) {
    const KestroSurfacePtr icon = solidPicture(31, 20, 0xFFFFFFFF);
    uninit_shared_skin();
    EXPECT_EQ(drawn([&] { return draw_stat_icon_item_left(icon.get(), 5, 100, "word"); }).size(), 1u);
    EXPECT_EQ(result, 41);
}

TEST(BarLayoutTest, ThePositionOfAListStartsAt671) {
    EXPECT_EQ(gListNumOfStatBarOffsetY, 671);
}
