// A picture file: what its header claims, and its decoding.
#include "fuzz/support/device.h"
#include "gfx/picture_file.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::put("/work/picture", data, size);
    SDL_FreeSurface(decodePictureFile("picture"));
    return 0;
}
