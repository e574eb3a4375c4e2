#pragma once

#include <string>
#include <vector>

namespace navora {

/// A theme that the owner can choose.
struct Theme {
    std::string name;
    std::string folder; ///< ends in "/"; empty for the default theme
};

/// The default theme, those in "./themes" by name, and, where they are elsewhere, the owner's and this run's.
const std::vector<Theme>& themes();

/// The position of the theme in force in themes().
int currentTheme();

} // namespace navora
