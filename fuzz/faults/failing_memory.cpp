#include "fuzz/faults/failing_memory.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstddef>

static std::atomic<long> sLeft{LONG_MAX}; // before the one that fails
static std::atomic<bool> sAll{false};

static bool isRefused() {
    const long left = sLeft == LONG_MAX ? LONG_MAX : --sLeft;
    if (left > 0 || (left < 0 && !sAll))
        return false;
    errno = ENOMEM;
    return true;
}

// The C library's own, which stay reachable by these names when a program brings functions of its own.
extern "C" void* __libc_malloc(size_t bytes);
extern "C" void* __libc_calloc(size_t number, size_t bytes);
extern "C" void* __libc_realloc(void* memory, size_t bytes);

extern "C" void* malloc(size_t bytes) {
    return isRefused() ? nullptr : __libc_malloc(bytes);
}

extern "C" void* calloc(size_t number, size_t bytes) {
    return isRefused() ? nullptr : __libc_calloc(number, bytes);
}

extern "C" void* realloc(void* memory, size_t bytes) {
    return isRefused() ? nullptr : __libc_realloc(memory, bytes);
}

namespace fuzz {

void failAllocation(long nth, Failing which) {
    sAll = which == Failing::allFromThere;
    sLeft = nth;
}

bool endFailing() {
    return sLeft.exchange(LONG_MAX) <= 0;
}

} // namespace fuzz
