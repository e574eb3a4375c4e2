#include "linking/host_symbols.h"

#include "core/host.h"

static int sTable[64];

void* gShmInfo = sTable;
const char* gThemePath = nullptr;

int GetKeyShm(void*, int index) {
    return sTable[index];
}

void SetKeyShm(void*, int index, int value) {
    sTable[index] = value;
}

void initJoyStick() {}

bool file_filter(const char*, const char*) {
    return true;
}

TextMenuItem* file_handler(const char*, const char*, int) {
    return nullptr;
}

void clearTableAway() {}
