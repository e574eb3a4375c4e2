#pragma once

#include "core/host.h"

#include <functional>
#include <utility>
#include <vector>

/// What the tests' host has seen and offers. The tests set it as they need; KestroTest resets it.
struct TestHost {
    int joystickOpenings = 0; ///< calls of initJoyStick
    int table[64] = {};       ///< the shared table of integer settings

    std::vector<int> reads;                  ///< the index of every GetKeyShm, in order
    std::vector<std::pair<int, int>> stores; ///< index and value of every SetKeyShm, in order

    /// The answers of file_filter and file_handler; without them every file counts and none has a row.
    std::function<bool(const char* name, const char* path)> fileFilter;
    std::function<TextMenuItem*(const char* name, const char* path, int kind)> fileHandler;
};

extern TestHost gTestHost;
