#include "system/osd_shortcuts.h"

// The index is what the settings file holds.
static constexpr const char* shortcuts[] = {
    "MENU+SELECT", "MENU+START", "MENU+MENU",  "MENU+L2",  "MENU+R2",  "MENU+L",
    "MENU+R",      "MENU+A",     "MENU+B",     "MENU+X",   "MENU+Y",   "SELECT+START",
    "SELECT+L2",   "SELECT+R2",  "SELECT+L",   "SELECT+R", "START+L2", "START+R2",
    "START+L",     "START+R",    "MENU+L2+R2", "OFF",
};

static constexpr unsigned count = sizeof shortcuts / sizeof *shortcuts;

int getOSDShortcutNumber() {
    return count;
}

const char* getOSDShorcut(int index) {
    return static_cast<unsigned>(index) < count ? shortcuts[index] : nullptr;
}
