#include "system/system_state.h"

#include "core/log.h"
#include "platform/device_path.h"
#include "system/json_file.h"
#include "system/json_lookup_internal.h"
#include "system/settings_journal.h"
#include "system/system_state_keys.h"

#include <cstdio>
#include <cstring>
#include <unistd.h>

using kestro::JsonPtr;
using kestro::JsonTextPtr;

int gEnableHomeWindow = 1;
int gAllowFocusOnTab = 1;
int gEnableFavoriteTab = 1;
int gEnableRecentPlayedTab = 1;
int gEnableBestsTab = 1;
int gEnableRetroGameTab = 1;
int gEnablePortsTab = 1;
int gEnableAppsTab = 1;
int gEnableNetPlayTab = 1;
int gUseJoystick = 1;
int gEnableKeyTone = 1;
int gEnableSSH = 0;
char* gStoreUrl = nullptr;

void loadSystemState(void* shm, char** theme) {
    const kestro::DevicePath path("/mnt/UDISK/system.json");
    if (const JsonPtr root = kestro::parseSettings(path))
        kestro::loadKeys(shm, theme, root.get());
    else
        kestro::loadDefaults(shm);
}

void saveSystemState(void* shm, const char* theme) {
    const kestro::DevicePath path("/mnt/UDISK/system.json");
    const JsonPtr root = kestro::saveKeys(shm, theme);
    const JsonTextPtr text = root ? kestro::printed(root.get()) : nullptr;
    if (!text && kestro::journalIsOn())
        return;
    if (text && !kestro::writeSideCopy(path, text.get()))
        return;
    FILE* const file = fopen(path, "w+");
    if (!file)
        return;
    // Without a text the file stays empty, which loads as the defaults.
    if (text) {
        fwrite(text.get(), 1, strlen(text.get()), file);
        kestro::endSideCopy(path, file);
    }
    fclose(file);
    sync();
}

static int cannotSave(const char* path, const char* key) {
    tprintf("parse json %s fail while save %s\n", path, key);
    return -1;
}

/// The settings as they stand, or an empty object if there is no file yet; null if they cannot be parsed.
static JsonPtr settingsToChange(const char* path) {
    bool opened = false;
    JsonPtr root = kestro::parseSettings(path, &opened);
    // With the journal a file that is there, but cannot be opened just now, is not written over.
    const bool starts = !opened && (!kestro::journalIsOn() || access(path, F_OK) != 0);
    if (!root && starts)
        root.reset(cJSON_CreateObject());
    return root;
}

/// Without memory for the new number there is none.
static bool replaceNumber(cJSON* root, const char* key, int value) {
    if (cJSON* const old = kestro::findItem(root, key)) // by pointer: cJSON may use a lookup of its own
        cJSON_Delete(cJSON_DetachItemViaPointer(root, old));
    return cJSON_AddNumberToObject(root, key, value) != nullptr;
}

int saveOneItemInSystemState(const char* key, int value) {
    const kestro::DevicePath path("/mnt/UDISK/system.json");
    if (!key)
        return -1;
    const JsonPtr root = settingsToChange(path);
    if (!root)
        return cannotSave(path, key);
    const bool replaced = replaceNumber(root.get(), key, value);
    const JsonTextPtr text = kestro::printed(root.get());
    if (kestro::journalIsOn() && (!replaced || !text || !kestro::writeSideCopy(path, text.get())))
        return -1;
    FILE* const file = fopen(path, "w");
    if (!file) {
        tprintf("open %s fail\n", static_cast<const char*>(path));
        return -1;
    }
    if (text) {
        fputs(text.get(), file);
        tprintf("write %s to %s\n", text.get(), static_cast<const char*>(path));
        kestro::endSideCopy(path, file);
    }
    fclose(file);
    return 0;
}
