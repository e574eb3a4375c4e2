#include "support/theme_picture_test.h"

#include "services/wifi_monitor.h"
#include "shell/skin.h"
#include "system/current_language.h"
#include "system/language.h"

#include <filesystem>

namespace fs = std::filesystem;

ListedPage::ListedPage(std::string title, const std::vector<std::string>& rows)
    : KestroWindow(-1, 0), mTitle(std::move(title)), mList("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 4) {
    for (const std::string& row : rows)
        mList.insertItem(
            static_cast<TextMenuItemProvider*>(new TextMenuItem(row.c_str(), nullptr, nullptr, false)));
    mList.setCursor(1);
}

int ListedPage::draw() {
    gBackground->render(nullptr, nullptr, true, nullptr);
    drawNavBar(0);
    mList.draw();
    drawStatBar(0);
    return 0;
}

void ThemePictureTest::SetUp() {
    ScreenTest::SetUp();
    fs::create_symlink(TEST_FONT, "regular.ttf");
    fs::create_directory_symlink(TEST_ASSETS "/skin", "skin");
    fs::create_directory_symlink(TEST_ASSETS "/lang", "lang");
    initLang();
    setSystemLanguage((std::string(GetParam()) + ".lang").c_str());
    gTestHost.table[0] = 30; // the volume
    setBattery(76, false);
    writeFile(onDevice("/proc/101/cmdline"), "/usr/sbin/wpa_supplicant");
    writeFile(onDevice("/tmp/btdev_addr"), "");
    writeFile(onDevice("/tmp/bluetooth_ready"), "");
    g_wpa_msg = {};
    g_wpa_msg.state = 4;
    g_wpa_msg.rssi = -55;
    openThemed(0);
}

void ThemePictureTest::TearDown() {
    takeLog();
    g_wpa_msg = {};
    uninit_shared_skin();
    gLangTable.clear();
    setSystemLanguage("en.lang");
    ScreenTest::TearDown();
}

void ThemePictureTest::openThemed(int rotate) {
    uninit_shared_skin();
    openScreen(1280, 720, rotate);
    init_shared_skin();
    takeLog();
    ASSERT_NE(gBackground, nullptr);
    ASSERT_NE(gNavFont, nullptr);
}

std::unique_ptr<ListedPage> ThemePictureTest::gamesPage() const {
    const std::vector<std::string> games = {word("Asteroid Run", "小行星"),
                                            word("Bread and Magic", "面包与魔法"),
                                            word("Castle of Rain", "雨之城堡"),
                                            word("Deep Garden", "深海花园"),
                                            word("Echo Valley", "回声谷"),
                                            word("Fox Express", "狐狸快车"),
                                            word("Glow", "微光")};
    return std::make_unique<ListedPage>(word("Games", "游戏"), games);
}

void ThemePictureTest::showOver(KestroWindow& page, KestroWindow& window) {
    page.draw();
    ScreenUpdateAndFlip();
    window.init();
    window.draw();
    ScreenUpdateAndFlip();
}

void ThemePictureTest::setBattery(int level, bool usb) {
    writeFile(onDevice("/sys/class/power_supply/axp2202-battery/capacity"), std::to_string(level) + "\n");
    writeFile(onDevice("/sys/class/power_supply/axp2202-usb/online"), usb ? "1\n" : "0\n");
}
