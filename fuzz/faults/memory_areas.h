#pragma once

#include <vector>

namespace fuzz {

/// What is done while an allocation fails. `prepare` runs before each time, with memory enough, and so does
/// `isWell` after it, which looks whether the library goes on as if nothing had been. What a host makes for
/// itself, such as a menu, it makes in `prepare`: what `new` throws there is its own.
struct MemoryArea {
    const char* name;
    void (*prepare)();
    void (*run)();
    bool (*isWell)();
    bool mayTrap; // in the one place that stops on purpose
};

// Each needs fuzz::device() and an open screen.

/// Loading, saving, and saving one item.
std::vector<MemoryArea> settingsAreas();
MemoryArea languagesArea();
MemoryArea skinArea();
MemoryArea folderArea();
/// Drawing and measuring, and the readings.
std::vector<MemoryArea> textAreas();
MemoryArea picturesArea();

} // namespace fuzz
