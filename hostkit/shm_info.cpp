#include "core/host.h"
#include "hostkit/key_table.h"

void* gShmInfo = &hostkit::gKeyTable;
