// The feature file.
#include "fuzz/support/device.h"
#include "system/features.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::put("/mnt/SDCARD/features.json", data, size);
    loadSystemFunction();
    return 0;
}
