#include "support/failing_json_memory.h"

#include <cJSON.h>

#include <cstdlib>

static int sLeft = 0;
static size_t sSize = 0;

static void* allocate(size_t size) {
    if ((sSize == 0 || size == sSize) && --sLeft == 0)
        return nullptr;
    return malloc(size);
}

FailingJsonMemory::FailingJsonMemory(int nth, size_t size) {
    sLeft = nth;
    sSize = size;
    cJSON_Hooks hooks{allocate, free};
    cJSON_InitHooks(&hooks);
}

FailingJsonMemory::~FailingJsonMemory() {
    cJSON_InitHooks(nullptr);
}

bool FailingJsonMemory::failed() const {
    return sLeft <= 0;
}
