// The launcher's navora.json.
#include "fuzz/support/device.h"
#include "navora/programs.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    navora::Programs programs;
    programs.read(fuzz::textOf(data, size));
    for (const char* path : {"/games/a.nes", "b.mp4", "", "/games/.x/c"})
        programs.commandFor(path);
    return 0;
}
