// The theme's folder, from the settings file.
#include "fuzz/support/device.h"
#include "shell/skin.h"

#include <cstdlib>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::put("/mnt/UDISK/system.json", data, size);
    char* theme = nullptr;
    loadThemeInfo(&theme);
    free(theme);
    return 0;
}
