#pragma once

#include "core/log.h"

#include <new>

namespace kestro {

/// Runs `body` and returns what that returns. When C++ has no memory for something in it, says so with
/// `where` in the log and returns `otherwise`. It stands where hosts call: they have no handlers for what is
/// thrown, and would be ended by it.
template <typename Result, typename Body>
Result unlessOutOfMemory(const char* where, Result otherwise, const Body& body) {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        tprintf("%s: out of memory\n", where);
        return otherwise;
    }
}

template <typename Body>
void unlessOutOfMemory(const char* where, const Body& body) {
    unlessOutOfMemory(where, 0, [&] { return body(), 0; });
}

} // namespace kestro
