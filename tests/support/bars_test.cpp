#include "support/bars_test.h"

#include "gfx/surface_cache.h"
#include "shell/icon_cache.h"
#include "shell/skin.h"
#include "support/drawing_log.h"
#include "support/texture_names.h"

#include <filesystem>

namespace fs = std::filesystem;

const std::vector<std::string> BarsTest::iconNames = {
    "ic-charging",   "ic-batery-100%", "ic-batery-75%",
    "ic-batery-50%", "ic-batery-25%",  "ic-batery-0%",
    "ic-sound-n",    "ic-sound-mute",  "icon-bluetooth-headphone",
    "icon-hotspot",  "ic-wifi-03",     "ic-wifi-02",
    "ic-wifi-01",
};

void BarsTest::SetUp() {
    SkinnedTest::SetUp();
    for (const std::string& name : iconNames)
        writePicture("skin/" + name + ".png", 33, 32, 0xFF305090);
    writePicture("skin/bg.png", 1280, 64, 0xFF101418);
    writePicture("skin/icon-back.png", 56, 56, 0xFF305090);
    writePicture("skin/tips-A.png", 44, 44, 0xFF305090);
    writePicture("skin/tips-B.png", 44, 44, 0xFF305090);
    writePicture("skin/tips-MENU2.png", 64, 44, 0xFF305090);
    fs::create_directories(onDevice("/proc"));
    g_wpa_msg = {};
    reloadSkin();
}

void BarsTest::TearDown() {
    g_wpa_msg = {};
    SkinnedTest::TearDown();
}

void BarsTest::reloadSkin() {
    init_shared_skin();
    gNavColorTxt = titleColor;
    gNavColorIcon = levelColor;
    gStatColorTxt = hintColor;
    TTF_SetFontSize(gNavFontIcon, levelPoints);
    TTF_SetFontSize(gStatFont, hintPoints);
    gIconCache.clear();
    takeLog();
}

void BarsTest::removePictures(const std::vector<std::string>& names) {
    for (const std::string& name : names)
        fs::remove("skin/" + name + ".png");
}

void BarsTest::setBattery(const std::string& content) {
    writeFile(onDevice("/sys/class/power_supply/axp2202-battery/capacity"), content);
}

void BarsTest::setStatus(const std::string& content) {
    writeFile(onDevice("/sys/class/power_supply/axp2202-battery/status"), content);
}

void BarsTest::setUsb(const std::string& content) {
    writeFile(onDevice("/sys/class/power_supply/axp2202-usb/online"), content);
}

void BarsTest::runProcess(const std::string& command) {
    writeFile(onDevice("/proc/" + std::to_string(100 + ++mProcesses) + "/cmdline"), command);
}

void BarsTest::setMarker(const std::string& path) {
    writeFile(onDevice(path), "");
}

void BarsTest::connectWifi(int rssi) {
    runProcess("/usr/sbin/wpa_supplicant");
    g_wpa_msg.state = 4;
    g_wpa_msg.rssi = rssi;
}

std::vector<std::string> BarsTest::drawn(const std::function<int()>& draw) {
    TextureNames names;
    for (const std::string& name : iconNames)
        names.name(getIconFromCache(("skin/" + name + ".png").c_str()), name);
    names.name(gBackground, "bg");
    names.name(gIconBack, "icon-back");
    names.name(gIconA, "tips-A");
    names.name(gIconB, "tips-B");
    names.name(gIconMenu, "tips-MENU2");
    takeLog();
    DrawingLog log;
    result = draw();
    return log.take();
}

std::string BarsTest::restored(int x, int y) {
    const std::string cell = std::to_string(x) + "," + std::to_string(y) + " 33x32";
    return "'bg' " + cell + " -> " + cell + " on W";
}

std::string BarsTest::icon(const std::string& name, int x, int y) {
    return picture(name, x, y, 33, 32);
}

std::string BarsTest::picture(const std::string& name, int x, int y, int w, int h) {
    return "'" + name + "' all -> " + std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(w) +
           "x" + std::to_string(h) + " on W";
}

std::string BarsTest::text(TTF_Font* font, const std::string& shown, SDL_Color color, int x, int y) {
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(font, shown.c_str(), &w, &h);
    char line[100];
    snprintf(line, sizeof line, "\" #%02X%02X%02X%02X all -> %d,%d %dx%d on W", color.r, color.g, color.b,
             color.a, x, y, w, h);
    return "\"" + shown + line;
}

std::string BarsTest::level(const std::string& shown, int x, int y) {
    int h = 0;
    TTF_SizeUTF8(gNavFontIcon, shown.c_str(), nullptr, &h);
    return text(gNavFontIcon, shown, levelColor, x, y + (32 - h) / 2);
}
