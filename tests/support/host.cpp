#include "support/host.h"

void* gShmInfo = &gTestHost;
const char* gThemePath = nullptr;

int GetKeyShm(void* handle, int index) {
    auto* const host = static_cast<TestHost*>(handle);
    host->reads.push_back(index);
    return host->table[index];
}

void SetKeyShm(void* handle, int index, int value) {
    auto* const host = static_cast<TestHost*>(handle);
    host->stores.emplace_back(index, value);
    host->table[index] = value;
}

void initJoyStick() {
    ++gTestHost.joystickOpenings;
}

bool file_filter(const char* name, const char* path) {
    return gTestHost.fileFilter ? gTestHost.fileFilter(name, path) : true;
}

TextMenuItem* file_handler(const char* name, const char* path, int kind) {
    return gTestHost.fileHandler ? gTestHost.fileHandler(name, path, kind) : nullptr;
}
