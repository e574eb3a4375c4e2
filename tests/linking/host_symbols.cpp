#include "linking/host_symbols.h"

#include "core/host.h"

int gDimTime = 0;

static int sTable[64];

void* gShmInfo = sTable;
const char* gThemePath = nullptr;

int GetKeyShm(void*, int index) {
    return sTable[index];
}

void SetKeyShm(void*, int index, int value) {
    sTable[index] = value;
    if (index == 13)
        gDimTime = value;
}

void initJoyStick() {}

bool file_filter(const char*, const char*) {
    return true;
}

TextMenuItem* file_handler(const char*, const char*, int) {
    return nullptr;
}
