#pragma once

#include "navora/simulated_device.h"
#include "navora/words.h"

#include <SDL.h>

#include <string>
#include <vector>

namespace navora {

/// One function key of the simulator.
struct DeviceKey {
    SDL_Scancode code;
    const char* name; ///< on the keyboard
    Word what;        ///< it changes
    bool repeats;     ///< while it is held
    std::string (*value)(const SimulatedDevice& device);
    void (*press)(const SimulatedDevice& device);
};

/// All that change the device, by their number. Those for the language and the swap of A and B change the
/// running launcher as well; the screen is turned by whoever notices the change of the device. Main thread.
const std::vector<DeviceKey>& deviceKeys();

} // namespace navora
