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

/// Makes the folder, which ends in "/", the library's theme; "" for the default. Before the skin is loaded.
void startTheme(const std::string& folder);

/// What the settings file keeps: the folder, null for the default theme. Valid until the theme changes.
const char* savedTheme();

/// Changes the theme while the launcher runs: the skin is loaded anew, and what the old theme has left in
/// the caches goes.
void changeTheme(const std::string& folder);

/// Changes with every change of theme.
int themeNumber();

} // namespace navora
