#include "core/host.h"
#include "hostkit/key_table.h"

void SetKeyShm(void* handle, int index, int value) {
    if (handle)
        static_cast<hostkit::KeyTable*>(handle)->set(index, value);
}
