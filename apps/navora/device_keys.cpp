#include "navora/device_keys.h"

#include "core/host.h"
#include "hostkit/rotation.h"
#include "hostkit/settings.h"
#include "navora/wifi_status.h"
#include "system/current_language.h"
#include "system/language.h"

#include <algorithm>

namespace navora {

using Device = SimulatedDevice;

static constexpr int swapIndex = 19;

static std::string onOrOff(bool on) {
    return getLangStr(on ? wordOn : wordOff);
}

/// To the next multiple of five, which the pictures of the battery tell apart well enough.
static void changeBattery(const Device& device, int by) {
    constexpr int step = 5;
    const int level = std::clamp(device.battery(), 0, 100);
    const int next = by > 0 ? level / step * step + step : (level + step - 1) / step * step - step;
    device.setBattery(std::clamp(next, 0, 100));
}

static std::string wifiText(const Device& device) {
    static constexpr Word states[] = {wordOff, wordScanning, wordConnecting, wordConnected, wordHotspot};
    return getLangStr(states[static_cast<size_t>(device.wifi())]);
}

static void nextWifi(const Device& device) {
    device.setWifi(device.wifi() == Device::Wifi::hotspot
                       ? Device::Wifi::off
                       : static_cast<Device::Wifi>(static_cast<int>(device.wifi()) + 1));
    askWifi();
}

static std::string barsText(const Device& device) {
    const int bars = device.wifiBars();
    return bars == 0 ? "-" : std::to_string(bars) + " / 3";
}

static void nextStrength(const Device& device) {
    device.connectWifi(device.wifiBars() % 3 + 1);
    askWifi();
}

static void swapButtons(const Device& device) {
    const bool swapped = GetKeyShm(gShmInfo, swapIndex) == 0;
    if (device.setSwapped(swapped))
        SetKeyShm(gShmInfo, swapIndex, swapped);
}

static std::string languageText(const Device&) {
    for (const LangInfo& language : *getLangList())
        if (language.fileName == getSystemLanguage())
            return language.displayName;
    return getSystemLanguage();
}

static void nextLanguage(const Device& device) {
    const std::vector<LangInfo>& all = *getLangList();
    const auto current = std::find_if(all.begin(), all.end(), [](const LangInfo& language) {
        return language.fileName == getSystemLanguage();
    });
    const auto next = current == all.end() || current + 1 == all.end() ? all.begin() : current + 1;
    if (next != all.end() && device.setLanguage(next->fileName))
        hostkit::changeLanguage(next->fileName);
}

const std::vector<DeviceKey>& deviceKeys() {
    static const std::vector<DeviceKey> keys{
        {SDL_SCANCODE_F2, "F2", wordBatteryDown, true,
         [](const Device& d) { return std::to_string(d.battery()) + " %"; },
         [](const Device& d) { changeBattery(d, -1); }},
        {SDL_SCANCODE_F3, "F3", wordBatteryUp, true, nullptr, [](const Device& d) { changeBattery(d, 1); }},
        {SDL_SCANCODE_F4, "F4", wordCharger, false, [](const Device& d) { return onOrOff(d.charger()); },
         [](const Device& d) { d.setCharger(!d.charger()); }},
        {SDL_SCANCODE_F5, "F5", wordWifi, false, wifiText, nextWifi},
        {SDL_SCANCODE_F6, "F6", wordWifiStrength, false, barsText, nextStrength},
        {SDL_SCANCODE_F7, "F7", wordBluetooth, false, [](const Device& d) { return onOrOff(d.bluetooth()); },
         [](const Device& d) { d.setBluetooth(!d.bluetooth()); }},
        {SDL_SCANCODE_F8, "F8", wordHeadphones, false,
         [](const Device& d) { return onOrOff(d.headphones()); },
         [](const Device& d) { d.setHeadphones(!d.headphones()); }},
        {SDL_SCANCODE_F9, "F9", wordSwapAB, false,
         [](const Device&) { return onOrOff(GetKeyShm(gShmInfo, swapIndex) != 0); }, swapButtons},
        {SDL_SCANCODE_F10, "F10", wordLanguage, false, languageText, nextLanguage},
        {SDL_SCANCODE_F11, "F11", wordScreenOnItsSide, false,
         [](const Device&) { return onOrOff(hostkit::screenIsRotated()); },
         [](const Device& d) { d.setRotated(!hostkit::screenIsRotated()); }},
    };
    return keys;
}

} // namespace navora
