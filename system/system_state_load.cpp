#include "system/system_state_keys.h"

#include "core/host.h"
#include "system/clock_settings.h"
#include "system/clock_settings_internal.h"
#include "system/current_language.h"
#include "system/display_color.h"
#include "system/json_lookup_internal.h"
#include "system/system_state.h"

#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <vector>

namespace {

struct Loading {
    void* shm;
    char** theme;
    const cJSON* root;
};

/// How one key of the file is taken. `number` is its item if that is a number, else null. What the other
/// members mean is up to `load`.
struct KeyRow {
    const char* key;
    void (*load)(const Loading&, const KeyRow&, const cJSON* number);
    int index = 0;    // in the host's table
    int fallback = 0; // when the key is absent or of the wrong type
    unsigned largest = 0;
    int* flag = nullptr;
    void (*set)(int) = nullptr;
};

} // namespace

static constexpr unsigned largestVolume = 20;

static void store(const Loading& loading, int index, int value) {
    SetKeyShm(loading.shm, index, value);
}

/// A number from 0 to `largest`; as it is compared unsigned, negative numbers fail too.
static void loadInRange(const Loading& loading, const KeyRow& row, const cJSON* number) {
    const bool taken = number && static_cast<unsigned>(number->valueint) <= row.largest;
    store(loading, row.index, taken ? number->valueint : row.fallback);
}

static void loadValue(const Loading& loading, const KeyRow& row, const cJSON* number) {
    store(loading, row.index, number ? number->valueint : row.fallback);
}

static void loadNotNegative(const Loading& loading, const KeyRow& row, const cJSON* number) {
    store(loading, row.index, number && number->valueint > 0 ? number->valueint : row.fallback);
}

static void loadSwitch(const Loading& loading, const KeyRow& row, const cJSON* number) {
    store(loading, row.index, number ? number->valueint != 0 : row.fallback);
}

static void loadSwitchOrKeep(const Loading& loading, const KeyRow& row, const cJSON* number) {
    if (number)
        store(loading, row.index, number->valueint != 0);
}

/// The volume's integer, as the two rows below see it: 0 when it is absent or not a number.
static int volumeInteger(const Loading& loading) {
    const cJSON* const volume = kestro::findNumber(loading.root, "vol");
    return volume ? volume->valueint : 0;
}

/// Whether there is sound, in spite of the key's name: it follows the volume, not its own value. Kept, as
/// the other programs of the device read it so.
static void loadMute(const Loading& loading, const KeyRow& row, const cJSON* number) {
    store(loading, row.index, number && volumeInteger(loading) != 0);
}

/// Counts only beside a volume in range; its own range is not looked at. Kept like "mute". Without a volume
/// there is none in range.
static void loadMusicVolume(const Loading& loading, const KeyRow& row, const cJSON* number) {
    const bool volumeInRange = kestro::findItem(loading.root, "vol") &&
                               static_cast<unsigned>(volumeInteger(loading)) <= largestVolume;
    store(loading, row.index, number && volumeInRange ? number->valueint : row.fallback);
}

static void loadLanguage(const Loading& loading, const KeyRow& row, const cJSON*) {
    if (const char* const file = kestro::findText(loading.root, row.key))
        setSystemLanguage(file);
}

static void loadTheme(const Loading& loading, const KeyRow&, const cJSON*) {
    if (loading.theme)
        *loading.theme = kestro::existingTheme(loading.root);
}

static void loadStoreUrl(const Loading& loading, const KeyRow& row, const cJSON*) {
    // What a host may still point to stays valid, and within reach of leak checkers.
    static auto& replaced = *new std::vector<char*>;
    if (gStoreUrl)
        replaced.push_back(gStoreUrl);
    const char* const url = kestro::findText(loading.root, row.key);
    gStoreUrl = url ? strdup(url) : nullptr;
}

static void loadTimeZone(const Loading& loading, const KeyRow& row, const cJSON*) {
    if (const char* const name = kestro::findText(loading.root, row.key))
        kestro::storeTimeZone(name);
}

static void loadBySetter(const Loading&, const KeyRow& row, const cJSON* number) {
    if (number)
        row.set(number->valueint);
}

static void loadSwitchBySetter(const Loading&, const KeyRow& row, const cJSON* number) {
    if (number)
        row.set(number->valueint != 0);
}

static void loadFlag(const Loading&, const KeyRow& row, const cJSON* number) {
    *row.flag = number ? number->valueint : 1;
}

static void loadFlagSwitchOrKeep(const Loading&, const KeyRow& row, const cJSON* number) {
    if (number)
        *row.flag = number->valueint != 0;
}

static void loadJoystickUse(const Loading&, const KeyRow& row, const cJSON* number) {
    const bool taken = number && static_cast<unsigned>(number->valueint) <= 3;
    *row.flag = taken ? number->valueint : 1;
}

