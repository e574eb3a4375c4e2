#include "system/display_color.h"

#include "platform/device_path.h"

#include <algorithm>
#include <cstdio>

using kestro::devicePath;

static constexpr int defaultSaturation = 5;
static constexpr int defaultTemperature = 10;
static constexpr int defaultContrast = 5;
static constexpr int defaultBrightness = 5;

static struct {
    int saturation = defaultSaturation;
    int temperature = defaultTemperature;
    int contrast = defaultContrast;
    int brightness = defaultBrightness;
} sLevels;

static void writeDriver(const char* path, int value) {
    FILE* const file = fopen(path, "w");
    if (!file)
        return;
    fprintf(file, "%d", value);
    fclose(file);
}

void setSaturation(int level) {
    sLevels.saturation = std::clamp(level, 0, 10);
    writeDriver(devicePath("/sys/devices/virtual/disp/disp/attr/enhance_saturation"),
                sLevels.saturation * 10);
}

int getSaturation() {
    return sLevels.saturation;
}

void restoreSaturation() {
    setSaturation(defaultSaturation);
}

void setColorTemperature(int level) {
    sLevels.temperature = std::clamp(level, 0, 20);
    writeDriver(devicePath("/sys/devices/virtual/disp/disp/attr/color_temperature"),
                (sLevels.temperature - 10) * 5);
}

int getColorTemperature() {
    return sLevels.temperature;
}

void restoreColorTemperature() {
    setColorTemperature(defaultTemperature);
}

void setContrast(int level) {
    sLevels.contrast = std::clamp(level, 1, 10);
    writeDriver(devicePath("/sys/devices/virtual/disp/disp/attr/enhance_contrast"), sLevels.contrast * 10);
}

int getContrast() {
    return sLevels.contrast;
}

void restoreContrast() {
    setContrast(defaultContrast);
}

void setColorBrightness(int level) {
    sLevels.brightness = std::clamp(level, 1, 10);
    writeDriver(devicePath("/sys/devices/virtual/disp/disp/attr/enhance_bright"), sLevels.brightness * 10);
}

int getColorBrightness() {
    return sLevels.brightness;
}

void restoreColorBrightness() {
    setColorBrightness(defaultBrightness);
}
