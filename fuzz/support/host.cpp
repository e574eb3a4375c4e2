// A host with a table of its own, every file and a row for each.
#include "core/host.h"
#include "menu/menu_item.h"

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

TextMenuItem* file_handler(const char* name, const char*, int) {
    return new TextMenuItem(name, nullptr, nullptr, false);
}
