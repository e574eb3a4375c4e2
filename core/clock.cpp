#include "core/clock.h"

#include <sys/time.h>

uint64_t systemms() {
    timeval now{};
    gettimeofday(&now, nullptr);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_usec) / 1000;
}
