#include "fuzz/faults/memory_areas.h"
#include "fuzz/support/device.h"
#include "kestro.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace fs = std::filesystem;

namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

constexpr int brightness = 1; // index in the host's table
constexpr int oldBrightness = 3;
constexpr int newBrightness = 4;

std::string settingsFile() {
    return fuzz::device() + "/mnt/UDISK/system.json";
}

std::string savedWith(int value) {
    SetKeyShm(gShmInfo, brightness, value);
    saveSystemState(gShmInfo, "skin/");
    return contentOf(settingsFile());
}

std::string sOldSettings;
std::string sNewSettings;

void prepareSettings() {
    setSettingsJournal(true);
    if (sOldSettings.empty()) {
        write(fuzz::device() + "/usr/kestro/features.json", "{\"bluetooth\": 1, \"suspend\": 1}");
        sNewSettings = savedWith(newBrightness);
        loadSystemState(gShmInfo, nullptr); // which settles what goes by other values
        sNewSettings = savedWith(newBrightness);
        sOldSettings = savedWith(oldBrightness);
    }
    fs::remove(settingsFile() + ".new");
    write(settingsFile(), sOldSettings);
    loadSystemState(gShmInfo, nullptr);
}

void loadSettings() {
    char* theme = nullptr;
    loadSystemState(gShmInfo, &theme);
    free(theme);
    theme = nullptr;
    loadThemeInfo(&theme);
    free(theme);
    loadSystemFunction();
}

bool settingsAreLoaded() {
    loadSettings();
    return GetKeyShm(gShmInfo, brightness) == oldBrightness && contentOf(settingsFile()) == sOldSettings &&
           isBluetoothEanbled();
}

void saveSettings() {
    SetKeyShm(gShmInfo, brightness, newBrightness);
    saveSystemState(gShmInfo, "skin/");
}

void saveOneSetting() {
    saveOneItemInSystemState("brightness", newBrightness);
}

/// The old or the new, whole, be it in the file or beside it; and the next save takes.
bool settingsAreSaved() {
    loadSystemState(gShmInfo, nullptr);
    const int value = GetKeyShm(gShmInfo, brightness);
    const std::string saved = savedWith(value);
    const bool whole = saved == (value == oldBrightness ? sOldSettings : sNewSettings);
    return whole && savedWith(newBrightness) == sNewSettings;
}

} // namespace

std::vector<fuzz::MemoryArea> fuzz::settingsAreas() {
    return {{"settings-load", prepareSettings, loadSettings, settingsAreLoaded, false},
            {"settings-save", prepareSettings, saveSettings, settingsAreSaved, false},
            {"settings-item", prepareSettings, saveOneSetting, settingsAreSaved, false}};
}
