#pragma once

#include <cstdint>

namespace kestro {

/// Sleeps out the rest of the frame that began at `frameStart` (systemms) and charges the boost.
void paceFrame(uint64_t frameStart);

} // namespace kestro
