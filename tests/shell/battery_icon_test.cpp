#include "shell/skin.h"
#include "shell/status_icons.h"
#include "support/bars_test.h"
#include "support/opened_paths.h"

#include <algorithm>
#include <filesystem>

using testing::Contains;
using testing::ElementsAre;

class BatteryIconTest : public BarsTest {
protected:
    std::vector<std::string> drawnBattery(int used = 0, int offset = 0) {
        return drawn([=] { return draw_battery_icon(true, used, offset); });
    }
};

TEST_F(BatteryIconTest, SevenPercentWithoutPower) {
    setBattery("7\n");
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), icon("ic-batery-25%", 1223), level("7%", 1181)));
    EXPECT_EQ(result, 84);
}

TEST_F(BatteryIconTest, AHundredPercentOnUsbPower) {
    setBattery("100\n");
    setUsb("1\n");
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), icon("ic-charging", 1240),
                                            icon("ic-batery-100%", 1205), level("100%", 1133)));
    EXPECT_EQ(result, 132);
}

TEST_F(BatteryIconTest, FiftyPercentWhileCharging) {
    setBattery("50\n");
    setStatus("Charging\n");
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), icon("ic-charging", 1240),
                                            icon("ic-batery-75%", 1205), level("50%", 1148)));
    EXPECT_EQ(result, 117);
}

TEST_F(BatteryIconTest, ThePictureFollowsTheLevel) {
    const std::pair<const char*, const char*> pictures[] = {
        {"-1", "ic-batery-0%"},   {"0", "ic-batery-0%"},    {"4", "ic-batery-0%"},
        {"5", "ic-batery-25%"},   {"24", "ic-batery-25%"},  {"25", "ic-batery-50%"},
        {"49", "ic-batery-50%"},  {"50", "ic-batery-75%"},  {"79", "ic-batery-75%"},
        {"80", "ic-batery-100%"}, {"99", "ic-batery-100%"}, {"100", "ic-batery-100%"},
        {"101", "ic-batery-100%"}};
    for (const auto& [content, name] : pictures) {
        setBattery(content);
        EXPECT_THAT(drawnBattery(), Contains(icon(name, 1223))) << content;
    }
}

TEST_F(BatteryIconTest, TheBoxOfTheTextFollowsTheLevel) {
    const struct {
        const char* content;
        int x;
        int width;
    } boxes[] = {{"-12", 1181, 30}, {"0", 1181, 30},   {"9", 1181, 30},    {"10", 1166, 45},
                 {"99", 1166, 45},  {"100", 1151, 60}, {"12345", 1151, 60}};
    for (const auto& box : boxes) {
        setBattery(box.content);
        EXPECT_EQ(drawnBattery().back(), level(box.content + std::string("%"), box.x));
        EXPECT_EQ(result, box.width + 54);
        setUsb("1");
        EXPECT_EQ(drawnBattery().back(), level(box.content + std::string("%"), box.x - 18));
        EXPECT_EQ(result, box.width + 72);
        setUsb("0");
    }
}

TEST_F(BatteryIconTest, EitherKindOfPowerShowsTheMarkOnce) {
    setBattery("50");
    for (const bool usb : {false, true})
        for (const bool charging : {false, true}) {
            setUsb(usb ? "1\n" : "0\n");
            setStatus(charging ? "Charging\n" : "Not charging\n");
            const auto lines = drawnBattery();
            EXPECT_EQ(std::count(lines.begin(), lines.end(), icon("ic-charging", 1240)), usb || charging);
            EXPECT_EQ(result, usb || charging ? 117 : 99);
        }
}

TEST_F(BatteryIconTest, BothKindsOfPowerAreLookedUpEveryTime) {
    setBattery("50");
    setUsb("1");
    setStatus("Charging");
    draw_battery_icon(true, 0, 0);
    takeLog();
    for (int i = 0; i < 2; ++i) {
        OpenedPaths opened;
        draw_battery_icon(true, 0, 0);
        EXPECT_THAT(opened.take(), testing::UnorderedElementsAre(
                                       onDevice("/sys/class/power_supply/axp2202-battery/capacity"),
                                       onDevice("/sys/class/power_supply/axp2202-battery/status"),
                                       onDevice("/sys/class/power_supply/axp2202-usb/online")));
    }
}

