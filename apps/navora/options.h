#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace navora {

/// What the command line asks for. Texts are empty where nothing was given.
struct Options {
    std::string folder;
    std::vector<std::string> keys;
    std::string shot;
    std::string theme;
    std::string language;
    std::string deviceRoot;
    bool keysGiven = false;
    bool rotate = false;
    bool devicePanel = false;
    bool help = false;
    bool version = false;
};

/// A command line that cannot be followed; what() says why, in one line.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

extern const char* const helpText;

/// Reads the command line. Throws UsageError.
Options parseOptions(int argc, char** argv);

} // namespace navora
