#include "core/host.h"
#include "hostkit/key_table.h"

int GetKeyShm(void* handle, int index) {
    return handle ? static_cast<hostkit::KeyTable*>(handle)->get(index) : 0;
}