static constexpr KeyRow inTable(const char* key, decltype(KeyRow::load) load, int index, int fallback = 0,
                                unsigned largest = 0) {
    return {key, load, index, fallback, largest};
}

static constexpr KeyRow inFlag(const char* key, decltype(KeyRow::load) load, int* flag) {
    return {key, load, 0, 0, 0, flag};
}

static constexpr KeyRow bySetter(const char* key, decltype(KeyRow::load) load, void (*set)(int)) {
    return {key, load, 0, 0, 0, nullptr, set};
}

// One after the other: the keys after "language" are looked up in the language that it sets.
static constexpr KeyRow rows[] = {
    inTable("vol", loadInRange, 0, 14, largestVolume),
    inTable("keymap", loadInRange, 2, 0, 1),
    inTable("mute", loadMute, 3),
    inTable("bgmvol", loadMusicVolume, 5, 10),
    inTable("brightness", loadInRange, 1, 6, 10),
    {"language", loadLanguage},
    {"theme", loadTheme},
    inTable("netplay", loadSwitch, 6, 0),
    inTable("wifi", loadSwitchOrKeep, 14),
    inTable("hostap", loadSwitchOrKeep, 15),
    inTable("bluetooth", loadSwitchOrKeep, 16),
    inTable("cpufreq", loadNotNegative, 7, 0),
    inTable("ledswitch", loadSwitch, 8, 1),
    inTable("ledvalue", loadValue, 10, 4),
    inTable("menustylel1", loadValue, 9, 1),
    inTable("menustylel2", loadValue, 11, 0),
    inTable("rumblelevel", loadInRange, 12, 4, 5),
    inTable("dimtime", loadValue, 13, 300),
    {"storeurl", loadStoreUrl},
    bySetter("usenetworktime", loadSwitchBySetter, setSyncTimeFromNetworkFlag),
    bySetter("24hourclock", loadSwitchBySetter, set24HourClockFlag),
    {"timezone", loadTimeZone},
    bySetter("colortemperature", loadBySetter, setColorTemperature),
    bySetter("colorbrightness", loadBySetter, setColorBrightness),
    bySetter("colorcontrast", loadBySetter, setContrast),
    bySetter("colorsaturation", loadBySetter, setSaturation),
    inFlag("enablehome", loadFlag, &gEnableHomeWindow),
    inFlag("focusontab", loadFlag, &gAllowFocusOnTab),
    inTable("bconfirm", loadSwitch, 19, 0),
    inTable("osdshortcut", loadValue, 18, 0),
    inFlag("favoritetab", loadFlag, &gEnableFavoriteTab),
    inFlag("recentplayedtab", loadFlag, &gEnableRecentPlayedTab),
    inFlag("beststab", loadFlag, &gEnableBestsTab),
    inFlag("retrogametab", loadFlag, &gEnableRetroGameTab),
    inFlag("portstab", loadFlag, &gEnablePortsTab),
    inFlag("appstab", loadFlag, &gEnableAppsTab),
    inFlag("netplaytab", loadFlag, &gEnableNetPlayTab),
    inFlag("usejoystick", loadJoystickUse, &gUseJoystick),
    inFlag("enablekeytone", loadFlagSwitchOrKeep, &gEnableKeyTone),
    inFlag("enablessh", loadFlagSwitchOrKeep, &gEnableSSH),
};

namespace kestro {

char* existingTheme(const cJSON* root) {
    // The path is the owner's data, not the device's: it is taken as it stands.
    const char* const path = findText(root, "theme");
    return path && access(path, F_OK) == 0 ? strdup(path) : nullptr;
}

void loadKeys(void* shm, char** theme, const cJSON* root) {
    const Loading loading{shm, theme, root};
    for (const KeyRow& row : rows)
        row.load(loading, row, findNumber(root, row.key));
}

void loadDefaults(void* shm) {
    static constexpr int table[][2] = {
        {0, 14}, {2, 0},  {3, 0},  {5, 10},   {1, 6},  {6, 0},  {7, 0},  {8, 1},  {10, 4},
        {9, 1},  {11, 0}, {12, 4}, {13, 300}, {14, 0}, {15, 0}, {16, 0}, {19, 0},
    };
    for (const auto& [index, value] : table)
        SetKeyShm(shm, index, value);
    storeTimeZone("");
    setSyncTimeFromNetworkFlag(1);
    set24HourClockFlag(1);
    free(gStoreUrl);
    gStoreUrl = nullptr;
    restoreColorBrightness();
    restoreContrast();
    restoreColorTemperature();
    restoreSaturation();
    gEnableHomeWindow = gAllowFocusOnTab = 1;
    SetKeyShm(shm, 18, 0);
    gEnableFavoriteTab = gEnableRecentPlayedTab = gEnableBestsTab = gEnableRetroGameTab = 1;
    gEnablePortsTab = gEnableAppsTab = gEnableNetPlayTab = 1;
    gUseJoystick = gEnableKeyTone = 1;
    gEnableSSH = 0;
}

} // namespace kestro
