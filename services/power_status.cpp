#include "services/power_status.h"

#include "platform/device_path.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using kestro::devicePath;

/// Reads the first line of a file, as much of it as `line` holds. Without one, `line` stays as it is.
template <int size>
static void readLine(const char* path, char (&line)[size]) {
    FILE* const file = fopen(path, "r");
    if (!file)
        return;
    char got[size];
    if (fgets(got, size, file))
        strcpy(line, got);
    fclose(file);
}

int readBatteryADC() {
    char line[16] = "0";
    readLine(devicePath("/sys/class/power_supply/axp2202-battery/capacity"), line);
    return static_cast<int>(strtol(line, nullptr, 10));
}

bool isUsbOnline() {
    char line[32] = "";
    readLine(devicePath("/sys/class/power_supply/axp2202-usb/online"), line);
    return line[0] == '1';
}

bool ischarging() {
    char line[32] = "";
    readLine(devicePath("/sys/class/power_supply/axp2202-battery/status"), line);
    return strncmp(line, "Charging", 8) == 0;
}
