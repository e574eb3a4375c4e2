#include "system/features.h"

#include "core/host.h"
#include "platform/device_path.h"
#include "system/json_file.h"
#include "system/json_lookup_internal.h"

#include <string>

using kestro::devicePath;

static struct {
    int bluetooth = 0;
    int suspend = 1;
    int batteryTemperature = 0;
} sFeatures;

static void keepAwake() {
    const std::string marker = kestro::shellQuoted(std::string(devicePath("/tmp/stay_awake")));
    kestro::runCommand(("touch " + marker).c_str());
}

static void apply(const cJSON* root) {
    if (const cJSON* const item = kestro::findNumber(root, "bluetooth"))
        sFeatures.bluetooth = item->valueint;
    if (const cJSON* const item = kestro::findNumber(root, "suspend")) {
        sFeatures.suspend = item->valueint;
        if (item->valueint == 0)
            keepAwake();
    }
    if (const cJSON* const item = kestro::findNumber(root, "battemp"))
        sFeatures.batteryTemperature = item->valueint;
}

void loadSystemFunction() {
    bool opened = false;
    kestro::JsonPtr root =
        kestro::parsePath("features.json", devicePath("/mnt/SDCARD/features.json"), &opened);
    if (!opened)
        root = kestro::parsePath("features.json", devicePath("/usr/kestro/features.json"));
    if (root)
        apply(root.get());
}

int getBluetoothFlag(void* shm) {
    return sFeatures.bluetooth && GetKeyShm(shm, 16) == 1;
}

int isBluetoothEanbled() {
    return sFeatures.bluetooth;
}

int isSuspendEnabled() {
    return sFeatures.suspend;
}

int isBatteryTempEnabled() {
    return sFeatures.batteryTemperature;
}
