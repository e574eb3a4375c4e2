#include "core/host.h"
#include "hostkit/pads.h"

void initJoyStick() {
    hostkit::openPads();
}
