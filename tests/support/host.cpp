#include "support/host.h"

TestHost gTestHost;

void* gShmInfo = &gTestHost;
const char* gThemePath = nullptr;

int GetKeyShm(void* handle, int index) {
    return static_cast<TestHost*>(handle)->table[index];
}

void SetKeyShm(void* handle, int index, int value) {
    static_cast<TestHost*>(handle)->table[index] = value;
}

void initJoyStick() {
    ++gTestHost.joystickOpenings;
}

bool file_filter(const char*, const char*) {
    return true;
}

TextMenuItem* file_handler(const char*, const char*, int) {
    return nullptr;
}
