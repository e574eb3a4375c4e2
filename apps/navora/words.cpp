#include "navora/words.h"

#include "system/language.h"

#include <cstdio>
#include <cstring>

namespace navora {

static constexpr const char* words[] = {
    "Home",
    "Games",
    "Settings",
    "Language",
    "Theme",
    "Brightness",
    "Contrast",
    "Saturation",
    "Colour temperature",
    "Volume",
    "Key tone",
    "Swap A and B",
    "24-hour clock",
    "Time zone",
    "Dim the screen after",
    "LED",
    "Rumble",
    "Wi-Fi",
    "Bluetooth",
    "Default",
    "Never",
    "Nothing here",
    "%d seconds",
    "%d minutes",
    "Size",
    "Changed",
    "Search",
    "Favourites",
    "Recently played",
    "Add to favourites",
    "Remove from favourites",
    "Details",
    "Remove from this list",
    "Clear the list",
    "Clear the whole list?",
    "No match",
    "Play",
    "About",
    "Display",
    "Sound",
    "Date and time",
    "Device",
    "Version",
    "Battery",
    "Free space",
    "No program is set for this kind of file:",
    "This program is missing:",
    "The program ended with an error:",
    "The games cannot be read any more:",
    "Simulated device",
    "This panel",
    "shown",
    "Battery down",
    "Battery up",
    "Charger",
    "Wi-Fi strength",
    "Headphones",
    "Screen on its side",
    "on",
    "off",
    "scanning",
    "connecting",
    "connected",
    "hotspot",
    "From a shell:",
    "OPTIONS",
};

void addWords() {
    gDefaultStringList.insert(gDefaultStringList.end(), std::begin(words), std::end(words));
}

static bool hasOneNumber(const char* format) {
    const char* const first = strchr(format, '%');
    return first && first[1] == 'd' && !strchr(first + 1, '%');
}

const char* counted(Word word, int number) {
    static char text[64];
    const char* const translated = getLangStr(word);
    const char* const format = hasOneNumber(translated) ? translated : getDefLang(word);
    const char* const place = strstr(format, "%d");
    snprintf(text, sizeof text, "%.*s%d%s", static_cast<int>(place - format), format, number, place + 2);
    return text;
}

} // namespace navora
