#pragma once

#include <vector>

namespace fuzz {

/// What is done while an allocation fails. `prepare` runs before each time, with memory enough, and so does
/// `isWell` after it, which looks whether the library goes on as if nothing had been.
struct MemoryArea {
    const char* name;
    void (*prepare)();
    void (*run)();
    bool (*isWell)();
    bool mayTrap; // in the one place that stops on purpose
};

/// Needs fuzz::device() and an open screen.
const std::vector<MemoryArea>& memoryAreas();

} // namespace fuzz
