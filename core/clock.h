#pragma once

#include "core/export.h"

#include <cstdint>

/// Wall-clock time in milliseconds since 1970-01-01 00:00:00 UTC. It jumps when the clock is set, so
/// differences are taken unsigned: a clock set back shows as a very long time. Any thread.
KESTRO_API uint64_t systemms();
