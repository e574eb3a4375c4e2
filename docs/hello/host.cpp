#include <core/host.h>

// What the library asks of every host. This one has no settings, no pads, no theme and no files.
void* gShmInfo = nullptr;
const char* gThemePath = nullptr;

int GetKeyShm(void*, int) {
    return 0;
}

void SetKeyShm(void*, int, int) {}

void initJoyStick() {}

bool file_filter(const char*, const char*) {
    return true;
}

TextMenuItem* file_handler(const char*, const char*, int) {
    return nullptr;
}
