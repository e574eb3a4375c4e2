#include "shell/status_icons.h"

#include "core/host.h"
#include "gfx/text.h"
#include "platform/device_path.h"
#include "services/power_status.h"
#include "services/wifi_monitor.h"
#include "shell/icon_cache.h"
#include "shell/skin.h"

#include <cstdio>
#include <unistd.h>

static constexpr int cellWidth = 33;
static constexpr int cellHeight = 32;
static constexpr int iconStep = 42; // a cell and the gap before the next

static SDL_Rect cellAt(int x, int offset) {
    return {x, offset + 19, cellWidth, cellHeight};
}

static void restore(SDL_Rect cell) {
    if (gBackground)
        gBackground->render(&cell, &cell, false, nullptr);
}

static int drawIcon(const char* name, int used, int offset) {
    const SDL_Rect cell = cellAt(1223 - used, offset);
    restore(cell);
    drawCachedIconCentered(cell, name);
    return iconStep;
}

static const char* batteryPicture(int level) {
    if (level >= 80)
        return "skin/ic-batery-100%.png";
    if (level >= 50)
        return "skin/ic-batery-75%.png";
    if (level >= 25)
        return "skin/ic-batery-50%.png";
    return level >= 5 ? "skin/ic-batery-25%.png" : "skin/ic-batery-0%.png";
}

/// The width of the box for the level with its percent sign; wider texts reach out at its right.
static int levelWidth(int level) {
    if (level <= 9)
        return 30;
    return level <= 99 ? 45 : 60;
}

int draw_battery_icon(bool, int used, int offset) {
    const int level = readBatteryADC();
    int x = 1256 - used;
    restore(cellAt(x, offset)); // of the cells drawn below only this one, which is drawn over elsewhere
    const bool charging = ischarging();
    const bool powered = isUsbOnline() || charging;
    if (powered) {
        x -= 16;
        drawCachedIconCentered(cellAt(x, offset), "skin/ic-charging.png");
        x -= 2;
    }
    x -= cellWidth;
    drawCachedIconCentered(cellAt(x, offset), batteryPicture(level));
    const int width = levelWidth(level);
    x -= width + 12;
    char text[16];
    snprintf(text, sizeof text, "%d%%", level);
    DrawString(gNavFontIcon, {x, offset + 19, width, cellHeight}, text, gNavColorIcon, 3, false, false);
    return width + (powered ? 72 : 54);
}

int draw_sound_icon(bool, int used, int offset) {
    const bool silent = GetKeyShm(gShmInfo, 0) < 1;
    return drawIcon(silent ? "skin/ic-sound-mute.png" : "skin/ic-sound-n.png", used, offset);
}

int draw_hotplug(bool, int used, int offset) {
    if (access(kestro::devicePath("/dev/dsp1"), R_OK) != 0)
        return 0;
    return drawIcon("skin/icon-bluetooth-headphone.png", used, offset);
}

/// A number of the Wi-Fi record, which the monitor's thread writes without a lock.
static int current(const int& number) {
    return __atomic_load_n(&number, __ATOMIC_RELAXED);
}

/// The picture for the Wi-Fi connection; null without one.
static const char* connectionPicture() {
    const WpaMsg* const status = rx_wifi_status();
    if (!status || current(status->state) != 4)
        return nullptr;
    const int level = rssi2Level(current(status->rssi));
    if (level >= 3)
        return "skin/ic-wifi-03.png";
    return level == 2 ? "skin/ic-wifi-02.png" : "skin/ic-wifi-01.png";
}

static const char* wifiPicture() {
    switch (getWifiMode()) {
    case 3:
        return "skin/icon-hotspot.png";
    case 2:
        return connectionPicture();
    default:
        return nullptr;
    }
}

int draw_wifi_icon(bool, int used, int offset) {
    const char* const picture = wifiPicture();
    return picture ? drawIcon(picture, used, offset) : 0;
}

int draw_bluetooth_icon(bool, int used, int offset) {
    restore(cellAt(1223 - used, offset));
    if (access(kestro::devicePath("/tmp/btdev_addr"), F_OK) != 0 ||
        access(kestro::devicePath("/tmp/bluetooth_ready"), F_OK) != 0)
        return 0;
    drawCachedIconCentered(cellAt(1223 - used, offset), "skin/icon-bluetooth-headphone.png");
    return iconStep;
}
