#pragma once

#include "core/host.h"

/// What the tests' host has seen and offers. The tests set it as they need; KestroTest resets it.
struct TestHost {
    int joystickOpenings = 0; ///< calls of initJoyStick
    int table[64] = {};       ///< the shared table of integer settings
};

extern TestHost gTestHost;
