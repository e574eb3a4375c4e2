#pragma once

#include "navora/simulated_device.h"

#include <SDL.h>

#include <cstdint>
#include <string>

namespace navora {

/// Follows what changes on a simulated device and the library itself reads only at the start: language, A/B
/// swap and rotation. What has not changed there is left as it is here. Main thread.
class DeviceWatch {
public:
    /// `device` outlives it.
    explicit DeviceWatch(const SimulatedDevice& device);

    /// Looks for changes, about once a second, and follows them. May open the screen anew.
    void follow();

    /// Lets the next follow look at once.
    void lookNow() { mNextLook = 0; }

private:
    /// When a file was changed, to the nanosecond, and which it is: a new one may come in the same instant.
    struct Stamp {
        int64_t seconds = 0;
        int64_t nanoseconds = 0;
        uint64_t file = 0;
        bool operator==(const Stamp& other) const;
    };

    const SimulatedDevice& mDevice;
    Uint64 mNextLook = 0;
    Stamp mSettings;
    Stamp mRotation;
    std::string mLanguage; // as the device had it
    bool mSwapped;

    static Stamp stampOf(const std::string& file);
    void followSettings();
    void followRotation();
};

} // namespace navora
