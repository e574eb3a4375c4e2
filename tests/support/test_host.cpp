#include "support/host.h"

TestHost gTestHost;
