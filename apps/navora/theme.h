#pragma once

#include <string>
#include <vector>

namespace navora {

/// A theme that the owner can choose.
struct Theme {
    std::string name;
    std::string folder; ///< ends in "/"; empty for the default theme
};

/// The default theme and those in "./themes", by name.
const std::vector<Theme>& themes();

/// The position of the theme in force in themes(), 0 if it is not among them.
int currentTheme();

} // namespace navora
