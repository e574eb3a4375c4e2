#include "system/system_state_keys.h"

#include "core/host.h"
#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/display_color.h"
#include "system/settings_journal.h"
#include "system/system_state.h"

#include <cstddef>

namespace {

struct Saving {
    void* shm;
    const char* theme;
};

/// How one key of the file is made: a number from the host's table, from a flag or from a getter, or a
/// text.
struct KeyRow {
    const char* key;
    int index = -1; // in the host's table
    const int* flag = nullptr;
    int (*number)() = nullptr;
    const char* (*text)(const Saving&) = nullptr; // null for a key that is left out
};

} // namespace

static constexpr int muteIndex = 3;

static constexpr KeyRow fromTable(const char* key, int index) {
    return {key, index};
}

static constexpr KeyRow fromFlag(const char* key, const int* flag) {
    return {key, -1, flag};
}

static constexpr KeyRow fromGetter(const char* key, int (*number)()) {
    return {key, -1, nullptr, number};
}

static constexpr KeyRow fromText(const char* key, const char* (*text)(const Saving&)) {
    return {key, -1, nullptr, nullptr, text};
}

static constexpr KeyRow rows[] = {
    fromTable("vol", 0),
    fromTable("keymap", 2),
    fromTable("mute", muteIndex),
    fromTable("bgmvol", 5),
    fromTable("brightness", 1),
    fromText("language", [](const Saving&) { return getSystemLanguage(); }),
    fromText("theme", [](const Saving& saving) { return saving.theme; }),
    fromTable("hostap", 15),
    fromTable("netplay", 6),
    fromTable("wifi", 14),
    fromTable("cpufreq", 7),
    fromTable("ledswitch", 8),
    fromTable("ledvalue", 10),
    fromTable("menustylel1", 9),
    fromTable("menustylel2", 11),
    fromText("storeurl", [](const Saving&) -> const char* { return gStoreUrl; }),
    fromTable("bluetooth", 16),
    fromGetter("usenetworktime", getSyncTimeFromNetworkFlag),
    fromGetter("24hourclock", get24HourClockFlag),
    fromText("timezone", [](const Saving&) { return getTimeZone(); }),
    fromTable("rumblelevel", 12),
    fromTable("dimtime", 13),
    fromGetter("colorbrightness", getColorBrightness),
    fromGetter("colorcontrast", getContrast),
    fromGetter("colortemperature", getColorTemperature),
    fromGetter("colorsaturation", getSaturation),
    fromFlag("enablehome", &gEnableHomeWindow),
    fromFlag("focusontab", &gAllowFocusOnTab),
    fromTable("bconfirm", 19),
    fromTable("osdshortcut", 18),
    fromFlag("favoritetab", &gEnableFavoriteTab),
    fromFlag("recentplayedtab", &gEnableRecentPlayedTab),
    fromFlag("beststab", &gEnableBestsTab),
    fromFlag("retrogametab", &gEnableRetroGameTab),
    fromFlag("portstab", &gEnablePortsTab),
    fromFlag("appstab", &gEnableAppsTab),
    fromFlag("netplaytab", &gEnableNetPlayTab),
    fromFlag("usejoystick", &gUseJoystick),
    fromFlag("enablekeytone", &gEnableKeyTone),
    fromFlag("enablessh", &gEnableSSH),
};

/// Without these the file would not be worth keeping.
static constexpr size_t essentialRows = 6;

static bool isLeftOut(const Saving& saving, const KeyRow& row) {
    return row.text && !row.text(saving);
}

static cJSON* makeItem(const Saving& saving, const KeyRow& row) {
    if (row.text) {
        const char* const text = row.text(saving);
        return text ? cJSON_CreateString(text) : nullptr;
    }
    if (row.flag)
        return cJSON_CreateNumber(*row.flag);
    if (row.number)
        return cJSON_CreateNumber(row.number());
    const int value = GetKeyShm(saving.shm, row.index);
    return cJSON_CreateNumber(row.index == muteIndex ? value != 0 : value);
}

kestro::JsonPtr kestro::saveKeys(void* shm, const char* theme) {
    JsonPtr root(cJSON_CreateObject());
    if (!root)
        return nullptr;
    const Saving saving{shm, theme};
    for (size_t i = 0; i < sizeof rows / sizeof *rows; ++i) {
        cJSON* const item = makeItem(saving, rows[i]);
        const bool added = item && cJSON_AddItemToObject(root.get(), rows[i].key, item);
        if (item && !added)
            cJSON_Delete(item);
        if (!item && i < essentialRows)
            return nullptr;
        // The journal keeps the old file rather than one from which a key is missing for want of memory.
        if (!added && !isLeftOut(saving, rows[i]) && journalIsOn())
            return nullptr;
    }
    return root;
}
