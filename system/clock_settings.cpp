#include "system/clock_settings.h"

#include "system/clock_settings_internal.h"

#include <cstring>

static struct {
    char timeZone[257] = {}; // 256 bytes of name, and always a terminator
    int syncTime = 1;
    int clock24 = 1;
} sClock;

/// The name within the zone folder; "" for the folder itself.
static const char* zoneName(const char* text) {
    static constexpr char folder[] = "/usr/share/zoneinfo";
    const char* const found = strstr(text, folder);
    if (!found)
        return text;
    const char* const after = found + strlen(folder);
    return *after ? after + 1 : after;
}

void kestro::storeTimeZone(const char* name) {
    char stored[sizeof sClock.timeZone] = {}; // `name` may be the buffer itself
    strncpy(stored, name, sizeof stored - 1);
    memcpy(sClock.timeZone, stored, sizeof stored);
}

void setTimeZone(const char* name) {
    if (name)
        kestro::storeTimeZone(zoneName(name));
}

const char* getTimeZone() {
    return *sClock.timeZone ? sClock.timeZone : nullptr;
}

void setSyncTimeFromNetworkFlag(int flag) {
    sClock.syncTime = flag;
}

int getSyncTimeFromNetworkFlag() {
    return sClock.syncTime;
}

void set24HourClockFlag(int flag) {
    sClock.clock24 = flag;
}

int get24HourClockFlag() {
    return sClock.clock24;
}
