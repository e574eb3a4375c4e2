// The window-state file.
#include "core/window_state.h"
#include "fuzz/support/device.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::put("/work/state.json", data, size);
    cJSON_Delete(loadWindowsState("state.json"));
    return 0;
}
