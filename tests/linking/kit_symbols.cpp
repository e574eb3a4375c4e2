// For hosts with the host kit, which brings the host's symbols.
#include "hostkit/key_table.h"
#include "linking/host_symbols.h"

#include <sys/mman.h>

void clearTableAway() {
    shm_unlink(hostkit::keyTableName().c_str());
}
