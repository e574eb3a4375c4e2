// The settings file: loaded, one item of it saved, saved whole and loaded again.
#include "core/host.h"
#include "fuzz/support/device.h"
#include "system/system_state.h"

#include <cstdlib>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::put("/mnt/UDISK/system.json", data, size);
    char* theme = nullptr;
    loadSystemState(gShmInfo, &theme);
    saveOneItemInSystemState("vol", 3);
    saveSystemState(gShmInfo, theme);
    free(theme);
    theme = nullptr;
    loadSystemState(gShmInfo, &theme);
    free(theme);
    return 0;
}