TEST_F(BatteryIconTest, EveryDrawingShowsTheStateOfThatMoment) {
    setBattery("50");
    EXPECT_EQ(drawnBattery().size(), 3u);
    setBattery("4");
    setStatus("Charging");
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), icon("ic-charging", 1240),
                                            icon("ic-batery-0%", 1205), level("4%", 1163)));
}

TEST_F(BatteryIconTest, WhatIsUsedMovesItLeftAndTheOffsetDown) {
    setBattery("7");
    setUsb("1");
    EXPECT_THAT(drawnBattery(100, 30), ElementsAre(restored(1156, 49), icon("ic-charging", 1140, 49),
                                                   icon("ic-batery-25%", 1105, 49), level("7%", 1063, 49)));
    EXPECT_EQ(result, 102);
    setUsb("0");
    EXPECT_THAT(drawnBattery(-3, -19),
                ElementsAre(restored(1259, 0), icon("ic-batery-25%", 1226, 0), level("7%", 1184, 0)));
}

TEST_F(BatteryIconTest, WithoutTheBatterysFilesItIsEmpty) {
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), icon("ic-batery-0%", 1223), level("0%", 1181)));
    EXPECT_EQ(result, 84);
}

TEST_F(BatteryIconTest, NonsenseInTheBatterysFilesDoesNoHarm) {
    for (const char* const nonsense : {"", "abc", "\n\n", "\xFF\xFE\x01", "%s%n%d", "Charging"}) {
        setBattery(nonsense);
        setUsb(nonsense);
        setStatus(nonsense == std::string("Charging") ? "charging" : nonsense);
        EXPECT_THAT(drawnBattery(),
                    ElementsAre(restored(1256), icon("ic-batery-0%", 1223), level("0%", 1181)));
    }
    setBattery(std::string(100000, '9'));
    setUsb(std::string(100000, '0'));
    setStatus(std::string(100000, 'C'));
    EXPECT_EQ(drawnBattery().size(), 3u);
    for (const char* const extreme : {"2147483647", "-2147483648"}) {
        setBattery(extreme);
        EXPECT_THAT(drawnBattery().back(), testing::StartsWith("\"" + std::string(extreme) + "%\""));
    }
    std::filesystem::remove_all(onDevice("/sys"));
    std::filesystem::create_directories(onDevice("/sys/class/power_supply/axp2202-battery/capacity"));
    EXPECT_EQ(drawnBattery().back(), level("0%", 1181));
}

TEST_F(BatteryIconTest, MissingPicturesLeaveTheRestInItsPlace) {
    setBattery("7");
    setUsb("1");
    removePictures({"ic-charging"});
    reloadSkin();
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), icon("ic-batery-25%", 1205), level("7%", 1163)));
    removePictures(iconNames);
    reloadSkin();
    EXPECT_THAT(drawnBattery(), ElementsAre(restored(1256), level("7%", 1163)));
    EXPECT_EQ(result, 102);
}

TEST_F(BatteryIconTest, WithoutABackgroundNothingIsPaintedOver) {
    setBattery("7");
    removePictures({"bg"});
    reloadSkin();
    EXPECT_THAT(drawnBattery(), ElementsAre(icon("ic-batery-25%", 1223), level("7%", 1181)));
}

TEST_F(BatteryIconTest, WithoutAFontThereIsNoTextButItsPlace) {
    setBattery("100");
    uninit_shared_skin();
    EXPECT_THAT(drawnBattery(), ElementsAre(icon("ic-batery-100%", 1223)));
    EXPECT_EQ(result, 114);
}

TEST_F(BatteryIconTest, TheFlagHasNoEffect) {
    setBattery("7");
    EXPECT_EQ(drawn([] { return draw_battery_icon(false, 0, 0); }), drawnBattery());
    EXPECT_EQ(result, 84);
}

TEST_F(BatteryIconTest, SmallerAndLargerPicturesAreCentredInTheirCells) {
    writePicture("skin/ic-batery-25%.png", 20, 11, 0xFFFFFFFF);
    writePicture("skin/ic-charging.png", 40, 37, 0xFFFFFFFF);
    reloadSkin();
    setBattery("7");
    setUsb("1");
    const auto lines = drawnBattery();
    EXPECT_EQ(lines[1], picture("ic-charging", 1240 - 3, 19 - 2, 40, 37));
    EXPECT_EQ(lines[2], picture("ic-batery-25%", 1205 + 6, 19 + 10, 20, 11));
}
